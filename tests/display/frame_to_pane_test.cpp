// From the bytes of a frame to the pane, the day log and the requests, however the bytes arrive.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/assembly.h"
#include "support/pane_runs.h"
#include "support/simulated_platform.h"
#include "text/charset.h"

namespace parlorwire {
namespace {

const Text& FirstChunk() {
  static const Text chunk = "HTTP/1.0 200 OK\r\nServer: x\r\n\r\n<pre>\n";
  return chunk;
}

const Text& Lines() {
  static const Text lines = ConvertCharset(
      "..[16:45:57]alice:() hello &lt;b&gt; &amp;amp;\n"
      "..[16:45:58]me:(задумчиво)   я, Me\n"
      "<!-- -->\n"
      "..[16:45:59]боб приходит на канал (10.0.0.7)\n"
      "..[16:46:00]боб:() *** машет\n"
      "..[16:46:01] ### alice:() эхо *n второе\r\n"
      "\n"
      "<script src=x>\n"
      "ignored\n"
      "</script>..[16:46:02]alice:() http://spam.example\n"
      "..[16:46:03 broken\n"
      "..no clock\n"
      "..[16:46:04]bob:() hi me\n"_w,
      Charset::kWindows1251, Charset::kKoi);
  return lines;
}

// What a client makes of the lines.
struct Outcome {
  std::vector<std::string> runs;
  std::map<Text, Text> files;
  std::deque<Text> queue;
  Text request;

  bool operator==(const Outcome&) const = default;
};

Outcome Play(const std::vector<std::string_view>& chunks) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  TabSession& session = client.tab(0);
  session.Login = "Me";
  session.Channel = "talk";
  session.Authorized = true;
  SimulatedSocket& frame = Simulated(session.Winsock1);
  frame.Connect("chat", "80");
  frame.Accept();
  frame.Deliver(FirstChunk());
  for (const std::string_view chunk : chunks)
    frame.Deliver(chunk);
  frame.Deliver("<!-- -->\n");  // a chunk of one line end waits for the next one
  Simulated(session.Winsock4).Accept();
  return {RunsOf(session.Rich), platform.files.files, session.BotQueue,
          Simulated(session.Winsock4).sent};
}

TEST(FrameToPane, WhatTheLinesLeave) {
  const Outcome outcome = Play({Lines()});
  const Text& log = outcome.files.at("Logs\\talk\\21.11.2026.log");
  const std::string shown = ToUtf8(log);
  EXPECT_EQ(shown.substr(shown.find("[16:45:57]")),
            "[16:45:57] alice: hello <b> &amp;\r\r\n"
            "<>[16:45:58] me: (задумчиво) я, Me\r\r\n"
            "[16:45:59] боб приходит на канал (10.0.0.7)\r\r\n"
            "[16:46:00] *** машет\r\r\n"
            "[16:46:01] ### alice: эхо \r\n\t второе\r\r\r\n"
            "[12:00:00] Вам пришло персональное_сообщение!\r\r\n"
            "[16:46:02] alice: http://spam.example\r\r\n"
            " no clock\r\r\n"
            ">[16:46:04] bob: hi me\r\r\n");
  EXPECT_EQ(outcome.queue, (std::deque<Text>{"/k alice spam detected"}));
  EXPECT_TRUE(outcome.request.ends_with("&msgtext0=/k alice spam detected"));
  EXPECT_TRUE(
      outcome.files.at("error.log")
          .ends_with("Error 5 Invalid procedure call or argument. Function: CacheMessages\r\n"));
}

TEST(FrameToPane, TheLinesCutAtEveryByteLeaveTheSame) {
  const std::string_view lines = Lines();
  const Outcome whole = Play({lines});
  for (std::size_t cut = 1; cut < lines.size(); ++cut)
    ASSERT_EQ(Play({lines.substr(0, cut), lines.substr(cut)}), whole) << "cut at " << cut;
}

TEST(FrameToPane, TheLinesByteByByteLeaveTheSame) {
  const std::string_view lines = Lines();
  std::vector<std::string_view> bytes;
  for (std::size_t i = 0; i < lines.size(); ++i)
    bytes.push_back(lines.substr(i, 1));
  EXPECT_EQ(Play(bytes), Play({lines}));
}

}  // namespace
}  // namespace parlorwire
