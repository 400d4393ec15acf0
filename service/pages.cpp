#include "service/pages.h"

#include <string>

#include "service/line.h"
#include "service/personal.h"
#include "service/request_reader.h"

namespace parlorwire::service {
namespace {

constexpr std::string_view kWrongPasswordTitle = "error auth page";
constexpr std::string_view kWrongPassword = W<"неверное имя или пароль">;

}  // namespace

Text LoginPage() {
  return Page("Чат"_w,
              "<h1>Чат</h1>\n<form method=\"post\" action=\"/\">\n"
              "<p>Ник <input name=\"username\">\n"
              "<p>Пароль <input type=\"password\" name=\"passwd\">\n"
              "<p>Канал <input name=\"channel\">\n"
              "<p>Пароль канала <input type=\"password\" name=\"chpwd\">\n"
              "<p><input type=\"submit\" value=\"Войти\">\n</form>\n"
              "<p>Новый ник запоминается с тем паролем, с которым вошел впервые.\n"
              "<p><a href=\"/rulez.html\">Правила</a>\n"_w);
}

Text WelcomePage(const Visitor& visitor) {
  return Page("Добро пожаловать"_w, "<p>Добро пожаловать!\n<p>"_w +
                                        Link("/room", visitor, "Войти в чат"_w) + "<p>" +
                                        Link("/", visitor, "Список каналов"_w) + "<p>" +
                                        Link(kPersonalPage, visitor, "Персональные сообщения"_w));
}

Text WrongPasswordPage() {
  return Page(kWrongPasswordTitle, "<p>" + Text(kWrongPassword) + "\n");
}

Text NoPersonalFramePage(std::string_view time) {
  return PersonalHead(kWrongPasswordTitle) + "&gt; [" + Text(time) + "]  " + "чат "_w +
         Text(kWrongPassword) + "\n";
}

Text WaitPage() {
  return Page(kWrongPasswordTitle, "<p>Слишком много неверных паролей. Подождите минуту.\n"_w);
}

Text RefusedPage() {
  return Page("authorization failed!", "<p>Вход с этим ником или с этого адреса невозможен.\n"_w);
}

Text RoomPage(const Visitor& visitor) {
  const Text query = VisitorQuery(visitor);
  return "<html>\n<head>\n<title>" + EscapeHtml(visitor.channel) +
         "</title>\n</head>\n<frameset cols=\"*,220\">\n<frameset rows=\"*,140\">\n"
         "<frame src='/pframe?" +
         query + "'>\n<frame src='/newmsg_t?" + query + "'>\n</frameset>\n<frame src='/chl?" +
         query + "'>\n</frameset>\n</html>\n";
}

Text PostPage(const Visitor& visitor, std::string_view sentence) {
  Text tones = Option("200", W<"обычным тоном">);
  for (const Tone& tone : kTones)
    tones += Option(tone.action, tone.name);
  return Page("say", "<form method=\"post\" action=\"/newmsg_t\">\n" + HiddenVisitor(visitor) +
                         "<input name=\"msgtext\" size=\"60\">\n<select name=\"action\">\n" +
                         tones + "</select>\n<input type=\"submit\" value=\"" + "Сказать"_w +
                         "\">\n</form>\n<font size=1>" + EscapeHtml(sentence) + "</font>\n<p>" +
                         Link("/leave", visitor, "Уйти с канала"_w) +
                         Link("/logoff", visitor, "Выйти из чата"_w));
}

Text PersonalPostPage(const Visitor& visitor, std::string_view sentence) {
  return Page("say", "<form method=\"post\" action=\"/newmsg_pm\">\n" + HiddenVisitor(visitor) +
                         "<input name=\"xtouser\">\n<input name=\"msgtext\" size=\"60\">\n"
                         "<input type=\"submit\">\n</form>\n<font size=1>" +
                         EscapeHtml(sentence) + "</font>\n");
}

Text GoodbyePage(std::string_view nick) {
  return Page("bye", "<p>До свидания, "_w + EscapeHtml(nick) + ".\n");
}

Text ErrorPage(int status) {
  const Text words = std::to_string(status) + " " + Text(ReasonPhrase(status));
  return Page(words, "<h1>" + words + "</h1>\n");
}

Text RulesPage() {
  return Page(
      "Правила"_w,
      "<h1>Правила</h1>\n<ol>\n"
      "<li>Первый на канале становится его оператором.\n"
      "<li>Оператор удаляет с канала (/k), заносит в бан-лист (/mo +b), лишает голоса (/mu) "
      "и заглавных букв (/l).\n"
      "<li>Стиль выбирают командой /set s, длину истории командой /s h.\n"
      "<li>Будьте вежливы.\n</ol>\n"_w);
}

Text NoSuchChannelPage(std::string_view name) {
  return Page("no channel", "<p>Нет такого канала: "_w + EscapeHtml(name) + "\n");
}

Text LockedChannelPage(std::string_view name) {
  return Page("locked channel", "<p>Канал закрыт паролем: "_w + EscapeHtml(name) + "\n");
}

Text WayOutPage(std::string_view target) {
  const Text shown = EscapeHtml(target);
  return Page("link", "<p>Ссылка ведет за пределы чата:\n<p><a href=\""_w + shown +
                          "\" rel=\"noreferrer noopener\">" + shown + "</a>\n");
}

}  // namespace parlorwire::service
