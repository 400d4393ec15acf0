#include "bot/bot_menu.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct BotMenuItems : testing::Test {
  BotMenu Menu() { return StateOfBotMenu(client); }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  SimulatedDesktop& desktop = platform.desktop;
};

TEST_F(BotMenuItems, AutoKickChangesSides) {
  EXPECT_FALSE(Menu().akick_enabled);
  akick_enabled(client);
  EXPECT_TRUE(client.app.AutoKick);
  EXPECT_TRUE(Menu().akick_enabled);
  akick_enabled(client);
  EXPECT_FALSE(client.app.AutoKick);
}

TEST_F(BotMenuItems, TheReportChangesSidesAndEnablesWhereItGoes) {
  EXPECT_FALSE(Menu().say_ip_and_flags);
  EXPECT_FALSE(Menu().say_in_enabled);
  say_ip_and_flags(client);
  EXPECT_TRUE(client.app.SayIPAndFlags);
  EXPECT_TRUE(Menu().say_ip_and_flags);
  EXPECT_TRUE(Menu().say_in_enabled);
  say_ip_and_flags(client);
  EXPECT_FALSE(Menu().say_in_enabled);
}

TEST_F(BotMenuItems, WhereTheReportGoesIsOneOfTwoForTheActiveTab) {
  desktop.active_tab = 3;
  say_in_client(client);
  EXPECT_FALSE(client.tab(3).SayReportInChat);
  EXPECT_TRUE(client.tab(0).SayReportInChat);
  EXPECT_FALSE(Menu().say_in_chat);
  EXPECT_TRUE(Menu().say_in_client);
  say_in_client(client);
  EXPECT_TRUE(Menu().say_in_client);
  desktop.active_tab = 0;
  EXPECT_TRUE(Menu().say_in_chat);
  EXPECT_FALSE(Menu().say_in_client);
  desktop.active_tab = 3;
  say_in_chat(client);
  EXPECT_TRUE(client.tab(3).SayReportInChat);
  EXPECT_TRUE(Menu().say_in_chat);
}

TEST_F(BotMenuItems, EachTabHasAnItemWithItsCaptionWhileItIsVisible) {
  desktop.SetTabCaption(2, "lobby - alice");
  desktop.SetTabVisible(2, true);
  const BotMenu menu = Menu();
  EXPECT_EQ(menu.channels[2].caption, "lobby - alice");
  EXPECT_TRUE(menu.channels[2].visible);
  EXPECT_FALSE(menu.channels[3].visible);
}

TEST_F(BotMenuItems, TheItemOfATabChangesSidesForThatTab) {
  EXPECT_TRUE(Menu().channels[9].checked);
  channel_Click(client, 9);
  EXPECT_FALSE(client.tab(9).SayReportOnTab);
  EXPECT_FALSE(Menu().channels[9].checked);
  EXPECT_TRUE(Menu().channels[8].checked);
  channel_Click(client, 9);
  EXPECT_TRUE(Menu().channels[9].checked);
}

}  // namespace
}  // namespace parlorwire
