#include "shell/tabs.h"

#include <gtest/gtest.h>

#include "session/leaving.h"
#include "session/personal_notice.h"
#include "session/proxy_dialog.h"
#include "shell/hot_keys.h"
#include "support/chat.h"
#include "text/cut.h"

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
  platform.desktop.active_tab = 1;
  client.tab(1).IsOperator = true;
  SSTab_Click(client, 0);
  EXPECT_FALSE(platform.desktop.say_use_op);
  EXPECT_TRUE(platform.desktop.say_use_op_enabled);
  SayUseOp_Click(client, true);
  platform.desktop.active_tab = 0;
  SayUseOp_Click(client, false);
  SSTab_Click(client, 1);
  EXPECT_FALSE(platform.desktop.say_use_op);
  platform.desktop.active_tab = 1;
  SSTab_Click(client, 0);
  EXPECT_TRUE(platform.desktop.say_use_op);
}

TEST_F(Tabs, ATabThatWasNeverLoggedInRaisesTheDialogEachTime) {
  platform.desktop.active_tab = 5;
  SSTab_Click(client, 0);
  SSTab_Click(client, 0);
  client.tab(5).LoginShown = true;
  SSTab_Click(client, 0);
  EXPECT_EQ(dialogs, (std::vector<int>{5, 5}));
}

// ---- close_tab ----

struct CloseTab : testing::Test {
  CloseTab() {
    desktop.on_tab_click = [this](int previous) { SSTab_Click(chat.client, previous); };
    chat.client.hooks.ShowLoginDialog = [this](int tab) { dialogs.push_back(tab); };
  }
  void Show(std::initializer_list<int> tabs) {
    for (int tab = 0; tab < kTabCount; ++tab)
      desktop.SetTabVisible(tab, false);
    for (int tab : tabs) {
      desktop.SetTabVisible(tab, true);
      chat.tab(tab).LoginShown = true;
    }
  }
  // On the channel, with this tab active.
  void Enter(int tab) {
    chat.tab(tab).Login = "alice";
    chat.tab(tab).Channel = "hall";
    chat.EnterChannel(tab);
    desktop.active_tab = tab;
  }
  std::vector<int> Visible() {
    std::vector<int> visible;
    for (int tab = 0; tab < kTabCount; ++tab)
      if (desktop.TabVisible(tab)) visible.push_back(tab);
    return visible;
  }
  Chat chat;
  SimulatedDesktop& desktop = chat.platform.desktop;
  std::vector<int> dialogs;
};

TEST_F(CloseTab, ClosesItsConnectionsAndHidesTheTab) {
  Show({0, 1});
  Enter(0);
  Enter(1);
  chat.client.hooks.UpdateUsersFrame(1);
  chat.client.hooks.SayBot("/x", 1);
  ConnectToService(chat.client, *chat.tab(1).Winsock2);
  LeaveChannel(chat.client, 1);
  EXPECT_FALSE(close_tab(chat.client));
  for (auto* socket : {&chat.Winsock1(1), &chat.Winsock2(1), &chat.Winsock3(1), &chat.Winsock4(1),
                       &chat.Winsock5(1)})
    EXPECT_EQ(socket->State(), SocketState::kClosed);
  EXPECT_EQ(Visible(), std::vector<int>{0});
  EXPECT_EQ(desktop.ActiveTab(), 0);
  EXPECT_EQ(chat.Pane(1), "");
  EXPECT_FALSE(chat.tab(1).Connected);
  EXPECT_FALSE(chat.tab(1).EverConnected);
  EXPECT_FALSE(chat.tab(1).LoginShown);
  EXPECT_EQ(chat.Winsock1(0).State(), SocketState::kConnected);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(CloseTab, NothingBringsAClosedTabBack) {
  Show({0, 1});
  Enter(0);
  Enter(1);
  chat.tab(1).Timer1->Enabled(true);
  NoticePersonalMessage(chat.client, 1);
  chat.tab(1).ReconnectRequested = true;
  const int connects = chat.Winsock1(1).connects;
  close_tab(chat.client);
  chat.platform.time.Advance(300000);
  EXPECT_LE(chat.Winsock1(1).connects, connects + 1);
  EXPECT_EQ(chat.Winsock1(1).State(), SocketState::kClosed);
  for (auto* timer : {&chat.tab(1).Timer1, &chat.tab(1).Timer2, &chat.tab(1).Timer3,
                      &chat.tab(1).Timer6, &chat.tab(1).Timer26})
    EXPECT_FALSE((*timer)->Enabled());
  EXPECT_FALSE(desktop.at(1).pers_red);
}

TEST_F(CloseTab, ATabThatIsLoggingInIsClosedToo) {
  Show({0, 1});
  Enter(0);
  chat.tab(1).Login = "bob";
  ConnectToChat(chat.client, 1);
  desktop.active_tab = 1;
  chat.Winsock1(1).Accept();
  chat.Winsock1(1).Deliver("<a href='/frame?a=1&ticket=T1'>");
  EXPECT_FALSE(close_tab(chat.client));
  chat.platform.time.Advance(300000);
  EXPECT_EQ(chat.Winsock1(1).State(), SocketState::kClosed);
  EXPECT_EQ(Visible(), std::vector<int>{0});
}

TEST_F(CloseTab, EventsOfOtherTabsGoOnWhileItWaits) {
  Show({0, 1});
  Enter(0);
  Enter(1);
  int lines = 0;
  desktop.on_yield = [&] {
    if (lines++ == 0) chat.Deliver("[12:00:00] bob: meanwhile\n", 0);
  };
  close_tab(chat.client);
  EXPECT_TRUE(Contains(chat.Pane(0), "meanwhile"));
}

TEST_F(CloseTab, AskedAgainWhileItWaitsItRunsOnce) {
  Show({0, 1, 2});
  Enter(0);
  Enter(1);
  Enter(2);
  desktop.on_yield = [&] { EXPECT_FALSE(close_tab(chat.client)); };
  close_tab(chat.client);
  EXPECT_EQ(Visible(), (std::vector<int>{0, 1}));
}

TEST_F(CloseTab, PrefersTheTabToTheRight) {
  Show({0, 4, 9});
  Enter(0);
  Enter(4);
  close_tab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 9);
  EXPECT_EQ(Visible(), (std::vector<int>{0, 9}));
}

