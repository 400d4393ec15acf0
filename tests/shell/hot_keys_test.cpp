#include "shell/hot_keys.h"

#include <gtest/gtest.h>

#include "shell/tabs.h"
#include "support/chat.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct HotKeys : testing::Test {
  HotKeys() {
    desktop.on_tab_click = [this](int previous) { SSTab_Click(chat.client, previous); };
    chat.client.hooks.ShowLoginDialog = [this](int tab) { dialogs.push_back(tab); };
    for (int tab = 0; tab < kTabCount; ++tab)
      chat.tab(tab).LoginShown = true;
  }
  void Show(std::initializer_list<int> tabs) {
    for (int tab = 0; tab < kTabCount; ++tab)
      desktop.SetTabVisible(tab, false);
    for (int tab : tabs)
      desktop.SetTabVisible(tab, true);
  }
  Chat chat;
  SimulatedDesktop& desktop = chat.platform.desktop;
  std::vector<int> dialogs;
};

TEST_F(HotKeys, ControlTabShowsTheNextVisibleTabAndWraps) {
  Show({0, 4, 9});
  ShowNextTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 4);
  ShowNextTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 9);
  ShowNextTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 0);
  EXPECT_EQ(chat.client.app.LastTab, 9);
}

TEST_F(HotKeys, ControlShiftTabGoesTheOtherWay) {
  Show({0, 4, 9});
  ShowPreviousTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 9);
  ShowPreviousTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 4);
}

TEST_F(HotKeys, WithOneTabOrNoneControlTabChangesNothing) {
  Show({2});
  desktop.active_tab = 2;
  chat.client.app.LastTab = 7;
  ShowNextTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 2);
  EXPECT_EQ(chat.client.app.LastTab, 7);
  Show({});
  ShowNextTab(chat.client);
  ShowPreviousTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 2);
}

TEST_F(HotKeys, ControlAndADigitShowTheNthVisibleTab) {
  Show({1, 4, 9});
  EXPECT_TRUE(ShowNthTab(chat.client, 3));
  EXPECT_EQ(desktop.ActiveTab(), 9);
  EXPECT_TRUE(ShowNthTab(chat.client, 1));
  EXPECT_EQ(desktop.ActiveTab(), 1);
  EXPECT_TRUE(ShowNthTab(chat.client, 2));
  EXPECT_EQ(desktop.ActiveTab(), 4);
}

TEST_F(HotKeys, ADigitWithoutATabDoesNothing) {
  Show({1, 4, 9});
  desktop.active_tab = 1;
  EXPECT_FALSE(ShowNthTab(chat.client, 4));
  EXPECT_FALSE(ShowNthTab(chat.client, 10));
  EXPECT_EQ(desktop.ActiveTab(), 1);
}

TEST_F(HotKeys, TheTenthTabIsReached) {
  Show({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_TRUE(ShowNthTab(chat.client, 10));
  EXPECT_EQ(desktop.ActiveTab(), 9);
}

TEST_F(HotKeys, F5OnAChannelReadsItFromTheStart) {
  chat.EnterChannel();
  chat.Deliver("[12:00:00] bob: hi\n");
  const int connects = chat.Winsock1().connects;
  RefreshTab(chat.client);
  EXPECT_EQ(chat.Winsock1().connects, connects + 1);
  EXPECT_EQ(chat.tab().Channel, "lobby");
  EXPECT_FALSE(Contains(chat.Pane(), "bob"));
  EXPECT_TRUE(chat.tab().Connecting);
}

TEST_F(HotKeys, F5OnTheListOfChannelsAsksForAFreshOne) {
  chat.tab().IsChannelList = true;
  chat.tab().Rich.Text("old list");
  RefreshTab(chat.client);
  EXPECT_EQ(chat.tab().Channel, "");
  EXPECT_EQ(chat.Winsock1().connects, 1);
  EXPECT_FALSE(Contains(chat.Pane(), "old list"));
}

TEST_F(HotKeys, F5ElsewhereDoesNothing) {
  RefreshTab(chat.client);
  ConnectToChat(chat.client, 0);
  RefreshTab(chat.client);
  EXPECT_EQ(chat.Winsock1().connects, 1);
}

TEST_F(HotKeys, F6LogsOffAndComesBackWhenTheFrameCloses) {
  chat.EnterChannel();
  const int connects = chat.Winsock1().connects;
  LogInAfresh(chat.client);
  EXPECT_TRUE(chat.tab().ReconnectRequested);
  EXPECT_TRUE(chat.tab().ClearPanesOnConnect);
  EXPECT_EQ(chat.Winsock1().connects, connects);
  chat.Winsock5().Accept();
  EXPECT_TRUE(chat.Winsock5().sent.starts_with("POST /logoff HTTP/1.0\r\n"));
  EXPECT_TRUE(chat.Winsock5().sent.ends_with("\r\n\r\nusername=alice&ticket=T1"));
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Winsock1().connects, connects + 1);
  EXPECT_FALSE(chat.tab().ReconnectRequested);
}

TEST_F(HotKeys, F6OnAnIdleTabDoesNothing) {
  LogInAfresh(chat.client);
  EXPECT_FALSE(chat.tab().ReconnectRequested);
  EXPECT_FALSE(chat.tab().LogoffPending);
  EXPECT_EQ(chat.Winsock5().connects, 0);
}

TEST_F(HotKeys, F6IsNotHonouredAfterTheEjectLine) {
  chat.EnterChannel();
  LogInAfresh(chat.client);
  chat.tab().EjectSeen = true;
  const int connects = chat.Winsock1().connects;
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Winsock1().connects, connects);
  EXPECT_EQ(desktop.TabCaption(0), "Отключено"_w);
}

TEST_F(HotKeys, F7ShowsTheLoginDialogWhileAConnectRuns) {
  LogInAnew(chat.client);
  EXPECT_TRUE(dialogs.empty());
  ConnectToChat(chat.client, 0);
  LogInAnew(chat.client);
  EXPECT_EQ(dialogs, std::vector<int>{0});
  EXPECT_TRUE(chat.tab().ClearPanesOnConnect);
}

TEST_F(HotKeys, F8LogsOffIfTheLabelMay) {
  chat.EnterChannel();
  desktop.logoff_enabled = false;
  LogOff(chat.client);
  EXPECT_FALSE(chat.tab().LogoffPending);
  desktop.logoff_enabled = true;
  LogOff(chat.client);
  EXPECT_TRUE(chat.tab().LogoffPending);
  EXPECT_EQ(chat.tab().LogoffNick, "alice");
  EXPECT_EQ(chat.Winsock5().connects, 1);
}

TEST_F(HotKeys, ControlCCopiesFromThePaneClickedLast) {
  using Kind = ClickedPane::Kind;
  EXPECT_EQ(PaneToCopy(chat.client), nullptr);
  chat.client.app.LastClickedWindow = {Kind::kRich, 0};
  EXPECT_EQ(PaneToCopy(chat.client), &chat.tab().Rich);
  chat.client.app.LastClickedWindow = {Kind::kRich_Users, 0};
  EXPECT_EQ(PaneToCopy(chat.client), &chat.tab().Rich_Users);
}

TEST_F(HotKeys, ControlCDoesNotCopyFromAnotherTab) {
  chat.client.app.LastClickedWindow = {ClickedPane::Kind::kRich, 1};
  EXPECT_EQ(PaneToCopy(chat.client), nullptr);
  desktop.active_tab = 1;
  EXPECT_EQ(PaneToCopy(chat.client), &chat.tab(1).Rich);
}

}  // namespace
}  // namespace parlorwire
