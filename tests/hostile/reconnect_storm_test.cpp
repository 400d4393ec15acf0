// A service that ends everything at once is connected to with growing pauses; the user never waits.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bot/bot_queue.h"
#include "session/leaving.h"
#include "shell/hot_keys.h"
#include "shell/tabs.h"
#include "support/chat.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

constexpr const char* kNoFlag = "HTTP/1.0 200 OK\r\n\r\nusers\n\n.alice|[][]''\n";

struct ReconnectStorm : testing::Test {
  // Takes the login that runs, and opens the frame.
  void AnswerAndOpen(int tab = 0) {
    chat.Winsock1(tab).Accept();
    chat.Winsock1(tab).Deliver("<a href='/frame?a=1&ticket=T1'>");
    chat.Winsock1(tab).PeerCloses();
    chat.Winsock1(tab).Accept();
  }
  void OpenAndClose(int tab = 0) {
    AnswerAndOpen(tab);
    chat.Deliver(Text(kGoodHeader) + "<pre>\n", tab);
    chat.Winsock1(tab).PeerCloses();
  }
  // The seconds that pass until the socket connects again.
  int SecondsToConnect(SimulatedSocket& socket, int most = 200) {
    for (int seconds = 0; seconds <= most; ++seconds) {
      if (socket.State() == SocketState::kConnecting) return seconds;
      chat.platform.time.Advance(1000);
    }
    return -1;
  }
  bool Waits() { return chat.tab().Reconnects.Wait->Enabled(); }
  int Times(const Text& what) {
    const Text pane = chat.Pane();
    int count = 0;
    for (std::size_t at = pane.find(what); at != Text::npos; at = pane.find(what, at + 1))
      ++count;
    return count;
  }
  Text LastLine() {
    const Text pane = chat.Pane();
    return pane.substr(pane.rfind('\n', pane.size() - 2) + 1);
  }

  Chat chat;
};

TEST_F(ReconnectStorm, AFrameThatIsClosedAtOnceIsOpenedWithGrowingPauses) {
  ConnectToChat(chat.client, 0);
  OpenAndClose();  // the user's
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  OpenAndClose();  // the first of the client's own accord
  std::vector<int> pauses;
  for (int i = 0; i < 8; ++i) {
    pauses.push_back(SecondsToConnect(chat.Winsock1()));
    OpenAndClose();
  }
  EXPECT_EQ(pauses, (std::vector<int>{1, 2, 4, 8, 16, 32, 60, 60}));
}

