// What a service makes the client write into its files.
#include <gtest/gtest.h>

#include <algorithm>

#include "bot/reactions.h"
#include "display/chat_log.h"
#include "session/error_log.h"
#include "support/chat.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

std::ptrdiff_t Count(std::string_view text, std::string_view what) {
  std::ptrdiff_t count = 0;
  for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1))
    ++count;
  return count;
}

// ---- error.log ----

struct ErrorLogFlood : testing::Test {
  // The entry holds the first 4 KB of `dumped`, says how much it was, and little more.
  void ExpectCut(std::string_view dumped) {
    const Text log = chat.ErrorLog();
    EXPECT_TRUE(log.find(dumped.substr(0, kLargestDump)) != Text::npos);
    EXPECT_TRUE(log.find(dumped.substr(0, kLargestDump + 1)) == Text::npos);
    EXPECT_TRUE(log.find("... (" + std::to_string(dumped.size()) + " bytes in all)") != Text::npos)
        << log.substr(log.size() - 200);
    EXPECT_LE(log.size(), kLargestDump + 300);
  }
  static Text Page(std::size_t size) {
    Text page;
    while (page.size() < size)
      page += "page " + std::to_string(page.size());
    return page;
  }
  Chat chat;
};

TEST(DumpText, IsAllOfWhatIsShortEnough) {
  EXPECT_EQ(DumpText(""), "");
  EXPECT_EQ(DumpText(Text(4096, 'x')), Text(4096, 'x'));
  EXPECT_EQ(DumpText(Text(4097, 'x')), Text(4096, 'x') + "... (4097 bytes in all)");
}

TEST_F(ErrorLogFlood, ALoginAnswerWithoutATicket) {
  const Text page = Page(1'000'000);
  chat.AnswerLogin(page);
  ExpectCut(page);
  EXPECT_LT(chat.tab().Rich.Length(), 5000);  // where its first line is shown
}

TEST_F(ErrorLogFlood, AFrameOfAnUnknownStyle) {
  const Text page = Page(1'000'000);
  chat.OpenFrame();
  chat.Winsock1().Deliver(Text(kGoodHeader) + page + "\n");
  ExpectCut("_!_\n" + page + "\n");
}

TEST_F(ErrorLogFlood, AUserFrameThatCannotBeRead) {
  const Text page = "HTTP/1.0 200 OK\r\n\r\nusers\n\n." + Page(1'000'000);
  chat.EnterChannel();
  chat.Winsock3().Accept();
  chat.Winsock3().Deliver(page);
  chat.Winsock3().PeerCloses();
  ExpectCut(page);
}

TEST_F(ErrorLogFlood, ALineThatCannotBeActedOn) {
  chat.EnterChannel();
  chat.tab().ActionsArmed = true;
  const Text line = " " + Page(1'000'000);  // ends in no nick
  ClientAction(chat.client, line + ")", 0);
  ExpectCut(line + ")");
}

// ---- day logs ----

struct LostLog : testing::Test {
  LostLog() { chat.EnterChannel(); }
  void Say(int lines) {
    for (int i = 0; i < lines; ++i)
      chat.Deliver("..[12:00:01]bob:() hello\n");
  }
  std::ptrdiff_t Told() { return Count(chat.ErrorLog(), "Function: LogChatLine"); }
  // error.log lies on another disk in these tests.
  void LogOnlyErrors() {
    chat.platform.files.unwritable = {"Logs\\lobby\\21.11.2026.log", "Logs\\lobby\\22.11.2026.log"};
  }
  Chat chat;
};

TEST_F(LostLog, IsToldOnceADay) {
  LogOnlyErrors();
  Say(50);
  EXPECT_EQ(Told(), 1);
  EXPECT_TRUE(chat.ErrorLog().ends_with(
      "Error 70 Permission denied. Function: LogChatLine. Channel: lobby\r\n"));
  chat.platform.time.SetNow({2026, 11, 22, 0, 0, 1});
  Say(50);
  EXPECT_EQ(Told(), 2);
}

TEST_F(LostLog, IsToldForEachChannel) {
  chat.tab(1).Login = "alice";
  for (const char* channel : {"a/b", "c:d", "e\\f"}) {
    chat.tab(1).Channel = channel;
    chat.EnterChannel(1);
  }
  EXPECT_EQ(Told(), 3);
  EXPECT_EQ(Count(chat.ErrorLog(), "Error 52 Bad file name or number"), 3);
}

TEST_F(LostLog, IsNotToldWhileItIsWritten) {
  Say(50);
  EXPECT_EQ(Told(), 0);
}

TEST_F(LostLog, OfVeryManyChannelsAHundredAreTold) {
  for (int i = 0; i < 1000; ++i)
    LogChatLine(chat.client, "x ", "a/" + std::to_string(i));
  EXPECT_EQ(Told(), 100);
  EXPECT_EQ(chat.client.app.UnwritableLogs.size(), 100U);
}

}  // namespace
}  // namespace parlorwire
