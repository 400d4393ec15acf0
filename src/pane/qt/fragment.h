// What a pane is laid out by: a line, or some rows of a very long one.
//
// A line of a megabyte must cost no more to show than what of it is seen. So a line longer than
// kFragmentLimit is cut into fragments of whole rows. Where a row begins follows from all that is
// ahead of it in its line, which is measured once for a width and remembered as the fragments'
// starts. Measuring is adding up; but a line beyond all reason is measured anew at each
// kMeasuredLimit, where a row may end early.
#pragma once

#include <cstdint>
#include <vector>

#include "pane/qt/wrap.h"
#include "pane/rich_text_box.h"
#include "pane/units.h"
#include "pane/view.h"

namespace parlorwire {

inline constexpr PanePosition kFragmentLimit = 4096;
inline constexpr PanePosition kMeasuredLimit = 1 << 20;

struct Fragment {
  PanePosition start = 0;
  PanePosition length = 0;  // without the line's break
  PanePosition next = 0;    // the start of the next fragment; the text's end for the last one
  PanePosition line_start = 0;
  PanePosition line_next = 0;
  std::int64_t line = 0;  // 0-based

  bool LastOfLine() const { return next == line_next; }
  bool LastOf(const RichTextBox& box) const { return LastOfLine() && line + 1 == box.LineCount(); }
  // Behind the break that ends the text there is one more line, with nothing in it.
  bool EmptyEndOf(const RichTextBox& box) const { return length == 0 && line > 0 && LastOf(box); }
};

// Finds the fragments of a pane at a width.
class FragmentFinder {
 public:
  FragmentFinder(const RichTextBox& box, LayoutTools& tools) : box_(box), tools_(tools) {}

  void Resize(int width);
  void Forget() { cut_lines_.clear(); }
  void TextChanged(const PaneView::TextChange& change);
  void FormatChanged(PanePosition start, PanePosition end);

  // The fragment in which the position lies; the one behind it at a border of two.
  Fragment At(PanePosition position);
  // Must not be called on the last and on the first one.
  Fragment After(const Fragment& fragment);
  Fragment Before(const Fragment& fragment);

 private:
  // The starts of the fragments of a measured stretch of a line, as far as they are known.
  struct CutLine {
    PanePosition start = 0;          // of the stretch
    PanePosition next = 0;           // behind it
    std::vector<PanePosition> cuts;  // from `start` on; the first is 0
    bool complete = false;
  };

  Fragment InLine(std::int64_t index, const PaneLine& line, PanePosition position);
  CutLine& CutLineAt(PanePosition start, PanePosition end);
  void CutOn(CutLine& line, PanePosition end);
  void ForgetFrom(CutLine& line, PanePosition position);

  const RichTextBox& box_;
  LayoutTools& tools_;
  int width_ = 1;
  std::vector<CutLine> cut_lines_;  // those used last, a bounded number
};

}  // namespace parlorwire
