// The server over real sockets: what comes in which bytes, and who is still served after it.
#include <chrono>
#include <vector>

#include "running_server.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

struct ServerTest : RunningServer {
  // A nick with its frame open.
  struct Guest {
    Text query;
    Peer frame;
  };

  Guest Arrive(const Text& nick) {
    const Text query = LogIn(nick);
    return {query, Come(query, nick)};
  }
};

TEST_F(ServerTest, ALoginIsAnsweredAndTheConnectionClosed) {
  Start();
  Peer peer(server->port());
  peer.Send(PostRequest("/", "username=alice&passwd=x&channel=hall&chpwd="));
  const std::string answer = peer.ReadAll();
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_TRUE(Contains(answer, "&ticket="));
  EXPECT_TRUE(peer.ended);
  EXPECT_FALSE(peer.was_reset);
}

TEST_F(ServerTest, BothRefusals) {
  options.chat.banned = {"troll"};
  Start();
  LogIn("alice");
  EXPECT_TRUE(Contains(Post("/", "username=alice&passwd=no&channel=&chpwd="),
                       "<title>error auth page</title>"));
  EXPECT_TRUE(Contains(Post("/", "username=troll&passwd=x&channel=&chpwd="),
                       "<title>authorization failed!</title>"));
}

TEST_F(ServerTest, TheFirstReadOfAFrameHoldsHeaderHistoryAndJoinLine) {
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

TEST_F(ServerTest, ANewNickStartsInStyle1) {
  Start();
  const Text alice = LogIn("alice");
  Peer frame = OpenFrame(alice);
  EXPECT_TRUE(Contains(frame.ReadOnce(), "<font size=-1 color=\"#cfcfff"));
  Say(alice, "hi");
  EXPECT_TRUE(frame.ReadOnce().starts_with("<B><FONT color=\"#FF5050\">alice</FONT></B>: hi "));
}

TEST_F(ServerTest, APostEchoesOnEveryFrameOfTheChannel) {
  Start();
  auto [alice, frame_a] = Arrive("alice");
  auto [bob, frame_b] = Arrive("bob");
  const Text answer = Post("/newmsg_t", alice +
                                            "&reqnum=12345678&msgtext=привет, bob&msgtext0="
                                            "привет, bob&action=203"_w);
  EXPECT_TRUE(Contains(answer, "<font size=1>Сообщение отправлено</font>"_w));
  for (Peer* frame : {&frame_a, &frame_b})
    EXPECT_TRUE(frame->ReadUntil("bob\n").ends_with("]alice:(задумчиво) привет, bob\n"_w));
}

TEST_F(ServerTest, TheUserFrameNamesEverybody) {
  Start();
  auto [alice, frame] = Arrive("alice");
  EXPECT_TRUE(Post("/chl", alice).ends_with("\n\n\nalice|[+o][127.0.0.1:]''\n"));
}

TEST_F(ServerTest, AKickClosesTheFrameOfTheKickedOnly) {
  Start();
  auto [alice, frame_a] = Arrive("alice");
  auto [bob, frame_b] = Arrive("bob");
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

TEST_F(ServerTest, ASecondLoginTakesTheFrameOver) {
  Start();
  Peer first = Come(LogIn("alice"), "alice");
  const Text again = LogIn("alice");
  Peer second = OpenFrame(again);
  EXPECT_TRUE(Contains(second.ReadOnce(), "<pre>\n"));
  EXPECT_TRUE(Contains(DecodeKoi(first.ReadAll()), "Аварийное катапультирование"_w));
  Say(again, "hi");
  EXPECT_TRUE(Contains(second.ReadUntil("hi\n"), "alice:() hi\n"));
}

TEST_F(ServerTest, LeavingClosesTheFrameAndAnswersWithTheChannels) {
  Start();
  auto [alice, frame_a] = Arrive("alice");
  auto [bob, frame_b] = Arrive("bob");
  EXPECT_TRUE(Contains(Post("/leave", bob), "\nchannel: hall\n"));
  EXPECT_EQ(frame_b.ReadAll(), "");
  EXPECT_TRUE(frame_b.ended);
  frame_a.ReadUntil("bob покидает нас (127.0.0.1)\n"_w);
}

TEST_F(ServerTest, ABrokenConnectionIsALeaveAfterAWhile) {
  options.chat.grace_ms = 50;
  Start();
  Peer frame_a = Come(LogIn("alice"), "alice");
  {
    Peer frame_b = Come(LogIn("bob"), "bob");
  }
  EXPECT_TRUE(
      Contains(frame_a.ReadUntil("нас (127.0.0.1)\n"_w), "]bob покидает нас (127.0.0.1)\n"_w));
}

TEST_F(ServerTest, AQuietFrameIsKeptAlive) {
  options.chat.keep_alive_ms = 100;
  Start();
  Peer frame = Come(LogIn("alice"), "alice");
  EXPECT_TRUE(frame.ReadUntil("<!-- -->\n").ends_with("<!-- -->\n"));
}

TEST_F(ServerTest, PersonalMessagesTravelFromFrameToFrame) {
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

TEST_F(ServerTest, TheRequestLineOfAProxyIsUnderstood) {
  Start();
  EXPECT_TRUE(
      Ask("GET http://localhost:80/rulez.html HTTP/1.0\r\n\r\n").starts_with("HTTP/1.0 200"));
}

}  // namespace
}  // namespace parlorwire::service
