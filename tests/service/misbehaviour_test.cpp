#include "service/misbehaviour.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "running_server.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

TEST(Misbehaviour, IsReadAndToldAgain) {
  for (const char* text :
       {"none", "stall:1", "cut:20", "reset:300", "garbage:4000", "drip:5", "drop:999999999",
        "random:100", "cut:20@/chl", "drop:1@/", "random:3@/newmsg_t"}) {
    const auto read = ParseMisbehaviour(text);
    ASSERT_TRUE(read.has_value()) << text;
    EXPECT_EQ(MisbehaviourText(*read), text);
  }
  EXPECT_EQ(MisbehaviourText(*ParseMisbehaviour("cut")), "cut:2000");
  for (const char* text : {"", "cut:", "cut:0", "cut:x", "cut:-1", "cut:9999999999", "what:1",
                           "random:101", "cut:5@", "cut:5@chl", "@/chl"})
    EXPECT_FALSE(ParseMisbehaviour(text).has_value()) << text;
}

Request To(const std::string& path) {
  Request request;
  request.path = path;
  return request;
}

Mischief Wanting(std::string_view text) {
  Mischief mischief;
  mischief.wanted = *ParseMisbehaviour(text);
  mischief.random = [number = std::uint64_t{1}]() mutable {
    number = number * 6364136223846793005U + 1442695040888963407U;
    return number >> 33;
  };
  return mischief;
}

TEST(Mishaps, AtRandomAreTheSameForTheSameNumbersAndOfEveryKind) {
  Mischief once = Wanting("random:30");
  Mischief again = Wanting("random:30");
  std::map<MisbehaviourKind, int> seen;
  for (int i = 0; i < 1000; ++i) {
    const Mishap mishap = BefallRequest(once, To("/"));
    const Misbehaviour& what = mishap.misbehaviour;
    ++seen[what.kind];
    EXPECT_EQ(MisbehaviourText(what), MisbehaviourText(BefallRequest(again, To("/")).misbehaviour));
    EXPECT_EQ(what.number >= 1, what.kind != MisbehaviourKind::kNone);
    EXPECT_EQ(mishap.silent, what.kind == MisbehaviourKind::kDrop);
  }
  EXPECT_EQ(seen.size(), 7U);
  EXPECT_NEAR(seen[MisbehaviourKind::kNone], 700, 60);
}

TEST(Mishaps, OfOnePathBefallNoOther) {
  Mischief mischief = Wanting("cut:5@/chl");
  EXPECT_EQ(BefallRequest(mischief, To("/chl")).misbehaviour.kind, MisbehaviourKind::kCut);
  EXPECT_EQ(BefallRequest(mischief, To("/")).misbehaviour.kind, MisbehaviourKind::kNone);
}

TEST(Mishaps, BefallAnswersThatEndOnlyWhenTheyConcernMoreThanFrames) {
  const auto of_answer = [](std::string_view text) {
    Mischief mischief = Wanting(text);
    return BefallAnswer(mischief, BefallRequest(mischief, To("/chl"))).misbehaviour.kind;
  };
  EXPECT_EQ(of_answer("cut:5"), MisbehaviourKind::kNone);
  EXPECT_EQ(of_answer("cut:5@/chl"), MisbehaviourKind::kCut);
  EXPECT_NE(of_answer("random:100"), MisbehaviourKind::kNone);
}

TEST(Mishaps, BefallOpenConnectionsOnlyWhenTheyConcernAllFrames) {
  const auto of_open = [](std::string_view text, bool is_frame) {
    return BefallOpen(Wanting(text), {}, is_frame).misbehaviour.kind;
  };
  EXPECT_EQ(of_open("cut:5", true), MisbehaviourKind::kCut);
  EXPECT_EQ(of_open("cut:5", false), MisbehaviourKind::kNone);
  EXPECT_EQ(of_open("cut:5@/pframe", true), MisbehaviourKind::kNone);
  EXPECT_EQ(of_open("random:100", true), MisbehaviourKind::kNone);
  EXPECT_EQ(of_open("drop:1", true), MisbehaviourKind::kNone);
}

TEST(Mishaps, ASilentConnectionStaysSilent) {
  Mishap stalled;
  stalled.silent = true;
  EXPECT_TRUE(BefallOpen(Wanting("none"), stalled, true).silent);
}

TEST(Mishaps, StrikeAfterTheirBytesAndNoLater) {
  for (const auto& [text, blow] :
       std::map<std::string_view, Blow>{{"stall:10", Blow::kSilence},
                                        {"cut:10", Blow::kClose},
                                        {"reset:10", Blow::kReset},
                                        {"garbage:10", Blow::kGarbage}}) {
    Mishap mishap;
    mishap.misbehaviour = *ParseMisbehaviour(text);
    EXPECT_EQ(MaySend(mishap, 100), 10U) << text;
    EXPECT_EQ(MaySend(mishap, 3), 3U) << text;
    EXPECT_EQ(AfterSend(mishap, 9, 0), Blow::kNone) << text;
    EXPECT_EQ(MaySend(mishap, 100), 1U) << text;
    EXPECT_EQ(AfterSend(mishap, 1, 0), blow) << text;
    EXPECT_EQ(MaySend(mishap, 100), 10U) << text;
  }
}

