#include "display/pane_mouse.h"

#include <gtest/gtest.h>

#include "session/channel_list.h"
#include "support/chat.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// A list of two channels in the pane of tab 0.
struct ChannelListMouse : testing::Test {
  void SetUp() override {
    chat.tab().Rich.Text("");
    chat.tab().Channel = "";
    chat.tab().ChannelListPage = "channel: big hall\ntopic: x\nuser:bob\nchannel: home\n";
    ShowChannelList(chat.client, 0);
    chat.tab().IsChannelList = true;
    chat.tab().Channel = "lobby";
  }
  PanePosition At(const Text& text) { return static_cast<PanePosition>(chat.Pane().find(text)); }
  Text Hover(PanePosition at) {
    Rich_MouseMove(chat.client, 0, at);
    return chat.client.app.HoverChannel;
  }
  void Click(PanePosition at, MouseButton button = MouseButton::kLeft) {
    Rich_MouseMove(chat.client, 0, at);
    Rich_MouseDown(chat.client, 0, at, button);
    Rich_MouseUp(chat.client, 0, at, button);
  }
  Text& Config() { return chat.platform.files.files["config.ini"]; }
  Chat chat;
};

TEST_F(ChannelListMouse, AChannelIsHitFromTheBlankBehindItsLabelToItsLastLetter) {
  const PanePosition label = At("Канал: big"_w);
  EXPECT_EQ(Hover(label + 5), "");
  EXPECT_EQ(Hover(label + 6), "big hall");
  EXPECT_EQ(Hover(label + 7), "big hall");
  EXPECT_EQ(chat.tab().Rich.MousePointer(), PanePointer::kCustom);
  EXPECT_EQ(Hover(label + 14), "big hall");
  EXPECT_EQ(Hover(label + 15), "");
  EXPECT_EQ(chat.tab().Rich.MousePointer(), PanePointer::kArrow);
  EXPECT_EQ(Hover(At("home")), "home");
}

TEST_F(ChannelListMouse, NothingElseOfTheListIsHit) {
  EXPECT_EQ(Hover(At("x\r\n")), "");
  EXPECT_EQ(Hover(At("bob")), "");
  EXPECT_EQ(Hover(0), "");
}

TEST_F(ChannelListMouse, AChannelIsHitOnlyOnAListAndNotInASession) {
  const PanePosition name = At("home");
  chat.tab().Connected = true;
  EXPECT_EQ(Hover(name), "");
  chat.tab().Connected = false;
  chat.tab().IsChannelList = false;
  EXPECT_EQ(Hover(name), "");
}

TEST_F(ChannelListMouse, WhileTheUserSelectsNothingIsHit) {
  Rich_MouseDown(chat.client, 0, At("home"), MouseButton::kLeft);
  EXPECT_TRUE(chat.client.app.MouseSelecting);
  EXPECT_EQ(chat.client.app.MouseDownChar, At("home"));
  EXPECT_EQ(Hover(At("home")), "");
  Rich_MouseUp(chat.client, 0, At("home"), MouseButton::kLeft);
  EXPECT_FALSE(chat.client.app.MouseSelecting);
  EXPECT_EQ(chat.Winsock1().connects, 0);
}

TEST_F(ChannelListMouse, APressIsKnownByItsTab) {
  Rich_MouseDown(chat.client, 3, 5, MouseButton::kLeft);
  EXPECT_TRUE(chat.client.app.MouseSelecting);
  EXPECT_EQ(chat.client.app.MouseDownTab, 3);
}

TEST_F(ChannelListMouse, AtTheVeryStartNoSelectingBegins) {
  Rich_MouseDown(chat.client, 0, 0, MouseButton::kLeft);
  EXPECT_FALSE(chat.client.app.MouseSelecting);
  Rich_MouseDown(chat.client, 0, 5, MouseButton::kRight);
  EXPECT_FALSE(chat.client.app.MouseSelecting);
}

TEST_F(ChannelListMouse, AClickEntersTheChannel) {
  Click(At("home"));
  EXPECT_EQ(chat.tab().Channel, "home");
  EXPECT_EQ(chat.Winsock1().connects, 1);
  EXPECT_FALSE(Contains(chat.Pane(), "big hall"));
  chat.Winsock1().Accept();
  EXPECT_TRUE(Contains(chat.Winsock1().sent, "&channel=home&"));
}

TEST_F(ChannelListMouse, TheRightButtonDoesNotEnter) {
  Click(At("home"), MouseButton::kRight);
  EXPECT_EQ(chat.tab().Channel, "lobby");
  EXPECT_EQ(chat.Winsock1().connects, 0);
}

TEST_F(ChannelListMouse, TheSavedLoginRemembersTheChannel) {
  Config() = "[Main]\r\nLogins=2\r\nLogin0=bob\r\nChannel0=a\r\nLogin1=ALICE\r\nChannel1=b\r\n";
  Click(At("big hall"));
  EXPECT_EQ(Config(),
            "[Main]\r\nLogins=2\r\nLogin0=bob\r\nChannel0=a\r\nLogin1=ALICE\r\nChannel1=big "
            "hall\r\n");
}

TEST_F(ChannelListMouse, OnlyTheFirstSavedLoginOfTheNickRemembersIt) {
  Config() = "[Main]\r\nLogins=1\r\nLogin0= \r\nLogin1=alice\r\nLogin2=alice\r\n";
  Click(At("home"));
  EXPECT_EQ(Config(),
            "[Main]\r\nLogins=1\r\nLogin0= \r\nLogin1=alice\r\nLogin2=alice\r\n"
            "Channel1=home\r\n");
}

TEST_F(ChannelListMouse, ALoginThatIsNotSavedLeavesTheFile) {
  Config() = "[Main]\r\nLogins=1\r\nLogin0=bob\r\n";
  const Text before = Config();
  Click(At("home"));
  EXPECT_EQ(Config(), before);
  EXPECT_EQ(chat.tab().Channel, "home");
}

TEST_F(ChannelListMouse, ALoginBeyondTheHundredThatAreShownRemembersItToo) {
  Config() = "[Main]\r\nLogins=150\r\nLogin150=alice\r\n";
  Click(At("home"));
  EXPECT_EQ(Config(), "[Main]\r\nLogins=150\r\nLogin150=alice\r\nChannel150=home\r\n");
}

TEST_F(ChannelListMouse, ALoginBeyondTheCountIsNotTried) {
  Config() = "[Main]\r\nLogins=150\r\nLogin151=alice\r\n";
  const Text before = Config();
  Click(At("home"));
  EXPECT_EQ(Config(), before);
}

TEST_F(ChannelListMouse, ACountThatIsNoNumberOfSixteenBitsStillTriesTheFirst) {
  for (const char* count : {"x", "", "40000", "2147483647"}) {
    Config() = "[Main]\r\nLogins=" + Text(count) + "\r\nLogin0=alice\r\n";
    Click(At("home"));
    EXPECT_TRUE(Contains(Config(), "Channel0=home\r\n")) << count;
    SetUp();
    Config() = "[Main]\r\nLogins=" + Text(count) + "\r\nLogin1=alice\r\n";
    Click(At("home"));
    EXPECT_FALSE(Contains(Config(), "Channel1")) << count;
    SetUp();
  }
}

}  // namespace
}  // namespace parlorwire
