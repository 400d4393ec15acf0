#include "session/connect.h"

#include "platform/socket_error.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/frame_end.h"
#include "session/frame_stream.h"
#include "session/http_answer.h"
#include "session/personal_notice.h"
#include "session/proxy_dialog.h"
#include "session/status.h"
#include "session/wire_encoding.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kInConnectToChat = ". Function: ConnectToChat";
constexpr std::string_view kInClose = ". Function: Winsock1_Close";

Text LoginUrl(TabSession& tab) {
  Text url = "/newmsg?username=" + UrlEncodeKoi(tab.Login);
  url += "&passwd=" + UrlEncodeKoi(tab.Password);
  url += "&channel=" + UrlEncodeKoi(tab.Channel);
  url += "&chpwd=" + UrlEncodeKoi(tab.ChannelPassword);
  return url;
}

// The frame of the channel or, without a channel, the page of channels. Here alone the ticket is
// escaped, too.
Text FrameUrl(TabSession& tab) {
  Text url = TrimView(tab.Channel).empty() ? "/?username=" : "/pframe?username=";
  url += UrlEncodeKoi(tab.Login);
  url += "&ticket=" + UrlEncodeKoi(tab.Ticket);
  url += "&channel=" + UrlEncodeKoi(tab.Channel);
  url += "&chpwd=" + UrlEncodeKoi(tab.ChannelPassword);
  return url;
}

// The value behind the "=" that follows `key_at`, up to the next "'" or "&". With neither behind it
// the cut has a negative length: Fault 5.
Text TicketAt(std::string_view answer, Position key_at) {
  const Position equals = InStr(key_at, answer, "=");
  const Position end = MinNonZero3(InStr(equals, answer, "'"), InStr(equals, answer, "&"), 0);
  return Mid(answer, equals + 1, end - equals - 1);
}

void RefuseLogin(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  StatusOut(client, InLanguage(client, {W<"неверные логин или пароль">, "bad login or password"}),
            StatusMode::kFailed, tab);
  ShowTabCaption(client, tab, InLanguage(client, {W<"Отключено">, "Disconnected"}));
  session.CloseHandled = true;
  session.Connecting = false;
  session.ClearPanesOnConnect = true;
}

// An answer without a ticket: the first line is shown, all of it is logged, and after a while the
// tab tries again.
void ReportServerError(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  GoOnAfterFault(client, kInClose, [&] {
    const std::string_view first_line = ElementAt(Split(session.LoginAnswer, "\n"), 0);
    StatusOut(client, DumpText(first_line), StatusMode::kFailed, tab);
  });
  WriteErrorLog(client, "Server error. Debug info:\r\n" + DumpText(session.LoginAnswer));
  session.CloseHandled = true;
  session.Connecting = false;
  ShowTabCaption(client, tab, InLanguage(client, {W<"Отключено">, "Disconnected"}));
  session.Timer1->Enabled(true);
}

// The login's connection has ended: its answer is whole.
void ReadLoginAnswer(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const Text lower = LCase(session.LoginAnswer);
  if (Contains(lower, "<title>error auth page</title>") ||
      Contains(lower, "<title>authorization failed!</title>")) {
    RefuseLogin(client, tab);
    return;
  }

  Position ticket_at = InStr(session.LoginAnswer, "&ticket=");
  if (ticket_at == 0) ticket_at = InStr(session.LoginAnswer, "&session=");
  if (ticket_at == 0) {
    ReportServerError(client, tab);
    return;
  }
  GoOnAfterFault(client, kInClose,
                 [&] { session.Ticket = TicketAt(session.LoginAnswer, ticket_at); });
  StatusOk(client, tab);
  session.Authorized = true;
  session.LoginAnswer.clear();

  if (TrimView(session.Channel).empty())
    StatusOut(client,
              InLanguage(client, {W<"Получение списка каналов...">, "Getting list of channels..."}),
              tab);
  else
    StatusOut(client, InLanguage(client, {W<"Чтение с канала...">, "Reading from channel..."}),
              tab);
  ConnectAfresh(client, *session.Winsock1);
}

void BeginSession(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  const ProxyControls& proxy = ProxyDialog(client);
  ++session.SessionNumber;

  desktop.SetTabControlsEnabled(tab, false);
  if (session.ClearPanesOnConnect) session.Rich.Text("");
  session.Rich_Users.Text("");
  static_cast<ConnectionState&>(session) = {};
  session.Connecting = true;
  desktop.SetUsersNumCaption(tab, "");

  desktop.SetTabCaption(tab, InLanguage(client, {W<"Подключение...">, "Connecting.."}));
  if (proxy.use_proxy)
    StatusOut(client, InLanguage(client, {W<"Подключение к прокси...">, "Connecting to proxy..."}),
              tab);
  else
    StatusOut(client, InLanguage(client, {W<"Подключение к чату...">, "Connecting to chat..."}),
              tab);
  if (desktop.ActiveTab() == tab) ShowWindowCaption(client, desktop.TabCaption(tab));

  client.app.ProxyAuthBasic = Base64Encode(proxy.proxy_login + ":" + proxy.proxy_pass);
  session.Winsock1->Close();
  session.Winsock5->Close();
  StopPersonalNotice(client, tab);
  session.Rich_Server.Text("");
  session.Winsock4->Close();

  GoOnAfterFault(client, kInConnectToChat,
                 [&] { session.Timer26->Interval(client.app.ActionDelayValue); });
  session.Timer26->Enabled(true);
  session.Timer6->Enabled(false);
  GoOnAfterFault(client, kInConnectToChat,
                 [&] { session.Timer6->Interval(client.app.ActionDelayValue); });
  session.Timer3->Enabled(false);
  session.Timer1->Enabled(false);
  for (Backoff* backoff : {&session.Fetches, &session.FlagRepairs, &session.BotRepairs})
    StartAfresh(*backoff);

  ConnectToService(client, *session.Winsock1);
}

