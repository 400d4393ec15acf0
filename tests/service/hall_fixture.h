// A chat with one channel: alice is the operator of "hall", bob is not.
#pragma once

#include "chat_fixture.h"

namespace parlorwire::service {

struct HallFixture : ChatFixture {
  HallFixture() { Read(alice); }

  Frame& alice = Come("alice");
  Frame& bob = Come("bob");

  Channel& hall() { return *FindChannel(chat, "hall"); }

  Text FlagsOfNick(const Text& nick) { return FlagsOf(hall(), *FindMember(hall(), nick)); }
  Text BobsFlags() { return FlagsOfNick("bob"); }

  // Whether a nick that is away would be let in.
  bool MayEnter(const Text& nick) {
    return Enter(chat, Known(nick), "hall", "", origin, now, "") != nullptr;
  }
};

}  // namespace parlorwire::service
