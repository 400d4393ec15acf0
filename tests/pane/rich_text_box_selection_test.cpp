// Positions, selecting and replacing: what is selected, and what the text is afterwards.
#include <gtest/gtest.h>

#include <ostream>

#include "pane/rich_text_box.h"
#include "support/fault_of.h"
#include "text/text.h"

namespace parlorwire {
namespace {

std::unique_ptr<RichTextBox> PaneWith(std::string_view text) {
  auto pane = std::make_unique<RichTextBox>();
  pane->Text(text);
  return pane;
}

std::pair<PanePosition, PanePosition> SelectionOf(const RichTextBox& pane) {
  return {pane.SelStart(), pane.SelStart() + pane.SelLength()};
}

using Range = std::pair<PanePosition, PanePosition>;

TEST(RichTextBoxText, IsGivenBackAsWritten) {
  const std::string text = "a\r\nb\nc\rd\r\r\ne\tf\n\r\n" + "Ёж"_w + std::string("\0z", 2);
  const auto pane = PaneWith(text);
  EXPECT_EQ(pane->Text(), text);
  EXPECT_EQ(pane->Length(), static_cast<PanePosition>(text.size()));
  EXPECT_EQ(pane->SelStart(), 0);
  EXPECT_EQ(pane->SelLength(), 0);
}

TEST(RichTextBoxText, OfANewPaneIsEmptyAndOneLine) {
  const RichTextBox pane;
  EXPECT_EQ(pane.Text(), "");
  EXPECT_EQ(pane.Length(), 0);
  EXPECT_EQ(pane.LineCount(), 1);
  EXPECT_TRUE(pane.Runs().empty());
}

TEST(RichTextBoxText, CountsAPictureAsOneBlank) {
  const auto pane = PaneWith("ab");
  pane->ExSetSel(1, 1);
  pane->PastePicture(std::make_shared<PanePicture>(PanePicture{"*:)", nullptr}));
  EXPECT_EQ(pane->Text(), "a b");
  EXPECT_EQ(pane->Length(), 3);
  EXPECT_EQ(SelectionOf(*pane), Range(2, 2));
}

TEST(RichTextBoxText, SetAnewPutsTheCaretToTheStart) {
  const auto pane = PaneWith("abc");
  pane->ExSetSel(1, 3);
  pane->Text("xyz");
  EXPECT_EQ(SelectionOf(*pane), Range(0, 0));
  pane->ReplaceSel("_");
  EXPECT_EQ(pane->Text(), "_xyz");
}

struct ExSetSelRow {
  const char* name;
  std::string_view text;
  PanePosition min, max;
  Range selection;
};

void PrintTo(const ExSetSelRow& row, std::ostream* out) {
  *out << row.name;
}

class RichTextBoxExSetSel : public testing::TestWithParam<ExSetSelRow> {};

TEST_P(RichTextBoxExSetSel, Selects) {
  const ExSetSelRow& row = GetParam();
  const auto pane = PaneWith(row.text);
  pane->ExSetSel(1, 2);  // the old selection
  pane->ExSetSel(row.min, row.max);
  EXPECT_EQ(SelectionOf(*pane), row.selection);
}

INSTANTIATE_TEST_SUITE_P(Rules, RichTextBoxExSetSel,
                         testing::ValuesIn<ExSetSelRow>({
                             {"ARange", "abcdef", 2, 4, {2, 4}},
                             {"ACaret", "abcdef", 3, 3, {3, 3}},
                             {"AllForZeroAndMinusOne", "abcdef", 0, -1, {0, 6}},
                             {"AllForZeroAndAnyNegative", "abcdef", 0, -7, {0, 6}},
                             {"NothingAtTheOldEndForANegativeMin", "abcdef", -1, 4, {2, 2}},
                             {"NothingAtTheOldEndForANegativeMinAndZero", "abcdef", -5, 0, {2, 2}},
                             {"TheEndForEqualNegatives", "abcdef", -1, -1, {6, 6}},
                             {"TheEndForOtherEqualNegatives", "abcdef", -9, -9, {6, 6}},
                             {"TheEndForALesserAndAGreaterNegative", "abcdef", -7, -1, {6, 6}},
                             {"TheEndForAGreaterAndALesserNegative", "abcdef", -1, -7, {6, 6}},
                             {"TheEndForEqualsBeyondTheEnd", "abcdef", 9, 9, {6, 6}},
                             {"ToTheEndForANegativeMax", "abcdef", 4, -1, {4, 6}},
                             {"ToTheEndForAnyNegativeMax", "abcdef", 4, -3, {4, 6}},
                             {"SwappedEnds", "abcdef", 5, 2, {2, 5}},
                             {"ClampedMax", "abcdef", 4, 99, {4, 6}},
                             {"ClampedBoth", "abcdef", 50, 99, {6, 6}},
                             {"ClampedAndSwapped", "abcdef", 99, 4, {4, 6}},
                             {"AStartOnTheLfTakesTheCrToo", "ab\r\ncd", 3, 5, {2, 5}},
                             {"AnEndBetweenCrAndLfGoesAheadOfTheCr", "ab\r\ncd", 0, 3, {0, 2}},
                             {"TheCrAloneIsNothing", "ab\r\ncd", 2, 3, {2, 2}},
                             {"TheLfAloneIsTheWholeBreak", "ab\r\ncd", 3, 4, {2, 4}},
                             {"ACaretBetweenCrAndLfGoesAheadOfTheCr", "ab\r\ncd", 3, 3, {2, 2}},
                             {"TheWholeBreak", "ab\r\ncd", 2, 4, {2, 4}},
                             {"InCrCrLfAheadOfTheCrAtTheLf", "ab\r\r\ncd", 4, 4, {3, 3}},
                             {"BetweenTheTwoCrs", "ab\r\r\ncd", 3, 3, {3, 3}},
                             {"ALoneCr", "ab\rcd", 2, 3, {2, 3}},
                             {"ALoneLf", "ab\ncd", 2, 3, {2, 3}},
                             {"LfCrIsTwoBreaks", "ab\n\rcd", 3, 4, {3, 4}},
                             {"AnEmptyPane", "", 0, -1, {0, 0}},
                             {"BeyondAnEmptyPane", "", 3, 8, {0, 0}},
                         }),
                         [](const auto& row) { return row.param.name; });

TEST(RichTextBoxSelStart, PutsAnEmptySelection) {
  const auto pane = PaneWith("abcdef");
  pane->ExSetSel(1, 4);
  pane->SelStart(2);
  EXPECT_EQ(SelectionOf(*pane), Range(2, 2));
  pane->SelStart(99);
  EXPECT_EQ(SelectionOf(*pane), Range(6, 6));
}

TEST(RichTextBoxSelStart, GoesAheadOfABreakThatItWouldPart) {
  const auto pane = PaneWith("ab\r\ncd");
  pane->SelStart(3);
  EXPECT_EQ(SelectionOf(*pane), Range(2, 2));
}

TEST(RichTextBoxSelLength, KeepsTheStartAndIsClamped) {
  const auto pane = PaneWith("ab\r\ncd");
  pane->SelStart(1);
  pane->SelLength(1);
  EXPECT_EQ(SelectionOf(*pane), Range(1, 2));
  pane->SelLength(2);
  EXPECT_EQ(SelectionOf(*pane), Range(1, 2));
  pane->SelLength(3);
  EXPECT_EQ(SelectionOf(*pane), Range(1, 4));
  pane->SelLength(std::numeric_limits<PanePosition>::max());
  EXPECT_EQ(SelectionOf(*pane), Range(1, 6));
  pane->SelLength(0);
  EXPECT_EQ(SelectionOf(*pane), Range(1, 1));
}

TEST(RichTextBoxSelStart, RefusesNegativesWithFault380) {
  const auto pane = PaneWith("abc");
  pane->ExSetSel(1, 2);
  EXPECT_EQ(FaultOf([&] { pane->SelStart(-1); }), 380);
  EXPECT_EQ(FaultOf([&] { pane->SelLength(-1); }), 380);
  EXPECT_EQ(SelectionOf(*pane), Range(1, 2));
}

TEST(RichTextBoxSelText, IsTheSelectedText) {
  const auto pane = PaneWith("ab\r\ncd");
  pane->ExSetSel(1, 5);
  EXPECT_EQ(pane->SelText(), "b\r\nc");
  pane->ExSetSel(3, 3);
  EXPECT_EQ(pane->SelText(), "");
}

TEST(RichTextBoxReplaceSel, LeavesTheCaretBehindTheText) {
  const auto pane = PaneWith("abcdef");
  pane->ExSetSel(1, 3);
  pane->ReplaceSel("XYZ");
  EXPECT_EQ(pane->Text(), "aXYZdef");
  EXPECT_EQ(SelectionOf(*pane), Range(4, 4));
}

TEST(RichTextBoxReplaceSel, OfEmptyTextDeletes) {
  const auto pane = PaneWith("ab\r\ncdef");
  pane->ExSetSel(3, 5);
  pane->ReplaceSel("");
  EXPECT_EQ(pane->Text(), "abdef");
  EXPECT_EQ(SelectionOf(*pane), Range(2, 2));
  pane->ReplaceSel("");
  EXPECT_EQ(pane->Text(), "abdef");
}

TEST(RichTextBoxReplaceSel, OfTheBlankThatEndsThePane) {
  const auto pane = PaneWith("nick: ");
  pane->ExSetSel(5, 6);
  pane->ReplaceSel(" text\r\n");
  EXPECT_EQ(pane->Text(), "nick: text\r\n");
  EXPECT_EQ(pane->SelStart(), pane->Length());
}

TEST(RichTextBoxReplaceSel, NeverLeavesTheCaretBetweenCrAndLf) {
  const auto pane = PaneWith("a\nb");
  pane->ExSetSel(1, 1);
  pane->ReplaceSel("x\r");
  EXPECT_EQ(pane->Text(), "ax\r\nb");
  EXPECT_EQ(SelectionOf(*pane), Range(2, 2));
}

TEST(RichTextBoxReplaceSel, ThatJoinsCrAndLfByDeletingPutsTheCaretAhead) {
  const auto pane = PaneWith("a\rx\nb");
  pane->ExSetSel(2, 3);
  pane->ReplaceSel("");
  EXPECT_EQ(pane->Text(), "a\r\nb");
  EXPECT_EQ(SelectionOf(*pane), Range(1, 1));
}

TEST(RichTextBoxTextBetween, IsClamped) {
  const auto pane = PaneWith("abcdef");
  EXPECT_EQ(pane->TextBetween(1, 3), "bc");
  EXPECT_EQ(pane->TextBetween(-5, 2), "ab");
  EXPECT_EQ(pane->TextBetween(4, 99), "ef");
  EXPECT_EQ(pane->TextBetween(4, 2), "");
  EXPECT_EQ(pane->TextBetween(99, 120), "");
}

TEST(RichTextBoxLocked, IsKeptAndIsNoLockForTheProgram) {
  RichTextBox pane;
  EXPECT_TRUE(pane.Locked());
  pane.ReplaceSel("locked, ");
  pane.Locked(false);
  EXPECT_FALSE(pane.Locked());
  pane.ReplaceSel("unlocked");
  EXPECT_EQ(pane.Text(), "locked, unlocked");
}

}  // namespace
}  // namespace parlorwire
