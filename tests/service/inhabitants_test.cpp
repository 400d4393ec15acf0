#include "service/inhabitants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string_view>
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
    LiveOn(inhabitants, chat, now);
    while (now.ms < until) {
      now.ms = std::min(until, std::max(inhabitants.next_ms, now.ms + 10));
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
  EXPECT_EQ(LogIn(chat, "nordwind", "x", "hall", origin, now).result, LoginResult::kRefused);
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

TEST_F(InhabitantsTest, SaySmilesLinksAndAddressesNowAndThen) {
  options.talk = 400;
  options.talk_length = 70;
  const std::vector<Text> lines = Hear(10'000);
  std::map<Text, int> counts;
  for (const Text& line : lines) {
    const auto words = Split(line, " ");
    const auto any = [&](auto test) { return std::any_of(words.begin(), words.end(), test); };
    const auto begins = [](std::string_view with) {
      return [with](std::string_view word) { return word.starts_with(with); };
    };
    counts["smile"] +=
        any([](auto word) { return word.size() > 1 && word[0] == '*' && word != "*n"; });
    counts["link"] += any(begins("http")) || any(begins("www.")) || any(begins("ftp://"));
    counts["address"] += any(begins("192.0.2.*")) || any(begins("198.51.100.80"));
  }
  ASSERT_EQ(lines.size(), 4001U);
  EXPECT_NEAR(counts["smile"], 600, 80);
  EXPECT_NEAR(counts["link"] + counts["address"], 320, 60);
  EXPECT_GT(counts["address"], 20);
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

// The nicks that came, by the address in brackets behind the line; "" for none.
std::map<Text, std::set<Text>> Arrivals(const Text& said) {
  std::map<Text, std::set<Text>> nicks;
  for (const std::string_view line : Split(said, "\n")) {
    const auto words = Split(line, " ");
    if (words.size() < 4 || words[1] != W<"приходит">) continue;
    const Text address = words.size() == 4 ? "" : Text(line.substr(line.find('(')));
    nicks[address].insert(Text(words[0].substr(words[0].find(']') + 1)));
  }
  return nicks;
}

TEST_F(InhabitantsTest, ComeAndGoByTheClockFromAddressesThatSomeShare) {
  options.visit_ms = 1000;
  chat.random = std::mt19937_64(5);
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice");
  LiveOn(inhabitants, chat, now);
  EXPECT_EQ(inhabitants.next_ms, now.ms + 1000);
  Text said;
  for (int i = 0; i < 600; ++i) {
    Live(inhabitants, 1000);
    const Text now_said = Read(alice);
    EXPECT_TRUE(Contains(now_said, "приходит к нам"_w) || Contains(now_said, "покидает нас"_w));
    said += now_said;
  }
  auto nicks = Arrivals(said);
  EXPECT_EQ(nicks["(203.0.113.40)"].size(), 12U);
  EXPECT_EQ(nicks["(192.0.2.23)"], (std::set<Text>{"Росинка"_w, "Сверчок"_w, "Фонарщик"_w}));
  EXPECT_EQ(nicks["(198.51.100.80 (10.20.30.40))"], std::set<Text>{"Почтальон"_w});
  EXPECT_EQ(nicks[""], std::set<Text>{"Невидимка"_w});
  EXPECT_TRUE(Contains(said, "]Фонарщик покидает нас (192.0.2.23)\n"_w));
  EXPECT_TRUE(Contains(said, "]Невидимка покидает нас\n"_w));
}

TEST_F(InhabitantsTest, VisitInNumbersThatLeaveRoomForTheOthers) {
  options.visit_ms = 1000;
  chat.random = std::mt19937_64(5);
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Come("alice");
  std::size_t most = 0;
  for (int i = 0; i < 600; ++i) {
    Live(inhabitants, 1000);
    most = std::max(most, FindChannel(chat, "hall")->members.size());
  }
  // alice, six who live here, and five visitors.
  EXPECT_LE(most, 12U);
  EXPECT_GE(most, 10U);
}

TEST_F(InhabitantsTest, WhoShareABannedAddressAllStayOut) {
  options.visit_ms = 1000;
  chat.random = std::mt19937_64(5);
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice");
  Say("alice", "/mo +b 203.0.113.40");
  Live(inhabitants, 600000);
  auto nicks = Arrivals(Read(alice));
  EXPECT_FALSE(nicks.contains("(203.0.113.40)"));
  EXPECT_TRUE(nicks.contains("(192.0.2.23)"));
}

TEST_F(InhabitantsTest, AMutedInhabitantIsNotHeard) {
  chat.random = std::mt19937_64(5);
  Inhabitants inhabitants = MoveIn(chat, options, now);
  Frame& alice = Come("alice");
  Live(inhabitants, 1800000);
  EXPECT_TRUE(Contains(Read(alice), "]nordwind:("));
  Say("alice", "/mu nordwind");
  Read(alice);
  Live(inhabitants, 1800000);
  EXPECT_FALSE(Contains(Read(alice), "]nordwind:("));
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
