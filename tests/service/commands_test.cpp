#include "service/commands.h"

#include <gtest/gtest.h>

#include "hall_fixture.h"
#include "service/lists.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using CommandTest = HallFixture;

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

TEST_F(CommandTest, OnlyOperatorsCommand) {
  for (const char* command :
       {"/k alice", "/l alice", "/l 0 alice", "/l 10 alice", "/mu alice", "/mu 0 alice",
        "/mu 10 alice", "/mo +b alice", "/mo -b alice", "/mo +o bob", "/mo -o alice",
        "/mo +R alice", "/mo +t alice", "/topic x", "/eject alice"})
    EXPECT_EQ(Say("bob", command), "Это может только оператор канала"_w) << command;
  EXPECT_EQ(Read(alice), "");
  EXPECT_EQ(alice.end, FrameEnd::kNone);
  EXPECT_EQ(BobsFlags(), "[]");
  EXPECT_TRUE(hall().bans.empty() && hall().topics.empty());
}

TEST_F(CommandTest, WhoIsNoOperatorAnyMoreIsRefused) {
  Say("alice", "/mo -o alice");
  EXPECT_EQ(Read(alice), "..[07:08:09]alice больше не оператор канала (alice)\n"_w);
  EXPECT_EQ(Say("alice", "/k bob"), "Это может только оператор канала"_w);
  EXPECT_EQ(bob.end, FrameEnd::kNone);
}

TEST_F(CommandTest, ANickThatIsNotThereIsNamedInTheAnswer) {
  for (const char* command :
       {"/k ghost x", "/mu ghost x", "/mu 10 ghost x", "/mu 0 ghost", "/l ghost x", "/l 10 ghost x",
        "/l 0 ghost", "/mo +o ghost", "/mo -o ghost", "/mo +R ghost", "/eject ghost"})
    EXPECT_EQ(Say("alice", command), "Нет такого ника на канале: ghost"_w) << command;
  EXPECT_EQ(Read(alice), "");
}

TEST_F(CommandTest, StatusShowsBesideTheNick) {
  EXPECT_EQ(Say("bob", "/status gone <out>"), "Статус установлен"_w);
  EXPECT_TRUE(Contains(UserFrame(hall(), chat.accounts.at("alice"), {}, false),
                       "\nbob|[][10.0.0.1:]'gone &lt;out&gt;'\n"));
}

TEST_F(CommandTest, ANickOfDigitsIsMeantWhereNoOtherStandsBehindIt) {
  Come("007");
  const auto until = [&](const char* nick) { return hall().muted.at(nick).until_ms; };
  Say("alice", "/mu 007 too loud");
  EXPECT_EQ(until("007"), kForever);
  EXPECT_EQ(hall().muted.at("007").reason, "too loud");
  Say("alice", "/mu 5 007 loud");
  EXPECT_EQ(until("007"), now.ms + 5000);
  Say("alice", "/mu 007 bob");
  EXPECT_EQ(until("bob"), now.ms + 7000);
  Say("alice", "/mu 0 007");
  EXPECT_FALSE(hall().muted.contains("007"));
}

TEST_F(CommandTest, CommandsNeedAChannelAndANick) {
  EXPECT_EQ(Say("alice", "/k bob", "attic"), "Вы не на канале"_w);
  EXPECT_EQ(Say("alice", "/k nobody"), "Нет такого ника на канале: nobody"_w);
  EXPECT_EQ(Say("alice", "/k"), "Нет такого ника на канале: "_w);
  EXPECT_EQ(Say("alice", "/mo +x"), "Такого флага нет: +x"_w);
  EXPECT_EQ(Say("alice", "/dance"), "Такой команды нет: /dance"_w);
  EXPECT_EQ(Say("alice", "/"), "Такой команды нет: /"_w);
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

TEST_F(CommandTest, TopicsAreKept) {
  Say("alice", "/topic weather & wind");
  EXPECT_EQ(Read(bob),
            "..[07:08:09]alice меняет тему канала на &quot;weather &amp; wind&quot;\n"_w);
  EXPECT_EQ(FindChannel(chat, "hall")->topics.back().topic, "weather & wind");
}

}  // namespace
}  // namespace parlorwire::service
