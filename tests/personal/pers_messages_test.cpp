#include "personal/pers_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/personal_fixture.h"
#include "support/one_smile.h"
#include "support/scripted_view.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::string_view kHead =
    "HTTP/1.0 200 OK\r\nServer: x\r\n\r\n<html>\n<head>\n<body>\n<br>\n";
constexpr std::string_view kFromBob =
    "&gt; [12:34:56] http://h/pm_ack?reqnum=123&username=a&pm_msgnum=7 Bob hello\n";
constexpr std::string_view kToBob =
    "&lt; [12:35:01] http://h/pm_ack?reqnum=124&username=a&pm_msgnum=8 Bob: hi\n";

struct PersonalMessages : PersonalTest {
  PersonalMessages() {
    FontMain& font = client.app.rFontMain;
    font.Name = "Arial";
    font.Size = 9;
    font.Bold = true;
    font.TimeBold = false;
    font.ColorMyNick = Rgb(1, 0, 0);
    client.app.rRichColors = {.Nicks = Rgb(2, 0, 0),
                              .Symbols = Rgb(3, 0, 0),
                              .TextColor = Rgb(4, 0, 0),
                              .Times = Rgb(5, 0, 0)};
    client.app.CmIniText.Assign("bob=6");
    window = &Open();
    window->Rich.Text("");
  }
  void Deliver(std::string_view data) { Personal_messages(client, *window, Text(data)); }
  Text Pane() { return window->Rich.Text(); }
  // What is shown of one line; the pane begins anew.
  Text Shown(std::string_view line) {
    window->Rich.Text("");
    Deliver(Text(line) + "\n");
    return Pane();
  }
  std::vector<Text> Links() {
    std::vector<Text> links;
    for (const Text& url : window->PersQueue)
      if (!url.empty()) links.push_back(url);
    return links;
  }

  PersonalWindow* window = nullptr;
};

// ---- the chunk ----

TEST_F(PersonalMessages, TheHeaderAndThePageHeadOfAChunkAreDropped) {
  Deliver(Text(kHead) + Text(kFromBob));
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n");
  window->Rich.Text("");
  Deliver("HTTP/1.1 200 OK\n\n<HTML>\nx\n<BR>\n" + Text(kFromBob));
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n");
  window->Rich.Text("");
  Deliver("\r\n<html>\nx\n<br>\n" + Text(kFromBob));
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n");
}

TEST_F(PersonalMessages, APageHeadInAChunkOfItsOwnIsShown) {
  Deliver("HTTP/1.0 200 OK\r\n\r\n");
  EXPECT_EQ(window->PersLineCarry, "\n");
  Deliver("<html>\n<br>\n");
  EXPECT_EQ(Pane(), "< alice:  \r\n< alice:  \r\n");
  EXPECT_THAT(Links(), IsEmpty());
}

TEST_F(PersonalMessages, APageHeadWithoutALineBreakIsShown) {
  Deliver("HTTP/1.0 200 OK\r\n\r\n<html>\n");
  EXPECT_EQ(Pane(), "< alice:  \r\n");
}

TEST_F(PersonalMessages, ARefusedLoginIsShownAsTheFrameIs) {
  Deliver("HTTP/1.0 403 no\r\n");
  EXPECT_THAT(Pane(), HasSubstr("403 no"));
}

TEST_F(PersonalMessages, NothingOfALineIsShownUntilTheRestArrives) {
  Deliver(kHead);
  Deliver(kFromBob.substr(0, 20));
  EXPECT_EQ(Pane(), "");
  Deliver(kFromBob.substr(20, 30));
  EXPECT_EQ(Pane(), "");
  EXPECT_EQ(window->PersLineCarry, kFromBob.substr(0, 50));
  Deliver(Text(kFromBob.substr(50)) + "&gt; begun");
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n");
  EXPECT_EQ(window->PersLineCarry, "&gt; begun");
}

TEST_F(PersonalMessages, AChunkThatIsOneLineFeedEndsTheLine) {
  Deliver(kFromBob.substr(0, kFromBob.size() - 1));
  Deliver("\n");
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n");
  EXPECT_EQ(window->PersLineCarry, "");
  Deliver("\n");
  EXPECT_EQ(window->PersLineCarry, "\n");
}

