// The server over real sockets: what comes in which bytes, and who is still served after it.
#include <chrono>
#include <vector>

#include "running_server.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using LoopbackTest = RunningServer;

constexpr std::string_view kFrameHeader =
    "HTTP/1.0 200 OK\r\nContent-Type: text/html; charset=koi8-r\r\nCache-Control: no-store\r\n"
    "Connection: close\r\n\r\n";

TEST_F(LoopbackTest, ALoginIsAnsweredAndTheConnectionClosed) {
  Start();
  Peer peer(server->port());
  peer.Send(PostRequest("/", "username=alice&passwd=x&channel=hall&chpwd="));
  const std::string answer = peer.ReadAll();
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_TRUE(Contains(answer, "&ticket="));
  EXPECT_TRUE(peer.ended);
  EXPECT_FALSE(peer.was_reset);
}

TEST_F(LoopbackTest, BothRefusals) {
  options.chat.banned = {"troll"};
  Start();
  LogIn("alice");
  EXPECT_TRUE(Contains(Post("/", "username=alice&passwd=no&channel=&chpwd="),
                       "<title>error auth page</title>"));
  EXPECT_TRUE(Contains(Post("/", "username=troll&passwd=x&channel=&chpwd="),
                       "<title>authorization failed!</title>"));
}

TEST_F(LoopbackTest, TheFirstReadOfAFrameHoldsHeaderHistoryAndJoinLine) {
  Start();
  const Text alice = LogIn("alice");
  Peer first = Come(alice, "alice");
  Say(alice, "hello");
  const Text bob = LogIn("bob");
  Say(bob, "/set s 9");
  const Text bytes = DecodeKoi(OpenFrame(bob).ReadOnce());
  ASSERT_TRUE(bytes.starts_with(Text(kFrameHeader) + "<pre>\n..[")) << bytes;
  const auto lines = Split(std::string_view(bytes).substr(kFrameHeader.size()), "\n");
  ASSERT_EQ(lines.size(), 6U) << bytes;
  EXPECT_TRUE(lines[1].ends_with("]alice приходит на канал (127.0.0.1)"_w));
  EXPECT_TRUE(lines[2].ends_with("]alice стал оператором канала"_w));
  EXPECT_TRUE(lines[3].ends_with("]alice:() hello"));
  EXPECT_TRUE(lines[4].ends_with("]bob приходит на канал (127.0.0.1)"_w));
  EXPECT_EQ(lines[5], "");
}

TEST_F(LoopbackTest, ANewNickStartsInStyle1) {
  Start();
  const Text alice = LogIn("alice");
  Peer frame = OpenFrame(alice);
  EXPECT_TRUE(Contains(frame.ReadOnce(), "<font size=-1 color=\"#cfcfff"));
  Say(alice, "hi");
  EXPECT_TRUE(frame.ReadOnce().starts_with("<B><FONT color=\"#FF5050\">alice</FONT></B>: hi "));
}

TEST_F(LoopbackTest, APostEchoesOnEveryFrameOfTheChannel) {
  Start();
  const Text alice = LogIn("alice");
  const Text bob = LogIn("bob");
  Peer frame_a = Come(alice, "alice");
  Peer frame_b = Come(bob, "bob");
  const Text answer = Post("/newmsg_t", alice +
                                            "&reqnum=12345678&msgtext=привет, bob&msgtext0="
                                            "привет, bob&action=203"_w);
  EXPECT_TRUE(Contains(answer, "<font size=1>Сообщение отправлено</font>"_w));
  for (Peer* frame : {&frame_a, &frame_b})
    EXPECT_TRUE(frame->ReadUntil("bob\n").ends_with("]alice:(задумчиво) привет, bob\n"_w));
}

TEST_F(LoopbackTest, TheUserFrameNamesEverybody) {
  Start();
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  EXPECT_TRUE(Post("/chl", alice).ends_with("\n\n\nalice|[+o][127.0.0.1:]''\n"));
}

