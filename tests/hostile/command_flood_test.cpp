// A service that makes the client say more than it can.
#include <gtest/gtest.h>

#include <string>

#include "bot/bot_queue.h"
#include "support/chat.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

constexpr const char* kListTop = "HTTP/1.0 200 OK\r\n\r\nusers\n\n.";

struct CommandFlood : testing::Test {
  CommandFlood() { chat.EnterChannel(); }
  void AnswerList(std::string_view lines) {
    chat.Winsock3().Accept();
    chat.Winsock3().Deliver(Text(kListTop).append(lines));
    chat.Winsock3().PeerCloses();
  }
  Text Said() {
    const Text& sent = chat.Winsock4().sent;
    return sent.substr(sent.find("&msgtext0=") + 10);
  }
  std::size_t Entries() {
    const Text log = chat.ErrorLog();
    return static_cast<std::size_t>(std::count(log.begin(), log.end(), '\n'));
  }
  Chat chat;
  std::deque<Text>& queue = chat.tab().BotQueue;
};

TEST_F(CommandFlood, AFrameThatNamesTheUserOverAndOverAsksOnce) {
  const int fetches = chat.Winsock3().connects;
  Text lines;
  for (int i = 0; i < 20'000; ++i)
    lines += "alice|[][]''\n";
  AnswerList(lines);
  EXPECT_EQ(queue, std::deque<Text>{"/mo -t"});
  EXPECT_EQ(chat.Winsock3().connects, fetches + 1);
  EXPECT_EQ(chat.Winsock4().connects, 1);
}

TEST_F(CommandFlood, ARepairThatWaitsIsNotQueuedAgain) {
  SayBot(chat.client, "/k bob", 0);
  for (int i = 0; i < 100; ++i)
    for (const char* repair : {"/mo -t", "/mo -R", "/set s 9"})
      SayBot(chat.client, repair, 0);
  EXPECT_EQ(queue, (std::deque<Text>{"/k bob", "/mo -t", "/mo -R", "/set s 9"}));
}

TEST_F(CommandFlood, LinesOfAnotherStyleQueueOneRepair) {
  for (int i = 0; i < 100; ++i)
    chat.Deliver("<b><font color=red>\nrest\n");
  EXPECT_EQ(queue, std::deque<Text>{"/set s 9"});
  EXPECT_EQ(chat.Winsock4().connects, 1);
}

TEST_F(CommandFlood, WhatAnOperatorsToolSaysIsQueuedEachTime) {
  for (int i = 0; i < 3; ++i)
    SayBot(chat.client, "/k bob spam detected", 0);
  EXPECT_EQ(queue, (std::deque<Text>(3, "/k bob spam detected")));
}

TEST_F(CommandFlood, AThousandCommandsWaitAndTheOldestStay) {
  for (int i = 0; i < 5000; ++i)
    SayBot(chat.client, "/k user" + std::to_string(i), 0);
  EXPECT_EQ(queue.size(), 1000U);
  EXPECT_EQ(queue.front(), "/k user0");
  EXPECT_EQ(queue.back(), "/k user999");
  EXPECT_EQ(Entries(), 1U) << chat.ErrorLog();
  EXPECT_TRUE(chat.ErrorLog().ends_with("Function: SayBot\r\n"));
}

TEST_F(CommandFlood, EachGoesOutInItsTurnAndThenThereIsRoomAgain) {
  for (int i = 0; i < 1001; ++i)
    SayBot(chat.client, "/k user" + std::to_string(i), 0);
  for (int i = 0; i < 1000; ++i) {
    chat.Winsock4().Accept();
    ASSERT_EQ(Said(), "/k user" + std::to_string(i));
    chat.Winsock4().PeerCloses();
  }
  EXPECT_TRUE(queue.empty());
  EXPECT_EQ(chat.Winsock4().State(), SocketState::kClosing);
  EXPECT_EQ(Entries(), 1U);
  for (int i = 0; i < 1001; ++i)
    SayBot(chat.client, "/k again" + std::to_string(i), 0);
  EXPECT_EQ(queue.size(), 1000U);
  EXPECT_EQ(Entries(), 2U);  // another time that there was no room
}

TEST_F(CommandFlood, EachTabHasRoomOfItsOwn) {
  for (int i = 0; i < 1001; ++i)
    SayBot(chat.client, "/k user" + std::to_string(i), 0);
  SayBot(chat.client, "/k bob", 1);
  EXPECT_EQ(chat.tab(1).BotQueue.size(), 1U);
}

}  // namespace
}  // namespace parlorwire
