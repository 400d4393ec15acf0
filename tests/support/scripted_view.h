// A view of a pane that paints nothing: it says what it is told to say of its scroll bar, and
// remembers what it was asked to do.
#pragma once

#include <vector>

#include "pane/rich_text_box.h"

namespace parlorwire {

class ScriptedView : public PaneView {
 public:
  explicit ScriptedView(RichTextBox& pane) : pane_(pane) { pane_.Attach(this); }
  ~ScriptedView() override { pane_.Attach(nullptr); }
  ScriptedView(const ScriptedView&) = delete;
  ScriptedView& operator=(const ScriptedView&) = delete;

  void TextChanged(const TextChange&) override {
    if (painting) ++painted_changes;
  }
  void FormatChanged(PanePosition, PanePosition) override {}
  void SelectionChanged() override {}
  void RedrawChanged(bool on) override { painting = on; }
  void VisibleChanged(bool) override {}
  void WidthChanged(int twips) override { widths.push_back(twips); }
  void RightMarginChanged(int) override {}
  void PointerChanged(PanePointer) override {}
  void Refresh() override { ++refreshes; }
  void Scroll(PaneScroll command) override { scrolls.push_back(command); }
  PaneScrollInfo GetScrollInfo() const override { return bar; }
  PanePosition CharFromPos(int, int) const override { return 0; }

  PaneScrollInfo bar;
  bool painting = true;
  int painted_changes = 0;  // changes of the text while painting was on
  int refreshes = 0;
  std::vector<PaneScroll> scrolls;
  std::vector<int> widths;  // that the pane was given

 private:
  RichTextBox& pane_;
};

}  // namespace parlorwire
