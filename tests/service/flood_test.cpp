// Floods over real sockets: whoever sends them, the others go on talking. Bounded, and by counts.
#include <algorithm>
#include <chrono>
#include <vector>

#include "running_server.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::uint8_t kAttacker = 66;

struct FloodTest : RunningServer {
  // Two who talk, and what one says comes to the other.
  void ComeAndTalk() {
    Start();
    speaker = LogIn("alice");
    reader_query = LogIn("bob");
    frames.push_back(Come(speaker, "alice"));
    frames.push_back(Come(reader_query, "bob"));
    OthersAreServed();
  }
  void OthersAreServed() {
    const Text line = "still here " + std::to_string(++lines) + "\n";
    EXPECT_TRUE(Contains(Say(speaker, line.substr(0, line.size() - 1)), "Сообщение отправлено"_w));
    EXPECT_TRUE(Contains(frames[1].ReadUntil(line), line));
  }
  Peer& Attack(const std::string& request) {
    Peer& peer = attackers.emplace_back(server->port(), 0, kAttacker);
    peer.Send(request);
    return peer;
  }
  // The answers of all attackers, as many of them as begin so.
  int Answered(std::string_view beginning) {
    int count = 0;
    for (Peer& peer : attackers)
      if (peer.ReadOnce().starts_with(beginning)) ++count;
    return count;
  }

  Text speaker;
  Text reader_query;
  std::vector<Peer> frames;
  std::vector<Peer> attackers;
  int lines = 0;
};

TEST_F(FloodTest, HalfRequestsOfOneAddressShutNobodyOut) {
  options.most_connections = 100;
  options.connections_of_address = 60;
  ComeAndTalk();
  for (int i = 0; i < 150; ++i)
    Attack("POST / HTTP/1.0\r\n");
  OthersAreServed();
  const auto gone = std::count_if(attackers.begin(), attackers.begin() + 90, [](Peer& peer) {
    peer.ReadOnce();
    return peer.ended;
  });
  EXPECT_EQ(gone, 90);
  attackers.back().Send("Content-Length: 0\r\n\r\n");
  EXPECT_TRUE(attackers.back().ReadOnce().starts_with("HTTP/1.0 200"));
}

TEST_F(FloodTest, OfAFullServiceTheOldestHalfRequestGoesFirst) {
  options.most_connections = 12;
  ComeAndTalk();
  for (std::uint8_t i = 0; i < 30; ++i)
    attackers.emplace_back(server->port(), 0, static_cast<std::uint8_t>(100 + i))
        .Send("POST / HTTP/1.0\r\n");
  OthersAreServed();
  EXPECT_EQ(attackers[0].ReadOnce(), "");
  EXPECT_TRUE(attackers[0].ended);
}

TEST_F(FloodTest, OneTicketOpensOnlySoManyFramesAtATime) {
  options.chat.limits.frames_of_account = 5;
  ComeAndTalk();
  const Text eve = LogIn("eve");
  for (int i = 0; i < 100; ++i)
    Attack(PostRequest("/mframe_pm", eve));
  OthersAreServed();
  EXPECT_EQ(Answered("HTTP/1.0 200"), 5);
}

TEST_F(FloodTest, WhatIsAskedForBeyondATurnsShareComesInALaterOne) {
  options.bytes_a_turn = 1;
  ComeAndTalk();
  const Text eve = LogIn("eve");
  for (int i = 0; i < 60; ++i)
    Attack(PostRequest(i % 2 == 0 ? "/pframe" : "/banlist", eve));
  OthersAreServed();
  EXPECT_EQ(Answered("HTTP/1.0 200"), 60);
}

TEST_F(FloodTest, WhoGoesWhileHeWaitsForHisTurnIsForgotten) {
  options.bytes_a_turn = 1;
  ComeAndTalk();
  const Text eve = LogIn("eve");
  for (int i = 0; i < 200; ++i)
    attackers.emplace_back(server->port(), 0, kAttacker);
  for (Peer& peer : attackers)
    peer.Send(PostRequest("/chl", eve));
  attackers.clear();
  OthersAreServed();
}

TEST_F(FloodTest, DeafReadersTogetherDoNotFillTheMemory) {
  options.inhabitants.present = true;
  options.inhabitants.talk = 20000;
  options.most_waiting = std::size_t{1} << 30;
  options.stall_ms = 600'000;
  options.most_waiting_of_all = std::size_t{512} * 1024;
  options.chat.grace_ms = 0;
  Start();
  const Text deaf = LogIn("deaf");
  const Text mute = LogIn("mute");
  for (const Text& query : {deaf, mute}) {
    attackers.emplace_back(server->port(), 4096, kAttacker);
    attackers.back().Send(PostRequest("/pframe", query));
  }
  const Text bob = LogIn("bob");
  // However slow the machine is: some megabytes later they are gone.
  Text users = "<b>deaf</b>";
  for (int i = 0; i < 600 && (Contains(users, "<b>deaf</b>") || Contains(users, "<b>mute</b>"));
       ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Peer frame = OpenFrame(bob);
    frame.ReadOnce();
    users = Post("/chl", bob);
  }
  EXPECT_TRUE(Contains(users, "<b>bob</b>")) << users;
  EXPECT_FALSE(Contains(users, "<b>deaf</b>") || Contains(users, "<b>mute</b>")) << users;
}

TEST_F(FloodTest, AFloodOfPostsGuessesAndNoiseLeavesTheOthersServed) {
  options.chat.limits.posts = 2;
  ComeAndTalk();
  const Text eve = LogIn("eve");
  Peer listener = Come(eve, "eve");
  const std::string noise(70000, '\xFF');
  for (int i = 0; i < 60; ++i) {
    Attack(PostRequest("/newmsg_t", eve + "&reqnum=" + std::to_string(i) + "&msgtext=flood"));
    Attack(PostRequest("/", "username=alice&passwd=" + std::to_string(i) + "&channel=hall"));
    Attack(PostRequest("/",
                       "username=n" + std::to_string(i) + "&passwd=x&channel=" + Text(50000, 'c')));
    Attack(noise);
    if (i % 20 == 0) OthersAreServed();
  }
  OthersAreServed();
  EXPECT_EQ(Answered("HTTP/1.0 200"), 180);
  Say(speaker, "the end");
  const Text heard = listener.ReadUntil("the end\n");
  std::size_t said = 0;
  for (auto at = heard.find("flood\n"); at != Text::npos; at = heard.find("flood\n", at + 1))
    ++said;
  EXPECT_GE(said, 15U);
  EXPECT_LT(said, 60U);
}

}  // namespace
}  // namespace parlorwire::service
