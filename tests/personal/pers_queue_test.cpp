#include "personal/pers_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/pers_pane.h"
#include "personal/personal_fixture.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Text LinkOf(int number) {
  const Text text = std::to_string(number);
  return "http://h/pm_ack?reqnum=10" + text + "&username=x&pm_msgnum=" + text;
}

struct PersQueueTest : PersonalTest {
  PersQueueTest() {
    window = &Open();
    window->Rich.Text("");
  }
  void Queue(const Text& url) { ClearPers(client, *window, url); }
  SimulatedSocket& socket() { return Simulated(window->W3); }
  // The pane's underlined stretches.
  std::vector<std::string> Underlined() {
    std::vector<std::string> stretches;
    for (const PaneRun& run : window->Rich.Runs())
      if (run.format.underline)
        stretches.push_back(window->Rich.TextBetween(run.start, run.start + run.length));
    return stretches;
  }
  void Lines(std::string_view text) { WriteAtEnd(window->Rich, text, {}); }

  PersonalWindow* window = nullptr;
};

TEST_F(PersQueueTest, ALinkSaysThreeThings) {
  EXPECT_EQ(ReadPersLink("http://chathost/pm_ack?reqnum=123&username=a&pm_msgnum=7"),
            (PersLink{"pm_ack", "123", "7"}));
  EXPECT_EQ(ReadPersLink("http://h/a/b?x=1&reqnum=1&pm_msgnum=7"), std::nullopt);
  EXPECT_EQ(ReadPersLink("x/y/z/a/b?reqnum=12&pm_msgnum=7&more=1"),
            (PersLink{"a", "12", "7&more=1"}));
}

TEST_F(PersQueueTest, ALinkThatLacksAPartSaysNothing) {
  for (const char* url : {"", "x", "http://h?reqnum=1&pm_msgnum=7", "http://h/a?pm_msgnum=7",
                          "http://h/a?reqnum=1", "http://h/a?reqnum=1&msg=7",
                          "http://h/a?reqnum=1pm_msgnum=7", "http://h/a?pm_msgnum=7&reqnum=1"})
    EXPECT_EQ(ReadPersLink(url), std::nullopt) << url;
}

TEST_F(PersQueueTest, BeginsAtIndex1) {
  Queue(LinkOf(7));
  EXPECT_THAT(window->PersQueue, ElementsAre("", LinkOf(7)));
  EXPECT_EQ(window->PersQueueTop, 1);
  EXPECT_EQ(socket().connects, 1);
}

TEST_F(PersQueueTest, ConnectsOnlyASocketThatIsNotAtWork) {
  Queue(LinkOf(1));
  Queue(LinkOf(2));
  EXPECT_EQ(socket().connects, 1);
  socket().Accept();
  Queue(LinkOf(3));
  EXPECT_EQ(socket().connects, 1);
  EXPECT_THAT(window->PersQueue, ElementsAre("", LinkOf(1), LinkOf(2), LinkOf(3)));
}

TEST_F(PersQueueTest, TheRequestToTheByteWhateverHostTheLinkNames) {
  window->PersLogin = "a+\xE6";
  window->PersTicket = "t+1";
  Queue("http://evil.example:99/pm_ack?reqnum=123&username=zz&pm_msgnum=7");
  EXPECT_EQ(socket().host, "chat.example");
  EXPECT_EQ(socket().port, "80");
  socket().Accept();
  EXPECT_EQ(socket().sent,
            "POST /pm_ack HTTP/1.0\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 48\r\n"
            "\r\n"
            "reqnum=123&username=a%2B\xD6&ticket=t+1&pm_msgnum=7");
  EXPECT_EQ(window->PersLogin, "a%2B\xE6");
}

TEST_F(PersQueueTest, OneRequestAfterTheOther) {
  for (const int number : {1, 2, 3})
    Queue(LinkOf(number));
  for (const int number : {1, 2, 3}) {
    socket().Accept();
    EXPECT_EQ(window->PersQueuePos, number);
    EXPECT_THAT(socket().sent, HasSubstr("&pm_msgnum=" + std::to_string(number)));
    EXPECT_EQ(socket().sends, 1);
    socket().PeerCloses();
  }
  EXPECT_EQ(socket().connects, 3);
  EXPECT_EQ(window->PersQueuePos, 0);
  EXPECT_THAT(window->PersQueue, ElementsAre(""));
}

