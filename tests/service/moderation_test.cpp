#include "service/moderation.h"

#include <gtest/gtest.h>

#include <utility>

#include "hall_fixture.h"
#include "service/lists.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using ModerationTest = HallFixture;

TEST_F(ModerationTest, AKickClosesTheFrameAndIsSeen) {
  EXPECT_EQ(Say("alice", "/k Bob go away"), "bob удален с канала"_w);
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(Read(alice),
            "..[07:08:09]bob удален с канала (alice: go away)\n"
            "..[07:08:09]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(ModerationTest, AKickedNickIsKeptOutForAWhile) {
  Say("alice", "/k bob");
  Account& account = chat.accounts.at("bob");
  EXPECT_EQ(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_NE(Enter(chat, account, "attic", "", origin, now, ""), nullptr);
  Pass(60000);
  EXPECT_NE(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
}

TEST_F(ModerationTest, WithNoTimeAKickedNickMayComeBackAtOnce) {
  chat.options.kick_ms = 0;
  Say("alice", "/k bob");
  EXPECT_NE(Enter(chat, chat.accounts.at("bob"), "hall", "", origin, now, ""), nullptr);
}

TEST_F(ModerationTest, ABanKeepsOutUntilItIsTakenBack) {
  Say("alice", "/mo +b bob spam");
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  Account& account = chat.accounts.at("bob");
  Pass(100000000);
  EXPECT_EQ(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_EQ(Say("alice", "/mo -b bob"), "bob больше не в бан-листе"_w);
  EXPECT_NE(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_EQ(Say("alice", "/mo -b bob"), "Нет в бан-листе: bob"_w);
}

TEST_F(ModerationTest, ABanMayNameAnAddress) {
  origin.address = "10.7.7.7";
  Frame& carol = Come("carol");
  Say("alice", "/mo +b 10.7.*");
  EXPECT_EQ(carol.end, FrameEnd::kClose);
  EXPECT_EQ(bob.end, FrameEnd::kNone);
  EXPECT_EQ(Enter(chat, Known("dave"), "hall", "", origin, now, ""), nullptr);
}

TEST_F(ModerationTest, AMutedNickIsNotHeard) {
  Say("alice", "/mu bob too loud");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob лишается права голоса (alice: too loud)\n"_w);
  EXPECT_EQ(BobsFlags(), "[-v]");
  EXPECT_EQ(Say("bob", "hi"), "Вы лишены права голоса, сообщение не отправлено"_w);
  EXPECT_EQ(Say("bob", "/me hi"), "Вы лишены права голоса, сообщение не отправлено"_w);
  EXPECT_EQ(Read(alice), "");
  Say("alice", "/mu 0 bob");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob получает право голоса\n"_w);
  Say("bob", "hi");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob:() hi\n");
}

TEST_F(ModerationTest, AMuteMayEndByItself) {
  Say("alice", "/mu 10 bob");
  Pass(9000);
  EXPECT_EQ(BobsFlags(), "[-v]");
  EXPECT_EQ(NextAdvance(chat), now.ms + 1000);
  Read(alice);
  Pass(1000);
  EXPECT_EQ(Read(alice), "..[07:08:19]bob получает право голоса\n"_w);
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(ModerationTest, ALoweredNickWritesSmallLetters) {
  Say("alice", "/l 240 bob");
  Read(alice);
  Say("bob", "ПРИВЕТ All"_w);
  Say("bob", "/me LAUGHS");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob:() привет all\n..[07:08:09]bob:() *** bob laughs\n"_w);
  EXPECT_EQ(BobsFlags(), "[+l]");
  Say("alice", "/l 0 bob");
  Read(alice);
  Say("bob", "HI");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob:() HI\n");
}

TEST_F(ModerationTest, OperatorsAreMadeAndUnmade) {
  Say("alice", "/mo +o bob");
  EXPECT_EQ(Read(bob), "..[07:08:09]bob стал оператором канала (alice)\n"_w);
  EXPECT_EQ(BobsFlags(), "[+o]");
  Say("alice", "/mo -o bob");
  EXPECT_EQ(Read(bob), "..[07:08:09]bob больше не оператор канала (alice)\n"_w);
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(ModerationTest, AdministratorsAreProtectedAndMayCommand) {
  chat.options.admins = {"CAROL"};
  Come("carol");
  EXPECT_EQ(FlagsOfNick("carol"), "[+A]");
  EXPECT_EQ(Say("alice", "/k carol"), "Этот ник под защитой"_w);
  EXPECT_EQ(Say("alice", "/mu carol"), "Этот ник под защитой"_w);
  EXPECT_EQ(Say("alice", "/l 10 carol"), "Этот ник под защитой"_w);
  EXPECT_EQ(Say("alice", "/mo -o carol"), "Этот ник под защитой"_w);
  EXPECT_EQ(Say("alice", "/mo +b carol"), "Этот ник под защитой"_w);
  EXPECT_TRUE(hall().bans.empty());
  Say("carol", "/k alice");
  EXPECT_EQ(alice.end, FrameEnd::kClose);
}

TEST_F(ModerationTest, EjectSendsSomebodyAwayForGood) {
  Say("alice", "/eject bob");
  EXPECT_EQ(bob.end, FrameEnd::kEject);
  Say("alice", "/eject");
  EXPECT_EQ(alice.end, FrameEnd::kEject);
  EXPECT_EQ(FindChannel(chat, "hall"), nullptr);
}

TEST_F(ModerationTest, AnOperatorMayKickHimselfAndTheChannelAway) {
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  EXPECT_EQ(Say("alice", "/k alice"), "alice удален с канала"_w);
  EXPECT_EQ(FindChannel(chat, "hall"), nullptr);
}

TEST_F(ModerationTest, AKickStandsOnTheBanListUntilItEnds) {
  Say("alice", "/k bob шумит"_w);
  EXPECT_TRUE(Contains(BanListPage(hall(), now),
                       "<tr><td>07:08:09</td><td>bob</td><td>входа на канал</td><td>шумит</td>"
                       "<td>alice</td><td>07:09:09 (еще 60 с)</td></tr>"_w));
  now.ms += 60000;
  EXPECT_FALSE(Contains(BanListPage(hall(), now), "bob"));
  Advance(chat, now);
  EXPECT_TRUE(hall().bans.empty());
}

TEST_F(ModerationTest, AKickMayNameAnAddressAndKeepsOutAllWhoComeFromIt) {
  const Origin here = std::exchange(origin, {"10.7.7.7", ""});
  const Frame& carol = Come("carol");
  const Frame& dave = Come("dave");
  Read(alice);
  EXPECT_EQ(Say("alice", "/k 10.7.7.7 flood"), "Удалены с канала все с адреса 10.7.7.7"_w);
  EXPECT_EQ(carol.end, FrameEnd::kClose);
  EXPECT_EQ(dave.end, FrameEnd::kClose);
  EXPECT_EQ(bob.end, FrameEnd::kNone);
  EXPECT_TRUE(Read(alice).starts_with("..[07:08:09]carol удален с канала (alice: flood)\n"_w));
  EXPECT_FALSE(MayEnter("eve"));
  EXPECT_TRUE(Contains(BanListPage(hall(), now), "<td>10.7.7.7</td>"));
  origin = here;
  EXPECT_TRUE(MayEnter("eve"));
  EXPECT_EQ(Say("alice", "/k 10.7.7.8"), "На канале нет никого с адреса 10.7.7.8"_w);
}

TEST_F(ModerationTest, AnOperatorIsSparedByWhatHeSaysOfHisOwnAddress) {
  origin.address = "10.7.7.7";
  Come("carol");
  origin.address = "10.0.0.1";
  Say("alice", "/k 10.0.0.1");
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(alice.end, FrameEnd::kNone);
  Say("alice", "/mo +b 10.0.*");
  EXPECT_EQ(alice.end, FrameEnd::kNone);
  Leave(chat, chat.accounts.at("alice"), "hall", now);
  EXPECT_FALSE(MayEnter("bob"));
  EXPECT_TRUE(MayEnter("alice"));
}

TEST_F(ModerationTest, ANickThatLooksLikeAnAddressIsKickedAsANick) {
  const Frame& carol = Come("10.0.0.1");
  Say("alice", "/k 10.0.0.1");
  EXPECT_EQ(carol.end, FrameEnd::kClose);
  EXPECT_EQ(bob.end, FrameEnd::kNone);
}

TEST_F(ModerationTest, ABanHoldsForOneWhoHasNotComeYet) {
  EXPECT_EQ(Say("alice", "/mo +b tro*"), "tro* в бан-листе"_w);
  EXPECT_FALSE(MayEnter("Troll"));
  EXPECT_EQ(Say("alice", "/mo +b"), "Укажите ник или адрес"_w);
}

TEST_F(ModerationTest, ABanSaidAgainStandsOnceAndAKickShortensNone) {
  Say("alice", "/mo +b ALICE one");
  Say("alice", "/mo +o bob");
  Say("bob", "/k alice two");
  ASSERT_EQ(hall().bans.size(), 1U);
  EXPECT_EQ(hall().bans[0].reason, "two");
  EXPECT_EQ(hall().bans[0].until_ms, kForever);
  EXPECT_FALSE(MayEnter("alice"));
}

TEST_F(ModerationTest, AChannelKeepsItsLastFiveHundredBans) {
  for (int i = 0; i < 502; ++i)
    Say("alice", "/mo +b nick" + std::to_string(i));
  ASSERT_EQ(hall().bans.size(), 500U);
  EXPECT_EQ(hall().bans.front().of, "nick2");
}

TEST_F(ModerationTest, ARightThatIsTakenTwiceComesBackAfterTheLastTime) {
  Say("alice", "/mu 10 bob");
  Say("alice", "/mu 100 bob");
  Pass(99000);
  EXPECT_EQ(BobsFlags(), "[-v]");
  Pass(1000);
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(ModerationTest, AMuteOutlastsLeavingAndComingBack) {
  Say("alice", "/mu 10 bob");
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  Come("bob");
  EXPECT_EQ(BobsFlags(), "[-v]");
  Read(alice);
  Pass(10000);
  EXPECT_EQ(Read(alice), "..[07:08:19]bob получает право голоса\n"_w);
}

TEST_F(ModerationTest, AMuteOfOneWhoIsAwayEndsInSilence) {
  Say("alice", "/mu 10 bob");
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  Read(alice);
  Pass(10000);
  EXPECT_EQ(Read(alice), "");
  EXPECT_TRUE(hall().muted.empty());
}

TEST_F(ModerationTest, AMuteIsTakenBackFromOneWhoIsAway) {
  Say("alice", "/mu bob");
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  EXPECT_EQ(Say("alice", "/mu 0 BOB"), "Готово"_w);
  EXPECT_TRUE(hall().muted.empty());
  EXPECT_EQ(Say("alice", "/mu 0 bob"), "Нет такого ника на канале: bob"_w);
}

TEST_F(ModerationTest, ALoweringMayEndByItself) {
  Say("alice", "/l 10 bob CAPITALS");
  EXPECT_EQ(Read(alice), "..[07:08:09]bob переходит на строчные буквы (alice: CAPITALS)\n"_w);
  Pass(9999);
  EXPECT_EQ(BobsFlags(), "[+l]");
  Pass(1);
  EXPECT_TRUE(Contains(Read(alice), "]bob снова пишет любыми буквами\n"_w));
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(ModerationTest, NobodyIsTakenARightForLongerThanAMillionSeconds) {
  Say("alice", "/mu 999999999 bob");
  EXPECT_EQ(hall().muted.at("bob").until_ms, now.ms + 1'000'000'000);
}

}  // namespace
}  // namespace parlorwire::service