// The frame of a chat with both kinds of lines. What one chunk holds decides the marks of what is
// sent behind what is received, so here the latter comes last.
TEST_F(PersonalMessages, CutAtEveryByteBehindItsFirstChunkItIsTheSame) {
  LoadOneSmile(platform, client);
  const Text lines =
      Koi("&lt; [1.2.2003 12:35:01] http://h/a?reqnum=1&username=a&pm_msgnum=8 Bob: \xFD\xF2\xEE\n"
          "<!-- -->\n"
          "\n"
          "&gt; [12:34:56] http://h/a?reqnum=2&pm_msgnum=7 Bob a&amp;lt;b <img src=\"/22.gif\"> "
          "x<br>y\n"
          "&gt; [12:34:57] http://h/b?reqnum=3&pm_msgnum=9 Eve <a href=\"/redirect?msgtext=http://"
          "a.b/\">a.b</a> 10.0.*.1\n");
  struct Outcome {
    std::vector<std::string> runs;
    std::vector<Text> requests;
    bool operator==(const Outcome&) const = default;
  };
  const auto play = [&](std::size_t cut) {
    Chat other;
    other.client.app.CmIniText.Assign("bob=6 eve=7");
    LoadOneSmile(other.platform, other.client);
    pers_Click(other.client, 0);
    PersonalWindow& its = *other.client.app.PersWindows.back();
    Simulated(its.W1).Accept();
    Simulated(its.W1).Deliver(kHead);
    Simulated(its.W1).Deliver(lines.substr(0, cut));
    if (cut < lines.size()) Simulated(its.W1).Deliver(lines.substr(cut));
    Outcome outcome;
    while (its.W3->State() == SocketState::kConnecting) {
      Simulated(its.W3).Accept();
      outcome.requests.push_back(Simulated(its.W3).sent);
      Simulated(its.W3).PeerCloses();
    }
    outcome.runs = RunsOf(its.Rich);
    return outcome;
  };
  const Outcome whole = play(lines.size());
  EXPECT_EQ(whole.requests.size(), 3U);
  EXPECT_THAT(whole.runs, testing::Contains(HasSubstr("<*:)*>")));
  for (std::size_t cut = 1; cut < lines.size(); ++cut)
    EXPECT_EQ(play(cut), whole) << cut;
}

TEST_F(PersonalMessages, TenThousandMessagesInOnePiece) {
  Text frame(kHead);
  for (int i = 0; i < 10000; ++i)
    frame += kFromBob;
  Deliver(frame);
  EXPECT_EQ(window->Rich.LineCount(), 10001);
  EXPECT_EQ(window->PersQueueTop, 10000);
  SimulatedSocket& socket = Simulated(window->W3);
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(socket.State(), SocketState::kConnecting) << i;
    socket.Accept();
    socket.PeerCloses();
  }
  EXPECT_EQ(socket.connects, 10000);
  EXPECT_EQ(window->PersQueuePos, 0);
}

// ---- the line ----

TEST_F(PersonalMessages, FieldsStandOneBlankApart) {
  const PersLine line = CutPersLine("&gt; [12:34:56] http://h/a Bob hello  there ");
  EXPECT_TRUE(line.received);
  EXPECT_EQ(line.time, "[12:34:56]");
  EXPECT_EQ(line.link, "http://h/a");
  EXPECT_EQ(line.nick, "Bob");
  EXPECT_EQ(line.text, "hello  there ");
  EXPECT_FALSE(CutPersLine("&lt; [1] l n t").received);
  EXPECT_FALSE(CutPersLine("> [1] l n t").received);
}

TEST_F(PersonalMessages, ATimeOfTwoWordsIsTakenWhole) {
  const PersLine line = CutPersLine("&gt; [01.02.2003 12:34:56] http://h/a Bob hello");
  EXPECT_EQ(line.time, "[01.02.2003 12:34:56]");
  EXPECT_EQ(line.link, "http://h/a");
  EXPECT_EQ(CutPersLine("&gt; a b c d e").time, "a b");
}

TEST_F(PersonalMessages, ALineWithTooFewFieldsIsShownWithWhatItHasAndQueuesNoLink) {
  EXPECT_EQ(Shown("&gt;"), "> : \r\n");
  EXPECT_EQ(Shown("&gt; [1]"), ">[1] : \r\n");
  EXPECT_EQ(Shown("&gt; [1] http://h/a?reqnum=1&pm_msgnum=2"), ">[1] : \r\n");
  EXPECT_THAT(Links(), IsEmpty());
  EXPECT_EQ(client.app.CmIniText.text(), "bob=6");  // nobody got a colour
  EXPECT_EQ(Shown("&gt; [1] http://h/a?reqnum=1&pm_msgnum=2 Bob"), ">[1] Bob: \r\n");
  EXPECT_THAT(Links(), ElementsAre("http://h/a?reqnum=1&pm_msgnum=2"));
}

