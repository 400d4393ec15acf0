#include "bot/bot_queue.h"

#include <gtest/gtest.h>

#include "shell/assembly.h"
#include "support/pane_runs.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

using Queue = std::deque<Text>;

struct BotQueueTest : testing::Test {
  BotQueueTest() {
    Assemble(client);
    client.app.ChatHost = client.app.ChatHostByAddress;
    client.app.ChatPort = "8080";
    session.Login = "Me";
    session.Ticket = "t&1";
    session.Channel = "talk";
  }
  SimulatedSocket& socket() { return Simulated(session.Winsock4); }
  Text Body() { return socket().sent.substr(socket().sent.find("\r\n\r\n") + 4); }
  Text Said() {
    const Text body = Body();
    return body.substr(body.find("&msgtext="));
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  TabSession& session = client.tab(0);
};

TEST_F(BotQueueTest, ARequestToTheByte) {
  platform.random.script = {0.0};
  SayBot(client, "/mo -t", 0);
  socket().Accept();
  EXPECT_EQ(socket().host, "127.0.0.1");
  EXPECT_EQ(socket().port, "8080");
  EXPECT_EQ(socket().sends, 1);
  EXPECT_EQ(socket().sent,
            "POST /newmsg_t HTTP/1.0\r\n"
            "Host: 127.0.0.1:8080\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 89\r\n"
            "\r\n"
            "username=Me&ticket=t&1&channel=talk&chpwd=&reqnum=11111111"
            "&msgtext=/mo -t&msgtext0=/mo -t");
}

TEST_F(BotQueueTest, TheCommandIsEscapedOnceAndGoesOutTwiceEqual) {
  SayBot(client, "/mo +R 5%"_w, 0);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=/mo %2BR 5%25&msgtext0=/mo %2BR 5%25");
  EXPECT_EQ(session.BotQueue, (Queue{"/mo +R 5%"}));
}

TEST_F(BotQueueTest, TheSessionsOwnFieldsGrowWithEachPost) {
  session.Login = "a+b";
  SayBot(client, "x", 0);
  socket().Accept();
  EXPECT_TRUE(Body().starts_with("username=a%2Bb&"));
  EXPECT_EQ(session.Login, "a%2Bb");
}

TEST_F(BotQueueTest, GoesToTheProxyIfOneIsUsed) {
  client.app.sett_conn = {true, true, "proxy.example", "3128", false, "", ""};
  SayBot(client, "x", 0);
  EXPECT_EQ(socket().host, "proxy.example");
  EXPECT_EQ(socket().port, "3128");
}

TEST_F(BotQueueTest, TwoCommandsInARowGoOutOneAfterTheOther) {
  SayBot(client, "one", 0);
  SayBot(client, "two", 0);
  EXPECT_EQ(socket().connects, 1);
  EXPECT_EQ(session.BotQueue, (Queue{"one", "two"}));
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=one&msgtext0=one");
  socket().PeerCloses();
  EXPECT_EQ(session.BotQueue, (Queue{"two"}));
  EXPECT_EQ(socket().connects, 2);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=two&msgtext0=two");
  socket().PeerCloses();
  EXPECT_EQ(session.BotQueue, Queue{});
  EXPECT_EQ(socket().connects, 2);
}

TEST_F(BotQueueTest, ACommandSaidWhileOneIsSentWaits) {
  SayBot(client, "one", 0);
  socket().Accept();
  SayBot(client, "two", 0);
  EXPECT_EQ(socket().connects, 1);
  socket().PeerCloses();
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=two&msgtext0=two");
}

TEST_F(BotQueueTest, NothingIsKeptOfTheAnswers) {
  SayBot(client, "one", 0);
  socket().Accept();
  for (int i = 0; i < 10; ++i)
    socket().Deliver(Text(100'000, 'x'));
  EXPECT_EQ(socket().GetData().size(), 0U);
}

TEST_F(BotQueueTest, AnEmptyCommandIsPassedOverWhileOthersWait) {
  SayBot(client, "", 0);
  SayBot(client, "one", 0);
  SayBot(client, "", 0);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=one&msgtext0=one");
  socket().PeerCloses();
  EXPECT_EQ(socket().connects, 1);
}

TEST_F(BotQueueTest, AnEmptyCommandIsSentAsOneAndForgotten) {
  SayBot(client, "", 0);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=&msgtext0=");
  socket().PeerCloses();
  EXPECT_EQ(session.BotQueue, Queue{});
  EXPECT_EQ(socket().connects, 1);
}

TEST_F(BotQueueTest, BehindTheStyleFixTheSessionIsStartedAnew) {
  session.Connected = true;
  SayBot(client, "/set s 9", 0);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=/set s 9&msgtext0=/set s 9");
  session.Rich.ReplaceSel("status...\r\n");
  socket().PeerCloses();
  EXPECT_TRUE(session.Rich.Text().starts_with("status... Ok.\r\n")) << ToUtf8(session.Rich.Text());
  EXPECT_TRUE(session.Connecting);
  EXPECT_EQ(Simulated(session.Winsock1).connects, 1);
  EXPECT_EQ(session.BotQueue, Queue{});
  EXPECT_EQ(socket().State(), SocketState::kClosed);
  EXPECT_EQ(socket().connects, 1);
}

TEST_F(BotQueueTest, TheStyleFixDropsWhatWaitsBehindIt) {
  SayBot(client, "/set s 9", 0);
  SayBot(client, "two", 0);
  socket().Accept();
  socket().PeerCloses();
  EXPECT_EQ(session.BotQueue, Queue{});
  EXPECT_EQ(socket().connects, 1);
}

TEST_F(BotQueueTest, ACommandAheadOfTheStyleFixGoesFirst) {
  SayBot(client, "one", 0);
  SayBot(client, "/set s 9", 0);
  socket().Accept();
  socket().PeerCloses();
  EXPECT_FALSE(session.Connecting);
  EXPECT_EQ(session.BotQueue, (Queue{"/set s 9"}));
  socket().Accept();
  socket().PeerCloses();
  EXPECT_TRUE(session.Connecting);
}

TEST_F(BotQueueTest, AStyleFixInOtherWordsStartsNothing) {
  for (const char* text : {"/set s 9 ", "/SET s 9", "/set s 99"}) {
    SayBot(client, text, 0);
    socket().Accept();
    socket().PeerCloses();
  }
  EXPECT_FALSE(session.Connecting);
}

TEST_F(BotQueueTest, ATimeOutTriesAgain) {
  SayBot(client, "one", 0);
  socket().Fail(10060);
  EXPECT_EQ(socket().connects, 2);
  EXPECT_EQ(session.BotQueue, (Queue{"one"}));
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=one&msgtext0=one");
}

TEST_F(BotQueueTest, AnyOtherErrorDropsTheQueueWithoutAWord) {
  for (const int number : {10061, 10054, 11001}) {
    SayBot(client, "one", 0);
    SayBot(client, "two", 0);
    const int connects = socket().connects;
    socket().Fail(number);
    EXPECT_EQ(session.BotQueue, Queue{});
    EXPECT_EQ(socket().connects, connects);
  }
  EXPECT_EQ(session.Rich.Length(), 0);
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

TEST_F(BotQueueTest, ACommandSaidAfterAnErrorConnectsAgain) {
  SayBot(client, "one", 0);
  socket().Fail(10061);
  SayBot(client, "two", 0);
  EXPECT_EQ(socket().State(), SocketState::kConnecting);
  socket().Accept();
  EXPECT_EQ(Said(), "&msgtext=two&msgtext0=two");
}

TEST_F(BotQueueTest, TabsHaveQueuesOfTheirOwn) {
  SayBot(client, "one", 0);
  SayBot(client, "two", 1);
  EXPECT_EQ(session.BotQueue, (Queue{"one"}));
  EXPECT_EQ(client.tab(1).BotQueue, (Queue{"two"}));
  EXPECT_EQ(Simulated(client.tab(1).Winsock4).connects, 1);
}

}  // namespace
}  // namespace parlorwire
