#include "shell/tabs.h"

#include "session/status.h"
#include "shell/both_languages.h"
#include "shell/start_up.h"

namespace parlorwire {
namespace {

constexpr BothLanguages kNoMoreTabs{W<"Вы достигли предела максимально возможных открытых табов!">,
                                    "Cant't add Tab"};

}  // namespace

void AddTab(Client& client) {
  Desktop& desktop = client.platform.desktop;
  int added = 0;
  while (added < kTabCount && desktop.TabVisible(added))
    ++added;
  if (added == kTabCount) {
    desktop.MessageBox(Text(kNoMoreTabs.In(client.app.Language)), BoxIcon::kExclamation);
    return;
  }
  const Text caption(kNotConnectedText.In(client.app.Language));
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

void SayUseOp_Click(Client& client, bool ticked) {
  client.tab(client.platform.desktop.ActiveTab()).SayUseOpState = ticked;
}

}  // namespace parlorwire