TEST_F(PersonalMessages, ALinkIsQueued) {
  Deliver(kFromBob);
  EXPECT_THAT(Links(), ElementsAre("http://h/pm_ack?reqnum=123&username=a&pm_msgnum=7"));
  EXPECT_EQ(Simulated(window->W3).connects, 1);
}

TEST_F(PersonalMessages, TheRunsOfAReceivedLine) {
  Deliver(kFromBob);
  EXPECT_THAT(RunsOf(window->Rich),
              ElementsAre(">|Arial 9 030000", "[12:34:56] |Arial 9 050000", "Bob:|Arial 9 020000 b",
                          " hello\\r\\n|Arial 9 060000"));
}

TEST_F(PersonalMessages, TheRunsOfASentLine) {
  Deliver(kToBob);
  EXPECT_THAT(RunsOf(window->Rich),
              ElementsAre("<|Arial 9 030000", "[12:35:01] |Arial 9 050000",
                          "alice:|Arial 9 010000 b", " Bob: hi\\r\\n|Arial 9 040000"));
}

TEST_F(PersonalMessages, TheRunsOfALineReceivedFromOneself) {
  Deliver("&gt; [1] http://h/a ALICE hi\n");
  EXPECT_THAT(RunsOf(window->Rich),
              ElementsAre(">|Arial 9 030000", "[1] |Arial 9 050000", "ALICE:|Arial 9 010000 b",
                          " hi\\r\\n|Arial 9 040000"));
}

TEST_F(PersonalMessages, BoldFollowsTheSettings) {
  client.app.rFontMain.Bold = false;
  client.app.rFontMain.TimeBold = true;
  Deliver(kFromBob);
  EXPECT_THAT(RunsOf(window->Rich),
              ElementsAre(">|Arial 9 030000", "[12:34:56] |Arial 9 050000 b", "Bob:|Arial 9 020000",
                          " hello\\r\\n|Arial 9 060000"));
}

TEST_F(PersonalMessages, BehindAReceivedLineASentOneOfTheChunkCountsAsReceived) {
  Deliver(Text(kFromBob) + "&lt; [2] http://h/a Eve: hi\n");
  EXPECT_EQ(Pane(), ">[12:34:56] Bob: hello\r\n>[2] Eve:: hi\r\n");
  EXPECT_THAT(RunsOf(window->Rich), testing::Contains("Eve::|Arial 9 020000 b"));
  Deliver("&lt; [3] http://h/a Eve: ho\n");
  EXPECT_THAT(Pane(), HasSubstr("\r\n<[3] alice: Eve: ho\r\n"));
}

TEST_F(PersonalMessages, ASentLineAheadOfAReceivedOneStaysSent) {
  Deliver(Text(kToBob) + Text(kFromBob));
  EXPECT_EQ(Pane(), "<[12:35:01] alice: Bob: hi\r\n>[12:34:56] Bob: hello\r\n");
}

TEST_F(PersonalMessages, EntitiesAreDecodedInTheirOrder) {
  EXPECT_EQ(Shown("&gt; [1] l Bob &amp;lt; &lt;b&gt; &quot;a&nbsp;b&quot; &amp;amp; &amp;quot;"),
            ">[1] Bob: &lt; <b> \"a b\" &amp; \"\r\n");
}

TEST_F(PersonalMessages, WhatEntitiesMakeIsNoHtmlButLineBreaks) {
  EXPECT_EQ(Shown("&gt; [1] l Bob &lt;img src=&quot;/157.gif&quot;&gt;"),
            ">[1] Bob: <img src=\"/157.gif\">\r\n");
}

TEST_F(PersonalMessages, ALineBreakInAnyCaseIsALineFeed) {
  EXPECT_EQ(Shown("&gt; [1] l Bob a<br>b<BR>c&lt;bR&gt;d"), ">[1] Bob: a\nb\nc\nd\r\n");
}

TEST_F(PersonalMessages, TheFirstWordOfWhatWasSentIsTextLikeTheRest) {
  EXPECT_EQ(Shown("&lt; [1] l <img src=\"/157.gif\"> &lt;"), "<[1] alice: *sweet* <\r\n");
}

TEST_F(PersonalMessages, LinksAndSmilesOfALineAreLive) {
  LoadOneSmile(platform, client);
  Deliver("&gt; [1] l Bob www.a <img src=\"/22.gif\"> 10.*.0.1 www.b\n");
  EXPECT_THAT(RunsOf(window->Rich),
              ElementsAre(">|Arial 9 030000", "[1] |Arial 9 050000", "Bob:|Arial 9 020000 b",
                          " |Arial 9 060000", "www.a|Arial 9 ff0000 u", " |Arial 9 060000",
                          "<*:)*>|Arial 9 060000", " |Arial 9 060000", "10.*.0.1|Arial 9 ff0000 u",
                          " |Arial 9 060000", "www.b|Arial 9 ff0000 u", "\\r\\n|Arial 9 060000"));
}

