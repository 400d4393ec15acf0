#include "session/frame_end.h"

#include <gtest/gtest.h>

#include "session/leaving.h"
#include "support/chat.h"

namespace parlorwire {
namespace {

struct FrameEnd : testing::Test {
  FrameEnd() {
    chat.client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
  }
  void English() { chat.client.app.Language = UiLanguage::kEnglish; }
  Text LastLine(int tab = 0) {
    const Text pane = chat.Pane(tab);
    return pane.substr(pane.rfind('\n', pane.size() - 2) + 1);
  }
  int Connects(int tab = 0) { return chat.Winsock1(tab).connects; }
  // Tab 1 as a second tab with this nick, on the channel.
  void EnterSecondTab(const Text& nick) {
    chat.tab(1).Login = nick;
    chat.tab(1).Channel = "hall";
    chat.EnterChannel(1);
  }
  Chat chat;
  SimulatedDesktop& desktop = chat.platform.desktop;
  std::vector<Text> said;
};

// ---- the end of a frame ----

TEST_F(FrameEnd, AFrameClosedByTheServerReconnectsAtOnce) {
  chat.EnterChannel();
  const int connects = Connects();
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(Connects(), connects + 1);
  EXPECT_TRUE(chat.tab().Connecting);
  EXPECT_FALSE(chat.tab().Connected);
  EXPECT_TRUE(chat.tab().EverConnected);
}

TEST_F(FrameEnd, ClearsWhatTheFrameHeld) {
  chat.EnterChannel();
  TabSession& tab = chat.tab();
  tab.EjectSeen = true;  // so that nothing connects again
  tab.IsOperator = true;
  tab.ReservedFlag = true;
  tab.ReservedText = "x";
  tab.Rich_Users.Text("bob");
  tab.Rich_Server.Text("answer");
  chat.Winsock1().PeerCloses();
  EXPECT_FALSE(tab.IsOperator || tab.Connecting || tab.Connected || tab.ReservedFlag);
  EXPECT_EQ(tab.ReservedText + tab.Rich_Users.Text() + tab.Rich_Server.Text(), "");
  EXPECT_FALSE(desktop.at(0).controls_enabled);
  EXPECT_TRUE(desktop.close_tab_enabled);
  EXPECT_TRUE(tab.CloseHandled);
  EXPECT_FALSE(tab.Timer3->Enabled());
  EXPECT_EQ(desktop.at(0).caption, "Отключено"_w);
  EXPECT_EQ(desktop.window_caption, "Отключено - Parlorwire"_w);
}

TEST_F(FrameEnd, TheEjectLineMeansToGo) {
  chat.EnterChannel();
  chat.Deliver("<hr>----- Аварийное катапультирование ----<hr>"_w);
  chat.tab().ReconnectRequested = true;  // is not honoured
  const int connects = Connects();
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(LastLine(), "[12:00:00] Аварийное катапультирование\r\n"_w);
  EXPECT_EQ(desktop.at(0).caption, "Отключено"_w);
  EXPECT_FALSE(chat.tab().EjectSeen);
  chat.platform.time.Advance(3600000);
  EXPECT_EQ(Connects(), connects);
}

TEST_F(FrameEnd, TheEjectLineInEnglish) {
  English();
  chat.EnterChannel();
  chat.Deliver("<hr>----- Аварийное катапультирование ----<hr>"_w);
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(LastLine(), "[12:00:00] Alarm catapulting\r\n");
  EXPECT_EQ(desktop.at(0).caption, "Disconnected");
}

TEST_F(FrameEnd, ARequestedReconnectComesBeforeAPendingLogoff) {
  chat.EnterChannel();
  chat.tab().ReconnectRequested = true;
  chat.tab().LogoffPending = true;
  const int connects = Connects();
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(Connects(), connects + 1);
}

TEST_F(FrameEnd, APendingLogoffLeaveOrTabCloseEndsTheSession) {
  for (bool TabSession::* flag :
       {&TabSession::LogoffPending, &TabSession::LeavePending, &TabSession::TabClosing}) {
    chat.EnterChannel();
    chat.tab().*flag = true;
    const int connects = Connects();
    chat.Winsock1().PeerCloses();
    chat.platform.time.Advance(3600000);
    EXPECT_EQ(Connects(), connects);
  }
}

TEST_F(FrameEnd, ALogoffStopsTheReconnectsOfAllTabsOfTheNick) {
  chat.EnterChannel();
  EnterSecondTab("ALICE");
  chat.Deliver("<script>\n</script>\n", 1);
  chat.platform.time.Advance(300);
  EXPECT_TRUE(desktop.at(1).pers_red);
  LogoffChat(chat.client, 0);
  EXPECT_EQ(chat.tab().LogoffNick, "alice");
  const int connects = Connects(1);
  chat.Winsock1(0).PeerCloses();
  chat.Winsock1(1).PeerCloses();
  EXPECT_EQ(LastLine(1), "[12:00:00] Вы вышли из чата\r\n"_w);
  EXPECT_EQ(Connects(1), connects);
  EXPECT_FALSE(chat.tab(1).Timer2->Enabled());
  EXPECT_FALSE(desktop.at(1).pers_red);
}

TEST_F(FrameEnd, ALogoffLeavesTheTabsOfOtherNicksAlone) {
  chat.EnterChannel();
  EnterSecondTab("bob");
  LogoffChat(chat.client, 0);
  const int connects = Connects(1);
  chat.Winsock1(1).PeerCloses();
  EXPECT_EQ(Connects(1), connects + 1);
}

TEST_F(FrameEnd, TheRepairOfTheFlagREndsWithTheFrame) {
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "function std () {\n}<BODY onLoad=\"x\">\n");
  EXPECT_EQ(said, std::vector<Text>{"/mo -R"});
  const int connects = Connects();
  chat.Winsock1().PeerCloses();
  EXPECT_NE(chat.Pane().find("Установка -R... Ok.\r\n"_w), Text::npos);
  EXPECT_FALSE(chat.tab().FixingFlagR);
  EXPECT_EQ(Connects(), connects + 1);
}

TEST_F(FrameEnd, AClosedFrameIsHandledOnce) {
  chat.EnterChannel();
  chat.tab().EjectSeen = true;
  chat.Winsock1().PeerCloses();
  const Text pane = chat.Pane();
  Winsock1_Close(chat.client, 0);
  EXPECT_EQ(chat.Pane(), pane);
}

// ---- silence ----

TEST_F(FrameEnd, TwoPeriodsOfSilenceReconnect) {
  chat.EnterChannel();
  const int connects = Connects();
  chat.platform.time.Advance(119999);
  EXPECT_EQ(Connects(), connects);
  chat.platform.time.Advance(1);
  EXPECT_EQ(Connects(), connects + 1);
  EXPECT_NE(chat.Pane().find("[12:02:00] Чат не отвечает, реконнект\r\n"_w), Text::npos);
  chat.platform.time.Advance(3600000);
  EXPECT_EQ(Connects(), connects + 1);  // no tick while the tab connects
}

TEST_F(FrameEnd, TheSilenceInEnglish) {
  English();
  chat.EnterChannel();
  chat.platform.time.Advance(120000);
  EXPECT_NE(chat.Pane().find("Chat did not responding, reconnect\r\n"), Text::npos);
}

TEST_F(FrameEnd, ACommentEvery119SecondsKeepsTheWatchdogQuiet) {
  chat.EnterChannel();
  const int connects = Connects();
  for (int i = 0; i < 50; ++i) {
    chat.platform.time.Advance(119000);
    chat.Deliver("<!-- -->\n");
    EXPECT_EQ(chat.tab().WatchdogTicks, 0);
  }
  EXPECT_EQ(Connects(), connects);
}

TEST_F(FrameEnd, TheWatchdogTakesItsPeriodFromTheSettings) {
  chat.client.app.ReconnectDelayValue = 1000;
  chat.EnterChannel();
  const int connects = Connects();
  chat.platform.time.Advance(2000);
  EXPECT_EQ(Connects(), connects + 1);
}

// ---- timers ----

TEST_F(FrameEnd, TheWatchdogOfATabThatReconnectsCannotTick) {
  chat.EnterChannel();
  EXPECT_TRUE(chat.tab().Timer3->Enabled());
  ConnectToChat(chat.client, 0);
  EXPECT_FALSE(chat.tab().Timer3->Enabled());
  const int connects = Connects();
  chat.platform.time.Advance(200000);
  EXPECT_EQ(Connects(), connects);
}

TEST_F(FrameEnd, AFrameOfAnUnknownStyleReconnectsAfterTwoSilentPeriods) {
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "<html>something else\n");
  chat.Deliver("more of it\n");
  EXPECT_FALSE(chat.tab().Connected);
  EXPECT_TRUE(chat.tab().IgnoreStream);
  const int connects = Connects();
  chat.platform.time.Advance(119999);
  EXPECT_EQ(Connects(), connects);
  chat.platform.time.Advance(1);
  EXPECT_EQ(Connects(), connects + 1);
}

TEST_F(FrameEnd, ATabThatIsArmedIsNotWokenByEveryChunk) {
  chat.EnterChannel();
  chat.platform.time.Advance(3000);
  EXPECT_TRUE(chat.tab().ActionsArmed);
  chat.Deliver("<!-- -->\n");
  EXPECT_FALSE(chat.tab().Timer6->Enabled());
}

TEST_F(FrameEnd, LinesOfAGoneSessionArmNoOther) {
  chat.EnterChannel();
  chat.client.hooks.ParseChatLine = [this](const Text&, int) { ConnectToChat(chat.client, 0); };
  chat.Deliver("[12:00:00] bob: hi\n");
  EXPECT_FALSE(chat.tab().Timer6->Enabled());
}

}  // namespace
}  // namespace parlorwire
