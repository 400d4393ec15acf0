// Whatever goes wrong in the middle of writing, the panes are painted again.
#include <gtest/gtest.h>

#include "display/framed_notice.h"
#include "session/status.h"
#include "support/chat.h"
#include "support/fault_of.h"
#include "support/scripted_view.h"

namespace parlorwire {
namespace {

struct FrozenPane : testing::Test {
  FrozenPane() {
    chat.EnterChannel();
    chat.client.hooks.LogChatLine = [](const Text&, const Text&) {};
  }
  // As the first user of the list of another channel that he sees.
  void SeeTab1() {
    chat.tab(1).Login = "alice";
    chat.tab(1).Channel = "hall";
    chat.EnterChannel(1);
    chat.platform.desktop.SetTabVisible(1, true);
    chat.platform.desktop.active_tab = 1;
  }
  void FaultInWaitingEvents() {
    chat.platform.desktop.on_yield = [] { throw Fault(fault::kSubscript); };
  }
  std::size_t Faults() {
    const Text log = chat.ErrorLog();
    std::size_t count = 0;
    for (std::size_t at = log.find("Error "); at != Text::npos; at = log.find("Error ", at + 1))
      ++count;
    return count;
  }

  Chat chat;
  ScriptedView rich{chat.tab().Rich};
  ScriptedView list{chat.tab().Rich_Users};
};

TEST_F(FrozenPane, ASystemLineThatHoldsTheSpamDomainIsAFaultAndIsPainted) {
  chat.Deliver("..[12:00:00]flood.example приходит на канал\n"_w);
  EXPECT_TRUE(rich.painting);
  EXPECT_EQ(Faults(), 1U);
  EXPECT_TRUE(chat.ErrorLog().ends_with(". Function: TextOut\r\n")) << chat.ErrorLog();
  const int refreshes = rich.refreshes;
  chat.Deliver("..[12:00:01]bob:() a good line\n");
  EXPECT_TRUE(chat.Pane().ends_with("[12:00:01] bob: a good line\r\n"));
  EXPECT_EQ(rich.refreshes, refreshes + 1);
  EXPECT_TRUE(rich.painting);
}

TEST_F(FrozenPane, AFaultInANoticeOfAMentionLeavesBothPanesPainted) {
  SeeTab1();
  ScriptedView seen(chat.tab(1).Rich);
  FaultInWaitingEvents();
  chat.Deliver("..[12:00:01]bob:() hello alice\n");
  EXPECT_EQ(Faults(), 1U);
  EXPECT_TRUE(rich.painting);
  EXPECT_TRUE(seen.painting);
  EXPECT_GT(seen.painted_changes, 0);
}

TEST_F(FrozenPane, AFaultInAReportOrAStatusLineLeavesThePanePainted) {
  FaultInWaitingEvents();
  EXPECT_EQ(FaultOf([&] { BotReportOut(chat.client, "report", 0); }), fault::kSubscript);
  EXPECT_TRUE(rich.painting);
  chat.client.hooks.LogChatLine = [](const Text&, const Text&) { throw Fault(fault::kDiskFull); };
  EXPECT_EQ(FaultOf([&] { StatusOut(chat.client, "line", 0); }), fault::kDiskFull);
  EXPECT_TRUE(rich.painting);
}

TEST_F(FrozenPane, AUserFrameThatCannotBeReadLeavesTheListPainted) {
  chat.Winsock3().Accept();
  chat.Winsock3().Deliver("HTTP/1.0 200 OK\r\n\r\nusers\n\n.bob|[][]''\nno user\n");
  chat.Winsock3().PeerCloses();
  EXPECT_EQ(Faults(), 1U);
  EXPECT_TRUE(list.painting);
}

TEST_F(FrozenPane, APageOfChannelsThatCannotBeReadLeavesThePanePainted) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\nchannel: lobby");
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(Faults(), 1U) << chat.ErrorLog();
  EXPECT_TRUE(rich.painting);
}

}  // namespace
}  // namespace parlorwire
