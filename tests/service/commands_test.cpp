#include "service/commands.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

// alice is the operator of "hall", bob is not.
struct CommandTest : ChatFixture {
  CommandTest() { Read(alice); }

  Frame& alice = Come("alice");
  Frame& bob = Come("bob");

  Text BobsFlags() {
    Channel& channel = *FindChannel(chat, "hall");
    return FlagsOf(channel, *FindMember(channel, "bob"));
  }
};

TEST_F(CommandTest, SetSChangesTheStyleAtOnceAndForLater) {
  EXPECT_EQ(Say("bob", "/set s 1"), "Установлен стиль 1"_w);
  Say("alice", "hi");
  EXPECT_TRUE(Read(bob).starts_with("<B><FONT color=\"#FF5050\">alice"));
  EXPECT_EQ(Say("bob", "/set s 3"), "Такого стиля нет. Стили: 0, 1, 2, 4 и 9"_w);
  EXPECT_EQ(chat.accounts.at("bob").style, 1);
}

TEST_F(CommandTest, SetSNeedsNoChannel) {
  EXPECT_EQ(Say("bob", "/set s 4", "12345678"), "Установлен стиль 4"_w);
}

TEST_F(CommandTest, SHChangesTheHistory) {
  EXPECT_EQ(Say("bob", "/s h 0"), "Строк истории при входе: 0"_w);
  EXPECT_EQ(chat.accounts.at("bob").history, 0);
  EXPECT_EQ(Say("bob", "/s h 1000"), "Строк истории при входе: 200"_w);
  EXPECT_EQ(Say("bob", "/s h x"), "Укажите число"_w);
  EXPECT_EQ(Say("bob", "/s x 1"), "Можно установить s (стиль) и h (историю)"_w);
}

