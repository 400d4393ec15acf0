#include "display/chat_log.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "display/parse_chat_line.h"
#include "session/status.h"
#include "support/pane_runs.h"
#include "support/scripted_view.h"
#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr const char* kFile = "Logs\\talk\\21.11.2026.log";

struct ChatLogTest : testing::Test {
  ChatLogTest() {
    client.tab(0).Channel = "talk";
    client.tab(0).Login = "Me";
    client.hooks.LogChatLine = [this](const Text& piece, const Text& channel) {
      LogChatLine(client, piece, channel);
    };
  }
  void Log(const Text& piece) { LogChatLine(client, piece, "talk"); }
  Text Logged() { return platform.files.files.contains(kFile) ? platform.files.files[kFile] : "-"; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(ChatLogTest, CreatesTheFoldersAndOneFileADay) {
  Log("x ");
  EXPECT_EQ(platform.files.folders, (std::set<Text>{"Logs", "Logs\\talk"}));
  EXPECT_EQ(platform.files.files, (std::map<Text, Text>{{kFile, "x "}}));
}

TEST_F(ChatLogTest, CreatesTheFoldersAgainWhenTheyWent) {
  Log("x ");
  platform.files.folders.clear();
  platform.files.files.clear();
  Log("y ");
  EXPECT_EQ(Logged(), "y ");
}

TEST_F(ChatLogTest, APieceThatEndsALineGoesOverTheLastByte) {
  Log("[1] ");
  Log("alice: ");
  Log(" hello\r\n");
  EXPECT_EQ(Logged(), "[1] alice: hello\r\r\n");
}

TEST_F(ChatLogTest, ALineFeedBecomesCarriageReturnAndLineFeed) {
  Log("a\n\tb ");
  EXPECT_EQ(Logged(), "a\r\n\tb ");
}

TEST_F(ChatLogTest, APieceThatEndsInALoneLineFeedGoesOverTheLastByteToo) {
  Log("[1] ");
  Log(" a\n");
  EXPECT_EQ(Logged(), "[1] a\r\n");
}

TEST_F(ChatLogTest, AFirstPieceOfADayThatEndsInALineBreakIsLost) {
  Log("lost\r\n");
  EXPECT_EQ(Logged(), "");
  Log("kept ");
  EXPECT_EQ(Logged(), "kept ");
}

TEST_F(ChatLogTest, APieceIntoAnEmptyFileThatEndsInALineBreakIsLost) {
  platform.files.folders = {"Logs", "Logs\\talk"};
  platform.files.files[kFile] = "";
  Log("lost\r\n");
  EXPECT_EQ(Logged(), "");
}

TEST_F(ChatLogTest, AFileOfOneByteIsOverwrittenFromItsFirst) {
  Log("x");
  Log("y\r\n");
  EXPECT_EQ(Logged(), "y\r\r\n");
}

TEST_F(ChatLogTest, AnEmptyPieceChangesNothing) {
  Log("x ");
  Log("");
  EXPECT_EQ(Logged(), "x ");
}

TEST_F(ChatLogTest, AChannelThatIsBlankLogsNothing) {
  LogChatLine(client, "x ", "");
  LogChatLine(client, "x ", "   ");
  EXPECT_TRUE(platform.files.files.empty());
  EXPECT_TRUE(platform.files.folders.empty());
}

TEST_F(ChatLogTest, ARefusedChannelNameWritesNothing) {
  for (const char* channel : {"a/b", "a\\b", "..", "..\\..\\x", "a:b", "a*", "a?", "a\"b", "<a",
                              "a>", "a|b", "con.", "tail ", "bell\a"}) {
    LogChatLine(client, "x ", channel);
    EXPECT_TRUE(platform.files.files["error.log"].ends_with(
        Text("Error 52 Bad file name or number. Function: LogChatLine. Channel: ") + channel +
        "\r\n"));
  }
  platform.files.files.erase("error.log");
  EXPECT_TRUE(platform.files.files.empty());
}

TEST_F(ChatLogTest, AChannelNameNeverNamesAFolderWithinAnothersFolder) {
  LogChatLine(client, "x ", "a");
  LogChatLine(client, "x ", "a\\b");
  platform.files.files.erase("error.log");
  EXPECT_EQ(platform.files.files.size(), 1U);
}

TEST_F(ChatLogTest, AFullDiskLosesThePiece) {
  Log("a ");
  platform.files.write_fault = fault::kDiskFull;
  Log("b ");
  Log("c\r\n");
  platform.files.write_fault.reset();
  Log("d ");
  EXPECT_EQ(Logged(), "a d ");
}

TEST_F(ChatLogTest, ALogThatMayNotBeWrittenLosesThePieceAndIsToldOfOnce) {
  Log("a ");
  platform.files.unwritable.insert(kFile);
  Log("b ");
  Log("c\r\n");
  EXPECT_EQ(platform.files.files,
            (std::map<Text, Text>{{kFile, "a "},
                                  {"error.log",
                                   "[21.11.2026 12:00:00] Error 70 Permission denied. Function: "
                                   "LogChatLine. Channel: talk\r\n"}}));
  EXPECT_EQ(client.tab(0).Rich.Length(), 0);
}

TEST_F(ChatLogTest, AFolderThatCannotBeMadeLosesThePiece) {
  platform.files.write_fault = fault::kPermissionDenied;
  Log("a ");
  EXPECT_TRUE(platform.files.files.empty());
}

TEST_F(ChatLogTest, TwoTabsOnOneChannelInterleaveTheirPieces) {
  client.tab(1).Channel = "talk";
  Log("[1] ");
  LogChatLine(client, "[2] ", client.tab(1).Channel);
  Log(" a\r\n");
  LogChatLine(client, " b\r\n", client.tab(1).Channel);
  EXPECT_EQ(Logged(), "[1] [2] a\r\r b\r\r\n");
}

TEST_F(ChatLogTest, MidnightWithinALineSplitsItOverTwoFiles) {
  platform.time.SetNow({2026, 11, 21, 23, 59, 59});
  Log("[23:59:59] ");
  Log("alice: ");
  platform.time.Advance(1000);
  Log("x ");
  Log(" hello\r\n");
  EXPECT_EQ(Logged(), "[23:59:59] alice: ");
  EXPECT_EQ(platform.files.files["Logs\\talk\\22.11.2026.log"], "x hello\r\r\n");
}

TEST_F(ChatLogTest, AMidnightAheadOfTheLastPieceLosesIt) {
  platform.time.SetNow({2026, 11, 21, 23, 59, 59});
  Log("[23:59:59] ");
  platform.time.Advance(1000);
  Log(" hello\r\n");
  EXPECT_EQ(Logged(), "[23:59:59] ");
  EXPECT_EQ(platform.files.files["Logs\\talk\\22.11.2026.log"], "");
}

TEST_F(ChatLogTest, WritesEachPieceWithOneCallOncetheFolderStands) {
  Log("[1] ");
  const int writes = platform.files.writes;
  Log("alice: ");
  Log(" hello\r\n");
  EXPECT_EQ(platform.files.writes, writes + 2);
}

TEST_F(ChatLogTest, WhatEachKindOfLineLeaves) {
  client.tab(0).LinesArmed = true;
  ParseChatLine(client, "..[1]alice:() hello", 0);
  ParseChatLine(client, "..[1]alice:(quietly) hello", 0);
  ParseChatLine(client, "..[1]alice:() *** waves", 0);
  ParseChatLine(client, "..[1] ### alice:() hello", 0);
  ParseChatLine(client, "..[1]bob приходит на канал"_w, 0);
  ParseChatLine(client, "..hello world", 0);
  ParseChatLine(client, "..[1]Me:() I, me", 0);
  ParseChatLine(client, "..[1]alice:() one *n two\r", 0);
  EXPECT_EQ(ToUtf8(Logged()),
            "[1] alice: hello\r\r\n"
            "[1] alice: (quietly) hello\r\r\n"
            "[1] *** waves\r\r\n"
            "[1] ### alice: hello\r\r\n"
            "[1] bob приходит на канал\r\r\n"
            " hello world\r\r\n"
            "<>[1] Me: I, me\r\r\n"
            "[1] alice: one \r\n\t two\r\r\r\n");
}

TEST_F(ChatLogTest, WhatEachStatusLeaves) {
  StatusOut(client, "Подключение к чату..."_w, 0);
  StatusOk(client, 0);
  StatusOut(client, "Проверка установленного стиля... s9."_w, 0);
  StatusOut(client, "Чтение с канала..."_w, 0);
  StatusOut(client, "сбой"_w, StatusMode::kFailed, 0);
  EXPECT_EQ(ToUtf8(Logged()),
            "[12:00:00] Подключение к чату.. Ok.\r\r\n"
            "[12:00:00] Проверка установленного стиля... s9.\r\r\n"
            "[12:00:00] Чтение с канала.. Ошибка: сбой\r\r\n");
}

TEST_F(ChatLogTest, AStatusStillOpenWhenTheNextComesLeavesItsLineOpen) {
  StatusOut(client, "Подключение к чату..."_w, 0);
  StatusOut(client, "Чтение с канала..."_w, 0);
  EXPECT_EQ(ToUtf8(Logged()), "[12:00:00] Подключение к чату...[12:00:00] Чтение с канала...");
}

// Every status of a tab's life, as it is left behind with the verdict that follows it.
TEST_F(ChatLogTest, WhatAnEveningOfStatusesLeaves) {
  const auto fails = [this](const Text& reason) {
    StatusOut(client, reason, StatusMode::kFailed, 0);
  };
  StatusOut(client, "Подключение к прокси..."_w, 0);
  StatusOk(client, 0);
  StatusOut(client, "Проверка имени пользователя и пароля..."_w, 0);
  fails("неверные логин или пароль"_w);
  StatusOut(client, "Чтение с канала..."_w, 0);
  StatusOk(client, 0);
  StatusOut(client, "Проверка установленного стиля... s0 или s1."_w, 0);
  StatusOut(client, "Установка стиля s9..."_w, 0);
  StatusOk(client, 0);
  StatusOut(client, "Обнаружен недопустимый флаг +R. Установка -R..."_w, 0);
  StatusOk(client, 0);
  StatusOut(client, "Вам пришло персональное_сообщение!"_w, 0);
  StatusOut(client, "Ошибка соединения. Причина: x (10054)"_w, 0);
  StatusOut(client, "Чат не отвечает, реконнект"_w, 0);
  StatusOut(client, "Вы вышли из чата"_w, 0);
  EXPECT_EQ(ToUtf8(Logged()),
            "[12:00:00] Подключение к прокси.. Ok.\r\r\n"
            "[12:00:00] Проверка имени пользователя и пароля.. Ошибка: неверные логин или "
            "пароль\r\r\n"
            "[12:00:00] Чтение с канала.. Ok.\r\r\n"
            "[12:00:00] Проверка установленного стиля... s0 или s1.\r\r\n"
            "[12:00:00] Установка стиля s9.. Ok.\r\r\n"
            "[12:00:00] Обнаружен недопустимый флаг +R. Установка -R.. Ok.\r\r\n"
            "[12:00:00] Вам пришло персональное_сообщение!\r\r\n"
            "[12:00:00] Ошибка соединения. Причина: x (10054)\r\r\n"
            "[12:00:00] Чат не отвечает, реконнект\r\r\n"
            "[12:00:00] Вы вышли из чата\r\r\n");
}

TEST_F(ChatLogTest, VerdictsInEnglish) {
  client.app.Language = UiLanguage::kEnglish;
  StatusOut(client, "Connecting to chat...", 0);
  StatusOk(client, 0);
  StatusOut(client, "Veryfing login and password...", 0);
  StatusOut(client, "bad login or password", StatusMode::kFailed, 0);
  EXPECT_EQ(Logged(),
            "[12:00:00] Connecting to chat.. Ok.\r\r\n"
            "[12:00:00] Veryfing login and password.. Failed: bad login or password\r\r\n");
}

// The last line's own end goes for the verdict, whatever line that is.
TEST_F(ChatLogTest, AVerdictBehindALineThatIsClosedTakesItsLineFeed) {
  ParseChatLine(client, "..[1]alice:() hello", 0);
  StatusOk(client, 0);
  ParseChatLine(client, "..[2]alice:() on", 0);
  StatusOut(client, "сбой"_w, StatusMode::kFailed, 0);
  EXPECT_EQ(ToUtf8(Logged()),
            "[1] alice: hello\r\r Ok.\r\r\n"
            "[2] alice: on\r\r Ошибка: сбой\r\r\n");
}

TEST_F(ChatLogTest, AVerdictThatIsTheFirstPieceOfADayIsLost) {
  platform.time.SetNow({2026, 11, 21, 23, 59, 59});
  StatusOut(client, "Подключение к чату..."_w, 0);
  platform.time.Advance(1000);
  StatusOk(client, 0);
  EXPECT_EQ(ToUtf8(Logged()), "[23:59:59] Подключение к чату...");
  EXPECT_EQ(platform.files.files["Logs\\talk\\22.11.2026.log"], "");
}

// A view that looks what the log holds at the moment that it hears of a change.
class LogReader : public ScriptedView {
 public:
  LogReader(RichTextBox& pane, std::function<Text()> log)
      : ScriptedView(pane), pane_(pane), log_(std::move(log)) {}
  void TextChanged(const TextChange& change) override {
    seen.push_back(pane_.TextBetween(change.start, change.start + change.inserted));
    logged.push_back(log_());
  }
  std::vector<Text> seen;
  std::vector<Text> logged;

 private:
  RichTextBox& pane_;
  std::function<Text()> log_;
};

TEST_F(ChatLogTest, IsWrittenBeforeTheViewHearsOfAPiece) {
  LogReader view(client.tab(0).Rich, [this] { return Logged(); });
  ParseChatLine(client, "..[1]alice:() hello", 0);
  StatusOut(client, "Чтение с канала..."_w, 0);
  StatusOk(client, 0);
  EXPECT_EQ(view.seen, (std::vector<Text>{"[1] ", "alice: ", " hello\r\n",
                                          "[12:00:00] Чтение с канала...\r\n"_w, " Ok.\r\n"}));
  const Text line = "[1] alice: hello\r\r\n";
  EXPECT_EQ(view.logged, (std::vector<Text>{"[1] ", "[1] alice: ", line,
                                            line + "[12:00:00] Чтение с канала..."_w,
                                            line + "[12:00:00] Чтение с канала.. Ok.\r\r\n"_w}));
}

TEST_F(ChatLogTest, IsWrittenWithoutAViewAndDuringASelection) {
  client.app.MouseSelecting = true;
  client.tab(0).Rich.SetRedraw(false);
  ParseChatLine(client, "..[1]alice:() hello", 0);
  EXPECT_EQ(Logged(), "[1] alice: hello\r\r\n");
}

}  // namespace
}  // namespace parlorwire
