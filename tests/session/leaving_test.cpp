#include "session/leaving.h"

#include <gtest/gtest.h>

#include "session/http_answer.h"
#include "support/chat.h"

namespace parlorwire {
namespace {

struct Leaving : testing::Test {
  SimulatedSocket& socket() { return chat.Winsock5(); }
  Text LastLine() {
    const Text pane = chat.Pane();
    return pane.substr(pane.rfind('\n', pane.size() - 2) + 1);
  }
  Chat chat;
  SimulatedDesktop& desktop = chat.platform.desktop;
};

TEST_F(Leaving, LogoffAsksOnWinsock5AndSaysSoAtItsClose) {
  chat.EnterChannel();
  LogoffChat(chat.client, 0);
  EXPECT_EQ(socket().host, "chat.example");
  socket().Accept();
  EXPECT_TRUE(socket().sent.starts_with("POST /logoff HTTP/1.0\r\n"));
  EXPECT_TRUE(socket().sent.ends_with("\r\n\r\nusername=alice&ticket=T1"));
  chat.tab().Winsock1->Close();
  socket().Deliver("bye");
  socket().PeerCloses();
  EXPECT_EQ(LastLine(), "[12:00:00] Вы вышли из чата\r\n"_w);
  EXPECT_EQ(chat.tab().ChannelListPage, "");
}

TEST_F(Leaving, LeaveShowsTheListOfItsAnswer) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  EXPECT_TRUE(socket().sent.starts_with("POST /leave HTTP/1.0\r\n"));
  EXPECT_TRUE(socket().sent.ends_with("\r\n\r\nusername=alice&ticket=T1&channel=lobby"));
  chat.Winsock1().PeerCloses();
  EXPECT_FALSE(chat.tab().Connecting);
  socket().Deliver(Koi("HTTP/1.0 200 OK\r\n\r\nchannel: кафе\n"_w));
  desktop.at(0).users_num = "1/2";
  desktop.close_tab_enabled = false;
  socket().PeerCloses();
  EXPECT_TRUE(desktop.close_tab_enabled);
  EXPECT_EQ(chat.tab().LogoffNick, "");
  EXPECT_TRUE(chat.Pane().ends_with("\r\n\r\nКанал: кафе\r\n\r\n"_w));
  EXPECT_TRUE(chat.tab().IsChannelList);
  EXPECT_EQ(desktop.at(0).caption, "Список каналов"_w);
  EXPECT_EQ(desktop.at(0).users_num, "");
}

TEST_F(Leaving, TheTicketGoesRawInBothRequests) {
  chat.EnterChannel();
  chat.tab().Ticket = "1+2";
  LogoffChat(chat.client, 0);
  socket().Accept();
  EXPECT_TRUE(socket().sent.ends_with("&ticket=1+2"));
  LeaveChannel(chat.client, 0);
  socket().Accept();
  EXPECT_TRUE(socket().sent.ends_with("&ticket=1+2&channel=lobby"));
}

TEST_F(Leaving, TheListOfALeaveInEnglish) {
  chat.client.app.Language = UiLanguage::kEnglish;
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  socket().Deliver("user: bob\n");
  socket().PeerCloses();
  EXPECT_EQ(desktop.at(0).caption, "Channel list");
}

TEST_F(Leaving, AnEmptyAnswerOnWinsock5DoesNothingAtAll) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  const Text pane = chat.Pane();
  socket().PeerCloses();
  EXPECT_EQ(chat.Pane(), pane);
  EXPECT_FALSE(chat.tab().IsChannelList);
}

TEST_F(Leaving, LeaveOverrulesALogoffAndBothStepsRunAtTheClose) {
  chat.EnterChannel();
  LogoffChat(chat.client, 0);
  LeaveChannel(chat.client, 0);
  socket().Accept();
  EXPECT_TRUE(socket().sent.starts_with("POST /leave "));
  socket().Deliver("user: bob\n");
  socket().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with("\r\nbob\r\n[12:00:00] Вы вышли из чата\r\n"_w));
}

