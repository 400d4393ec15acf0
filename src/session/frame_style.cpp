#include "session/frame_style.h"

#include <array>

#include "session/client.h"
#include "session/error_log.h"
#include "session/fault_trap.h"
#include "session/http_answer.h"
#include "session/http_request.h"
#include "session/personal_notice.h"
#include "session/status.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSelectionPage =
    "\n<html>\n<head>\n<title>select/create channel</title>";
constexpr std::string_view kSelectionPageWithCharset =
    "\n<html>\n<head>\n<meta http-equiv=\"content-type\" content=\"text/html\" charset=\"koi8-r\">";
static_assert(kSelectionPage.size() == 51 && kSelectionPageWithCharset.size() == 84);

// How the known styles show, in the order in which they are tried.
struct StyleMark {
  std::string_view mark;
  std::string_view status;
};
constexpr std::array<StyleMark, 5> kStyleMarks = {{
    {"function std () {\n}", W<"Проверка установленного стиля... s2.">},
    {"<BODY bgColor=\"#281860", W<"Проверка установленного стиля... s4.">},
    {"<FONT color=\"#FF5050", W<"Проверка установленного стиля... s1.">},
    {"<FONT color=\"#b0b0b0", W<"Проверка установленного стиля... s0.">},
    {"<font size=-1 color=\"#cfcfff", W<"Проверка установленного стиля... s0 или s1.">},
}};

// A call upward, whose fault must not keep the rest of the check from running.
template <class Call>
void CallUp(Client& client, Call&& call) {
  GoOnAfterFault(client, ". Function: CacheMessages", call);
}

bool IsSelectionPage(std::string_view data) {
  return StartsWithNoCase(data, kSelectionPage) ||
         StartsWithNoCase(data, kSelectionPageWithCharset);
}

bool StartsWithRobotsMark(std::string_view data) {
  return data.starts_with('\n') && StartsWithNoCase(data.substr(1), kRobotsMark);
}

void Balloon(Client& client, const Text& text, int tab) {
  const TabSession& session = client.tab(tab);
  CallUp(client, [&] {
    client.hooks.ShowBalloon(
        {}, text + "\r\nНик: "_w + session.Login + "\r\nКанал: "_w + session.Channel,
        kSilentBalloon, {tab});
  });
}

void EnterChannel(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  StatusOk(client, tab);
  StatusOut(client, "Проверка установленного стиля... s9."_w, tab);
  CallUp(client, [&] { client.hooks.UpdateUsersFrame(tab); });
  desktop.SetTabControlsEnabled(tab, true);
  session.EverConnected = true;
  session.Connected = true;
  desktop.SetTabCaption(tab, session.Channel + " - " + session.Login);
  Balloon(client, "Клиент успешно подключен!"_w, tab);
  if (desktop.ActiveTab() == tab) ShowWindowCaption(client, session.Channel);
}

void RepairStyle(Client& client, int tab) {
  StatusOut(client, "Установка стиля s9..."_w, tab);
  client.tab(tab).Timer3->Enabled(false);
  CallUp(client, [&] { client.hooks.SayBot("/set s 9", tab); });
}

// The throw-away channel on which the style can be set.
void RepairStyleOnNewChannel(Client& client, int tab) {
  client.tab(tab).Channel = EightDigitNumber(client);
  RepairStyle(client, tab);
}

void LogUnknownAnswer(Client& client, const Text& dump) {
  WriteErrorLog(client, "Error: Unknown style or server ansver. Debug info:\r\n" + DumpText(dump));
}

void RepairFrameOfChannel(Client& client, const Text& data, int tab) {
  TabSession& session = client.tab(tab);
  StatusOk(client, tab);
  if (IsSelectionPage(data)) {
    StatusOut(
        client,
        "Внимание! Доступ на канал "_w + session.Channel + " c Вашего ника или адреса запрещен!"_w,
        tab);
    StatusOut(client,
              "Список каналов построить невозможно, потому что cтиль чата не s9. Сейчас клиент "
              "сгенерирует имя канала и зайдет на него, чтобы выставить s9."_w,
              tab);
    RepairStyleOnNewChannel(client, tab);
    return;
  }
  if (Contains(data, kStyleMarks[0].mark) && Contains(data, "<BODY onLoad=")) {
    StatusOut(client, "Обнаружен недопустимый флаг +R. Установка -R..."_w, tab);
    session.FixingFlagR = true;
    session.Timer3->Enabled(false);
    CallUp(client, [&] { client.hooks.SayBot("/mo -R", tab); });
    return;
  }
  for (const auto& [mark, status] : kStyleMarks) {
    if (!Contains(data, mark)) continue;
    StatusOut(client, Text(status), tab);
    RepairStyle(client, tab);
    return;
  }
  if (StartsWithRobotsMark(data)) {
    StatusOut(client, "Построение и форматирование..."_w, tab);
    session.IsChannelList = true;
    return;
  }
  StatusOut(client,
            "Проверка установленного стиля... N/A. Возможно, это связано со слишком короткой "
            "историей сообщений (/s h 0). Дамп ответа сервера был записан в лог-файл"_w,
            tab);
  LogUnknownAnswer(client, session.LineCarry + "_!_" + data);
  Balloon(client, "Ошибка с определением стиля!"_w, tab);
  session.Timer3->Enabled(false);
}

void ReadStartOfList(Client& client, const Text& data, int tab) {
  TabSession& session = client.tab(tab);
  session.Timer3->Enabled(false);
  if (StartsWithRobotsMark(data) || StartsWithNoCase(data, "\n\nid=")) {
    session.IsChannelList = true;
  } else if (IsSelectionPage(data)) {
    StatusOut(client,
              "cтиль чата не s9. Сейчас клиент сгенерирует имя канала и зайдет на него, чтобы "
              "выставить s9."_w,
              StatusMode::kFailed, tab);
    RepairStyleOnNewChannel(client, tab);
  } else {
    StatusOut(client, "дамп ответа сервера был записан в лог-файл"_w, StatusMode::kFailed, tab);
    LogUnknownAnswer(client, data);
  }
}

}  // namespace

FrameStyle CheckFrameStyle(Client& client, const Text& data, int tab) {
  if (data.starts_with("\n<pre>")) {
    EnterChannel(client, tab);
    return FrameStyle::kRobots;
  }
  TabSession& session = client.tab(tab);
  session.IgnoreStream = true;
  if (TrimView(session.Channel).empty())
    ReadStartOfList(client, data, tab);
  else
    RepairFrameOfChannel(client, data, tab);
  return FrameStyle::kOther;
}

}  // namespace parlorwire
