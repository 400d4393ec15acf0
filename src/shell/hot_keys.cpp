#include "shell/hot_keys.h"

#include "session/client.h"
#include "session/connect.h"
#include "session/leaving.h"

namespace parlorwire {
namespace {

void GoTo(Desktop& desktop, int tab) {
  if (tab != desktop.ActiveTab()) desktop.SetActiveTab(tab);
}

// The first visible tab in steps of `step` from the active one on, round the end.
void ShowTabInSteps(Client& client, int step) {
  Desktop& desktop = client.platform.desktop;
  int tab = desktop.ActiveTab();
  for (int i = 0; i < kTabCount; ++i) {
    tab = (tab + step + kTabCount) % kTabCount;
    if (desktop.TabVisible(tab)) return GoTo(desktop, tab);
  }
}

TabSession& Active(Client& client) {
  return client.tab(client.platform.desktop.ActiveTab());
}

}  // namespace

void ShowNextTab(Client& client) {
  ShowTabInSteps(client, 1);
}

void ShowPreviousTab(Client& client) {
  ShowTabInSteps(client, -1);
}

bool ShowNthTab(Client& client, int n) {
  Desktop& desktop = client.platform.desktop;
  for (int tab = 0; tab < kTabCount; ++tab) {
    if (!desktop.TabVisible(tab) || --n > 0) continue;
    GoTo(desktop, tab);
    return true;
  }
  return false;
}

void RefreshTab(Client& client) {
  TabSession& session = Active(client);
  if (!session.Connected && !session.IsChannelList) return;
  if (!session.Connected) session.Channel.clear();
  session.ClearPanesOnConnect = true;
  ConnectToChat(client, client.platform.desktop.ActiveTab());
}

void LogInAfresh(Client& client) {
  TabSession& session = Active(client);
  if (!session.Connected) return;
  session.ClearPanesOnConnect = true;
  session.ReconnectRequested = true;
  LogoffChat(client, client.platform.desktop.ActiveTab());
}

void LogInAnew(Client& client) {
  TabSession& session = Active(client);
  if (!session.Connecting) return;
  session.ClearPanesOnConnect = true;
  client.hooks.ShowLoginDialog(client.platform.desktop.ActiveTab());
}

void LogOff(Client& client) {
  if (client.platform.desktop.LogoffEnabled())
    LogoffChat(client, client.platform.desktop.ActiveTab());
}

const RichTextBox* PaneToCopy(const Client& client) {
  const ClickedPane& clicked = client.app.LastClickedWindow;
  if (clicked.tab != client.platform.desktop.ActiveTab()) return nullptr;
  const TabSession& session = client.tab(clicked.tab);
  switch (clicked.kind) {
    case ClickedPane::Kind::kRich_Users:
      return &session.Rich_Users;
    case ClickedPane::Kind::kRich:
      return &session.Rich;
    case ClickedPane::Kind::kNone:
      break;
  }
  return nullptr;
}

}  // namespace parlorwire