TEST_F(LoopbackTest, AKickClosesTheFrameOfTheKickedOnly) {
  Start();
  const Text alice = LogIn("alice");
  const Text bob = LogIn("bob");
  Peer frame_a = Come(alice, "alice");
  Peer frame_b = Come(bob, "bob");
  Say(alice, "/k bob out");
  EXPECT_TRUE(frame_b.ReadUntil("out)\n").ends_with("]bob удален с канала (alice: out)\n"_w));
  EXPECT_EQ(frame_b.ReadOnce(), "");
  EXPECT_TRUE(frame_b.ended);
  EXPECT_FALSE(frame_b.was_reset);
  EXPECT_TRUE(
      Contains(frame_a.ReadUntil("нас (127.0.0.1)\n"_w), "]bob покидает нас (127.0.0.1)\n"_w));
  EXPECT_FALSE(frame_a.ended);
  EXPECT_TRUE(Contains(Post("/pframe", bob), "этот стиль (номер 9) предназначен для роботов"_w));
}

TEST_F(LoopbackTest, TheMarkOfAnEjectionComesByItself) {
  Start();
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  Say(alice, "/eject");
  frame.ReadUntil("катапультируется (alice)\n"_w);
  EXPECT_EQ(DecodeKoi(frame.ReadOnce()), "<hr>----- Аварийное катапультирование ----<hr>"_w);
  EXPECT_EQ(frame.ReadOnce(), "");
  EXPECT_TRUE(frame.ended);
}

TEST_F(LoopbackTest, ASecondLoginTakesTheFrameOver) {
  Start();
  Peer first = Come(LogIn("alice"), "alice");
  const Text again = LogIn("alice");
  Peer second = OpenFrame(again);
  EXPECT_TRUE(Contains(second.ReadOnce(), "<pre>\n"));
  EXPECT_TRUE(Contains(DecodeKoi(first.ReadAll()), "Аварийное катапультирование"_w));
  Say(again, "hi");
  EXPECT_TRUE(Contains(second.ReadUntil("hi\n"), "alice:() hi\n"));
}

TEST_F(LoopbackTest, LeavingClosesTheFrameAndAnswersWithTheChannels) {
  Start();
  const Text alice = LogIn("alice");
  const Text bob = LogIn("bob");
  Peer frame_a = Come(alice, "alice");
  Peer frame_b = Come(bob, "bob");
  EXPECT_TRUE(Contains(Post("/leave", bob), "\nchannel: hall\n"));
  EXPECT_EQ(frame_b.ReadAll(), "");
  EXPECT_TRUE(frame_b.ended);
  frame_a.ReadUntil("bob покидает нас (127.0.0.1)\n"_w);
}

TEST_F(LoopbackTest, ABrokenConnectionIsALeaveAfterAWhile) {
  options.chat.grace_ms = 50;
  Start();
  Peer frame_a = Come(LogIn("alice"), "alice");
  {
    Peer frame_b = Come(LogIn("bob"), "bob");
  }
  EXPECT_TRUE(
      Contains(frame_a.ReadUntil("нас (127.0.0.1)\n"_w), "]bob покидает нас (127.0.0.1)\n"_w));
}

TEST_F(LoopbackTest, AQuietFrameIsKeptAlive) {
  options.chat.keep_alive_ms = 100;
  Start();
  Peer frame = Come(LogIn("alice"), "alice");
  EXPECT_TRUE(frame.ReadUntil("<!-- -->\n").ends_with("<!-- -->\n"));
}

TEST_F(LoopbackTest, PersonalMessagesTravelFromFrameToFrame) {
  Start();
  const Text alice = LogIn("alice");
  const Text bob = LogIn("bob");
  Peer personal(server->port());
  personal.Send(PostRequest("/mframe_pm", bob));
  EXPECT_TRUE(personal.ReadUntil("<br>\n").ends_with("<body>\n<br>\n"));
  Post("/newmsg_pm", alice + "&reqnum=1&xtouser=bob&msgtext=psst");
  const Text line = personal.ReadUntil("\n");
  EXPECT_TRUE(line.starts_with("&gt; [")) << line;
  EXPECT_TRUE(line.ends_with("&username=bob&pm_msgnum=1 alice psst\n")) << line;
}

