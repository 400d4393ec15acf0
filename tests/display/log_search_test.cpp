#include "display/log_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/memory_logs.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kBlock = 256 * 1024;

class LogSearchTest : public testing::Test {
 protected:
  const LogDay day{2026, 6, 5};
  MemoryLogs logs;
  LogQuery query{"wanted", "", {2000, 1, 1}, {2100, 1, 1}};
  std::stop_source stop;
  std::vector<LogProgress> told;

  std::vector<LogHit> Hits() {
    std::vector<LogHit> hits;
    SearchLogs(
        logs, query, stop.get_token(), [&](LogHit hit) { hits.push_back(std::move(hit)); },
        [&](const LogProgress& progress) { told.push_back(progress); });
    return hits;
  }

  std::vector<Text> Lines() {
    std::vector<Text> lines;
    for (const LogHit& hit : Hits())
      lines.push_back(hit.line);
    return lines;
  }

  // The lines of one log that hold what is wanted.
  std::vector<Text> LinesOf(const Text& content) {
    logs.contents[{day, "main"}] = content;
    return Lines();
  }
};

TEST_F(LogSearchTest, TellsTheLineItsPlaceAndItsLog) {
  logs.contents[{day, "main"}] = "first\r\nthe wanted one\r\nlast wanted\r\n";
  EXPECT_THAT(Hits(), ElementsAre(LogHit{{"main", day}, 7, "the wanted one"},
                                  LogHit{{"main", day}, 23, "last wanted"}));
}

TEST_F(LogSearchTest, NewestDayFirstThenByChannel) {
  logs.contents[{{2025, 12, 31}, "b"}] = "wanted 1\r\n";
  logs.contents[{{2026, 2, 1}, "b"}] = "wanted 2\r\nwanted 3\r\n";
  logs.contents[{{2026, 2, 1}, "a"}] = "wanted 4\r\n";
  logs.contents[{{2026, 1, 31}, "c"}] = "wanted 5\r\n";
  EXPECT_THAT(Lines(), ElementsAre("wanted 4", "wanted 2", "wanted 3", "wanted 5", "wanted 1"));
}

TEST_F(LogSearchTest, OneChannelAlone) {
  logs.contents[{day, "main"}] = "wanted 1\r\n";
  logs.contents[{day, "main 2"}] = "wanted 2\r\n";
  query.channel = "main";
  EXPECT_THAT(Lines(), ElementsAre("wanted 1"));
}

TEST_F(LogSearchTest, BothDaysBelongToTheStretch) {
  for (int i = 1; i <= 5; ++i)
    logs.contents[{{2026, 6, i}, "main"}] = "wanted " + std::to_string(i) + "\r\n";
  query.first = {2026, 6, 2};
  query.last = {2026, 6, 4};
  EXPECT_THAT(Lines(), ElementsAre("wanted 4", "wanted 3", "wanted 2"));
}

TEST_F(LogSearchTest, CaseCountsOrNot) {
  const Text content = "Wanted\r\nwanted\r\nWANTED\r\n";
  EXPECT_THAT(LinesOf(content), ElementsAre("Wanted", "wanted", "WANTED"));
  query.letter_case = LetterCase::kCounts;
  EXPECT_THAT(LinesOf(content), ElementsAre("wanted"));
}

TEST_F(LogSearchTest, CaseDoesNotCountInRussianEither) {
  query.wanted = "ЁЛКА"_w;
  EXPECT_THAT(LinesOf("ёлка\r\nЁлка\r\nелка\r\n"_w), ElementsAre("ёлка"_w, "Ёлка"_w));
}

TEST_F(LogSearchTest, WholeWordsHaveNoLetterOrDigitBesideThem) {
  query.whole_words = true;
  EXPECT_THAT(LinesOf("wanted\r\n(wanted)\r\nunwanted\r\nwanted1\r\n2wanted\r\nwantedё\r\n"
                      "Їwanted\r\nwanted.\r\n"_w),
              ElementsAre("wanted", "(wanted)", "wanted."));
}

TEST_F(LogSearchTest, BehindTheEndOfALogStandsNothing) {
  query.whole_words = true;
  logs.contents[{{2026, 6, 6}, "main"}] = "a longer log\r\n";  // read into the same memory
  EXPECT_THAT(LinesOf("wanted"), ElementsAre("wanted"));
}

TEST_F(LogSearchTest, ALaterWholeWordOfTheLineCounts) {
  query.whole_words = true;
  EXPECT_THAT(LinesOf("unwanted, wanted\r\nunwanted, wantedly\r\nwanted\r\n"),
              ElementsAre("unwanted, wanted", "wanted"));
}

TEST_F(LogSearchTest, ALineIsToldOnce) {
  EXPECT_THAT(LinesOf("wanted wanted\r\n"), ElementsAre("wanted wanted"));
}

