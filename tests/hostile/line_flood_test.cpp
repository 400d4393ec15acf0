// Lines by the thousand, each of which costs something.
#include <gtest/gtest.h>

#include <string>

#include "bot/reactions.h"
#include "support/chat.h"
#include "users/users_out.h"

namespace parlorwire {
namespace {

// ---- mentions on a channel that is not seen ----

struct MentionFlood : testing::Test {
  MentionFlood() {
    chat.EnterChannel();
    chat.tab(1).Login = "carol";
    chat.tab(1).Channel = "hall";
    chat.EnterChannel(1);
    chat.platform.desktop.SetTabVisible(1, true);
    chat.platform.desktop.active_tab = 1;
  }
  void Mention(int count, int tab = 0) {
    for (int i = 0; i < count; ++i)
      chat.Deliver("..[12:00:01]bob:() hello alice\n", tab);
  }
  int Notices() { return Count("Перейти"_w); }
  int Count(const Text& what) {
    const Text pane = chat.Pane(1);
    int count = 0;
    for (std::size_t at = pane.find(what); at != Text::npos; at = pane.find(what, at + 1))
      ++count;
    return count;
  }
  void Wait(int milliseconds) { chat.platform.time.Advance(milliseconds); }
  Chat chat;
};

TEST_F(MentionFlood, BeyondTwentyInASecondOneNoticeCountsTheRest) {
  Mention(20);
  EXPECT_EQ(Notices(), 20);
  const PanePosition first_held = chat.tab().Rich.Length();
  Mention(2480);
  EXPECT_EQ(Notices(), 20);
  Wait(999);
  EXPECT_EQ(Notices(), 20);
  Wait(1);
  EXPECT_EQ(Notices(), 21);
  EXPECT_EQ(Count(">>Ещё упоминаний за секунду: 2480\r\n"_w), 1);
  EXPECT_EQ(Count("Канал lobby [alice] id#"_w + std::to_string(first_held) + "\r\n"), 1);
  Wait(60'000);
  EXPECT_EQ(Notices(), 21);
}

TEST_F(MentionFlood, InEnglishToo) {
  chat.client.app.Language = UiLanguage::kEnglish;
  Mention(21);
  Wait(1000);
  EXPECT_EQ(Count(">>More mentions in this second: 1\r\n"), 1);
}

TEST_F(MentionFlood, TheNextSecondHasTwentyOfItsOwn) {
  Mention(100);
  Wait(1000);
  Mention(20);
  EXPECT_EQ(Notices(), 41);
  Wait(1000);
  EXPECT_EQ(Notices(), 41);
}

TEST_F(MentionFlood, TwentyInASecondAreAllTold) {
  for (int i = 0; i < 5; ++i) {
    Mention(20);
    Wait(1000);
  }
  EXPECT_EQ(Notices(), 100);
}

TEST_F(MentionFlood, AnotherTabHasTwentyOfItsOwn) {
  chat.tab(2).Login = "alice";
  chat.tab(2).Channel = "yard";
  chat.EnterChannel(2);
  Mention(30);
  Mention(5, 2);
  EXPECT_EQ(Notices(), 25);
}

TEST_F(MentionFlood, WhoHasGoneToTheChannelIsToldNoMore) {
  Mention(30);
  chat.platform.desktop.active_tab = 0;
  const Text pane = chat.Pane();
  Wait(1000);
  EXPECT_EQ(Notices(), 20);
  EXPECT_EQ(chat.Pane(), pane);
  chat.platform.desktop.active_tab = 1;
  Mention(1);
  EXPECT_EQ(Notices(), 21);
}

TEST_F(MentionFlood, WhatIsNotToldElsewhereIsNotCounted) {
  chat.platform.desktop.window_active = false;
  Mention(30);
  EXPECT_FALSE(chat.tab().MentionSecond->Enabled());
  chat.platform.desktop.window_active = true;
  Mention(20);
  EXPECT_EQ(Notices(), 20);
}

// ---- those who leave ----

TEST(LeaveFlood, ALineTakesWhoLeavesOutWithoutACopyOfTheList) {
  Chat chat;
  chat.EnterChannel();
  TabSession& session = chat.tab();
  session.ActionsArmed = true;
  session.Rich_Users.Text("\r\n\r\n");
  constexpr int kUsers = 20'000;
  for (int i = 0; i < kUsers; ++i)
    UsersOut(chat.client, {"user" + std::to_string(i) + "x", "10.0.0.1", "[+o]", "at work"}, 0);
  ASSERT_GT(session.Rich_Users.Length(), 600'000);

  const std::uint64_t touched = session.Rich_Users.work().blocks_touched;
  for (int i = 0; i < 100; ++i)
    ClientAction(chat.client, "user"_w + std::to_string(i) + "x покидает нас"_w, 0);
  EXPECT_LT(session.Rich_Users.work().blocks_touched - touched, 6000U);
  EXPECT_TRUE(session.Rich_Users.TextBetween(0, 20).starts_with("\r\n\r\nuser100x "));
}

}  // namespace
}  // namespace parlorwire