TEST_F(LoopbackTest, BadRequestsGetAnErrorAndNeverStopTheService) {
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

TEST_F(LoopbackTest, ASlowRequestTimesOut) {
  options.request_ms = 100;
  Start();
  Peer peer(server->port());
  peer.Send("POST / HTTP/1.0\r\n");
  EXPECT_TRUE(peer.ReadAll().starts_with("HTTP/1.0 408 Request Timeout\r\n"));
}

TEST_F(LoopbackTest, APeerThatEndsItsSideStillGetsItsAnswer) {
  Start();
  Peer peer(server->port());
  peer.Send("GET /rulez.html HTTP/1.0\r\n\r\n");
  peer.EndSending();
  EXPECT_TRUE(peer.ReadAll().ends_with("</html>\n"));
}

TEST_F(LoopbackTest, TheRequestLineOfAProxyIsUnderstood) {
  Start();
  EXPECT_TRUE(
      Ask("GET http://localhost:80/rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
}

TEST_F(LoopbackTest, ServesThreeHundredFramesAtOnce) {
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

TEST_F(LoopbackTest, TooManyConnectionsAreTurnedAway) {
  options.most_connections = 2;
  Start();
  Peer one(server->port());
  Peer two(server->port());
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 503"));
}

TEST_F(LoopbackTest, AReaderThatNeverReadsIsDroppedAndTheOthersAreNot) {
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

TEST_F(LoopbackTest, ALoadOfLinesArrivesWholeAndInOrder) {
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

TEST_F(LoopbackTest, APatientLoadArrivesWholeHoweverMuchItIs) {
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

TEST_F(LoopbackTest, StoppingClosesEveryConnection) {
  Start();
  Peer frame = Come(LogIn("alice"), "alice");
  Finish();
  frame.ReadAll();
  EXPECT_TRUE(frame.ended);
}

TEST_F(LoopbackTest, APortThatIsTakenIsAnError) {
  Start();
  options.port = server->port();
  EXPECT_THROW(Server second(options), std::system_error);
}

// The faults on purpose.
struct FaultTest : RunningServer {
  void StartWith(const char* fault) {
    options.misbehaviour = *ParseMisbehaviour(fault);
    options.control = true;
    Start();
  }
};

TEST_F(FaultTest, CutEndsAFrameAfterSoManyBytes) {
  StartWith("cut:100");
  Peer frame = OpenFrame(LogIn("alice"));
  EXPECT_EQ(frame.ReadAll().size(), 100U);
  EXPECT_FALSE(frame.was_reset);
}

TEST_F(FaultTest, ResetResets) {
  StartWith("reset:100");
  Peer frame = OpenFrame(LogIn("alice"));
  frame.ReadAll();
  EXPECT_TRUE(frame.was_reset);
}

TEST_F(FaultTest, StallSendsNothingMoreAndKeepsTheConnection) {
  options.chat.keep_alive_ms = 50;
  StartWith("stall:100");
  Peer frame = OpenFrame(LogIn("alice"));
  EXPECT_EQ(frame.ReadOnce().size(), 100U);
  EXPECT_EQ(frame.ReadOnce(300), "");
  EXPECT_FALSE(frame.ended);
}

TEST_F(FaultTest, DripSendsAByteAtATime) {
  StartWith("drip:10");
  const Text alice = LogIn("alice");
  const auto start = std::chrono::steady_clock::now();
  Peer frame = OpenFrame(alice);
  const Text bytes = frame.ReadUntil("no-store\r\n");
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_TRUE(bytes.starts_with("HTTP/1.0 200 OK\r\n"));
  // A byte each 10 ms, and never a faster one.
  EXPECT_GE(took / std::chrono::milliseconds(10), static_cast<std::int64_t>(bytes.size()) - 1);
}

TEST_F(FaultTest, GarbageComesBetweenTheBytes) {
  StartWith("garbage:120");
  Peer frame = OpenFrame(LogIn("alice"));
  std::string bytes;
  while (bytes.size() < 300 && !frame.ended)
    bytes += frame.ReadOnce();
  const Text want = Text(kFrameHeader) + FrameHead({kFirstStyle, false});
  ASSERT_GT(want.size(), 130U);
  EXPECT_FALSE(bytes.starts_with(want));
  EXPECT_EQ((bytes.substr(0, 120) + bytes.substr(184, 56)), want.substr(0, 176));
}

TEST_F(FaultTest, DropLeavesEachNthRequestWithoutAnAnswer) {
  StartWith("drop:2");
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
  Peer silent(server->port());
  silent.Send("GET /rulez.html HTTP/1.0\r\n\r\n");
  EXPECT_EQ(silent.ReadOnce(200), "");
  EXPECT_FALSE(silent.ended);
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
}

TEST_F(FaultTest, TheFaultIsChangedOverTheWire) {
  StartWith("none");
  Peer frame = Come(LogIn("alice"), "alice");
  EXPECT_TRUE(Ask("GET /misbehave?fault=reset:10 HTTP/1.0\r\n\r\n").ends_with("reset:10\n"));
  EXPECT_TRUE(Ask("GET /misbehave?fault=wild HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 400"));
  Say(LogIn("alice"), "a line that is longer than ten bytes");
  frame.ReadAll();
  EXPECT_TRUE(frame.was_reset);
}

TEST_F(FaultTest, AFaultOfOnePathLeavesTheOthersAlone) {
  StartWith("cut:60@/chl");
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  EXPECT_EQ(Post("/chl", alice).size(), 60U);
  EXPECT_TRUE(Contains(Say(alice, "hello"), "<font size=1>"));
  EXPECT_TRUE(Contains(frame.ReadUntil("hello\n"), "alice:() hello\n"));
}

TEST_F(FaultTest, AnAnswerMayStallBeResetOrDripToo) {
  StartWith("stall:50@/rulez.html");
  const std::string request = "GET /rulez.html HTTP/1.0\r\n\r\n";
  Peer stalled(server->port());
  stalled.Send(request);
  EXPECT_EQ(stalled.ReadOnce().size(), 50U);
  EXPECT_EQ(stalled.ReadOnce(300), "");
  EXPECT_FALSE(stalled.ended);
  Ask("GET /misbehave?fault=reset:50@/rulez.html HTTP/1.0\r\n\r\n");
  Peer reset(server->port());
  reset.Send(request);
  reset.ReadAll();
  EXPECT_TRUE(reset.was_reset);
  Ask("GET /misbehave?fault=none HTTP/1.0\r\n\r\n");
  const std::string whole = Ask(request);
  Ask("GET /misbehave?fault=drip:1@/rulez.html HTTP/1.0\r\n\r\n");
  EXPECT_EQ(Ask(request), whole);
}

TEST_F(FaultTest, DropMayConcernOnePathAlone) {
  StartWith("drop:1@/chl");
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  Peer silent(server->port());
  silent.Send(PostRequest("/chl", alice));
  EXPECT_EQ(silent.ReadOnce(200), "");
  EXPECT_FALSE(silent.ended);
}

TEST_F(FaultTest, RandomFaultsBefallSomeAnswersAndLeaveTheOthersWhole) {
  options.seed = 7;
  StartWith("random:50");
  const std::string request = "GET /rulez.html HTTP/1.0\r\n\r\n";
  int whole = 0;
  for (int i = 0; i < 40; ++i) {
    Peer peer(server->port());
    peer.Send(request);
    std::string answer;
    for (std::string some = peer.ReadOnce(100); !some.empty(); some = peer.ReadOnce(100))
      answer += some;
    if (answer.starts_with("HTTP/1.0 200") && answer.ends_with("</html>\n")) ++whole;
  }
  EXPECT_GT(whole, 10);
  EXPECT_LT(whole, 40);
}

TEST_F(LoopbackTest, WithoutTheOptionNobodyChangesFaults) {
  Start();
  EXPECT_TRUE(Ask("GET /misbehave?fault=cut HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 404"));
}

}  // namespace
}  // namespace parlorwire::service
