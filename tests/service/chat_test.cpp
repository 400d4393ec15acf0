#include "service/chat.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using ChatTest = ChatFixture;

TEST_F(ChatTest, TheFirstLoginRegistersTheNick) {
  EXPECT_EQ(LogIn(chat, "Alice", "secret", "hall", origin).result, LoginResult::kWelcome);
  EXPECT_EQ(LogIn(chat, "alice", "other", "hall", origin).result, LoginResult::kWrongPassword);
  EXPECT_EQ(LogIn(chat, "ALICE", "secret", "hall", origin).result, LoginResult::kWelcome);
  EXPECT_EQ(chat.accounts.size(), 1U);
}

TEST_F(ChatTest, RefusesEmptyPasswordsBadNicksAndBannedOnes) {
  chat.options.banned = {"10.9.*", "trol?"};
  EXPECT_EQ(LogIn(chat, "alice", "", "hall", origin).result, LoginResult::kRefused);
  for (const Text& nick : {""_w, "a b"_w, "a:b"_w, "a|b"_w, "a(b"_w, "a+b"_w, "a%b"_w, "a'b"_w,
                           "a\nb"_w, Text(31, 'a')})
    EXPECT_EQ(LogIn(chat, nick, "x", "hall", origin).result, LoginResult::kRefused) << nick;
  EXPECT_EQ(LogIn(chat, "Troll", "x", "hall", origin).result, LoginResult::kRefused);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", {"10.9.8.7", ""}).result, LoginResult::kRefused);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", {"1.1.1.1", "10.9.8.7"}).result, LoginResult::kRefused);
  EXPECT_TRUE(chat.accounts.empty());
}

TEST_F(ChatTest, IsFullWhenThereAreTooManyFramesOrNicks) {
  chat.options.most_accounts = 1;
  EXPECT_EQ(LogIn(chat, "alice", "x", "hall", origin).result, LoginResult::kWelcome);
  EXPECT_EQ(LogIn(chat, "bob", "x", "hall", origin).result, LoginResult::kFull);
  chat.options.most_frames = 0;
  EXPECT_EQ(LogIn(chat, "alice", "x", "hall", origin).result, LoginResult::kFull);
}

TEST_F(ChatTest, ANewTicketVoidsTheOldOneOfTheSameChannelOnly) {
  const Text hall = LogIn(chat, "alice", "x", "hall", origin).ticket;
  const Text attic = LogIn(chat, "alice", "x", "attic", origin).ticket;
  const Text again = LogIn(chat, "alice", "x", "Hall", origin).ticket;
  EXPECT_EQ(hall.size(), 16U);
  EXPECT_EQ(FindAccount(chat, "alice", hall), nullptr);
  EXPECT_NE(FindAccount(chat, "alice", attic), nullptr);
  EXPECT_NE(FindAccount(chat, "ALICE", again), nullptr);
  EXPECT_EQ(FindAccount(chat, "bob", again), nullptr);
  EXPECT_EQ(FindAccount(chat, "alice", ""), nullptr);
}

TEST_F(ChatTest, AFrameBeginsWithItsHeadAndThenTheJoinLine) {
  Account& alice = Known("alice");
  Frame* frame = Enter(chat, alice, "hall", "", origin, now, "HEAD\r\n\r\n");
  EXPECT_EQ(Read(*frame),
            "HEAD\r\n\r\n<pre>\n"
            "..[07:08:09]alice приходит на канал (10.0.0.1)\n"
            "..[07:08:09]alice стал оператором канала\n"_w);
}

TEST_F(ChatTest, TheWireIsKoi) {
  Frame* frame = Enter(chat, Known("Ёж"_w), "hall", "", origin, now, "");
  EXPECT_TRUE(Contains(frame->out, "\xB3\xD6 \xD0\xD2\xC9\xC8\xCF\xC4\xC9\xD4"));
}

