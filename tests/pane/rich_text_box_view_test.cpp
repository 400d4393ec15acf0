// What the pane tells its view, and what it asks of it.
#include <gtest/gtest.h>

#include <ostream>

#include "pane/pane_model.h"
#include "pane/rich_text_box.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using TextChange = PaneView::TextChange;

struct ChangeRow {
  const char* name;
  std::string_view text;
  PanePosition start, end;
  std::string_view written;
  TextChange change;
};

void PrintTo(const ChangeRow& row, std::ostream* out) {
  *out << row.name;
}

class RichTextBoxChange : public testing::TestWithParam<ChangeRow> {};

TEST_P(RichTextBoxChange, IsTold) {
  const ChangeRow& row = GetParam();
  RichTextBox pane;
  pane.Text(row.text);
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.ExSetSel(row.start, row.end);
  pane.ReplaceSel(row.written);
  ASSERT_EQ(view.text_changes, 1);
  EXPECT_TRUE(view.sound);
  EXPECT_EQ(view.last.start, row.change.start);
  EXPECT_EQ(view.last.removed, row.change.removed);
  EXPECT_EQ(view.last.inserted, row.change.inserted);
  EXPECT_EQ(view.last.first_line, row.change.first_line);
  EXPECT_EQ(view.last.lines_removed, row.change.lines_removed);
  EXPECT_EQ(view.last.lines_inserted, row.change.lines_inserted);
}

INSTANTIATE_TEST_SUITE_P(
    Edits, RichTextBoxChange,
    testing::ValuesIn<ChangeRow>({
        {"FirstText", "", 0, 0, "abc", {0, 0, 3, 0, 1, 1}},
        {"FirstLine", "", 0, 0, "abc\r\n", {0, 0, 5, 0, 1, 2}},
        {"ALineAtTheEnd", "a\r\nb\r\n", 6, 6, "c\r\n", {6, 0, 3, 2, 1, 2}},
        {"TextAtTheEndOfALine", "a\r\nb", 4, 4, "c", {4, 0, 1, 1, 1, 1}},
        {"TextInALine", "a\r\nbb\r\nc", 4, 4, "x", {4, 0, 1, 1, 1, 1}},
        {"TextAtALinesStart", "a\r\nb", 3, 3, "x", {3, 0, 1, 1, 1, 1}},
        {"ALineInTheMiddle", "a\r\nb", 3, 3, "x\r\n", {3, 0, 3, 1, 1, 2}},
        {"ALineRemoved", "a\r\nb\r\nc", 3, 6, "", {3, 3, 0, 1, 2, 1}},
        {"ABreakRemoved", "a\r\nb", 1, 3, "", {1, 2, 0, 0, 2, 1}},
        {"AllRemoved", "a\r\nb\r\n", 0, 6, "", {0, 6, 0, 0, 3, 1}},
        {"TheLastBlankReplaced", "n: ", 2, 3, " t\r\n", {2, 1, 4, 0, 1, 2}},
        {"ALfBehindACr", "a\r", 2, 2, "\n", {2, 0, 1, 0, 2, 2}},
        {"ALfBehindTwoCrs", "a\r\r", 3, 3, "\nb", {3, 0, 2, 0, 3, 2}},
        {"ACrAheadOfALf", "a\nb", 1, 1, "\r", {1, 0, 1, 0, 1, 1}},
        {"ABreakParted", "a\r\r\nb", 2, 2, "x", {2, 0, 1, 0, 1, 2}},
        {"CrAndLfMeetByDeleting", "a\rx\nb", 2, 3, "", {2, 1, 0, 0, 2, 1}},
        {"TheLfOfABreakReplacedWithIt", "a\r\nb", 2, 3, "x", {1, 2, 1, 0, 2, 1}},
    }),
    [](const auto& row) { return row.param.name; });

TEST(RichTextBoxView, IsToldOfANewText) {
  RichTextBox pane;
  pane.Text("a\r\nb\r\nc");
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.ExSetSel(1, 2);
  pane.Text("x\ny");
  EXPECT_EQ(view.text_changes, 1);
  EXPECT_EQ(view.last.start, 0);
  EXPECT_EQ(view.last.removed, 7);
  EXPECT_EQ(view.last.inserted, 3);
  EXPECT_EQ(view.last.first_line, 0);
  EXPECT_EQ(view.last.lines_removed, 3);
  EXPECT_EQ(view.last.lines_inserted, 2);
  EXPECT_EQ(view.selection, std::pair(PanePosition{0}, PanePosition{0}));
}

TEST(RichTextBoxView, IsToldOfAPicture) {
  RichTextBox pane;
  pane.Text("a *:) b");
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.ExSetSel(2, 5);
  pane.PastePicture(std::make_shared<PanePicture>());
  EXPECT_EQ(view.text_changes, 1);
  EXPECT_EQ(view.last.removed, 3);
  EXPECT_EQ(view.last.inserted, 1);
}

