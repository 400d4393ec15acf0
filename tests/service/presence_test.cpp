#include "service/presence.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "service/personal.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using PresenceTest = ChatFixture;

TEST_F(PresenceTest, AFrameBeginsWithItsHeadAndThenTheJoinLine) {
  Account& alice = Known("alice");
  Frame* frame = Enter(chat, alice, "hall", "", origin, now, "HEAD\r\n\r\n");
  EXPECT_EQ(Read(*frame),
            "HEAD\r\n\r\n<pre>\n"
            "..[07:08:09]alice приходит на канал (10.0.0.1)\n"
            "..[07:08:09]alice стал оператором канала\n"_w);
}

TEST_F(PresenceTest, OnlyTheFirstOnAChannelIsItsOperator) {
  Come("alice");
  Come("bob");
  Channel& channel = *FindChannel(chat, "HALL");
  EXPECT_EQ(FlagsOf(channel, channel.members[0]), "[+o]");
  EXPECT_EQ(FlagsOf(channel, channel.members[1]), "[]");
}

TEST_F(PresenceTest, AnAddressBehindAProxyStandsInASecondPairOfBrackets) {
  Frame* frame = Enter(chat, Known("alice"), "hall", "", {"10.0.0.1", "172.16.0.9"}, now, "");
  EXPECT_TRUE(Contains(Read(*frame), "alice приходит на канал (10.0.0.1 (172.16.0.9))\n"_w));
  EXPECT_EQ(FindChannel(chat, "hall")->members[0].address, "172.16.0.9");
}

TEST_F(PresenceTest, AForwardedAddressThatIsNoneIsIgnored) {
  Frame* frame = Enter(chat, Known("alice"), "hall", "", {"10.0.0.1", "a) b"}, now, "");
  EXPECT_TRUE(Contains(Read(*frame), "alice приходит на канал (10.0.0.1)\n"_w));
}

TEST_F(PresenceTest, ANewcomerIsGivenTheLastLines) {
  chat.options.history = 2;
  Come("alice");
  for (const char* text : {"one", "two", "three"})
    Say("alice", text);
  Frame* bob = Enter(chat, Known("bob"), "hall", "", origin, now, "");
  EXPECT_EQ(Read(*bob),
            "<pre>\n..[07:08:09]alice:() two\n..[07:08:09]alice:() three\n"
            "..[07:08:09]bob приходит на канал (10.0.0.1)\n"_w);
}

TEST_F(PresenceTest, LeavingEndsTheFrameAndIsToldToTheOthers) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob");
  Read(alice);
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(Read(bob), "");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(PresenceTest, LoggingOffEndsAllFramesAndTickets) {
  Frame& hall = Come("alice", "hall");
  Frame& attic = Come("alice", "attic");
  Account& account = chat.accounts.at("alice");
  Frame& personal = EnterPersonal(chat, account, now, "", "h");
  const Text ticket = account.tickets.at("hall");
  LogOff(chat, account, now);
  for (const Frame* frame : {&hall, &attic, &personal})
    EXPECT_EQ(frame->end, FrameEnd::kClose);
  EXPECT_EQ(FindAccount(chat, "alice", ticket), nullptr);
  EXPECT_TRUE(chat.channels.empty());
}

TEST_F(PresenceTest, ABrokenFrameMayComeBackWithoutAWord) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob");
  Read(alice);
  FrameIsGone(chat, bob.id, now);
  Pass(2999);
  Frame& again = Come("bob");
  Pass(5000);
  EXPECT_EQ(Read(alice), "");
  Say("alice", "hi");
  EXPECT_TRUE(Contains(Read(again), "hi"));
}

TEST_F(PresenceTest, ABrokenFrameThatStaysAwayIsALeave) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob");
  Read(alice);
  FrameIsGone(chat, bob.id, now);
  EXPECT_EQ(NextAdvance(chat), now.ms + 3000);
  Pass(3000);
  EXPECT_EQ(Read(alice), "..[07:08:12]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(PresenceTest, ASecondFrameOfANickOnAChannelEjectsTheFirst) {
  Frame& first = Come("alice");
  Frame& second = Come("alice");
  EXPECT_EQ(first.end, FrameEnd::kEject);
  EXPECT_EQ(second.end, FrameEnd::kNone);
  FrameIsGone(chat, first.id, now);
  Pass(10000);
  EXPECT_EQ(FindChannel(chat, "hall")->members.size(), 1U);
}

TEST_F(PresenceTest, AChannelWithAPasswordLetsOnlyThoseInWhoKnowIt) {
  ASSERT_NE(Enter(chat, Known("alice"), "den", "key", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("bob"), "den", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("bob"), "den", "Key", origin, now, ""), nullptr);
  EXPECT_NE(Enter(chat, Known("bob"), "den", "key", origin, now, ""), nullptr);
}

TEST_F(PresenceTest, ChannelNamesMayNotBreakTheListOfChannels) {
  EXPECT_EQ(Enter(chat, Known("alice"), "topic: x", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), "a\nb", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), " ", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), Text(61, 'a'), "", origin, now, ""), nullptr);
  EXPECT_TRUE(chat.channels.empty());
}

TEST_F(PresenceTest, AQuietFrameIsKeptAlive) {
  Frame& alice = Come("alice");
  EXPECT_EQ(NextAdvance(chat), now.ms + 30000);
  Pass(20000);
  Say("alice", "hi");
  Read(alice);
  Pass(29999);
  EXPECT_EQ(Read(alice), "");
  Pass(1);
  EXPECT_EQ(Read(alice), "<!-- -->\n");
}

}  // namespace
}  // namespace parlorwire::service
