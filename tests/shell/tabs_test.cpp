#include "shell/tabs.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct Tabs : testing::Test {
  Tabs() {
    client.hooks.ShowLoginDialog = [this](int tab) { dialogs.push_back(tab); };
    client.hooks.SetTabTitle = [this](const Text& tip) { tips.push_back(tip); };
  }
  void Show(int count) {
    for (int tab = 0; tab < count; ++tab)
      platform.desktop.SetTabVisible(tab, true);
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  std::vector<int> dialogs;
  std::vector<Text> tips;
};

TEST_F(Tabs, AddTabTakesTheFirstThatIsNotVisible) {
  Show(2);
  platform.desktop.SetTabVisible(3, true);
  platform.desktop.SetMsgText(2, "old");
  client.tab(2).Rich.Text("old");
  client.tab(2).Rich_Users.Text("old");
  AddTab(client);
  EXPECT_TRUE(platform.desktop.TabVisible(2));
  EXPECT_EQ(platform.desktop.ActiveTab(), 2);
  EXPECT_EQ(platform.desktop.TabCaption(2), "Неподключен"_w);
  EXPECT_EQ(platform.desktop.window_caption, "Неподключен - Parlorwire"_w);
  EXPECT_EQ(tips.back(), "Неподключен - Parlorwire"_w);
  EXPECT_EQ(platform.desktop.MsgText(2), "");
  EXPECT_EQ(client.tab(2).Rich.Length(), 0);
  EXPECT_EQ(client.tab(2).Rich_Users.Length(), 0);
}

TEST_F(Tabs, AddTabSpeaksEnglish) {
  client.app.Language = UiLanguage::kEnglish;
  AddTab(client);
  EXPECT_EQ(platform.desktop.TabCaption(0), "Not connected");
  EXPECT_EQ(platform.desktop.window_caption, "Not connected - Parlorwire");
}

TEST_F(Tabs, AnEleventhTabIsRefusedAndChangesNothing) {
  Show(kTabCount);
  platform.desktop.active_tab = 4;
  AddTab(client);
  client.app.Language = UiLanguage::kEnglish;
  AddTab(client);
  const std::vector<SimulatedDesktop::Box> boxes = {
      {"Вы достигли предела максимально возможных открытых табов!"_w, BoxIcon::kExclamation},
      {"Cant't add Tab", BoxIcon::kExclamation}};
  EXPECT_EQ(platform.desktop.boxes, boxes);
  EXPECT_EQ(platform.desktop.ActiveTab(), 4);
}

TEST_F(Tabs, AClickRemembersTheTabThatWasLeft) {
  platform.desktop.active_tab = 3;
  client.tab(3).LoginShown = true;
  SSTab_Click(client, 7);
  EXPECT_EQ(client.app.LastTab, 7);
}

TEST_F(Tabs, AClickOnAConnectedTabEnablesItsLinksAndShowsItsChannel) {
  platform.desktop.active_tab = 1;
  platform.desktop.SetTabCaption(1, "home - Bob");
  client.tab(1).LoginShown = true;
  client.tab(1).Connected = true;
  client.tab(1).EverConnected = true;
  client.tab(1).Channel = "home";
  SSTab_Click(client, 0);
  EXPECT_EQ(platform.desktop.window_caption, "home - Parlorwire");
  EXPECT_TRUE(platform.desktop.shared_links_enabled);
  EXPECT_TRUE(platform.desktop.close_tab_enabled);
}

TEST_F(Tabs, AClickOnAnUnconnectedTabShowsItsCaption) {
  platform.desktop.active_tab = 1;
  platform.desktop.shared_links_enabled = true;
  platform.desktop.close_tab_enabled = true;
  platform.desktop.SetTabCaption(1, "Отключено"_w);
  client.tab(1).LoginShown = true;
  SSTab_Click(client, 0);
  EXPECT_EQ(platform.desktop.window_caption, "Отключено - Parlorwire"_w);
  EXPECT_FALSE(platform.desktop.shared_links_enabled);
  EXPECT_FALSE(platform.desktop.close_tab_enabled);
}

TEST_F(Tabs, AChannelListCanBeClosed) {
  client.tab(0).IsChannelList = true;
  SSTab_Click(client, 0);
  EXPECT_TRUE(platform.desktop.close_tab_enabled);
}

TEST_F(Tabs, SayUseOpIsTheTabsOwnAndTheOperatorsOnly) {
  client.tab(0).SayUseOpState = true;
  SSTab_Click(client, 0);
  EXPECT_FALSE(platform.desktop.say_use_op);
  EXPECT_FALSE(platform.desktop.say_use_op_enabled);
  client.tab(0).IsOperator = true;
  SSTab_Click(client, 0);
  EXPECT_TRUE(platform.desktop.say_use_op);
  EXPECT_TRUE(platform.desktop.say_use_op_enabled);
  SayUseOp_Click(client, false);
  SSTab_Click(client, 0);
  EXPECT_FALSE(platform.desktop.say_use_op);
  EXPECT_TRUE(platform.desktop.say_use_op_enabled);
}

TEST_F(Tabs, ATabThatWasNeverLoggedInRaisesTheDialogEachTime) {
  platform.desktop.active_tab = 5;
  SSTab_Click(client, 0);
  SSTab_Click(client, 0);
  client.tab(5).LoginShown = true;
  SSTab_Click(client, 0);
  EXPECT_EQ(dialogs, (std::vector<int>{5, 5}));
}

}  // namespace
}  // namespace parlorwire
