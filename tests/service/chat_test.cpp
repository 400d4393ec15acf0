#include "service/chat.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using ChatTest = ChatFixture;

TEST_F(ChatTest, TheFirstLoginRegistersTheNick) {
  EXPECT_EQ(LogIn(chat, "Alice", "secret", "hall", origin, now).result, LoginResult::kWelcome);
  EXPECT_EQ(LogIn(chat, "alice", "other", "hall", origin, now).result, LoginResult::kWrongPassword);
  EXPECT_EQ(LogIn(chat, "ALICE", "secret", "hall", origin, now).result, LoginResult::kWelcome);
  EXPECT_EQ(chat.accounts.size(), 1U);
}

TEST_F(ChatTest, RefusesEmptyPasswordsBadNicksAndBannedOnes) {
  chat.options.banned = {"10.9.*", "trol?"};
  EXPECT_EQ(LogIn(chat, "alice", "", "hall", origin, now).result, LoginResult::kRefused);
  for (const Text& nick : {""_w, "a b"_w, "a:b"_w, "a|b"_w, "a(b"_w, "a+b"_w, "a%b"_w, "a'b"_w,
                           "a\nb"_w, Text(31, 'a')})
    EXPECT_EQ(LogIn(chat, nick, "x", "hall", origin, now).result, LoginResult::kRefused) << nick;
  EXPECT_EQ(LogIn(chat, "Troll", "x", "hall", origin, now).result, LoginResult::kRefused);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", {"10.9.8.7", ""}, now).result, LoginResult::kRefused);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", {"1.1.1.1", "10.9.8.7"}, now).result,
            LoginResult::kRefused);
  EXPECT_TRUE(chat.accounts.empty());
}

TEST_F(ChatTest, IsFullWhenThereAreTooManyFramesOrNicks) {
  chat.options.most_accounts = 1;
  EXPECT_EQ(LogIn(chat, "alice", "x", "hall", origin, now).result, LoginResult::kWelcome);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", origin, now).result, LoginResult::kFull);
  chat.options.most_frames = 0;
  EXPECT_EQ(LogIn(chat, "alice", "x", "hall", origin, now).result, LoginResult::kFull);
}

TEST_F(ChatTest, ANewTicketVoidsTheOldOneOfTheSameChannelOnly) {
  const Text hall = LogIn(chat, "alice", "x", "hall", origin, now).ticket;
  const Text attic = LogIn(chat, "alice", "x", "attic", origin, now).ticket;
  const Text again = LogIn(chat, "alice", "x", "Hall", origin, now).ticket;
  EXPECT_EQ(hall.size(), 16U);
  EXPECT_EQ(FindAccount(chat, "alice", hall), nullptr);
  EXPECT_NE(FindAccount(chat, "alice", attic), nullptr);
  EXPECT_NE(FindAccount(chat, "ALICE", again), nullptr);
  EXPECT_EQ(FindAccount(chat, "bob", again), nullptr);
  EXPECT_EQ(FindAccount(chat, "alice", ""), nullptr);
}

}  // namespace
}  // namespace parlorwire::service
