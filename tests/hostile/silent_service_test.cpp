// A service that takes connections and says nothing, or never ends what it says.
#include <gtest/gtest.h>

#include "bot/bot_queue.h"
#include "personal/personal_fixture.h"
#include "session/leaving.h"
#include "support/chat.h"
#include "users/posting.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

struct SilentService : testing::Test {
  void Wait(int milliseconds) { chat.platform.time.Advance(milliseconds); }
  Text LastLine() {
    const Text pane = chat.Pane();
    return pane.substr(pane.rfind('\n', pane.size() - 2) + 1);
  }
  static bool IsOpen(SimulatedSocket& socket) { return socket.State() == SocketState::kConnected; }
  Chat chat;
};

// ---- the login ----

TEST_F(SilentService, ALoginWithoutAnAnswerEndsLikeAConnectThatTimedOut) {
  ConnectToChat(chat.client, 0);
  chat.Winsock1().Accept();
  Wait(59'999);
  EXPECT_TRUE(IsOpen(chat.Winsock1()));
  EXPECT_EQ(chat.Winsock1().connects, 1);
  Wait(1);
  EXPECT_TRUE(chat.Pane().find("пароля... Ошибка: таймаут соединения\r\n"_w) != Text::npos);
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  EXPECT_EQ(chat.Winsock1().connects, 2);
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(SilentService, EachByteOfALoginStartsTheMinuteAnew) {
  ConnectToChat(chat.client, 0);
  chat.Winsock1().Accept();
  for (int i = 0; i < 5; ++i) {
    Wait(59'000);
    chat.Winsock1().Deliver("<");
  }
  EXPECT_EQ(chat.Winsock1().connects, 1);
  Wait(59'999);
  EXPECT_TRUE(IsOpen(chat.Winsock1()));
  Wait(1);
  EXPECT_EQ(chat.Winsock1().connects, 2);
}

TEST_F(SilentService, ALoginAnswerThatIsNotEndedTimesOutThoughItHoldsATicket) {
  ConnectToChat(chat.client, 0);
  chat.Winsock1().Accept();
  chat.Winsock1().Deliver("<a href='/frame?a=1&ticket=T1'>");
  Wait(60'000);
  EXPECT_FALSE(chat.tab().Authorized);
  EXPECT_EQ(chat.Winsock1().connects, 2);
}

TEST_F(SilentService, AConnectionThatDoesNotStandYetIsNotTimed) {
  ConnectToChat(chat.client, 0);
  Wait(300'000);
  EXPECT_EQ(chat.Winsock1().connects, 1);
}

// ---- the frame ----

TEST_F(SilentService, AFrameWithoutAByteIsWatchedFromItsConnectOn) {
  chat.OpenFrame();
  Wait(119'999);
  EXPECT_TRUE(IsOpen(chat.Winsock1()));
  Wait(1);
  EXPECT_TRUE(chat.Pane().find("Чат не отвечает, реконнект\r\n"_w) != Text::npos);
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
}

TEST_F(SilentService, TheWatchGoesByTheWatchdogsOwnPeriod) {
  chat.client.app.ReconnectDelayValue = 10'000;
  chat.OpenFrame();
  Wait(19'999);
  EXPECT_TRUE(IsOpen(chat.Winsock1()));
  Wait(1);
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
}

TEST_F(SilentService, AFrameThatIsReadHasNoDeadlineButTheWatchdog) {
  chat.EnterChannel();
  const int connects = chat.Winsock1().connects;
  for (int i = 0; i < 10; ++i) {
    Wait(119'000);
    chat.Deliver("<!-- -->\n");
  }
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

TEST_F(SilentService, APageOfChannelsThatIsNotEndedTimesOut) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\n");
  EXPECT_TRUE(chat.tab().IsChannelList);
  const int connects = chat.Winsock1().connects;
  Wait(59'999);
  EXPECT_EQ(chat.Winsock1().connects, connects);
  Wait(1);
  EXPECT_EQ(chat.Winsock1().connects, connects + 1);
}

TEST_F(SilentService, AFrameThatStaysBehindALeaveDoesNotBringTheUserBackToTheChannel) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  chat.Winsock5().Accept();
  chat.Winsock5().Deliver("\nid=1\n");
  chat.Winsock5().PeerCloses();
  EXPECT_TRUE(chat.tab().IsChannelList);
  chat.Deliver("<!-- -->\n");
  const int connects = chat.Winsock1().connects;
  Wait(119'000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

// ---- the other sockets ----

TEST_F(SilentService, APostAFetchAndALeaveThatAreNotAnsweredAreClosed) {
  chat.EnterChannel();
  button_say_MouseUp(chat.client, 0);
  LeaveChannel(chat.client, 0);
  for (auto* socket : {&chat.Winsock2(), &chat.Winsock3(), &chat.Winsock5()}) {
    socket->Accept();
    socket->Deliver("HTTP/1.0 200 OK\r\n");
  }
  const Text pane = chat.Pane();
  Wait(59'999);
  chat.Deliver("<!-- -->\n");
  for (auto* socket : {&chat.Winsock2(), &chat.Winsock3(), &chat.Winsock5()})
    EXPECT_TRUE(IsOpen(*socket));
  Wait(1);
  for (auto* socket : {&chat.Winsock2(), &chat.Winsock3(), &chat.Winsock5()})
    EXPECT_EQ(socket->State(), SocketState::kClosed);
  EXPECT_EQ(chat.Pane(), pane);
}

TEST_F(SilentService, ALogoffThatIsNotAnsweredIsClosed) {
  chat.EnterChannel();
  LogoffChat(chat.client, 0);
  chat.Winsock5().Accept();
  Wait(60'000);
  EXPECT_EQ(chat.Winsock5().State(), SocketState::kClosed);
}

TEST_F(SilentService, ACommandThatIsNotAnsweredIsSaidAgain) {
  chat.EnterChannel();
  SayBot(chat.client, "/k bob", 0);
  chat.Winsock4().Accept();
  Wait(59'999);
  chat.Deliver("<!-- -->\n");
  EXPECT_EQ(chat.Winsock4().connects, 1);
  Wait(1);
  EXPECT_EQ(chat.Winsock4().connects, 2);
  chat.Winsock4().Accept();
  EXPECT_TRUE(chat.Winsock4().sent.ends_with("&msgtext0=/k bob"));
}

TEST_F(SilentService, WhatIsEndedInTimeIsNotClosedAgain) {
  chat.EnterChannel();
  button_say_MouseUp(chat.client, 0);
  chat.Winsock2().Accept();
  chat.Winsock2().Deliver("size=1>ok</font>");
  Wait(59'000);
  chat.Deliver("<!-- -->\n");
  chat.Winsock2().PeerCloses();
  button_say_MouseUp(chat.client, 0);
  chat.Winsock2().Accept();
  Wait(59'000);  // of its own minute; that of the first is over
  chat.Deliver("<!-- -->\n");
  EXPECT_TRUE(IsOpen(chat.Winsock2()));
  Wait(1000);
  EXPECT_FALSE(IsOpen(chat.Winsock2()));
}

TEST_F(SilentService, NothingRunsOnAnIdleClientOrOneThatIsOnAChannel) {
  chat.EnterChannel();
  chat.Winsock3().Accept();
  chat.Winsock3().Deliver("HTTP/1.0 200 OK\r\n\r\nusers\n\n.alice|[-t][]''\n");
  chat.Winsock3().PeerCloses();
  for (const auto& timer : chat.tab().AnswerTimers)
    EXPECT_FALSE(timer->Enabled());
}

// ---- personal windows ----

struct SilentPersonal : PersonalTest {};

TEST_F(SilentPersonal, AMessageAndALinkThatAreNotAnsweredAreClosed) {
  PersonalWindow& window = OpenOnFrame();
  QueueAndSay(window);
  SimulatedSocket& post = Simulated(window.W2);
  SimulatedSocket& links = Simulated(window.W3);
  post.Accept();
  links.Accept();
  platform.time.Advance(59'999);
  EXPECT_EQ(post.State(), SocketState::kConnected);
  EXPECT_EQ(links.connects, 1);
  platform.time.Advance(1);
  EXPECT_EQ(post.State(), SocketState::kClosed);
  EXPECT_EQ(links.connects, 2);  // tried again, as behind any connect that timed out
}

TEST_F(SilentPersonal, TheFrameOfMessagesHasNoEndAndNoDeadline) {
  PersonalWindow& window = OpenOnFrame();
  platform.time.Advance(3'600'000);
  EXPECT_EQ(Simulated(window.W1).State(), SocketState::kConnected);
}

}  // namespace
}  // namespace parlorwire
