#include "service/pages.h"

#include <string>

#include "service/form.h"
#include "service/personal.h"
#include "service/request_reader.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

Text Page(std::string_view title, std::string_view body) {
  return "<html>\n<head>\n<title>" + EscapeHtml(title) + "</title>\n</head>\n<body>\n" +
         Text(body) + "</body>\n</html>\n";
}

Text Hidden(std::string_view name, std::string_view value) {
  return "<input type=\"hidden\" name=\"" + Text(name) + "\" value=\"" + EscapeHtml(value) +
         "\">\n";
}

Text HiddenVisitor(const Visitor& visitor) {
  return Hidden("username", visitor.nick) + Hidden("ticket", visitor.ticket) +
         Hidden("channel", visitor.channel) + Hidden("chpwd", visitor.password);
}

Text Link(std::string_view path, const Visitor& visitor, std::string_view label) {
  return "<a href='" + Text(path) + "?" + VisitorQuery(visitor) + "' target=\"_top\">" +
         EscapeHtml(label) + "</a>\n";
}

Text Row(std::initializer_list<Text> cells) {
  Text row = "<tr>";
  for (const Text& cell : cells)
    row += "<td>" + EscapeHtml(cell) + "</td>";
  return row + "</tr>\n";
}

}  // namespace

Text VisitorQuery(const Visitor& visitor) {
  return "username=" + PercentEncode(visitor.nick) + "&channel=" + PercentEncode(visitor.channel) +
         "&chpwd=" + PercentEncode(visitor.password) + "&ticket=" + visitor.ticket;
}

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
  return Page("error auth page", "<p>неверное имя или пароль\n"_w);
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
  Text tones;
  int action = 200;
  for (const Text& label : {"обычным тоном"_w, "внутренним голосом"_w, "смеется"_w, "задумчиво"_w,
                            "уныло"_w, "напевает"_w, "ворчливо"_w})
    tones += "<option value=\"" + std::to_string(action++) + "\">" + label + "\n";
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

Text BanListPage(const Channel& channel, const Moment& now) {
  Text rows;
  for (const Ban& ban : channel.bans) {
    if (ban.until_ms <= now.ms) continue;
    const Text until =
        ban.until_ms == kForever
            ? "навсегда"_w
            : "еще "_w + std::to_string((ban.until_ms - now.ms + 999) / 1000) + " с"_w;
    rows += Row({TimeText(ban.local, now.local), ban.mask, ban.reason, ban.by, until});
  }
  return Page("Бан-лист"_w, "<h1>Бан-лист канала "_w + EscapeHtml(channel.name) +
                                "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text OperatorListPage(const Chat& chat, const Channel& channel) {
  Text rows;
  for (const Text& key : channel.opers)
    rows += Row({chat.accounts.at(key).nick});
  return Page("Операторы"_w, "<h1>Операторы канала "_w + EscapeHtml(channel.name) +
                                 "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text TopicHistoryPage(const Channel& channel, const Moment& now) {
  Text rows;
  for (const TopicChange& change : channel.topics)
    rows += Row({TimeText(change.local, now.local), change.by, change.topic});
  return Page("История смены тем"_w, "<h1>Темы канала "_w + EscapeHtml(channel.name) +
                                         "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text NoSuchChannelPage(std::string_view name) {
  return Page("no channel", "<p>Нет такого канала: "_w + EscapeHtml(name) + "\n");
}

Text SelectionPage(const Chat& chat, const Visitor& visitor) {
  Text rows;
  for (const auto& [key, channel] : chat.channels) {
    Visitor there = visitor;
    there.channel = channel.name;
    rows += "<li>" + Link("/room", there, channel.name) + " (" +
            std::to_string(channel.members.size()) + ")\n";
  }
  return "<HTML>\n<HEAD>\n<TITLE>Select/Create channel</TITLE>\n</HEAD>\n<BODY>\n"
         "<h1>" +
         "Каналы"_w + "</h1>\n<ul>\n" + rows +
         "</ul>\n<form method=\"get\" action=\"/room\" target=\"_top\">\n" +
         Hidden("username", visitor.nick) + Hidden("ticket", visitor.ticket) +
         "<input name=\"channel\">\n<input type=\"submit\">\n</form>\n</BODY>\n</HTML>\n";
}

}  // namespace parlorwire::service
