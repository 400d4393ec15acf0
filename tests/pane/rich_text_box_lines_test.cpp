// Lines: where they start, how long they are without their break, and the line of a position.
#include <gtest/gtest.h>

#include <ostream>

#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

using Starts = std::vector<PanePosition>;
using Lengths = std::vector<PanePosition>;

struct LinesRow {
  const char* name;
  std::string_view text;
  Starts starts;
  Lengths lengths;
};

void PrintTo(const LinesRow& row, std::ostream* out) {
  *out << row.name;
}

class RichTextBoxLines : public testing::TestWithParam<LinesRow> {};

void ExpectLines(const RichTextBox& pane, const Starts& starts, const Lengths& lengths) {
  ASSERT_EQ(pane.LineCount(), static_cast<std::int64_t>(starts.size()));
  for (std::size_t i = 0; i < starts.size(); ++i) {
    const PaneLine line = pane.LineByIndex(static_cast<std::int64_t>(i));
    EXPECT_EQ(line.start, starts[i]);
    EXPECT_EQ(line.length, lengths[i]);
    EXPECT_EQ(line.next, i + 1 < starts.size() ? starts[i + 1] : pane.Length());
    for (PanePosition at = line.start; at < line.next; ++at)
      EXPECT_EQ(pane.LineAt(at), static_cast<std::int64_t>(i)) << at;
  }
  EXPECT_EQ(pane.LineAt(pane.Length()), pane.LineCount() - 1);
}

TEST_P(RichTextBoxLines, OfTextSetAtOnce) {
  RichTextBox pane;
  pane.Text(GetParam().text);
  ExpectLines(pane, GetParam().starts, GetParam().lengths);
}

TEST_P(RichTextBoxLines, OfTextWrittenCharByChar) {
  RichTextBox pane;
  for (const char c : GetParam().text) {
    pane.ExSetSel(pane.Length(), pane.Length());
    pane.ReplaceSel({&c, 1});
  }
  ExpectLines(pane, GetParam().starts, GetParam().lengths);
}

TEST_P(RichTextBoxLines, OfTextWrittenBackwards) {
  RichTextBox pane;
  const std::string_view text = GetParam().text;
  for (std::size_t i = text.size(); i > 0; --i) {
    pane.SelStart(0);
    pane.ReplaceSel(text.substr(i - 1, 1));
  }
  ExpectLines(pane, GetParam().starts, GetParam().lengths);
}

INSTANTIATE_TEST_SUITE_P(Breaks, RichTextBoxLines,
                         testing::ValuesIn<LinesRow>({
                             {"NoText", "", {0}, {0}},
                             {"OneLine", "abc", {0}, {3}},
                             {"CrLf", "a\r\nb", {0, 3}, {1, 1}},
                             {"CrCrLfIsOneBreak", "a\r\r\nb", {0, 4}, {1, 1}},
                             {"ThreeCrsAndLfAreTwoBreaks", "a\r\r\r\nb", {0, 2, 5}, {1, 0, 1}},
                             {"LoneCr", "a\rb", {0, 2}, {1, 1}},
                             {"LoneLf", "a\nb", {0, 2}, {1, 1}},
                             {"LfCr", "a\n\rb", {0, 2, 3}, {1, 0, 1}},
                             {"TwoCrs", "a\r\rb", {0, 2, 3}, {1, 0, 1}},
                             {"CrLfLf", "a\r\n\nb", {0, 3, 4}, {1, 0, 1}},
                             {"EmptyLastLine", "a\r\n", {0, 3}, {1, 0}},
                             {"CrAtTheEnd", "a\r", {0, 2}, {1, 0}},
                             {"TwoCrsAtTheEnd", "a\r\r", {0, 2, 3}, {1, 0, 0}},
                             {"OnlyBreaks", "\r\n\r\n", {0, 2, 4}, {0, 0, 0}},
                             {"ATabIsNoBreak", "a\tb", {0}, {3}},
                             {"LfAndTabOfTheNewlineMarker", "a \n\t b", {0, 3}, {2, 3}},
                         }),
                         [](const auto& row) { return row.param.name; });

TEST(RichTextBoxLine, OfALfWrittenBehindACrIsOneBreak) {
  RichTextBox pane;
  pane.ReplaceSel("a\r");
  EXPECT_EQ(pane.LineCount(), 2);
  pane.ReplaceSel("\nb");
  ExpectLines(pane, {0, 3}, {1, 1});
}

TEST(RichTextBoxLine, BreaksThatMeetByDeletingAreOne) {
  RichTextBox pane;
  pane.Text("a\r\rx\nb");
  ExpectLines(pane, {0, 2, 3, 5}, {1, 0, 1, 1});
  pane.ExSetSel(3, 4);
  pane.ReplaceSel("");
  ExpectLines(pane, {0, 4}, {1, 1});
}

TEST(RichTextBoxLine, ABreakThatIsPartedIsTwo) {
  RichTextBox pane;
  pane.Text("a\r\r\nb");
  pane.ExSetSel(2, 2);
  pane.ReplaceSel("x");
  ExpectLines(pane, {0, 2, 5}, {1, 1, 1});
}

TEST(RichTextBoxLine, IndicesAndPositionsAreClamped) {
  RichTextBox pane;
  pane.Text("a\nb\nc");
  EXPECT_EQ(pane.LineAt(-3), 0);
  EXPECT_EQ(pane.LineAt(99), 2);
  EXPECT_EQ(pane.LineByIndex(-1).start, 0);
  EXPECT_EQ(pane.LineByIndex(99).start, 4);
}

// Breaks of every kind at every place around the borders of blocks, whatever their size is.
TEST(RichTextBoxLine, ABreakIsWholeWhereverItLies) {
  for (const std::string_view line_break : {"\r\n", "\r\r\n", "\r", "\n"}) {
    for (std::size_t ahead = 4080; ahead < 4100; ++ahead) {
      const std::string text = std::string(ahead, 'x') + std::string(line_break) + "yy";
      const auto start = static_cast<PanePosition>(ahead);
      const PanePosition next = start + static_cast<PanePosition>(line_break.size());
      RichTextBox at_once;
      at_once.Text(text);
      RichTextBox char_by_char;
      char_by_char.Text(text.substr(0, 4000));
      for (std::size_t i = 4000; i < text.size(); ++i) {
        char_by_char.ExSetSel(char_by_char.Length(), char_by_char.Length());
        char_by_char.ReplaceSel({&text[i], 1});
      }
      for (const RichTextBox* pane : {&at_once, &char_by_char}) {
        ASSERT_EQ(pane->Text(), text);
        ASSERT_EQ(pane->LineCount(), 2);
        ASSERT_EQ(pane->LineByIndex(0).length, start);
        ASSERT_EQ(pane->LineByIndex(0).next, next);
        ASSERT_EQ(pane->LineByIndex(1).start, next);
        ASSERT_EQ(pane->LineByIndex(1).length, 2);
        ASSERT_EQ(pane->LineAt(next - 1), 0);
        ASSERT_EQ(pane->LineAt(next), 1);
      }
    }
  }
}

}  // namespace
}  // namespace parlorwire