TEST_F(PersQueueTest, ALinkThatComesMeanwhileIsRequestedNext) {
  Queue(LinkOf(1));
  socket().Accept();
  Queue(LinkOf(2));
  socket().PeerCloses();
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&pm_msgnum=2"));
}

TEST_F(PersQueueTest, NumbersGoOnBehindAReset) {
  Queue(LinkOf(1));
  socket().Accept();
  socket().PeerCloses();
  Queue(LinkOf(2));
  EXPECT_THAT(window->PersQueue, ElementsAre("", "", LinkOf(2)));
  socket().Accept();
  EXPECT_EQ(window->PersQueuePos, 2);
}

TEST_F(PersQueueTest, ALinkThatLacksAPartIsSkipped) {
  Queue("http://h/a?reqnum=1");
  Queue(LinkOf(2));
  socket().Accept();
  EXPECT_EQ(socket().sends, 1);
  EXPECT_THAT(socket().sent, HasSubstr("&pm_msgnum=2"));
  EXPECT_EQ(window->PersQueuePos, 2);
}

TEST_F(PersQueueTest, WithNothingToRequestTheConnectionEnds) {
  Queue("x");
  socket().Accept();
  EXPECT_EQ(socket().sends, 0);
  EXPECT_EQ(socket().State(), SocketState::kClosed);
  EXPECT_THAT(window->PersQueue, ElementsAre(""));
  Queue(LinkOf(1));
  EXPECT_EQ(socket().connects, 2);
}

TEST_F(PersQueueTest, TheLineOfItsNumberIsUnderlinedStatusLinesIncluded) {
  Lines("status\r\nfirst\r\nsecond\nstill second\r\n");
  for (const int number : {1, 2, 3, 4})
    Queue(LinkOf(number));
  socket().Accept();
  EXPECT_THAT(Underlined(), IsEmpty());
  socket().PeerCloses();
  EXPECT_THAT(Underlined(), ElementsAre("status"));
  socket().Accept();
  socket().PeerCloses();
  EXPECT_THAT(Underlined(), ElementsAre("status", "first"));
  socket().Accept();
  socket().PeerCloses();
  EXPECT_THAT(Underlined(), ElementsAre("status", "first", "second\nstill second"));
  socket().Accept();
  socket().PeerCloses();  // there is no fourth line
  EXPECT_EQ(Underlined().size(), 3U);
  Lines("fourth\r\nfifth\r\n");
  Queue(LinkOf(5));
  socket().Accept();
  socket().PeerCloses();
  EXPECT_EQ(Underlined().back(), "fifth");
}

TEST_F(PersQueueTest, WhatIsWrittenNextIsNotUnderlined) {
  Lines("only\r\n");
  Queue(LinkOf(1));
  socket().Accept();
  socket().PeerCloses();
  Lines("next\r\n");
  EXPECT_THAT(Underlined(), ElementsAre("only"));
}

TEST_F(PersQueueTest, ATimeOutTriesAgain) {
  Queue(LinkOf(1));
  socket().Fail(10060);
  EXPECT_EQ(socket().connects, 2);
  EXPECT_THAT(window->PersQueue, ElementsAre("", LinkOf(1)));
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&pm_msgnum=1"));
}

TEST_F(PersQueueTest, AnyOtherFailureDropsAll) {
  Queue(LinkOf(1));
  Queue(LinkOf(2));
  socket().Accept();
  socket().Fail(10054);
  EXPECT_EQ(socket().connects, 1);
  EXPECT_EQ(window->PersQueuePos, 0);
  EXPECT_THAT(window->PersQueue, ElementsAre(""));
}

TEST_F(PersQueueTest, ACloseWithNothingAtWorkDropsAll) {
  Queue(LinkOf(1));
  socket().Accept();
  window->PersQueuePos = 0;
  socket().PeerCloses();
  EXPECT_THAT(window->PersQueue, ElementsAre(""));
  EXPECT_EQ(socket().connects, 1);
}

}  // namespace
}  // namespace parlorwire
