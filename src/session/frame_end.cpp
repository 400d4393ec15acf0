#include "session/frame_end.h"

#include "session/both_languages.h"
#include "session/channel_list.h"
#include "session/client.h"
#include "session/connect.h"
#include "session/fault_trap.h"
#include "session/personal_notice.h"
#include "session/status.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// One logoff stops the reconnects of all tabs that use the nick.
bool NickLoggedOff(const Client& client, int tab) {
  const Text nick = LCase(client.tab(tab).Login);
  for (const TabSession& other : client.tabs)
    if (!other.LogoffNick.empty() && other.LogoffNick == nick) return true;
  return false;
}

// The frame was the page of channels, and it is whole now.
void EndChannelList(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  StatusOk(client, tab);
  StatusOut(client, "Построение и форматирование..."_w, tab);
  ShowTabCaption(client, tab, InLanguage(client, {W<"Список каналов">, "Channel list"}));
  StatusOk(client, tab);
  const std::uint32_t session_number = session.SessionNumber;
  GoOnAfterFault(client, ". Function: Winsock1_Close", [&] { ShowChannelList(client, tab); });
  if (session.SessionNumber != session_number) return;
  session.ChannelListPage.clear();
  client.platform.desktop.SetCloseTabEnabled(true);
}

}  // namespace

bool EndsByWish(Client& client, int tab) {
  const TabSession& session = client.tab(tab);
  if (session.LogoffPending || session.LeavePending || session.TabClosing) return true;
  if (!NickLoggedOff(client, tab)) return false;
  StatusOut(client, "Вы вышли из чата"_w, tab);
  StopPersonalNotice(client, tab);
  return true;
}

void StopWaitingConnects(TabSession& session) {
  for (Backoff* backoff : {&session.Fetches, &session.FlagRepairs, &session.BotRepairs})
    backoff->Wait->Enabled(false);
}

void EndFrame(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  session.IsOperator = false;
  session.Connecting = false;
  session.Connected = false;
  session.ReservedFlag = false;
  session.ReservedText.clear();
  desktop.SetTabControlsEnabled(tab, false);
  desktop.SetCloseTabEnabled(true);
  session.Rich_Users.Text("");
  session.Rich_Server.Text("");
  session.CloseHandled = true;
  StopWaitingConnects(session);
  ShowTabCaption(client, tab, InLanguage(client, {W<"Отключено">, "Disconnected"}));
  session.Timer3->Enabled(false);
  session.WatchdogTicks = 0;

  if (session.IsChannelList) {
    EndChannelList(client, tab);
    return;
  }
  if (session.EjectSeen) {  // the service's own command to go
    session.EjectSeen = false;
    StatusOut(client, InLanguage(client, {W<"Аварийное катапультирование">, "Alarm catapulting"}),
              tab);
    return;
  }
  if (session.ReconnectRequested) {
    ConnectToChat(client, tab);
    return;
  }
  if (EndsByWish(client, tab)) return;
  if (session.FixingFlagR) {
    StatusOk(client, tab);
    session.FixingFlagR = false;
  }
  ReconnectToChat(client, tab);
}

void Timer3_Timer(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (++session.WatchdogTicks <= 1) return;
  session.Timer3->Enabled(false);
  session.WatchdogTicks = 0;
  StatusOut(
      client,
      InLanguage(client, {W<"Чат не отвечает, реконнект">, "Chat did not responding, reconnect"}),
      tab);
  ReconnectToChat(client, tab);
}

void Timer6_Timer(Client& client, int tab) {
  client.tab(tab).Timer6->Enabled(false);
  client.tab(tab).ActionsArmed = true;
}

void Timer26_Timer(Client& client, int tab) {
  client.tab(tab).LinesArmed = true;
  client.tab(tab).Timer26->Enabled(false);
}

void Timer2_Timer(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.PersRed = !session.PersRed;
  client.platform.desktop.SetPersRed(tab, session.PersRed);
}

}  // namespace parlorwire
