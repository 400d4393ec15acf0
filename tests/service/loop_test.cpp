// The loop over real sockets: time-outs, floods, and who is still served after them.
#include "service/loop.h"

#include <chrono>
#include <vector>

#include "running_server.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using LoopTest = RunningServer;

TEST_F(LoopTest, BadRequestsGetAnErrorAndNeverStopTheService) {
  Start();
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"nonsense\r\n\r\n", "400 Bad Request"},
      {std::string("\0\1\2\xFF\n\n", 6), "400 Bad Request"},
      {"GET /nowhere HTTP/1.0\r\n\r\n", "404 Not Found"},
      {"DELETE / HTTP/1.0\r\n\r\n", "405 Method Not Allowed"},
      {"POST / HTTP/1.0\r\n\r\n", "411 Length Required"},
      {"POST / HTTP/1.0\r\nContent-Length: 100000000\r\n\r\n", "413 Payload Too Large"},
      {"GET / HTTP/1.0\r\nX: " + std::string(100000, 'x'), "431 Request Header Fields Too Large"},
      {"POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n", "501 Not Implemented"},
      {"GET / HTTP/3.0\r\n\r\n", "505 HTTP Version Not Supported"},
  };
  for (const auto& [request, status] : cases)
    EXPECT_TRUE(Ask(request).starts_with("HTTP/1.0 " + status + "\r\n")) << status;
  EXPECT_NE(LogIn("alice"), "");
}

TEST_F(LoopTest, ASlowRequestTimesOut) {
  options.request_ms = 100;
  Start();
  Peer peer(server->port());
  peer.Send("POST / HTTP/1.0\r\n");
  EXPECT_TRUE(peer.ReadAll().starts_with("HTTP/1.0 408 Request Timeout\r\n"));
}

TEST_F(LoopTest, APeerThatEndsItsSideStillGetsItsAnswer) {
  Start();
  Peer peer(server->port());
  peer.Send("GET /rulez.html HTTP/1.0\r\n\r\n");
  peer.EndSending();
  EXPECT_TRUE(peer.ReadAll().ends_with("</html>\n"));
}

TEST_F(LoopTest, ServesThreeHundredFramesAtOnce) {
  Start();
  std::vector<Peer> frames;
  Text query;
  for (int i = 0; i < 300; ++i) {
    query = LogIn("nick" + std::to_string(i));
    frames.push_back(OpenFrame(query));
  }
  frames.back().ReadUntil("nick299 приходит"_w);
  Say(query, "can everybody hear me");
  for (Peer& frame : frames)
    EXPECT_TRUE(Contains(frame.ReadUntil("can everybody hear me"), "can everybody hear me"));
}

TEST_F(LoopTest, TooManyConnectionsAreTurnedAway) {
  options.most_connections = 2;
  Start();
  const Text alice = LogIn("alice");
  Peer one(server->port());
  Peer two(server->port());
  for (Peer* frame : {&one, &two}) {
    frame->Send(PostRequest("/mframe_pm", alice));
    frame->ReadOnce();
  }
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 503"));
}

TEST_F(LoopTest, AReaderThatNeverReadsIsDroppedAndTheOthersAreNot) {
  options.inhabitants.present = true;
  options.inhabitants.talk = 20000;
  options.most_waiting = 256 * 1024;
  options.chat.grace_ms = 0;
  Start();
  const Text query = LogIn("deaf");
  Peer deaf(server->port(), 4096);
  deaf.Send(PostRequest("/pframe", query));
  Text users = Post("/chl", query);
  EXPECT_TRUE(Contains(users, "<b>deaf</b>")) << users;
  // However slow the machine is: some megabytes later the nick is gone, and the others are served.
  for (int i = 0; i < 600 && Contains(users, "<b>deaf</b>"); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    users = Post("/chl", query);
  }
  EXPECT_TRUE(Contains(users, "Select/Create channel")) << users;
}

TEST_F(LoopTest, ALoadOfLinesArrivesWholeAndInOrder) {
  options.inhabitants.present = true;
  options.inhabitants.talk = 5000;
  Start();
  const Text alice = LogIn("alice");
  Say(alice, "/set s 9");
  Peer frame = OpenFrame(alice);
  const Text said = frame.ReadUntil("#00005000 ");
  Text number = ":() #00000000 ";
  std::size_t at = 0;
  for (int i = 1; i <= 5000; ++i) {
    const Text digits = std::to_string(i);
    number.replace(number.size() - 1 - digits.size(), digits.size(), digits);
    at = said.find(number, at);
    ASSERT_NE(at, Text::npos) << i;
  }
}

TEST_F(LoopTest, APatientLoadArrivesWholeHoweverMuchItIs) {
  options.inhabitants.present = true;
  options.inhabitants.talk = 1000000;
  options.inhabitants.patient = true;
  options.most_waiting = 512 * 1024;  // less than the load
  Start();
  const Text alice = LogIn("alice");
  Say(alice, "/set s 9");
  Peer frame = OpenFrame(alice);
  const Text said = frame.ReadUntil("#00020000 ");
  EXPECT_TRUE(Contains(said, ":() #00019999 "));
  EXPECT_TRUE(Contains(said, ":() #00000001 "));
}

TEST_F(LoopTest, StoppingClosesEveryConnection) {
  Start();
  Peer frame = Come(LogIn("alice"), "alice");
  Finish();
  frame.ReadAll();
  EXPECT_TRUE(frame.ended);
}

TEST_F(LoopTest, TheMarkOfAnEjectionComesByItself) {
  Start();
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  Say(alice, "/eject");
  frame.ReadUntil("катапультируется (alice)\n"_w);
  EXPECT_EQ(DecodeKoi(frame.ReadOnce()), "<hr>----- Аварийное катапультирование ----<hr>"_w);
  EXPECT_EQ(frame.ReadOnce(), "");
  EXPECT_TRUE(frame.ended);
}

}  // namespace
}  // namespace parlorwire::service
