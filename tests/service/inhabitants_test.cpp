#include "service/inhabitants.h"

#include <gtest/gtest.h>

#include <vector>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

struct InhabitantsTest : ChatFixture {
  InhabitantsTest() { options.channels = {"hall"}; }

  InhabitantOptions options;

  void Live(Inhabitants& inhabitants, std::int64_t ms) {
    const std::int64_t until = now.ms + ms;
    while (now.ms < until) {
      now.ms += 10;
      LiveOn(inhabitants, chat, now);
    }
  }

  // What is said to a newcomer on a channel in so much time: the lines, and an empty one.
  std::vector<Text> Hear(std::int64_t ms) {
    Inhabitants inhabitants = MoveIn(chat, options, now);
    Frame& alice = Come("alice", "attic");
    LiveOn(inhabitants, chat, now);
    Live(inhabitants, ms);
    const Text said = Read(alice);
    const auto lines = Split(said, "\n");
    return {lines.begin(), lines.end()};
  }
};

TEST_F(InhabitantsTest, LiveOnTheirChannelsBeforeAnybodyComes) {
  MoveIn(chat, options, now);
  const Channel& channel = *FindChannel(chat, "hall");
  EXPECT_EQ(channel.members.size(), 6U);
  EXPECT_EQ(channel.history.size(), 6U);
  EXPECT_EQ(FlagsOf(channel, channel.members[0]), "[+O-t]");
}

TEST_F(InhabitantsTest, TheFirstWhoComesIsStillTheOperator) {
  MoveIn(chat, options, now);
  Come("alice");
  Come("bob");
  Channel& channel = *FindChannel(chat, "hall");
  EXPECT_TRUE(FindMember(channel, "alice")->oper);
  EXPECT_FALSE(FindMember(channel, "bob")->oper);
}

TEST_F(InhabitantsTest, NobodyLogsInAsOne) {
  MoveIn(chat, options, now);
  EXPECT_EQ(LogIn(chat, "nordwind", "x", "hall", origin).result, LoginResult::kRefused);
}

TEST_F(InhabitantsTest, GreetANewcomerSoonAndOnce) {
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice");
  LiveOn(inhabitants, chat, now);
  EXPECT_EQ(inhabitants.next_ms, now.ms + 1500);
  Live(inhabitants, 1500);
  const Text first = Read(alice);
  EXPECT_TRUE(Contains(first, "() alice: ")) << first;
  Live(inhabitants, 60000);
  const Text later = Read(alice);
  EXPECT_FALSE(Contains(later, "alice:"));
  EXPECT_GE(Split(later, "\n").size(), 4U);
}

TEST_F(InhabitantsTest, SleepWhenNobodyListens) {
  Inhabitants inhabitants = MoveIn(chat, options, now);
  LiveOn(inhabitants, chat, now);
  EXPECT_EQ(inhabitants.next_ms, kForever);
  Live(inhabitants, 60000);
  EXPECT_EQ(FindChannel(chat, "hall")->history.size(), 6U);
}

TEST_F(InhabitantsTest, AreAbsentWhenSwitchedOff) {
  options.present = false;
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice");
  Live(inhabitants, 60000);
  EXPECT_EQ(Read(alice), "");
  EXPECT_EQ(FindChannel(chat, "hall")->members.size(), 1U);
}

TEST_F(InhabitantsTest, SayExactlySoManyLinesASecondEachNumbered) {
  options.talk = 333;
  const std::vector<Text> lines = Hear(3000);
  ASSERT_EQ(lines.size(), 999U + 1U);
  for (std::size_t i = 0; i < 999; ++i) {
    Text number = std::to_string(i + 1);
    number.insert(0, 8 - number.size(), '0');
    ASSERT_TRUE(Contains(lines[i], ":() #" + number + " ")) << i;
  }
  EXPECT_EQ(FindChannel(chat, "attic")->members.size(), 7U);
}

TEST_F(InhabitantsTest, TalkWhenEnoughFramesAreOpenAndNoLongerThanAskedFor) {
  options.talk = 100;
  options.talk_lines = 250;
  options.talk_frames = 2;
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice", "attic");
  Live(inhabitants, 1000);
  EXPECT_EQ(Read(alice), "");
  EXPECT_EQ(inhabitants.next_ms, kForever);
  Frame& bob = Come("bob", "cellar");
  LiveOn(inhabitants, chat, now);
  Live(inhabitants, 10000);
  for (Frame* frame : {&alice, &bob}) {
    const Text said = Read(*frame);
    EXPECT_TRUE(Contains(said, ":() #00000001 "));
    EXPECT_TRUE(Contains(said, ":() #00000250 "));
    EXPECT_FALSE(Contains(said, ":() #00000251 "));
  }
  // Nothing wakes the service then.
  EXPECT_EQ(inhabitants.next_ms, kForever);
}

TEST_F(InhabitantsTest, WaitForAReaderWhoHasMuchToTakeYet) {
  options.talk = 1000;
  options.patient = true;
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice", "attic");
  Come("bob", "attic");
  alice.waiting = 256 * 1024;
  LiveOn(inhabitants, chat, now);
  Live(inhabitants, 1000);
  EXPECT_FALSE(Contains(Read(alice), "#"));
  alice.waiting = 0;
  Live(inhabitants, 1000);
  EXPECT_TRUE(Contains(Read(alice), ":() #00000001 "));
}

TEST_F(InhabitantsTest, SayLinesOfTheWantedLength) {
  options.talk = 100;
  options.talk_length = 70;
  const std::vector<Text> lines = Hear(1000);
  ASSERT_EQ(lines.size(), 100U + 1U);
  for (std::size_t i = 0; i < 100; ++i)
    EXPECT_GE(lines[i].substr(lines[i].find('#')).size(), 70U) << lines[i];
}

TEST_F(InhabitantsTest, TheirChannelOutlivesItsPeopleAndForgetsItsOperators) {
  MoveIn(chat, options, now);
  Come("alice");
  Leave(chat, chat.accounts.at("alice"), "hall", now);
  ASSERT_NE(FindChannel(chat, "hall"), nullptr);
  Come("bob");
  EXPECT_TRUE(FindMember(*FindChannel(chat, "hall"), "bob")->oper);
}

TEST_F(InhabitantsTest, AKickedInhabitantStaysOutWhileTheKickLasts) {
  Inhabitants inhabitants = MoveIn(chat, options, now);
  chat.options.kick_ms = kForever / 2;
  Come("alice");
  EXPECT_EQ(Say("alice", "/k nordwind"), "nordwind удален с канала"_w);
  Live(inhabitants, 600000);
  EXPECT_EQ(FindMember(*FindChannel(chat, "hall"), "nordwind"), nullptr);
  const Text robot = FindChannel(chat, "hall")->members[0].account->nick;
  EXPECT_EQ(Say("alice", "/k " + robot), "Этот ник под защитой"_w);
}

}  // namespace
}  // namespace parlorwire::service
