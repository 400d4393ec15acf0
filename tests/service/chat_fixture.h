// A chat with no sockets, a clock that stands until it is moved, and counted "randomness".
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "service/names.h"
#include "service/posting.h"
#include "service/presence.h"
#include "text/charset.h"

namespace parlorwire::service {

struct ChatFixture : testing::Test {
  ChatFixture() {
    chat.random = [this] { return ++random; };
  }

  // 2024-05-06 07:08:09 on the wall.
  Moment now{1'000'000, 1'714'979'289};
  std::uint64_t random = 0;
  Chat chat;
  Origin origin{"10.0.0.1", ""};

  Account& Known(const Text& nick, int style = kRobotStyle) {
    const Login login = LogIn(chat, nick, "secret", "hall", origin, now);
    EXPECT_EQ(login.result, LoginResult::kWelcome);
    Account& account = *FindAccount(chat, nick, login.ticket);
    account.style = style;
    return account;
  }

  // Logs a nick in and opens its frame on a channel; what the frame says at first is read away.
  Frame& Come(const Text& nick, const Text& channel = "hall", int style = kRobotStyle) {
    Frame* frame = Enter(chat, Known(nick, style), channel, "", origin, now, "");
    EXPECT_NE(frame, nullptr);
    Read(*frame);
    return *frame;
  }

  // What a frame has said since the last time.
  Text Read(Frame& frame) { return DecodeKoi(std::exchange(frame.out, {})); }

  Text Say(const Text& nick, const Text& text, const Text& channel = "hall") {
    return Post(chat, chat.accounts.at(NickKey(nick)), channel, text, "", "", now);
  }

  void Pass(std::int64_t ms) {
    now.ms += ms;
    now.local += ms / 1000;
    Advance(chat, now);
  }
};

}  // namespace parlorwire::service