TEST(RichTextBoxView, IsToldOfFormatsThatChangeAndOfNoOthers) {
  RichTextBox pane;
  pane.Text("abcdef");
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.SelColor(5);  // pending
  EXPECT_EQ(view.format_changes, 0);
  pane.ExSetSel(1, 4);
  pane.SelColor(5);
  EXPECT_EQ(view.format_changes, 1);
  EXPECT_EQ(view.last_format, std::pair(PanePosition{1}, PanePosition{4}));
  pane.SelColor(5);
  EXPECT_EQ(view.format_changes, 1);
}

TEST(RichTextBoxView, IsToldOfSelectionsThatChange) {
  RichTextBox pane;
  pane.Text("abcdef");
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.ExSetSel(1, 4);
  EXPECT_EQ(view.selection_changes, 1);
  pane.ExSetSel(1, 4);
  EXPECT_EQ(view.selection_changes, 1);
  pane.HideSelection(true);
  EXPECT_EQ(view.selection_changes, 2);
  EXPECT_TRUE(view.hidden);
  pane.HideSelection(true);
  EXPECT_EQ(view.selection_changes, 2);
  pane.ReplaceSel("x");
  EXPECT_EQ(view.selection_changes, 3);
  EXPECT_EQ(view.selection, std::pair(PanePosition{2}, PanePosition{0}));
  pane.ReplaceSel("");
  EXPECT_EQ(view.selection_changes, 3);
  EXPECT_EQ(view.text_changes, 1);
}

TEST(RichTextBoxView, IsToldOfChangesWhileRedrawIsOff) {
  RichTextBox pane;
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.SetRedraw(false);
  EXPECT_FALSE(pane.Redraw());
  pane.ReplaceSel("a");
  pane.SetRedraw(false);
  pane.SetRedraw(true);
  EXPECT_TRUE(pane.Redraw());
  EXPECT_EQ(view.text_changes, 1);
  EXPECT_EQ(view.redraws, (std::vector<bool>{false, true}));
}

TEST(RichTextBoxView, IsToldOfVisibilityPointerRefreshAndScrolling) {
  RichTextBox pane;
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.Visible(true);
  pane.Visible(false);
  pane.Visible(true);
  EXPECT_EQ(view.visibles, (std::vector<bool>{false, true}));
  pane.MousePointer(PanePointer::kArrow);
  pane.MousePointer(PanePointer::kCustom);
  EXPECT_EQ(pane.MousePointer(), PanePointer::kCustom);
  EXPECT_EQ(view.pointers, (std::vector<PanePointer>{PanePointer::kCustom}));
  pane.Refresh();
  EXPECT_EQ(view.refreshes, 1);
  pane.BackColor(0x102030);
  EXPECT_EQ(pane.BackColor(), 0x102030U);
  EXPECT_EQ(view.refreshes, 2);
  pane.VScroll(PaneScroll::kLineUp);
  pane.VScroll(PaneScroll::kBottom);
  EXPECT_EQ(view.scrolls, (std::vector<PaneScroll>{PaneScroll::kLineUp, PaneScroll::kBottom}));
}

TEST(RichTextBoxView, IsToldWhereLinesWrap) {
  RichTextBox pane;
  EXPECT_EQ(pane.RightMargin(), 0);
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.RightMargin(0);
  pane.RightMargin(53'000);
  pane.RightMargin(53'000);
  EXPECT_EQ(pane.RightMargin(), 53'000);
  EXPECT_THROW(pane.RightMargin(-1), Fault);
  EXPECT_EQ(pane.RightMargin(), 53'000);
  pane.RightMargin(0);
  EXPECT_EQ(view.right_margins, (std::vector<int>{53'000, 0}));
}

TEST(RichTextBoxView, IsToldOfAnotherWidth) {
  RichTextBox pane;
  PaneMirror view(pane);
  pane.Attach(&view);
  pane.Width(5000);
  pane.Width(5000);
  EXPECT_EQ(pane.Width(), 5000);
  pane.Width(4990);
  EXPECT_EQ(view.widths, (std::vector<int>{5000, 4990}));
}

TEST(RichTextBoxView, IsAskedForScrollingAndPoints) {
  RichTextBox pane;
  EXPECT_EQ(pane.GetScrollInfo().max, 0);
  EXPECT_EQ(pane.CharFromPos(3, 4), 0);
  PaneMirror view(pane);
  pane.Attach(&view);
  EXPECT_EQ(pane.GetScrollInfo().max, 100);
  EXPECT_EQ(pane.CharFromPos(3, 4), 3004);
  pane.Attach(nullptr);
  EXPECT_EQ(pane.GetScrollInfo().max, 0);
  EXPECT_EQ(pane.CharFromPos(3, 4), 0);
}

TEST(RichTextBoxView, CanBeNone) {
  RichTextBox pane;
  pane.SetRedraw(false);
  pane.Visible(false);
  pane.Refresh();
  pane.VScroll(PaneScroll::kBottom);
  pane.MousePointer(PanePointer::kCustom);
  pane.HideSelection(true);
  pane.Width(1000);
  pane.Width(pane.Width() - 10);
  EXPECT_EQ(pane.Width(), 990);
  EXPECT_FALSE(pane.Visible());
  EXPECT_TRUE(pane.HideSelection());
}

}  // namespace
}  // namespace parlorwire
