#include "session/exchange.h"

#include <gtest/gtest.h>

#include "session/http_answer.h"
#include "session/http_request.h"
#include "support/fault_of.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct Exchange : testing::Test {
  Exchange() { client.app.ChatHost = "chat.example"; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  SimulatedSocket socket;
};

TEST_F(Exchange, ConnectsAfreshWhateverTheSocketIsDoing) {
  socket.Connect("elsewhere", "1");
  socket.Accept();
  socket.SendData("half");
  ConnectAfresh(client, socket);
  EXPECT_EQ(socket.host + ":" + socket.port, "chat.example:80");
  EXPECT_EQ(socket.State(), SocketState::kConnecting);
  EXPECT_EQ(socket.sent, "");
}

TEST_F(Exchange, SendsTheRequestOfTheUrl) {
  ConnectAfresh(client, socket);
  socket.Accept();
  SendRequest(client, socket, "/chl?a=b");
  EXPECT_EQ(socket.sent, BuildRequest(client, "/chl?a=b"));
  EXPECT_EQ(socket.sends, 1);
  EXPECT_EQ(FaultOf([this] { SendRequest(client, socket, "/chl"); }), 5);
  EXPECT_EQ(socket.sends, 1);
}

TEST_F(Exchange, GathersWhatArrivesUnlessNothingDoes) {
  Text answer = "kept ";
  std::size_t waiting = 0;
  socket.events.DataArrival = [&](std::size_t bytes_total) { waiting = bytes_total; };
  ConnectAfresh(client, socket);
  socket.Accept();
  socket.Deliver("one ");
  socket.Deliver("two");
  GatherAnswer(socket, 0, answer);
  EXPECT_EQ(answer, "kept ");
  GatherAnswer(socket, waiting, answer);
  EXPECT_EQ(answer, "kept one two");
  answer.resize(kLargestAnswer - 1);
  socket.Deliver("xyz");
  GatherAnswer(socket, waiting, answer);
  EXPECT_EQ(answer.size(), kLargestAnswer);
  EXPECT_EQ(answer.back(), 'x');
}

}  // namespace
}  // namespace parlorwire
