// Lines that have no end.
#include <gtest/gtest.h>

#include <algorithm>

#include "personal/personal_fixture.h"
#include "session/line_carry.h"
#include "support/chat.h"

namespace parlorwire {
namespace {

constexpr std::size_t kChunk = 65'536;
const Text kEntry = "] Error: a line without an end was cut at 1048576 bytes\r\n";

std::ptrdiff_t EntriesIn(const Text& log) {
  return std::count(log.begin(), log.end(), '\n');
}

struct EndlessLine : testing::Test {
  EndlessLine() {
    chat.EnterChannel();
    chat.client.hooks.ParseChatLine = [this](const Text& line, int) { lines.push_back(line); };
  }
  Text& carry() { return chat.tab().LineCarry; }
  Chat chat;
  std::vector<Text> lines;
};

TEST_F(EndlessLine, IsKeptToAMebibyteAndToldOnce) {
  for (std::size_t sent = 0; sent < 16 * kLongestLine; sent += kChunk)
    chat.Deliver(Text(kChunk, 'x'));
  EXPECT_EQ(carry().size(), kLongestLine);
  EXPECT_LE(carry().capacity(), 2 * kLongestLine);
  EXPECT_TRUE(lines.empty());
  EXPECT_TRUE(chat.ErrorLog().ends_with(kEntry)) << chat.ErrorLog();
  EXPECT_EQ(EntriesIn(chat.ErrorLog()), 1);
}

TEST_F(EndlessLine, TheRestUpToItsEndIsDroppedAndTheNextLineIsShown) {
  chat.Deliver(Text(kLongestLine, 'x'));
  chat.Deliver("yyy");
  chat.Deliver("zzz\nnext\nbegin");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], Text(kLongestLine, 'x'));
  EXPECT_EQ(lines[1], "next");
  EXPECT_EQ(carry(), "begin");
  EXPECT_FALSE(chat.tab().LineCut);
}

TEST_F(EndlessLine, AsLongAsIsKeptItIsWhole) {
  chat.Deliver(Text(kLongestLine - 1, 'x'));
  chat.Deliver("y");
  EXPECT_FALSE(chat.tab().LineCut);
  chat.Deliver("\n");
  chat.Deliver("next\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], Text(kLongestLine - 1, 'x') + "y");
  EXPECT_EQ(lines[1], "next");
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(EndlessLine, ItsEndMayComeAlone) {
  chat.Deliver(Text(kLongestLine + 5, 'x'));
  EXPECT_TRUE(chat.tab().LineCut);
  chat.Deliver("\n");
  chat.Deliver("next\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], "next");
}

TEST_F(EndlessLine, AnotherOneIsToldAgain) {
  for (int i = 0; i < 3; ++i) {
    chat.Deliver(Text(kLongestLine + 1, 'x'));
    chat.Deliver("\nnext\n");
  }
  EXPECT_EQ(EntriesIn(chat.ErrorLog()), 3);
  EXPECT_EQ(lines.size(), 6U);
}

TEST_F(EndlessLine, TheTailOfAChunkIsKeptNoLongerThanThat) {
  chat.Deliver("first\n" + Text(kLongestLine + 5, 'x'));
  EXPECT_EQ(carry().size(), kLongestLine);
  chat.Deliver("rest\nnext\n");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[2], "next");
}

TEST_F(EndlessLine, LineFeedsAloneDoNotGrowWithoutEnd) {
  carry() = Text(kLongestLine, '\n');
  for (int i = 0; i < 10; ++i)
    chat.Deliver("\n");
  EXPECT_LE(carry().size(), kLongestLine + 1);
  chat.Deliver("next\n");
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0], "next");
}

TEST_F(EndlessLine, ANewSessionBeginsWithAWholeLine) {
  chat.Deliver(Text(kLongestLine + 1, 'x'));
  chat.EnterChannel();
  chat.Deliver("next\n");
  EXPECT_EQ(lines, std::vector<Text>{"next"});
}

TEST(EndlessLineAheadOfTheStyle, IsKeptToAMebibyte) {
  Chat chat;
  chat.OpenFrame();
  for (std::size_t sent = 0; sent < 3 * kLongestLine; sent += kChunk)
    chat.Deliver(Text(kChunk, 'x'));
  EXPECT_EQ(chat.tab().LineCarry.size(), kLongestLine);
}

struct EndlessPersonalLine : PersonalTest {};

TEST_F(EndlessPersonalLine, IsCutTheSameWay) {
  PersonalWindow& window = OpenOnFrame();
  SimulatedSocket& frame = Simulated(window.W1);
  for (std::size_t sent = 0; sent < 3 * kLongestLine; sent += kChunk)
    frame.Deliver(Text(kChunk, 'x'));
  EXPECT_EQ(window.PersLineCarry.size(), kLongestLine);
  EXPECT_EQ(EntriesIn(chat.ErrorLog()), 1);
  frame.Deliver("rest\n&gt; [1] http://h/a?b bob next\nbegin");
  EXPECT_TRUE(window.Rich.Text().ends_with(">[1] bob: next\r\n"))
      << window.Rich.Text().substr(window.Rich.Text().size() - 50);
  EXPECT_EQ(window.PersLineCarry, "begin");
}

}  // namespace
}  // namespace parlorwire