TEST_F(ReconnectStorm, TheStatusLineComesOnceForATry) {
  ConnectToChat(chat.client, 0);
  for (int i = 0; i < 5; ++i) {
    OpenAndClose();
    SecondsToConnect(chat.Winsock1());
  }
  EXPECT_EQ(Times("Подключение к чату..."_w), 6);
  OpenAndClose();
  EXPECT_TRUE(Waits());
  EXPECT_EQ(chat.platform.desktop.at(0).caption, "Отключено"_w);
  EXPECT_EQ(Times("Подключение к чату..."_w), 6);
  chat.platform.time.Advance(60'000);
  EXPECT_EQ(chat.platform.desktop.at(0).caption, "Подключение..."_w);
  EXPECT_EQ(Times("Подключение к чату..."_w), 7);
}

TEST_F(ReconnectStorm, FiveSecondsAfterTheLastIsAtOnce) {
  ConnectToChat(chat.client, 0);
  OpenAndClose();
  for (int i = 0; i < 10; ++i) {
    AnswerAndOpen();
    chat.platform.time.Advance(5000);
    chat.Winsock1().PeerCloses();
    ASSERT_EQ(chat.Winsock1().State(), SocketState::kConnecting) << i;
  }
  AnswerAndOpen();
  chat.platform.time.Advance(4999);
  chat.Winsock1().PeerCloses();
  EXPECT_TRUE(Waits());
}

TEST_F(ReconnectStorm, ASessionThatHasLastedAMinuteStartsAfresh) {
  ConnectToChat(chat.client, 0);
  for (int i = 0; i < 5; ++i) {
    OpenAndClose();
    SecondsToConnect(chat.Winsock1());
  }
  AnswerAndOpen();
  chat.platform.time.Advance(60'000);
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  OpenAndClose();
  EXPECT_EQ(SecondsToConnect(chat.Winsock1()), 1);
}

TEST_F(ReconnectStorm, AShorterSessionDoesNot) {
  ConnectToChat(chat.client, 0);
  for (int i = 0; i < 4; ++i) {  // at once, 1 s, 2 s, 4 s
    OpenAndClose();
    SecondsToConnect(chat.Winsock1());
  }
  AnswerAndOpen();
  chat.platform.time.Advance(50'000);
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  OpenAndClose();
  EXPECT_EQ(SecondsToConnect(chat.Winsock1()), 8);
}

TEST_F(ReconnectStorm, AStyleThatIsNeverRepairedIsLoggedInForWithPauses) {
  ConnectToChat(chat.client, 0);
  std::vector<int> pauses;
  for (int i = 0; i < 6; ++i) {
    AnswerAndOpen();
    chat.Deliver(Text(kGoodHeader) + "<FONT color=\"#FF5050\n");
    chat.Winsock4().Accept();
    ASSERT_TRUE(chat.Winsock4().sent.ends_with("&msgtext0=/set s 9"));
    chat.Winsock4().PeerCloses();
    EXPECT_TRUE(chat.tab().BotQueue.empty());
    pauses.push_back(SecondsToConnect(chat.Winsock1()));
  }
  EXPECT_EQ(pauses, (std::vector<int>{0, 1, 2, 4, 8, 16}));
}

TEST_F(ReconnectStorm, TimeOutsOneBehindTheOtherWait) {
  ConnectToChat(chat.client, 0);
  chat.Winsock1().Fail(10060);
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  chat.Winsock1().Fail(10060);
  EXPECT_EQ(SecondsToConnect(chat.Winsock1()), 1);
}

TEST_F(ReconnectStorm, TheRetryOfTimer1ComesEveryFiveSecondsAsEver) {
  ConnectToChat(chat.client, 0);
  for (int i = 0; i < 10; ++i) {
    chat.Winsock1().Accept();
    chat.Winsock1().Deliver("busy\n");
    chat.Winsock1().PeerCloses();
    ASSERT_EQ(SecondsToConnect(chat.Winsock1()), 5) << i;
  }
}

// ---- the user ----

struct UserInTheStorm : ReconnectStorm {
  UserInTheStorm() {
    ConnectToChat(chat.client, 0);
    for (int i = 0; i < 6; ++i) {
      OpenAndClose();
      SecondsToConnect(chat.Winsock1());
    }
    OpenAndClose();
    EXPECT_TRUE(Waits());
  }
};

TEST_F(UserInTheStorm, AConnectOfTheUsersIsAtOnceAndEndsTheWait) {
  const int connects = chat.Winsock1().connects;
  ConnectToChat(chat.client, 0);
  EXPECT_EQ(chat.Winsock1().connects, connects + 1);
  EXPECT_FALSE(Waits());
  chat.platform.time.Advance(59'000);
  EXPECT_EQ(chat.Winsock1().connects, connects + 1);
}

TEST_F(UserInTheStorm, BehindItTheFirstOfTheClientsIsAtOnceAgain) {
  ConnectToChat(chat.client, 0);
  OpenAndClose();
  EXPECT_EQ(chat.Winsock1().State(), SocketState::kConnecting);
  OpenAndClose();
  EXPECT_EQ(SecondsToConnect(chat.Winsock1()), 1);
}

TEST_F(UserInTheStorm, F5AndF6AreNeverDelayed) {
  for (int i = 0; i < 3; ++i) {
    ConnectToChat(chat.client, 0);
    AnswerAndOpen();
    chat.Deliver(Text(kGoodHeader) + "<pre>\n");
    int connects = chat.Winsock1().connects;
    RefreshTab(chat.client);
    EXPECT_EQ(chat.Winsock1().connects, connects + 1);
    AnswerAndOpen();
    chat.Deliver(Text(kGoodHeader) + "<pre>\n");
    connects = chat.Winsock1().connects;
    LogInAfresh(chat.client);
    chat.Winsock1().PeerCloses();
    EXPECT_EQ(chat.Winsock1().connects, connects + 1);
  }
}

TEST_F(UserInTheStorm, AClosedTabDoesNotConnectAgain) {
  chat.platform.desktop.SetTabVisible(1, true);
  chat.tab(1).Login = "alice";
  chat.tab(1).Channel = "hall";
  chat.EnterChannel(1);
  const int connects = chat.Winsock1().connects;
  close_tab(chat.client);
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

TEST_F(UserInTheStorm, WhoLogsOffMeanwhileIsNotLoggedInAgain) {
  const int connects = chat.Winsock1().connects;
  LogoffChat(chat.client, 0);
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

TEST_F(UserInTheStorm, WhoLeavesMeanwhileIsNotBroughtBack) {
  const int connects = chat.Winsock1().connects;
  LeaveChannel(chat.client, 0);
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

TEST_F(UserInTheStorm, NorIsTheNickThatIsLoggedOffInAnotherTab) {
  chat.tab(1).Login = "ALICE";
  LogoffChat(chat.client, 1);
  const int connects = chat.Winsock1().connects;
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
  EXPECT_EQ(LastLine().substr(11), "Вы вышли из чата\r\n"_w);
}

TEST_F(UserInTheStorm, OtherTabsAreTheirOwnMasters) {
  chat.tab(1).Login = "alice";
  chat.tab(1).Channel = "hall";
  ConnectToChat(chat.client, 1);
  OpenAndClose(1);
  EXPECT_EQ(chat.Winsock1(1).State(), SocketState::kConnecting);
  EXPECT_TRUE(Waits());
}

// ---- the list of users ----

struct FetchStorm : ReconnectStorm {
  FetchStorm() {
    chat.EnterChannel();
    chat.platform.time.Advance(3000);
    chat.Deliver("<!-- -->\n");  // arms the reactions
    chat.platform.time.Advance(3000);
  }
  void AnswerList(std::string_view page) {
    chat.Winsock3().Accept();
    chat.Winsock3().Deliver(page);
    chat.Winsock3().PeerCloses();
  }
};

TEST_F(FetchStorm, AFlagThatNeverComesIsLookedForWithGrowingPauses) {
  std::vector<int> pauses;
  for (int i = 0; i < 9; ++i) {
    chat.Deliver("<!-- -->\n");
    AnswerList(kNoFlag);
    pauses.push_back(SecondsToConnect(chat.Winsock3()));
  }
  EXPECT_EQ(pauses, (std::vector<int>{0, 1, 2, 4, 8, 16, 32, 60, 60}));
}

TEST_F(FetchStorm, AndAskedForWithPauses) {
  for (int i = 0; i < 200; ++i) {  // twenty seconds
    if (chat.Winsock3().State() == SocketState::kConnecting) AnswerList(kNoFlag);
    chat.Winsock4().Accept();
    chat.Winsock4().PeerCloses();
    chat.platform.time.Advance(100);
  }
  EXPECT_LE(chat.Winsock4().connects, 7);
  EXPECT_GE(chat.Winsock4().connects, 4);
}

TEST_F(FetchStorm, TheButtonIsNeverDelayedAndStartsAfresh) {
  for (int i = 0; i < 5; ++i) {
    AnswerList(kNoFlag);
    SecondsToConnect(chat.Winsock3());
  }
  AnswerList(kNoFlag);
  EXPECT_TRUE(chat.tab().FlagRepairs.Wait->Enabled());
  const int connects = chat.Winsock3().connects;
  UpdateUsersFrame(chat.client, 0);
  EXPECT_EQ(chat.Winsock3().connects, connects + 1);
  EXPECT_FALSE(chat.tab().FlagRepairs.Wait->Enabled());
  AnswerList(kNoFlag);
  EXPECT_EQ(chat.Winsock3().State(), SocketState::kConnecting);
  AnswerList(kNoFlag);
  EXPECT_EQ(SecondsToConnect(chat.Winsock3()), 1);
}

TEST_F(FetchStorm, ManyWhoComeCostAListASecond) {
  AnswerList("HTTP/1.0 200 OK\r\n\r\nusers\n\n.alice|[-t][]''\n");
  const int connects = chat.Winsock3().connects;
  for (int i = 0; i < 200; ++i) {  // twenty seconds
    chat.Deliver("..[12:00:00]user"_w + std::to_string(i) + " приходит на канал\n"_w);
    chat.platform.time.Advance(100);
  }
  EXPECT_LE(chat.Winsock3().connects - connects, 21);
  EXPECT_GE(chat.Winsock3().connects - connects, 15);
}

TEST_F(FetchStorm, WhoComesWhileAListWaitsIsNotForgotten) {
  AnswerList("HTTP/1.0 200 OK\r\n\r\nusers\n\n.alice|[-t][]''\n");
  chat.Deliver("..[12:00:00]bob приходит на канал\n"_w);
  EXPECT_EQ(chat.Winsock3().State(), SocketState::kConnecting);
  AnswerList("HTTP/1.0 200 OK\r\n\r\nusers\n\n.alice|[-t][]''\nbob|[][]''\n");
  const int connects = chat.Winsock3().connects;
  chat.Deliver("..[12:00:00]cid приходит на канал\n"_w);
  chat.Deliver("..[12:00:00]dan приходит на канал\n"_w);
  EXPECT_EQ(chat.Winsock3().connects, connects);
  EXPECT_EQ(chat.tab().JoinLines, "cid\r\ndan");
  EXPECT_EQ(SecondsToConnect(chat.Winsock3()), 1);
  EXPECT_EQ(chat.Winsock3().connects, connects + 1);
}

TEST_F(FetchStorm, AClosedTabFetchesAndSaysNothingMore) {
  chat.tab(1).Login = "carol";
  chat.tab(1).Channel = "hall";
  chat.EnterChannel(1);
  chat.platform.desktop.SetTabVisible(1, true);
  for (int i = 0; i < 2; ++i) {
    chat.Deliver("<script language=\"javascript\">\n");
    chat.Winsock4().Accept();
    chat.Winsock4().PeerCloses();
    AnswerList(kNoFlag);
  }
  for (Backoff* backoff : {&chat.tab().FlagRepairs, &chat.tab().BotRepairs})
    EXPECT_TRUE(backoff->Wait->Enabled());
  close_tab(chat.client);
  chat.platform.time.Advance(1500);
  EXPECT_EQ(chat.Winsock3().State(), SocketState::kClosed);
  EXPECT_EQ(chat.Winsock4().State(), SocketState::kClosed);
}

TEST_F(FetchStorm, ANewSessionFetchesItsListAtOnce) {
  for (int i = 0; i < 3; ++i)
    chat.Deliver("..[12:00:00]bob приходит на канал\n"_w);
  chat.EnterChannel();
  EXPECT_EQ(chat.Winsock3().State(), SocketState::kConnecting);
  EXPECT_FALSE(chat.tab().Fetches.Wait->Enabled());
}

TEST_F(FetchStorm, WhatWaitsIsNotFetchedFromAChannelThatIsLeft) {
  AnswerList(kNoFlag);
  AnswerList(kNoFlag);
  EXPECT_TRUE(chat.tab().FlagRepairs.Wait->Enabled());
  LeaveChannel(chat.client, 0);
  chat.Winsock1().PeerCloses();
  const int connects = chat.Winsock3().connects;
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock3().connects, connects);
}

// ---- what the client says ----

TEST_F(FetchStorm, ARepairInTheFrameIsSaidWithGrowingPauses) {
  std::vector<int> pauses;
  for (int i = 0; i < 6; ++i) {
    chat.Deliver("<script language=\"javascript\">\n");
    pauses.push_back(SecondsToConnect(chat.Winsock4()));
    chat.Winsock4().Accept();
    EXPECT_TRUE(chat.Winsock4().sent.ends_with("&msgtext0=/mo -R"));
    chat.Winsock4().PeerCloses();
  }
  EXPECT_EQ(pauses, (std::vector<int>{0, 1, 2, 4, 8, 16}));
}

TEST_F(FetchStorm, WhatAnOperatorSaysTakesAWaitingRepairAlong) {
  chat.Deliver("<script language=\"javascript\">\n");
  chat.Winsock4().Accept();
  chat.Winsock4().PeerCloses();
  chat.Deliver("<script language=\"javascript\">\n");
  EXPECT_EQ(chat.Winsock4().State(), SocketState::kClosing);
  SayBot(chat.client, "/k bob", 0);
  chat.Winsock4().Accept();
  EXPECT_TRUE(chat.Winsock4().sent.ends_with("&msgtext0=/mo -R"));
  EXPECT_FALSE(chat.tab().BotRepairs.Wait->Enabled());
  chat.Winsock4().PeerCloses();
  chat.Winsock4().Accept();
  EXPECT_TRUE(chat.Winsock4().sent.ends_with("&msgtext0=/k bob"));
}

TEST_F(FetchStorm, AnErrorDropsTheRepairThatWaits) {
  chat.Deliver("<script language=\"javascript\">\n");
  chat.Winsock4().Accept();
  chat.Winsock4().PeerCloses();
  chat.Deliver("<script language=\"javascript\">\n");
  SayBot(chat.client, "/k bob", 0);
  chat.Winsock4().Fail(10061);
  const int connects = chat.Winsock4().connects;
  chat.platform.time.Advance(120'000);
  EXPECT_EQ(chat.Winsock4().connects, connects);
}

}  // namespace
}  // namespace parlorwire
