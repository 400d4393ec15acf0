#include "service/frame.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using FrameTest = ChatFixture;

TEST_F(FrameTest, TheWireIsKoi) {
  Frame* frame = Enter(chat, Known("Ёж"_w), "hall", "", origin, now, "");
  EXPECT_TRUE(Contains(frame->out, "\xB3\xD6 \xD0\xD2\xC9\xC8\xCF\xC4\xC9\xD4"));
}

TEST_F(FrameTest, AnEndedFrameIsWrittenToNoMore) {
  Frame& alice = Come("alice");
  End(chat.frames, alice, FrameEnd::kClose);
  Pass(60000);
  EXPECT_EQ(alice.out, "");
}

TEST_F(FrameTest, TouchedNamesEachFrameOnce) {
  Frame& alice = Come("alice");
  chat.frames.touched.clear();
  alice.touched = false;
  Say("alice", "one");
  Say("alice", "two");
  EXPECT_EQ(chat.frames.touched, std::vector<FrameId>{alice.id});
}

}  // namespace
}  // namespace parlorwire::service