TEST_F(ChatTest, OnlyTheFirstOnAChannelIsItsOperator) {
  Come("alice");
  Come("bob");
  Channel& channel = *FindChannel(chat, "HALL");
  EXPECT_EQ(FlagsOf(chat, channel, channel.members[0]), "[+o]");
  EXPECT_EQ(FlagsOf(chat, channel, channel.members[1]), "[]");
}

TEST_F(ChatTest, AnAddressBehindAProxyStandsInASecondPairOfBrackets) {
  Frame* frame = Enter(chat, Known("alice"), "hall", "", {"10.0.0.1", "172.16.0.9"}, now, "");
  EXPECT_TRUE(Contains(Read(*frame), "alice приходит на канал (10.0.0.1 (172.16.0.9))\n"_w));
  EXPECT_EQ(FindChannel(chat, "hall")->members[0].address, "172.16.0.9");
}

TEST_F(ChatTest, AForwardedAddressThatIsNoneIsIgnored) {
  Frame* frame = Enter(chat, Known("alice"), "hall", "", {"10.0.0.1", "a) b"}, now, "");
  EXPECT_TRUE(Contains(Read(*frame), "alice приходит на канал (10.0.0.1)\n"_w));
}

TEST_F(ChatTest, ANewcomerIsGivenTheLastLines) {
  chat.options.history = 2;
  Come("alice");
  for (const char* text : {"one", "two", "three"})
    Say("alice", text);
  Frame* bob = Enter(chat, Known("bob"), "hall", "", origin, now, "");
  EXPECT_EQ(Read(*bob),
            "<pre>\n..[07:08:09]alice:() two\n..[07:08:09]alice:() three\n"
            "..[07:08:09]bob приходит на канал (10.0.0.1)\n"_w);
}

TEST_F(ChatTest, EverybodyReadsAMessageInHisOwnStyle) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob", "hall", 1);
  Frame& carol = Come("carol", "attic");
  Read(alice);
  EXPECT_EQ(Say("bob", "hi <all>"), "Сообщение отправлено"_w);
  EXPECT_EQ(Read(alice), "..[07:08:09]bob:() hi &lt;all&gt;\n");
  EXPECT_EQ(Read(bob),
            "<B><FONT color=\"#FF5050\">bob</FONT></B>: hi &lt;all&gt; "
            "<font size=-1 color=\"#cfcfff\">[07:08:09]</font><BR>\n");
  EXPECT_EQ(Read(carol), "");
}

TEST_F(ChatTest, ControlCharactersBecomeBlanks) {
  Frame& alice = Come("alice");
  Say("alice", "one\r\ntwo\xA0x");
  EXPECT_EQ(Read(alice), "..[07:08:09]alice:() one  two x\n");
}

TEST_F(ChatTest, StarsMakeAnAction) {
  Frame& alice = Come("alice");
  Say("alice", "*** waves");
  Say("alice", "/me sits");
  EXPECT_EQ(Read(alice),
            "..[07:08:09]alice:() *** alice waves\n..[07:08:09]alice:() *** alice sits\n");
}

TEST_F(ChatTest, SaysWhyAMessageWasNotSent) {
  Frame& alice = Come("alice");
  EXPECT_EQ(Say("alice", "  "), "Пустое сообщение не отправлено"_w);
  EXPECT_EQ(Say("alice", "hi", "attic"), "Вы не на канале, сообщение не отправлено"_w);
  EXPECT_EQ(Read(alice), "");
}

TEST_F(ChatTest, TheSamePostIsTakenOnce) {
  Frame& alice = Come("alice");
  Account& account = chat.accounts.at("alice");
  Post(chat, account, "hall", "hi", "", "11111111", now);
  EXPECT_EQ(Post(chat, account, "hall", "hi", "", "11111111", now),
            "Это сообщение уже отправлено"_w);
  Post(chat, account, "hall", "ho", "", "11111111", now);
  Post(chat, account, "hall", "hi", "", "22222222", now);
  EXPECT_EQ(Read(alice),
            "..[07:08:09]alice:() hi\n..[07:08:09]alice:() ho\n..[07:08:09]alice:() hi\n");
}