TEST(Mishaps, ADripPausesBehindEachByte) {
  Mishap mishap;
  mishap.misbehaviour = *ParseMisbehaviour("drip:7");
  EXPECT_EQ(MaySend(mishap, 100), 1U);
  EXPECT_EQ(AfterSend(mishap, 1, 1000), Blow::kPause);
  EXPECT_EQ(mishap.waits_until, 1007);
}

TEST(Mischief, IsChangedFromThisMachineAloneAndOnlyIfThatIsAllowed) {
  Mischief mischief = Wanting("none");
  EXPECT_FALSE(IsControl(mischief, To("/misbehave"), "127.0.0.1"));
  mischief.may_change = true;
  EXPECT_TRUE(IsControl(mischief, To("/misbehave"), "127.0.0.1"));
  EXPECT_FALSE(IsControl(mischief, To("/misbehave"), "10.0.0.1"));
  EXPECT_FALSE(IsControl(mischief, To("/chl"), "127.0.0.1"));
}

// Over real sockets.
struct MisbehaviourTest : RunningServer {
  void StartWith(const char* text) {
    options.misbehaviour = *ParseMisbehaviour(text);
    options.control = true;
    Start();
  }
};

TEST_F(MisbehaviourTest, CutEndsAFrameAfterSoManyBytes) {
  StartWith("cut:100");
  Peer frame = OpenFrame(LogIn("alice"));
  EXPECT_EQ(frame.ReadAll().size(), 100U);
  EXPECT_FALSE(frame.was_reset);
}

TEST_F(MisbehaviourTest, ResetResets) {
  StartWith("reset:100");
  Peer frame = OpenFrame(LogIn("alice"));
  frame.ReadAll();
  EXPECT_TRUE(frame.was_reset);
}

TEST_F(MisbehaviourTest, StallSendsNothingMoreAndKeepsTheConnection) {
  options.chat.keep_alive_ms = 50;
  StartWith("stall:100");
  Peer frame = OpenFrame(LogIn("alice"));
  EXPECT_EQ(frame.ReadOnce().size(), 100U);
  EXPECT_EQ(frame.ReadOnce(300), "");
  EXPECT_FALSE(frame.ended);
}

TEST_F(MisbehaviourTest, DripSendsAByteAtATime) {
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

TEST_F(MisbehaviourTest, GarbageComesBetweenTheBytes) {
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

TEST_F(MisbehaviourTest, DropLeavesEachNthRequestWithoutAnAnswer) {
  StartWith("drop:2");
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
  Peer silent(server->port());
  silent.Send("GET /rulez.html HTTP/1.0\r\n\r\n");
  EXPECT_EQ(silent.ReadOnce(200), "");
  EXPECT_FALSE(silent.ended);
  EXPECT_TRUE(Ask("GET /rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
}

TEST_F(MisbehaviourTest, TheFaultIsChangedOverTheWire) {
  StartWith("none");
  Peer frame = Come(LogIn("alice"), "alice");
  EXPECT_TRUE(Ask("GET /misbehave?fault=reset:10 HTTP/1.0\r\n\r\n").ends_with("reset:10\n"));
  EXPECT_TRUE(Ask("GET /misbehave?fault=wild HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 400"));
  Say(LogIn("alice"), "a line that is longer than ten bytes");
  frame.ReadAll();
  EXPECT_TRUE(frame.was_reset);
}

TEST_F(MisbehaviourTest, AFaultOfOnePathLeavesTheOthersAlone) {
  StartWith("cut:60@/chl");
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  EXPECT_EQ(Post("/chl", alice).size(), 60U);
  EXPECT_TRUE(Contains(Say(alice, "hello"), "<font size=1>"));
  EXPECT_TRUE(Contains(frame.ReadUntil("hello\n"), "alice:() hello\n"));
}

TEST_F(MisbehaviourTest, AnAnswerMayStallBeResetOrDripToo) {
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

TEST_F(MisbehaviourTest, DropMayConcernOnePathAlone) {
  StartWith("drop:1@/chl");
  const Text alice = LogIn("alice");
  Peer frame = Come(alice, "alice");
  Peer silent(server->port());
  silent.Send(PostRequest("/chl", alice));
  EXPECT_EQ(silent.ReadOnce(200), "");
  EXPECT_FALSE(silent.ended);
}

TEST_F(MisbehaviourTest, RandomOnesBefallSomeAnswersAndLeaveTheOthersWhole) {
  options.seed = 7;
  StartWith("random:50");
  int whole = 0;
  for (int i = 0; i < 16; ++i) {
    Peer peer(server->port());
    peer.Send("GET /rulez.html HTTP/1.0\r\n\r\n");
    // A drip is not waited for to its end.
    const auto give_up = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
    std::string answer;
    while (!peer.ended && std::chrono::steady_clock::now() < give_up)
      answer += peer.ReadOnce(200);
    if (answer.starts_with("HTTP/1.0 200") && answer.ends_with("</html>\n")) ++whole;
  }
  EXPECT_GT(whole, 3);
  EXPECT_LT(whole, 16);
}

TEST_F(MisbehaviourTest, WithoutTheOptionNobodyChangesFaults) {
  Start();
  EXPECT_TRUE(Ask("GET /misbehave?fault=cut HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 404"));
}

}  // namespace
}  // namespace parlorwire::service