TEST_F(PersonalMessages, ALinkInTheFirstWordOfASentLineIsLive) {
  Deliver("&lt; [1] l www.a b\n");
  EXPECT_THAT(RunsOf(window->Rich), testing::Contains("www.a|Arial 9 ff0000 u"));
}

// ---- behind the lines ----

TEST_F(PersonalMessages, AKeepAliveAloneDoesNothing) {
  ScriptedView view(window->Rich);
  view.bar = {0, 100, 10, 90};
  for (const bool ticked : {true, false}) {
    window->ActivateWhenMess = ticked;
    Deliver("<!-- -->\n");
    Deliver(" <!-- --> \n\n");
    EXPECT_FALSE(window->Timer1->Enabled());
    EXPECT_THAT(view.scrolls, IsEmpty());
    EXPECT_EQ(Pane(), "");
  }
}

TEST_F(PersonalMessages, AKeepAliveQuietsTheMessagesOfItsChunk) {
  ScriptedView view(window->Rich);
  view.bar = {0, 100, 10, 90};
  for (const bool ticked : {true, false}) {
    window->ActivateWhenMess = ticked;
    Deliver("<!-- -->\n" + Text(kFromBob));
    EXPECT_FALSE(window->Timer1->Enabled());
    EXPECT_THAT(view.scrolls, IsEmpty());
  }
}

TEST_F(PersonalMessages, TickedAMessageBringsTheWindowUp) {
  window->send_nick = "bob";
  Deliver(kFromBob);
  platform.time.Advance(2);
  const std::string number = std::to_string(window->Handle);
  EXPECT_THAT(asked, ElementsAre("ComeUp " + number, "Focus msg " + number));
}

TEST_F(PersonalMessages, TickedAViewAtTheEndFollowsAndAnotherStays) {
  ScriptedView view(window->Rich);
  view.bar = {0, 100, 10, 90};
  Deliver(kFromBob);
  EXPECT_THAT(view.scrolls, ElementsAre(PaneScroll::kBottom));
  view.bar.pos = 50;
  Deliver(kFromBob);
  EXPECT_EQ(view.scrolls.size(), 1U);
}

TEST_F(PersonalMessages, UntickedAMessageScrollsToTheEnd) {
  ScriptedView view(window->Rich);
  view.bar = {0, 100, 10, 50};
  window->ActivateWhenMess = false;
  Deliver(kFromBob);
  EXPECT_THAT(view.scrolls, ElementsAre(PaneScroll::kBottom));
  EXPECT_FALSE(window->Timer1->Enabled());
}

TEST_F(PersonalMessages, AChunkIsPaintedOnce) {
  ScriptedView view(window->Rich);
  Deliver(Text(kFromBob) + Text(kToBob));
  EXPECT_EQ(view.painted_changes, 0);
  EXPECT_TRUE(view.painting);
  EXPECT_GE(view.refreshes, 1);
}

// A view that faults at a line, as a full memory would.
struct FaultyView : ScriptedView {
  using ScriptedView::ScriptedView;
  void TextChanged(const TextChange& change) override {
    if (change.inserted > 0 && --changes_left < 0) throw Fault(fault::kOutOfMemory);
  }
  int changes_left = 5;
};

TEST_F(PersonalMessages, AFaultIsLoggedWithTheLineAndThePaneIsPaintedAgain) {
  FaultyView view(window->Rich);
  Deliver(Text(kFromBob) + Text(kFromBob) + Text(kFromBob));
  EXPECT_TRUE(view.painting);
  EXPECT_THAT(chat.ErrorLog(),
              HasSubstr("] Error 7. Function: Personal_messages. Debug info: line 2\r\n"));
  EXPECT_THAT(chat.ErrorLog(), Not(HasSubstr("hello")));
}

// ---- from the wire ----

TEST_F(PersonalMessages, TheFrameIsInTheWiresCharacterSet) {
  SimulatedSocket& socket = Simulated(window->W1);
  socket.Accept();
  socket.Deliver(Text(kHead) + Koi("&gt; [1] l Боб привет\n"_w));
  EXPECT_THAT(ToUtf8(Pane()), HasSubstr(">[1] Боб: привет\r\n"));
}

}  // namespace
}  // namespace parlorwire
