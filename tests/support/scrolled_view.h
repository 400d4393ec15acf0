// A view of a pane that paints nothing and scrolls by whole lines.
#pragma once

#include <algorithm>

#include "pane/rich_text_box.h"

namespace parlorwire {

// Its bar is worked out from the pane each time, as that of a real view is: what is written below
// the view leaves it where it stands.
class ScrolledView : public PaneView {
 public:
  // So many lines are seen at once.
  ScrolledView(RichTextBox& pane, int page) : pane_(pane), page_(page) { pane_.Attach(this); }
  ~ScrolledView() override { pane_.Attach(nullptr); }
  ScrolledView(const ScrolledView&) = delete;
  ScrolledView& operator=(const ScrolledView&) = delete;

  void TextChanged(const TextChange&) override { top_ = std::min(top_, Lowest()); }
  void FormatChanged(PanePosition, PanePosition) override {}
  void SelectionChanged() override {}
  void RedrawChanged(bool) override {}
  void VisibleChanged(bool) override {}
  void WidthChanged(int) override {}
  void RightMarginChanged(int) override {}
  void PointerChanged(PanePointer) override {}
  void Refresh() override {}
  void Scroll(PaneScroll command) override {
    top_ = command == PaneScroll::kBottom ? Lowest() : std::max(top_ - 1, 0);
  }
  PaneScrollInfo GetScrollInfo() const override {
    return Lowest() == 0 ? PaneScrollInfo{0, 0, page_, 0}
                         : PaneScrollInfo{0, Lowest() + page_, page_, top_};
  }
  PanePosition CharFromPos(int, int) const override { return 0; }

  int Top() const { return top_; }  // the line at the upper edge, 0-based
  bool AtEnd() const { return top_ == Lowest(); }

 private:
  int Lowest() const { return std::max(static_cast<int>(pane_.LineCount()) - page_, 0); }

  RichTextBox& pane_;
  int page_;
  int top_ = 0;
};

}  // namespace parlorwire