TEST_F(ChatTest, TheSameCommandIsCarriedOutAgain) {
  Come("alice");
  Account& account = chat.accounts.at("alice");
  for (const char* text : {"/set s 9", "/set s 1", "/set s 9"})
    Post(chat, account, "hall", text, "", "11111111", now);
  EXPECT_EQ(account.style, 9);
}

TEST_F(ChatTest, LeavingEndsTheFrameAndIsToldToTheOthers) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob");
  Read(alice);
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(Read(bob), "");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(ChatTest, LoggingOffEndsAllFramesAndTickets) {
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

TEST_F(ChatTest, ABrokenFrameMayComeBackWithoutAWord) {
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

TEST_F(ChatTest, ABrokenFrameThatStaysAwayIsALeave) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob");
  Read(alice);
  FrameIsGone(chat, bob.id, now);
  EXPECT_EQ(NextAdvance(chat), now.ms + 3000);
  Pass(3000);
  EXPECT_EQ(Read(alice), "..[07:08:12]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(ChatTest, ASecondFrameOfANickOnAChannelEjectsTheFirst) {
  Frame& first = Come("alice");
  Frame& second = Come("alice");
  EXPECT_EQ(first.end, FrameEnd::kEject);
  EXPECT_EQ(second.end, FrameEnd::kNone);
  FrameIsGone(chat, first.id, now);
  Pass(10000);
  EXPECT_EQ(FindChannel(chat, "hall")->members.size(), 1U);
}

TEST_F(ChatTest, AChannelWithAPasswordLetsOnlyThoseInWhoKnowIt) {
  ASSERT_NE(Enter(chat, Known("alice"), "den", "key", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("bob"), "den", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("bob"), "den", "Key", origin, now, ""), nullptr);
  EXPECT_NE(Enter(chat, Known("bob"), "den", "key", origin, now, ""), nullptr);
}

TEST_F(ChatTest, ChannelNamesMayNotBreakTheListOfChannels) {
  EXPECT_EQ(Enter(chat, Known("alice"), "topic: x", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), "a\nb", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), " ", "", origin, now, ""), nullptr);
  EXPECT_EQ(Enter(chat, Known("alice"), Text(61, 'a'), "", origin, now, ""), nullptr);
  EXPECT_TRUE(chat.channels.empty());
}

TEST_F(ChatTest, AQuietFrameIsKeptAlive) {
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

TEST_F(ChatTest, AnEndedFrameIsWrittenToNoMore) {
  Frame& alice = Come("alice");
  End(chat, alice, FrameEnd::kClose);
  Pass(60000);
  EXPECT_EQ(alice.out, "");
}

TEST_F(ChatTest, TouchedNamesEachFrameOnce) {
  Frame& alice = Come("alice");
  chat.touched.clear();
  alice.touched = false;
  Say("alice", "one");
  Say("alice", "two");
  EXPECT_EQ(chat.touched, std::vector<FrameId>{alice.id});
}

TEST_F(ChatTest, HistoryKeepsTwoHundredLines) {
  Come("alice");
  for (int i = 0; i < 500; ++i)
    Say("alice", std::to_string(i));
  EXPECT_EQ(FindChannel(chat, "hall")->history.size(), 200U);
}

struct MaskCase {
  std::string_view mask;
  std::string_view text;
  bool matches;
};

TEST(Mask, Matches) {
  for (const MaskCase& each : {MaskCase{"alice", "ALICE", true},
                               {"al*", "alice", true},
                               {"*ce", "alice", true},
                               {"a*i*e", "alice", true},
                               {"al?ce", "alice", true},
                               {"al?ce", "alce", false},
                               {"10.0.*", "10.0.0.7", true},
                               {"10.0.*", "10.1.0.7", false},
                               {"*", "", false},
                               {"", "", true},
                               {"", "a", false},
                               {"*a*b*", "xxaxxbxx", true},
                               {"*a*b*", "xxbxxaxx", false}})
    EXPECT_EQ(MaskMatches(each.mask, each.text), each.matches) << each.mask << " " << each.text;
}

}  // namespace
}  // namespace parlorwire::service