void ReconnectNow(Client& client, int tab) {
  NoteConnect(client.tab(tab).Reconnects, client.platform.clock);
  BeginSession(client, tab);
}

// Watches the frame from its connect on, not from its first chunk.
void StartWatchdog(Client& client, std::string_view procedure, int tab) {
  TabSession& session = client.tab(tab);
  session.WatchdogTicks = 0;
  session.Timer3->Enabled(false);
  GoOnAfterFault(client, procedure,
                 [&] { session.Timer3->Interval(client.app.ReconnectDelayValue); });
  session.Timer3->Enabled(true);
}

}  // namespace

void ConnectToChat(Client& client, int tab) {
  StartAfresh(client.tab(tab).Reconnects);
  BeginSession(client, tab);
}

void ReconnectToChat(Client& client, int tab) {
  if (ConnectsNow(client.tab(tab).Reconnects, client.platform.clock)) BeginSession(client, tab);
}

void Winsock1_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (session.Authorized) {
    SendRequest(client, *session.Winsock1, FrameUrl(session));
    StartWatchdog(client, ". Function: Winsock1_Connect", tab);
    return;
  }
  StatusOk(client, tab);
  StatusOut(client,
            InLanguage(client, {W<"Проверка имени пользователя и пароля...">,
                                "Veryfing login and password..."}),
            tab);
  SendRequest(client, *session.Winsock1, LoginUrl(session));
}

void Winsock1_DataArrival(Client& client, int tab, std::size_t bytes_total) {
  TabSession& session = client.tab(tab);
  if (!session.Authorized) {
    GatherAnswer(*session.Winsock1, bytes_total, session.LoginAnswer);
    return;
  }
  if (bytes_total == 0) return;
  const Text decoded = DecodeKoi(session.Winsock1->GetData());
  session.Connecting = false;
  TakeAnswer(session.ChannelListPage, decoded);
  StartWatchdog(client, ". Function: Winsock1_DataArrival", tab);  // the reader may switch it off
  const std::uint32_t session_number = session.SessionNumber;
  CacheMessages(client, decoded, tab);
  // Once armed it has nothing more to do; and the lines of a session that has gone arm no other.
  if (!session.ActionsArmed && session.SessionNumber == session_number)
    session.Timer6->Enabled(true);
}

void Winsock1_Close(Client& client, int tab) {
  const TabSession& session = client.tab(tab);
  if (session.CloseHandled) return;
  if (session.Authorized)
    EndFrame(client, tab);
  else
    ReadLoginAnswer(client, tab);
}

void Winsock1_Error(Client& client, int tab, int number, const Text& description) {
  TabSession& session = client.tab(tab);
  session.Winsock1->Close();
  session.Timer3->Enabled(false);
  session.WatchdogTicks = 0;
  session.Connecting = false;
  StopPersonalNotice(client, tab);
  GoOnAfterFault(client, ". Function: Winsock1_Error",
                 [&] { ShowTabCaption(client, tab, InLanguage(client, {W<"Ошибка">, "Error"})); });

  const Text number_in_brackets = " (" + std::to_string(number) + ")";
  const Text reason = LCase(description) + number_in_brackets;
  if (session.Connected) {
    StatusOut(
        client,
        InLanguage(client, {W<"Ошибка соединения. Причина: ">, "Connection error. Reason: "}) +
            reason,
        tab);
    session.Timer1->Enabled(true);
    return;
  }

  Text russian = reason;
  if (number == kSocketHostUnreachable) russian = "нет связи с хостом"_w + number_in_brackets;
  if (number == kSocketTimedOut) russian = "таймаут соединения"_w;
  if (number == kSocketConnectionAborted)
    russian = "связь прервана в связи с превышением времени ожидания либо другой ошибкой"_w;
  StatusOut(client, InLanguage(client, {russian, reason}), StatusMode::kFailed, tab);
  if (number == kSocketTimedOut)
    ReconnectToChat(client, tab);
  else if (session.EverConnected)
    session.Timer1->Enabled(true);
}

void Timer1_Timer(Client& client, int tab) {
  client.tab(tab).Timer1->Enabled(false);
  ReconnectNow(client, tab);
}

void Reconnects_Wait(Client& client, int tab) {
  client.tab(tab).Reconnects.Wait->Enabled(false);
  if (!EndsByWish(client, tab)) ReconnectNow(client, tab);
}

}  // namespace parlorwire
