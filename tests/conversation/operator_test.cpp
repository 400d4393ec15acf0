#include <gtest/gtest.h>

#include "bot/bot_queue.h"
#include "conversation/evening.h"
#include "service/channel.h"
#include "text/cut.h"

// What an operator's client says by itself, and what becomes of it on the channel.
namespace parlorwire {
namespace {

struct OperatorTest : testing::Test {
  OperatorTest() { evening.Pass(4000); }

  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");

  void Command(const Text& text) {
    SayBot(alice.client, text, 0);
    evening.Settle();
  }

  service::Channel& hall() { return *service::FindChannel(evening.chat, "hall"); }
};

TEST_F(OperatorTest, AMuteIsReadByAllAndEndsByItself) {
  Command("/mu 10 bob тише"_w);
  EXPECT_TRUE(Contains(bob.Pane(), "bob лишается права голоса (alice: тише)\r\n"_w));
  evening.Say(bob, "unheard");
  EXPECT_FALSE(Contains(alice.Pane(), "unheard"));
  evening.Pass(10000);
  EXPECT_TRUE(Contains(alice.Pane(), "bob получает право голоса\r\n"_w));
  evening.Say(bob, "heard");
  EXPECT_TRUE(Contains(alice.Pane(), "bob: heard"));
}

TEST_F(OperatorTest, ALoweringMakesSmallLettersUntilItIsTakenBack) {
  Command("/l 60 bob");
  evening.Say(bob, "ГРОМКО"_w);
  EXPECT_TRUE(Contains(alice.Pane(), "bob: громко"_w));
  Command("/l 0 bob");
  evening.Say(bob, "ЕЩЕ ГРОМЧЕ"_w);
  EXPECT_TRUE(Contains(alice.Pane(), "bob: ЕЩЕ ГРОМЧЕ"_w));
}

TEST_F(OperatorTest, AKickAndABanCloseTheFrameAndStandOnTheBanList) {
  Command("/k bob за дело"_w);
  EXPECT_TRUE(Contains(bob.Pane(), "bob удален с канала (alice: за дело)"_w));
  EXPECT_EQ(service::FindMember(hall(), "bob"), nullptr);
  ASSERT_EQ(hall().bans.size(), 1u);
  EXPECT_EQ(hall().bans[0].reason, "за дело"_w);
  Command("/mo +b 10.0.0.2");
  ASSERT_EQ(hall().bans.size(), 2u);
  EXPECT_EQ(hall().bans[1].of, "10.0.0.2");
  Guest& carol = evening.Come("carol", "hall");
  EXPECT_TRUE(carol.tab().Connected);
}

TEST_F(OperatorTest, WhoIsNoOperatorCommandsInVain) {
  SayBot(bob.client, "/k alice", 0);
  evening.Settle();
  EXPECT_NE(service::FindMember(hall(), "alice"), nullptr);
  EXPECT_TRUE(hall().bans.empty());
}

}  // namespace
}  // namespace parlorwire
