#include "session/client.h"

#include <gtest/gtest.h>

#include "support/chat.h"

namespace parlorwire {
namespace {

TEST(Client, HasTenSlotsWithTheirDefaults) {
  SimulatedPlatform platform;
  const Client client(platform.Ports());
  for (int i = 0; i < kTabCount; ++i) {
    const TabSession& tab = client.tab(i);
    EXPECT_FALSE(tab.Connecting || tab.Authorized || tab.Connected || tab.EverConnected);
    EXPECT_TRUE(tab.BotQueue.empty());
    EXPECT_EQ(tab.HistoryState, "none");
    EXPECT_EQ(tab.Winsock5->State(), SocketState::kClosed);
    EXPECT_FALSE(tab.Timer26->Enabled());
  }
  EXPECT_EQ(client.app.ActionDelayValue, 3000);
  EXPECT_EQ(client.app.ReconnectDelayValue, 60000);
  EXPECT_EQ(client.app.ChatPort, "80");
}

TEST(ClientDeathTest, ASlotOutsideTheTenIsAProgrammingError) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  EXPECT_DEATH(client.tab(10), "");
  EXPECT_DEATH(client.tab(-1), "");
}

TEST(Client, TabsAndClientsDoNotDisturbEachOther) {
  Chat one, other;
  other.tab(3).Login = "bob";
  other.tab(3).Channel = "hall";
  one.EnterChannel(0);
  other.EnterChannel(3);
  one.Deliver("..[1]x:() only one\n");
  EXPECT_TRUE(one.tab(0).Connected);
  EXPECT_FALSE(one.tab(3).Connected);
  EXPECT_FALSE(other.tab(0).Connected);
  EXPECT_TRUE(one.Pane(0).ends_with("x: only one\r\n"));
  EXPECT_EQ(other.Pane(3).find("only one"), Text::npos);
  EXPECT_EQ(other.Pane(0), "");
}

}  // namespace
}  // namespace parlorwire