TEST_F(CommandTest, MoTShowsInTheFlags) {
  EXPECT_EQ(BobsFlags(), "[]");
  Say("bob", "/mo -t");
  EXPECT_EQ(BobsFlags(), "[-t]");
  Say("bob", "/mo +t");
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(CommandTest, MoRMakesTheFramesCarryAScriptUntilItIsTakenBack) {
  Say("bob", "/mo +R");
  Say("alice", "hi");
  EXPECT_EQ(Read(bob),
            "..[07:08:09]alice:() hi\n<script language=\"JavaScript\">\nstd ()\n</script>\n");
  EXPECT_EQ(bob.end, FrameEnd::kNone);
  Say("bob", "/mo -R");
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(alice.end, FrameEnd::kNone);
}

TEST_F(CommandTest, MinusRWithoutFlagClosesNothing) {
  Say("bob", "/mo -R");
  EXPECT_EQ(bob.end, FrameEnd::kNone);
}

TEST_F(CommandTest, AnOperatorSetsFlagsOfOthers) {
  EXPECT_EQ(Say("bob", "/mo +R alice"), "Это может только оператор канала"_w);
  Say("alice", "/mo +R bob");
  EXPECT_TRUE(chat.accounts.at("bob").reload);
  EXPECT_FALSE(chat.accounts.at("alice").reload);
}

TEST_F(CommandTest, AKickClosesTheFrameAndIsSeen) {
  EXPECT_EQ(Say("alice", "/k Bob go away"), "bob удален с канала"_w);
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  EXPECT_EQ(Read(alice),
            "..[07:08:09]bob удален с канала (alice: go away)\n"
            "..[07:08:09]bob покидает нас (10.0.0.1)\n"_w);
}

TEST_F(CommandTest, AKickedNickIsKeptOutForAWhile) {
  Say("alice", "/k bob");
  Account& account = chat.accounts.at("bob");
  EXPECT_EQ(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_NE(Enter(chat, account, "attic", "", origin, now, ""), nullptr);
  Pass(60000);
  EXPECT_NE(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
}

TEST_F(CommandTest, WithNoTimeAKickedNickMayComeBackAtOnce) {
  chat.options.kick_ms = 0;
  Say("alice", "/k bob");
  EXPECT_NE(Enter(chat, chat.accounts.at("bob"), "hall", "", origin, now, ""), nullptr);
}

TEST_F(CommandTest, OnlyOperatorsCommand) {
  for (const char* command : {"/k alice", "/l alice", "/mu alice", "/mo +b alice", "/mo -b alice",
                              "/mo +o bob", "/topic x", "/eject alice"})
    EXPECT_EQ(Say("bob", command), "Это может только оператор канала"_w) << command;
  EXPECT_EQ(Read(alice), "");
}

TEST_F(CommandTest, CommandsNeedAChannelAndANick) {
  EXPECT_EQ(Say("alice", "/k bob", "attic"), "Вы не на канале"_w);
  EXPECT_EQ(Say("alice", "/k nobody"), "Нет такого ника на канале: nobody"_w);
  EXPECT_EQ(Say("alice", "/k"), "Нет такого ника на канале: "_w);
  EXPECT_EQ(Say("alice", "/mo +x"), "Такого флага нет: +x"_w);
  EXPECT_EQ(Say("alice", "/dance"), "Такой команды нет: /dance"_w);
  EXPECT_EQ(Say("alice", "/"), "Такой команды нет: /"_w);
}

TEST_F(CommandTest, ABanKeepsOutUntilItIsTakenBack) {
  Say("alice", "/mo +b bob spam");
  EXPECT_EQ(bob.end, FrameEnd::kClose);
  Account& account = chat.accounts.at("bob");
  Pass(100000000);
  EXPECT_EQ(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_EQ(Say("alice", "/mo -b bob"), "bob больше не в бан-листе"_w);
  EXPECT_NE(Enter(chat, account, "hall", "", origin, now, ""), nullptr);
  EXPECT_EQ(Say("alice", "/mo -b bob"), "Нет в бан-листе: bob"_w);
}

TEST_F(CommandTest, ABanMayNameAnAddress) {
  origin.address = "10.7.7.7";
  Frame& carol = Come("carol");
  Say("alice", "/mo +b 10.7.*");
  EXPECT_EQ(carol.end, FrameEnd::kClose);
  EXPECT_EQ(bob.end, FrameEnd::kNone);
  EXPECT_EQ(Enter(chat, Known("dave"), "hall", "", origin, now, ""), nullptr);
}

TEST_F(CommandTest, AMutedNickIsNotHeard) {
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

TEST_F(CommandTest, AMuteMayEndByItself) {
  Say("alice", "/mu 10 bob");
  Pass(9000);
  EXPECT_EQ(BobsFlags(), "[-v]");
  EXPECT_EQ(NextAdvance(chat), now.ms + 1000);
  Read(alice);
  Pass(1000);
  EXPECT_EQ(Read(alice), "..[07:08:19]bob получает право голоса\n"_w);
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(CommandTest, ALoweredNickWritesSmallLetters) {
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

TEST_F(CommandTest, OpIsHeardByOperatorsAndTheSpeakerOnly) {
  Frame& carol = Come("carol");
  Read(alice);
  Read(bob);
  EXPECT_EQ(Say("bob", "/op help"), "Сообщение отправлено операторам"_w);
  EXPECT_EQ(Read(alice), "..[07:08:09] ### bob:() help\n");
  EXPECT_EQ(Read(bob), "..[07:08:09] ### bob:() help\n");
  EXPECT_EQ(Read(carol), "");
  Frame* dave = Enter(chat, Known("dave"), "hall", "", origin, now, "");
  EXPECT_FALSE(Contains(Read(*dave), "help"));
}

TEST_F(CommandTest, OperatorsAreMadeAndUnmade) {
  Say("alice", "/mo +o bob");
  EXPECT_EQ(Read(bob), "..[07:08:09]bob стал оператором канала (alice)\n"_w);
  EXPECT_EQ(BobsFlags(), "[+o]");
  Say("alice", "/mo -o bob");
  EXPECT_EQ(Read(bob), "..[07:08:09]bob больше не оператор канала (alice)\n"_w);
  EXPECT_EQ(BobsFlags(), "[]");
}

TEST_F(CommandTest, AdministratorsAreProtectedAndMayCommand) {
  chat.options.admins = {"CAROL"};
  Come("carol");
  Channel& channel = *FindChannel(chat, "hall");
  EXPECT_EQ(FlagsOf(channel, *FindMember(channel, "carol")), "[+A]");
  EXPECT_EQ(Say("alice", "/k carol"), "Этот ник под защитой"_w);
  EXPECT_EQ(Say("alice", "/mu carol"), "Этот ник под защитой"_w);
  Say("carol", "/k alice");
  EXPECT_EQ(alice.end, FrameEnd::kClose);
}

TEST_F(CommandTest, EjectSendsSomebodyAwayForGood) {
  Say("alice", "/eject bob");
  EXPECT_EQ(bob.end, FrameEnd::kEject);
  Say("alice", "/eject");
  EXPECT_EQ(alice.end, FrameEnd::kEject);
  EXPECT_EQ(FindChannel(chat, "hall"), nullptr);
}

TEST_F(CommandTest, TopicsAreKept) {
  Say("alice", "/topic weather & wind");
  EXPECT_EQ(Read(bob),
            "..[07:08:09]alice меняет тему канала на &quot;weather &amp; wind&quot;\n"_w);
  EXPECT_EQ(FindChannel(chat, "hall")->topics.back().topic, "weather & wind");
}

TEST_F(CommandTest, AnOperatorMayKickHimselfAndTheChannelAway) {
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  EXPECT_EQ(Say("alice", "/k alice"), "alice удален с канала"_w);
  EXPECT_EQ(FindChannel(chat, "hall"), nullptr);
}

}  // namespace
}  // namespace parlorwire::service