TEST_F(Leaving, AfterALeaveTheCloseOfTheFrameRunsTheListBranchWithAnEmptyPage) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  socket().Deliver("channel: hall\n");
  socket().PeerCloses();
  const int connects = chat.Winsock1().connects;
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Winsock1().connects, connects);
  EXPECT_TRUE(chat.Pane().ends_with(
      "Канал: hall\r\n Ok.\r\n[12:00:00] Построение и форматирование... Ok.\r\n\r\n"_w))
      << chat.Pane();
  EXPECT_EQ(desktop.at(0).caption, "Список каналов"_w);
  EXPECT_EQ(desktop.window_caption, "Список каналов - Parlorwire"_w);
}

TEST_F(Leaving, AChunkOfTheFrameEmptiesThePageOfALeave) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  socket().Deliver("channel: hall\n");
  chat.Deliver("<!-- -->\n");
  socket().Deliver("user: bob\n");
  socket().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with("\r\nbob\r\n"));
  EXPECT_EQ(chat.Pane().find("hall"), Text::npos);
}

TEST_F(Leaving, APageOfALeaveThatIsCutShortIsShownAsFarAsItGoes) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  socket().Deliver("user: bob\nchannel: lob");
  socket().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with("\r\nbob\r\n"));
  EXPECT_TRUE(chat.ErrorLog().ends_with(". Function: Winsock5_Close\r\n"));
  EXPECT_TRUE(chat.tab().IsChannelList);
  EXPECT_EQ(desktop.at(0).caption, "Список каналов"_w);
  EXPECT_EQ(desktop.window_caption, "Список каналов - Parlorwire"_w);
  EXPECT_EQ(chat.tab().ChannelListPage, "");
}

TEST_F(Leaving, AConnectInTheMiddleOfTheListOfALeaveIsNotTakenForAList) {
  chat.EnterChannel();
  LeaveChannel(chat.client, 0);
  socket().Accept();
  socket().Deliver("user: bob\nuser: carl\n");
  desktop.on_yield = [this] {
    desktop.on_yield = nullptr;
    ConnectToChat(chat.client, 0);
  };
  socket().PeerCloses();
  EXPECT_TRUE(chat.tab().Connecting);
  EXPECT_FALSE(chat.tab().IsChannelList);
  EXPECT_EQ(desktop.at(0).caption, "Подключение..."_w);
  EXPECT_EQ(chat.Pane().find("carl"), Text::npos);
}

TEST_F(Leaving, ALeaveThatOverrulesALogoffEscapesTheNickTwice) {
  chat.EnterChannel();
  chat.tab().Login = "a+b";
  LogoffChat(chat.client, 0);
  EXPECT_EQ(chat.tab().LogoffNick, "a+b");
  LeaveChannel(chat.client, 0);
  socket().Accept();
  EXPECT_NE(socket().sent.find("username=a%252Bb&"), Text::npos);
  EXPECT_EQ(chat.tab().Login, "a%252Bb");
}

TEST_F(Leaving, AnotherRequestGivesUpTheOneThatRuns) {
  chat.EnterChannel();
  LogoffChat(chat.client, 0);
  socket().Accept();
  socket().Deliver("half of");
  LogoffChat(chat.client, 0);
  EXPECT_EQ(socket().connects, 2);
  EXPECT_EQ(socket().State(), SocketState::kConnecting);
  socket().Accept();
  EXPECT_EQ(chat.tab().ChannelListPage, "");
}

TEST_F(Leaving, AFailureLeavesItUnconfirmed) {
  chat.EnterChannel();
  const Text pane = chat.Pane();
  LogoffChat(chat.client, 0);
  socket().Fail(10061);
  EXPECT_EQ(chat.Pane(), pane);
  EXPECT_EQ(chat.ErrorLog(), "");
  EXPECT_TRUE(chat.tab().LogoffPending);
}

TEST_F(Leaving, AnAnswerWithoutEndDoesNotFillTheMemory) {
  chat.EnterChannel();
  LogoffChat(chat.client, 0);
  socket().Accept();
  for (int i = 0; i < 3; ++i)
    socket().Deliver(Text(kLargestAnswer / 2, 'x'));
  EXPECT_EQ(chat.tab().ChannelListPage.size(), kLargestAnswer);
}

}  // namespace
}  // namespace parlorwire
