#include "bot/kick_channels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct KickChannels : testing::Test {
  void Tab(int index, const Text& channel, bool connected = true) {
    client.tab(index).Channel = channel;
    client.tab(index).Connected = connected;
  }
  Text& disabled() { return client.app.DisableKickChannels; }
  Text Saved() { return platform.files.files["config.ini"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(KickChannels, EachChannelThatIsOpenHasABoxInTheOrderOfTheTabs) {
  Tab(0, "hall");
  Tab(2, "attic", false);
  Tab(3, "");
  Tab(9, "cellar");
  EXPECT_THAT(OpenKickChannels(client),
              ElementsAre(KickChannel{"hall", true}, KickChannel{"cellar", true}));
}

TEST_F(KickChannels, TwoTabsOnOneChannelInAnyCaseHaveOneBox) {
  Tab(0, "Hall");
  Tab(1, "HALL");
  Tab(2, "Зал"_w);
  Tab(3, "зАЛ"_w);
  EXPECT_THAT(OpenKickChannels(client),
              ElementsAre(KickChannel{"Hall", true}, KickChannel{"Зал"_w, true}));
}

TEST_F(KickChannels, AChannelThatIsDisabledIsNotTicked) {
  disabled() = "attic hall";
  Tab(0, "Hall");
  Tab(1, "hal");
  Tab(2, "attic");
  EXPECT_THAT(OpenKickChannels(client),
              ElementsAre(KickChannel{"Hall", false}, KickChannel{"hal", true},
                          KickChannel{"attic", false}));
}

TEST_F(KickChannels, WithNothingOpenThereIsNoBox) {
  Tab(0, "hall", false);
  EXPECT_THAT(OpenKickChannels(client), IsEmpty());
}

TEST_F(KickChannels, ConfirmedWithNothingOpenTheListIsEmpty) {
  disabled() = "hall attic";
  ConfirmKickChannels(client, {});
  EXPECT_EQ(disabled(), "");
  EXPECT_EQ(Saved(), "[DisableKickChannels]\r\nchannels=\r\n");
}

TEST_F(KickChannels, ThoseThatAreNotTickedAreTheList) {
  ConfirmKickChannels(client, {{"hall", false}, {"attic", true}, {"cellar", false}});
  EXPECT_EQ(disabled(), "hall cellar");
  EXPECT_EQ(Saved(), "[DisableKickChannels]\r\nchannels=hall cellar\r\n");
}

TEST_F(KickChannels, ADisabledChannelThatIsLeftSoStaysInTheList) {
  disabled() = "hall";
  Tab(0, "hall");
  ConfirmKickChannels(client, OpenKickChannels(client));
  EXPECT_EQ(disabled(), "hall");
}

TEST_F(KickChannels, AChannelThatIsNotOpenLeavesTheList) {
  disabled() = "attic hall";
  Tab(0, "hall");
  ConfirmKickChannels(client, OpenKickChannels(client));
  EXPECT_EQ(disabled(), "hall");
}

TEST_F(KickChannels, ATickedBoxTakesOutOneOfTheSameCaption) {
  ConfirmKickChannels(client, {{"hall", false}, {"attic", false}, {"hall", true}});
  EXPECT_EQ(disabled(), "attic");
  ConfirmKickChannels(client, {{"hall", false}, {"attic", false}, {"attic", true}});
  EXPECT_EQ(disabled(), "hall");
  ConfirmKickChannels(client, {{"hall", false}, {"hallway", false}, {"hall", true}});
  EXPECT_EQ(disabled(), "hallway");
}

TEST_F(KickChannels, TheListHoldsBeforeEventsRunInTheWriting) {
  platform.desktop.on_yield = [&] { EXPECT_EQ(disabled(), "hall"); };
  ConfirmKickChannels(client, {{"hall", false}});
  EXPECT_EQ(platform.desktop.yields, 1);
}

TEST(KickChannelsTexts, AreThese) {
  EXPECT_EQ(kKickChannelsFrame, "Отметьте каналы, на которых kick будет работать"_w);
  EXPECT_EQ(kNoOpenChannel, "Вы не подключены ни к одному каналу"_w);
}

}  // namespace
}  // namespace parlorwire
