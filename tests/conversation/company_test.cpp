#include <gtest/gtest.h>

#include "conversation/evening.h"
#include "display/pane_mouse.h"
#include "session/connect.h"
#include "session/leaving.h"
#include "shell/hot_keys.h"
#include "shell/tabs.h"
#include "text/cut.h"

// Several nicks, tabs and channels at once.
namespace parlorwire {
namespace {

constexpr std::int64_t kArmed = 4000;  // ms; system lines get their reactions from then on

Text List(Guest& guest, int tab = 0) {
  return guest.tab(tab).Rich_Users.Text();
}

Text Counts(Guest& guest, int tab = 0) {
  return guest.platform.desktop.UsersNumCaption(tab);
}

// The guest opens a channel in one more tab.
void EnterTab(Evening& evening, Guest& guest, int tab, const Text& nick, const Text& channel) {
  TabSession& session = guest.tab(tab);
  session.Login = nick;
  session.Password = "secret";
  session.Channel = channel;
  session.LoginShown = true;
  guest.platform.desktop.SetTabVisible(tab, true);
  ConnectToChat(guest.client, tab);
  evening.Settle();
  evening.Pass(kArmed);
}

TEST(CompanyTest, WhoComesIsListedAndSweptWithColourAndGoesFromTheListAgain) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Pass(kArmed);
  Guest& bob = evening.Come("bob", "hall");
  EXPECT_TRUE(Contains(List(alice), "\r\nbob ")) << List(alice);
  EXPECT_EQ(Counts(alice), "Пользователей: 1/2"_w);
  ASSERT_GE(alice.tab().JoinTimers.size(), 2u);
  EXPECT_TRUE(alice.tab().JoinTimers[1]->Enabled());
  evening.Pass(5000);
  EXPECT_FALSE(alice.tab().JoinTimers[1]->Enabled());

  LeaveChannel(bob.client, 0);
  evening.Settle();
  EXPECT_FALSE(Contains(List(alice), "bob")) << List(alice);
  EXPECT_EQ(Counts(alice), "Пользователей: 1/1"_w);
}

TEST(CompanyTest, AKickedNickIsGoneFromTheList) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Come("bob", "hall");
  evening.Pass(kArmed);
  evening.Say(alice, "/k bob enough");
  EXPECT_FALSE(Contains(List(alice), "bob")) << List(alice);
}

TEST(CompanyTest, ANewOperatorIsSeenAsOneAndLosesItAtOnce) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  evening.Pass(kArmed);
  EXPECT_FALSE(bob.tab().IsOperator);
  evening.Say(alice, "/mo +o bob");
  EXPECT_TRUE(bob.tab().IsOperator) << bob.Pane();
  EXPECT_TRUE(bob.platform.desktop.say_use_op_enabled);
  evening.Say(alice, "/mo -o bob");
  EXPECT_FALSE(bob.tab().IsOperator);
  EXPECT_FALSE(bob.platform.desktop.say_use_op_enabled);
}

TEST(CompanyTest, TenTabsOfOneClientHoldTenChannels) {
  Evening evening;
  Guest& alice = evening.Come("alice", "room0");
  for (int tab = 1; tab < kTabCount; ++tab)
    EnterTab(evening, alice, tab, "alice", "room" + std::to_string(tab));
  for (int tab = 0; tab < kTabCount; ++tab) {
    EXPECT_TRUE(alice.tab(tab).Connected) << tab;
    EXPECT_EQ(alice.platform.desktop.TabCaption(tab), "room" + std::to_string(tab) + " - alice");
    evening.Say(alice, "hello from " + std::to_string(tab), tab);
  }
  for (int tab = 0; tab < kTabCount; ++tab)
    for (int other = 0; other < kTabCount; ++other)
      EXPECT_EQ(Contains(alice.Pane(tab), "hello from " + std::to_string(other)), tab == other);
}

TEST(CompanyTest, TwoNicksOfOneClientSeeEachOther) {
  Evening evening;
  Guest& guest = evening.Come("alice", "hall");
  evening.Pass(kArmed);
  EnterTab(evening, guest, 1, "bob", "hall");
  EXPECT_TRUE(Contains(List(guest, 0), "\r\nbob "));
  EXPECT_TRUE(Contains(List(guest, 1), "\r\nalice "));
  evening.Say(guest, "hello", 1);
  EXPECT_TRUE(Contains(guest.Pane(0), "bob: hello"));
}

