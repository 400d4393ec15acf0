#include "shell/tabs.h"

#include <algorithm>

#include "session/both_languages.h"
#include "session/client.h"
#include "session/connect.h"
#include "session/fault_trap.h"
#include "session/frame_end.h"
#include "session/personal_notice.h"
#include "session/status.h"
#include "shell/start_up.h"

namespace parlorwire {
namespace {

constexpr BothLanguages kNoMoreTabs{W<"Вы достигли предела максимально возможных открытых табов!">,
                                    "Cant't add Tab"};
constexpr BothLanguages kQuitQuestion{W<"Вы не подключены ни к одному каналу. Выйти из программы?">,
                                      "You don't connected. Quit the programm?"};

void CloseWaiting(Desktop& desktop, Winsock& socket) {
  do {
    desktop.YieldToEvents();
    socket.Close();
  } while (socket.State() != SocketState::kClosed);
}

// A closed tab never connects again by itself, receives nothing, and blinks no more.
void Silence(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.Timer1->Enabled(false);
  session.Reconnects.Wait->Enabled(false);
  StopWaitingConnects(session);
  StopPersonalNotice(client, tab);
  for (auto* socket : session.Sockets())
    (*socket)->Close();
}

// The tab to the right, else the leftmost; `closed` itself if no other is visible.
int TabBeside(const Desktop& desktop, int closed) {
  for (int tab = closed + 1; tab < kTabCount; ++tab)
    if (desktop.TabVisible(tab)) return tab;
  for (int tab = 0; tab < kTabCount; ++tab)
    if (desktop.TabVisible(tab)) return tab;
  return closed;
}

}  // namespace

void AddTab(Client& client) {
  Desktop& desktop = client.platform.desktop;
  int added = 0;
  while (added < kTabCount && desktop.TabVisible(added))
    ++added;
  if (added == kTabCount) {
    desktop.MessageBox(InLanguage(client, kNoMoreTabs), BoxIcon::kExclamation);
    return;
  }
  const Text caption = InLanguage(client, kNotConnectedText);
  desktop.SetTabCaption(added, caption);
  ShowWindowCaption(client, caption);
  client.tab(added).Rich.Text("");
  client.tab(added).Rich_Users.Text("");
  desktop.SetMsgText(added, "");
  desktop.SetTabVisible(added, true);
  desktop.SetActiveTab(added);
}

void SSTab_Click(Client& client, int previous) {
  Desktop& desktop = client.platform.desktop;
  client.app.LastTab = previous;
  const int active = desktop.ActiveTab();
  const TabSession& tab = client.tab(active);
  desktop.SetSayUseOp(tab.IsOperator && tab.SayUseOpState, tab.IsOperator);
  ShowWindowCaption(client, tab.Connected ? tab.Channel : desktop.TabCaption(active));
  desktop.SetSharedLinksEnabled(tab.Connected);
  desktop.SetCloseTabEnabled(tab.IsChannelList || tab.EverConnected);
  if (!tab.LoginShown) client.hooks.ShowLoginDialog(active);
}

bool close_tab(Client& client) {
  Desktop& desktop = client.platform.desktop;
  const int closed = desktop.ActiveTab();
  TabSession& session = client.tab(closed);
  // Asked once more from the event loop that runs below.
  if (client.app.ClosingTab) return false;
  client.app.ClosingTab = true;
  ++session.SessionNumber;
  session.TabClosing = true;
  CloseWaiting(desktop, *session.Winsock1);
  CloseWaiting(desktop, *session.Winsock5);
  client.app.ClosingTab = false;
  session.Rich.Text("");
  desktop.SetCloseTabEnabled(false);
  PassOverFault([&] { Winsock1_Close(client, closed); });
  session.Connected = false;
  session.IsChannelList = false;
  session.Connecting = false;
  session.ReservedText.clear();
  session.ReservedFlag = false;
  Silence(client, closed);

  if (!AnyTabInUse(client)) return AskToQuit(client);
  session.EverConnected = false;
  session.LoginShown = false;
  // Whoever has gone to another tab while the connections ended stays there.
  if (desktop.ActiveTab() == closed) desktop.SetActiveTab(TabBeside(desktop, closed));
  desktop.SetTabVisible(closed, false);
  return false;
}

bool InUse(const TabSession& tab) {
  return tab.Connected || tab.IsChannelList || tab.Connecting;
}

bool AnyTabInUse(const Client& client) {
  return std::ranges::any_of(client.tabs, InUse);
}

bool AskToQuit(Client& client) {
  return client.platform.desktop.AskYesNo(InLanguage(client, kQuitQuestion), BoxIcon::kQuestion,
                                          BoxAnswer::kNo);
}

void SayUseOp_Click(Client& client, bool ticked) {
  client.tab(client.platform.desktop.ActiveTab()).SayUseOpState = ticked;
}

}  // namespace parlorwire