TEST_F(LogSearchTest, TheLastLineNeedsNoEnd) {
  EXPECT_THAT(LinesOf("wanted 1\r\n\nwanted 2"), ElementsAre("wanted 1", "wanted 2"));
}

TEST_F(LogSearchTest, ManyCarriageReturnsEndALine) {
  EXPECT_THAT(LinesOf("wanted\r\r\n"), ElementsAre("wanted"));
}

TEST_F(LogSearchTest, NothingIsFoundAcrossLines) {
  query.wanted = "a\nb";
  EXPECT_THAT(LinesOf("a\nb\na\nb\n"), IsEmpty());
  query.wanted = "b\r";
  EXPECT_THAT(LinesOf("ab\r\nab\r\n"), IsEmpty());
}

TEST_F(LogSearchTest, TheEmptyTextIsInNoLine) {
  query.wanted.clear();
  EXPECT_THAT(LinesOf("a\r\n"), IsEmpty());
  EXPECT_EQ(logs.read, 0);
}

TEST_F(LogSearchTest, LinesAcrossBlocksAreWhole) {
  for (const std::size_t ahead : {kBlock - 20, kBlock - 12, kBlock - 8, kBlock - 1, kBlock}) {
    const Text filler = Text(ahead - 2, 'x') + "\r\n";
    logs.contents[{day, "main"}] = filler + "the wanted line\r\nanother\r\n";
    EXPECT_THAT(Hits(), ElementsAre(LogHit{
                            {"main", day}, static_cast<std::int64_t>(ahead), "the wanted line"}))
        << ahead;
  }
}

TEST_F(LogSearchTest, ALineLongerThanABlockIsSearchedInPieces) {
  const Text content = Text(2 * kBlock + 100, 'x') + "wanted\r\nwanted\r\n";
  EXPECT_EQ(LinesOf(content).size(), 2U);
}

TEST_F(LogSearchTest, ALogThatCannotBeOpenedIsPassedOver) {
  logs.unreadable = {{"main", {2026, 7, 1}}};
  logs.contents[{day, "main"}] = "wanted\r\n";
  EXPECT_THAT(Lines(), ElementsAre("wanted"));
  EXPECT_EQ(told.back(), (LogProgress{2, 2, 8}));
}

TEST_F(LogSearchTest, ProgressIsToldBehindEachBlockAndEachLog) {
  logs.contents[{day, "a"}] = Text(kBlock + 1, '\n');
  logs.contents[{day, "b"}] = "\r\n";
  EXPECT_THAT(Hits(), IsEmpty());
  const auto block = static_cast<std::int64_t>(kBlock);
  EXPECT_THAT(told, ElementsAre(LogProgress{0, 2, block}, LogProgress{0, 2, block + 1},
                                LogProgress{1, 2, block + 1}, LogProgress{1, 2, block + 3},
                                LogProgress{2, 2, block + 3}));
}

TEST_F(LogSearchTest, StopsAtTheNextBlock) {
  logs.contents[{day, "a"}] = Text("wanted\n") + Text(4 * kBlock, '\n');
  logs.contents[{{2020, 1, 1}, "a"}] = "wanted\n";
  std::vector<LogHit> hits;
  LogProgress progress;
  SearchLogs(
      logs, query, stop.get_token(),
      [&](LogHit hit) {
        hits.push_back(std::move(hit));
        stop.request_stop();
      },
      [&](const LogProgress& told_last) { progress = told_last; });
  EXPECT_EQ(hits.size(), 1U);
  EXPECT_EQ(progress.logs, 0U);
  EXPECT_EQ(logs.read, static_cast<std::int64_t>(kBlock));
}

// What the search finds is what a look at each line finds.
TEST_F(LogSearchTest, RandomLogsAgreeWithAPlainLookAtEachLine) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    Text content;
    for (int i = 0; i < 200; ++i)
      content += "abAB \n"[random() % 6];
    query.wanted.clear();
    for (std::size_t i = 0; i <= random() % 3; ++i)
      query.wanted += "abAB "[random() % 5];
    query.letter_case = random() % 2 ? LetterCase::kIgnored : LetterCase::kCounts;

    std::vector<LogHit> expected;
    const auto lower = [&](Text text) {
      if (query.letter_case == LetterCase::kIgnored)
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
      return text;
    };
    for (std::size_t at = 0; at < content.size();) {
      const std::size_t end = std::min(content.find('\n', at), content.size());
      const Text line = content.substr(at, end - at);
      if (lower(line).find(lower(query.wanted)) != Text::npos)
        expected.push_back({{"main", day}, static_cast<std::int64_t>(at), line});
      at = end + 1;
    }
    logs.contents[{day, "main"}] = content;
    EXPECT_EQ(Hits(), expected) << content << "\nwanted: " << query.wanted;
  }
}

}  // namespace
}  // namespace parlorwire