TEST_F(CloseTab, ClosingTab9OfTabs0And4And9MakesTab0Active) {
  Show({0, 4, 9});
  Enter(0);
  Enter(9);
  close_tab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 0);
  EXPECT_EQ(Visible(), (std::vector<int>{0, 4}));
}

TEST_F(CloseTab, ClosingTheLastTabInUseAsksAndNoKeepsIt) {
  Show({0});
  Enter(0);
  EXPECT_FALSE(close_tab(chat.client));
  EXPECT_EQ(desktop.boxes, (std::vector<SimulatedDesktop::Box>{
                               {"Вы не подключены ни к одному каналу. Выйти из программы?"_w,
                                BoxIcon::kQuestion, true, BoxAnswer::kNo}}));
  EXPECT_EQ(Visible(), std::vector<int>{0});
  EXPECT_EQ(chat.Pane(), "");
  EXPECT_EQ(desktop.TabCaption(0), "Отключено"_w);
}

TEST_F(CloseTab, ClosingTheOnlyTabWithNoConnectionAsksAndNoKeepsIt) {
  Show({0});
  EXPECT_FALSE(close_tab(chat.client));
  EXPECT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(Visible(), std::vector<int>{0});
  chat.platform.time.Advance(300000);
  EXPECT_EQ(chat.Winsock1().connects, 0);
  EXPECT_FALSE(chat.tab().Connecting);
}

TEST_F(CloseTab, TheQuestionInEnglishAndYesEndsTheProgram) {
  chat.client.app.Language = UiLanguage::kEnglish;
  desktop.answers = {true};
  Show({0, 1});
  Enter(1);
  EXPECT_TRUE(close_tab(chat.client));
  EXPECT_EQ(desktop.boxes.front().text, "You don't connected. Quit the programm?");
  EXPECT_EQ(Visible(), (std::vector<int>{0, 1}));
}

TEST_F(CloseTab, AListOfChannelsOrAConnectElsewhereKeepsTheProgramOpen) {
  for (bool TabSession::* flag :
       {&TabSession::IsChannelList, &TabSession::Connecting, &TabSession::Connected}) {
    Show({0, 1});
    Enter(1);
    chat.tab(0).*flag = true;
    EXPECT_FALSE(close_tab(chat.client));
    EXPECT_TRUE(desktop.boxes.empty());
    EXPECT_EQ(Visible(), std::vector<int>{0});
    chat.tab(0).*flag = false;
  }
}

TEST_F(CloseTab, ATabClosedOnceCanBeUsedAgain) {
  Show({0, 1});
  Enter(0);
  Enter(1);
  close_tab(chat.client);
  AddTab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 1);
  EXPECT_EQ(dialogs, std::vector<int>{1});
  Enter(1);
  EXPECT_TRUE(chat.tab(1).Connected);
}

TEST_F(CloseTab, AReloginThatWasAskedForDoesNotSaveIt) {
  Show({0, 1});
  Enter(0);
  Enter(1);
  LogInAfresh(chat.client);
  close_tab(chat.client);
  chat.platform.time.Advance(300000);
  EXPECT_EQ(chat.Winsock1(1).State(), SocketState::kClosed);
  EXPECT_FALSE(chat.tab(1).Connecting);
  EXPECT_EQ(Visible(), std::vector<int>{0});
}

TEST_F(CloseTab, WhoHasGoneToAnotherTabMeanwhileStaysThere) {
  Show({0, 1, 2});
  Enter(0);
  Enter(2);
  Enter(1);
  desktop.on_yield = [this] { desktop.SetActiveTab(0); };
  close_tab(chat.client);
  EXPECT_EQ(desktop.ActiveTab(), 0);
  EXPECT_EQ(Visible(), (std::vector<int>{0, 2}));
}

}  // namespace
}  // namespace parlorwire
