// What a pane costs: counted work that does not grow with the pane, and its memory.
#include <gtest/gtest.h>

#include <utility>

#include "pane/rich_text_box.h"
#include "pane/search.h"

namespace parlorwire {
namespace {

void Write(RichTextBox& pane, std::string_view text, PaneColour colour) {
  pane.ExSetSel(pane.Length(), pane.Length());
  pane.SelColor(colour);
  pane.ReplaceSel(text);
}

// A line of 90 characters and four runs.
void AppendLine(RichTextBox& pane) {
  Write(pane, "[16:45:57] ", 1);
  Write(pane, "somebody: ", 2);
  Write(pane, "said: ", 3);
  Write(pane, "what is said in a chat is about as long as this line says it.\r\n", 4);
}

std::unique_ptr<RichTextBox> PaneOf(std::int64_t lines) {
  auto pane = std::make_unique<RichTextBox>();
  for (std::int64_t i = 0; i < lines; ++i)
    AppendLine(*pane);
  return pane;
}

struct Operation {
  const char* name;
  void (*run)(RichTextBox& pane, std::int64_t step);
};

PaneLine LineSomewhere(const RichTextBox& pane, std::int64_t step) {
  return pane.LineByIndex((step * 7919 + 13) % (pane.LineCount() - 1));
}

constexpr std::int64_t kSteps = 200;

// Blocks touched and runs moved by the steps.
std::pair<std::uint64_t, std::uint64_t> CostOf(RichTextBox& pane, const Operation& operation) {
  const PaneWork before = pane.work();
  for (std::int64_t step = 0; step < kSteps; ++step)
    operation.run(pane, step);
  return {pane.work().blocks_touched - before.blocks_touched,
          pane.work().runs_moved - before.runs_moved};
}

const Operation kOperations[] = {
    {"AppendingALine", [](RichTextBox& pane, std::int64_t) { AppendLine(pane); }},
    {"FormattingNearTheEnd",
     [](RichTextBox& pane, std::int64_t step) {
       const PanePosition start = pane.LineByIndex(pane.LineCount() - 2).start;
       pane.ExSetSel(start, start + 1);
       pane.SelColor(static_cast<PaneColour>(step));
     }},
    {"InsertingAPicture",
     [](RichTextBox& pane, std::int64_t step) {
       const PanePosition start = LineSomewhere(pane, step).start;
       pane.ExSetSel(start + 30, start + 33);
       pane.PastePicture(std::make_shared<PanePicture>());
     }},
    {"TintingANickAnywhere",
     [](RichTextBox& pane, std::int64_t step) {
       const PanePosition start = LineSomewhere(pane, step).start;
       pane.ExSetSel(start + 11, start + 20);
       pane.SelColor(5);
       pane.SelColor(2);
     }},
    {"FindingTheLineOfAPosition",
     [](RichTextBox& pane, std::int64_t step) {
       const PanePosition position = (step * 1'000'003) % pane.Length();
       const PaneLine line = pane.LineByIndex(pane.LineAt(position));
       ASSERT_LE(line.start, position);
       ASSERT_GT(line.next, position);
     }},
    {"ReadingALine",
     [](RichTextBox& pane, std::int64_t step) {
       const PaneLine line = LineSomewhere(pane, step);
       ASSERT_GE(pane.TextBetween(line.start, line.next).size(), 88U);
       ASSERT_GE(pane.RunsBetween(line.start, line.next).size(), 4U);
     }},
    {"DeletingALineInTheMiddle",
     [](RichTextBox& pane, std::int64_t step) {
       const PaneLine line = LineSomewhere(pane, step);
       pane.ExSetSel(line.start, line.next);
       pane.ReplaceSel("");
     }},
    {"WritingALineInTheMiddle",
     [](RichTextBox& pane, std::int64_t step) {
       pane.SelStart(LineSomewhere(pane, step).start);
       pane.ReplaceSel("a line that comes late\r\n");
     }},
    {"FindingATextBehindAPosition",
     [](RichTextBox& pane, std::int64_t step) {
       const PanePosition start = LineSomewhere(pane, step).start;
       const auto found = FindForwards(pane, "SOMEBODY", start, LetterCase::kIgnored);
       ASSERT_TRUE(found.has_value());
       ASSERT_LE(*found, start + 200);
     }},
    {"SelectingAll",
     [](RichTextBox& pane, std::int64_t) {
       pane.ExSetSel(0, -1);
       pane.ExSetSel(0, 0);
     }},
};

// In a pane of a hundred thousand lines an operation touches no more than in one of a thousand, but
// for a constant.
TEST(RichTextBoxCost, IsTheSameInALargePane) {
  const auto small = PaneOf(1'000);
  const auto large = PaneOf(100'000);
  for (const Operation& operation : kOperations) {
    const auto of_small = CostOf(*small, operation);
    const auto of_large = CostOf(*large, operation);
    EXPECT_LE(of_large.first, of_small.first + 2 * kSteps) << operation.name;
    // How many runs a block has where an operation falls differs from place to place.
    EXPECT_LE(of_large.second, of_small.second + of_small.second / 3 + 2 * kSteps)
        << operation.name;
    EXPECT_LE(of_large.first, kSteps * 40) << operation.name;
    EXPECT_LE(of_large.second, kSteps * 2000) << operation.name;
  }
}

double MemoryPerTextByte(const RichTextBox& pane) {
  return static_cast<double>(pane.MemoryUsed()) / static_cast<double>(pane.Length());
}

TEST(RichTextBoxMemory, IsLessThanTwoAndAHalfTimesTheText) {
  EXPECT_LT(MemoryPerTextByte(*PaneOf(1'000)), 2.5);
  EXPECT_LT(MemoryPerTextByte(*PaneOf(20'000)), 1.6);
}

TEST(RichTextBoxMemory, StaysSoWhileNicksAreTintedEverywhere) {
  const auto pane = PaneOf(10'000);
  for (std::int64_t i = 0; i < 10'000; ++i) {
    const PanePosition start = pane->LineByIndex(i).start;
    pane->ExSetSel(start + 12, start + 14);
    pane->SelBold(true);
  }
  EXPECT_LT(MemoryPerTextByte(*pane), 2.5);
}

TEST(RichTextBoxMemory, IsGivenBackAsLinesGo) {
  const auto pane = PaneOf(10'000);
  for (int i = 0; i < 9'000; ++i) {
    const PaneLine line = pane->LineByIndex(500);
    pane->ExSetSel(line.start, line.next);
    pane->ReplaceSel("");
  }
  EXPECT_LT(MemoryPerTextByte(*pane), 2.5);
  EXPECT_EQ(pane->LineCount(), 1'001);
}

TEST(RichTextBoxMemory, IsGivenBackByEverySecondLineThatGoes) {
  const auto pane = PaneOf(10'000);
  for (std::int64_t i = 0; i < 5'000; ++i) {
    const PaneLine line = pane->LineByIndex(i);
    pane->ExSetSel(line.start, line.next);
    pane->ReplaceSel("");
  }
  EXPECT_LT(MemoryPerTextByte(*pane), 2.5);
}

TEST(RichTextBoxMemory, OfLinesWrittenInTheMiddle) {
  RichTextBox pane;
  for (int i = 0; i < 5'000; ++i) {
    pane.SelStart(pane.LineByIndex(pane.LineCount() / 2).start);
    pane.ReplaceSel(
        "a line of ninety characters that is written ahead of all those written before, as "
        "none\r\n");
  }
  EXPECT_EQ(pane.LineCount(), 5'001);
  EXPECT_LT(MemoryPerTextByte(pane), 2.5);
}

TEST(RichTextBoxMemory, IsGivenBackByANewText) {
  const auto pane = PaneOf(10'000);
  pane->Text("");
  EXPECT_LT(pane->MemoryUsed(), 10'000U);
}

TEST(RichTextBoxLongLine, OfAMegabyteIsWrittenFoundAndCut) {
  RichTextBox pane;
  pane.ReplaceSel("before\r\n");
  pane.SelColor(7);
  pane.ReplaceSel(std::string(1'000'000, 'x'));
  pane.ReplaceSel("\r\nbehind");
  EXPECT_EQ(pane.LineCount(), 3);
  EXPECT_EQ(pane.LineAt(500'000), 1);
  EXPECT_EQ(pane.LineByIndex(1).start, 8);
  EXPECT_EQ(pane.LineByIndex(1).length, 1'000'000);
  EXPECT_EQ(pane.LineByIndex(2).start, 1'000'010);
  EXPECT_EQ(pane.RunsBetween(8, 1'000'008).size(), 1U);

  const std::uint64_t touched = pane.work().blocks_touched;
  pane.ExSetSel(500'000, 500'000);
  pane.ReplaceSel("\r\n");
  EXPECT_LE(pane.work().blocks_touched - touched, 30U);
  EXPECT_EQ(pane.LineCount(), 4);
  EXPECT_EQ(pane.LineByIndex(1).length, 499'992);
  EXPECT_EQ(pane.LineByIndex(2).start, 500'002);

  pane.ExSetSel(8, 1'000'010);
  pane.ReplaceSel("");
  EXPECT_EQ(pane.Text(), "before\r\n\r\nbehind");
}

TEST(RichTextBoxSelectAll, FormatsAndDeletesAll) {
  const auto pane = PaneOf(5'000);
  pane->ExSetSel(0, -1);
  pane->SelFormat({});
  EXPECT_EQ(pane->Runs().size(), 1U);
  pane->ReplaceSel("");
  EXPECT_EQ(pane->Length(), 0);
  EXPECT_EQ(pane->LineCount(), 1);
  AppendLine(*pane);
  EXPECT_EQ(pane->LineCount(), 2);
}

}  // namespace
}  // namespace parlorwire