TEST(CompanyTest, ALogoffEndsAllTabsOfTheNickAndLeavesTheOthers) {
  Evening evening;
  Guest& guest = evening.Come("alice", "hall");
  EnterTab(evening, guest, 1, "Alice", "attic");
  EnterTab(evening, guest, 2, "bob", "attic");
  LogoffChat(guest.client, 0);
  evening.Settle();
  evening.Pass(20000);
  EXPECT_FALSE(guest.tab(0).Connected);
  EXPECT_FALSE(guest.tab(1).Connected);
  EXPECT_FALSE(guest.tab(1).Connecting);
  EXPECT_TRUE(Contains(guest.Pane(1), "Вы вышли из чата"_w));
  EXPECT_TRUE(guest.tab(2).Connected);
}

TEST(CompanyTest, F6LogsOffAndComesBackWithAFreshPane) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Pass(kArmed);
  evening.Say(alice, "old words");
  const int connects = Simulated(alice.tab().Winsock1).connects;
  LogInAfresh(alice.client);
  evening.Settle();
  EXPECT_TRUE(alice.tab().Connected) << alice.Pane();
  EXPECT_EQ(Simulated(alice.tab().Winsock1).connects, connects + 2);  // login and frame
  EXPECT_TRUE(alice.Pane().starts_with("[12:00:04] Подключение к чату... Ok."_w)) << alice.Pane();
  EXPECT_FALSE(alice.tab().ReconnectRequested);
}

TEST(CompanyTest, F5ReadsTheChannelOrTheListFromTheStart) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  const int connects = Simulated(alice.tab().Winsock1).connects;
  RefreshTab(alice.client);
  evening.Settle();
  EXPECT_TRUE(alice.tab().Connected);
  EXPECT_EQ(Simulated(alice.tab().Winsock1).connects, connects + 2);
  LeaveChannel(alice.client, 0);
  evening.Settle();
  evening.Come("bob", "attic");
  RefreshTab(alice.client);
  evening.Settle();
  EXPECT_TRUE(alice.tab().IsChannelList);
  EXPECT_EQ(alice.tab().Channel, "");
  EXPECT_TRUE(Contains(alice.Pane(), "Канал: attic"_w)) << alice.Pane();
}

TEST(CompanyTest, AClickOnTheListAfterLeavingEntersAnotherChannel) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Come("bob", "attic");
  alice.platform.files.files["config.ini"] = "[Main]\r\nLogins=1\r\nLogin0=alice\r\n";
  LeaveChannel(alice.client, 0);
  evening.Settle();
  const auto at = static_cast<PanePosition>(alice.Pane().find("attic"));
  Rich_MouseMove(alice.client, 0, at);
  Rich_MouseDown(alice.client, 0, at, MouseButton::kLeft);
  Rich_MouseUp(alice.client, 0, at, MouseButton::kLeft);
  evening.Settle();
  EXPECT_TRUE(alice.tab().Connected) << alice.Pane();
  EXPECT_EQ(alice.tab().Channel, "attic");
  EXPECT_TRUE(Contains(List(alice), "\r\nbob "));
  EXPECT_TRUE(Contains(alice.platform.files.files["config.ini"], "Channel0=attic\r\n"));
}

TEST(CompanyTest, AClosedTabIsGoneFromTheChannelAndHearsNothingMore) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  alice.platform.desktop.SetTabVisible(0, true);
  EnterTab(evening, alice, 1, "alice", "attic");
  Guest& bob = evening.Come("bob", "attic");
  alice.platform.desktop.active_tab = 1;
  close_tab(alice.client);
  evening.Settle();
  evening.Pass(20000);
  EXPECT_TRUE(Contains(bob.Pane(), "alice покидает нас"_w)) << bob.Pane();
  evening.Say(bob, "anybody?");
  EXPECT_EQ(alice.Pane(1), "");
  EXPECT_TRUE(alice.tab(0).Connected);
}

}  // namespace
}  // namespace parlorwire
