// What paints a pane, as the pane knows it.
#pragma once

#include <cstdint>

#include "pane/units.h"

namespace parlorwire {

// The vertical scroll bar, in whatever unit the view scrolls by. The pane stands at its end when
// pos + page >= max. max is 0 when there is nothing to scroll.
struct PaneScrollInfo {
  int min = 0;
  int max = 0;
  int page = 0;
  int pos = 0;
};

enum class PaneScroll { kLineUp = 0, kBottom = 7 };
enum class PanePointer { kArrow = 1, kCustom = 99 };

// All calls come after the change, and none may change the pane.
class PaneView {
 public:
  virtual ~PaneView() = default;

  // At `start`, `removed` characters went and `inserted` ones came. The same in lines: the lines
  // from `first_line` on (0-based) have new content; `lines_removed` lines were replaced by
  // `lines_inserted` lines, both at least 1. All lines behind them are the same as before.
  struct TextChange {
    PanePosition start = 0;
    PanePosition removed = 0;
    PanePosition inserted = 0;
    std::int64_t first_line = 0;
    std::int64_t lines_removed = 1;
    std::int64_t lines_inserted = 1;
  };
  virtual void TextChanged(const TextChange& change) = 0;

  // The characters in [start, end) look different.
  virtual void FormatChanged(PanePosition start, PanePosition end) = 0;

  // The selection, or whether it is shown (HideSelection), has changed.
  virtual void SelectionChanged() = 0;

  // WM_SETREDRAW: while off, nothing is painted; the changes are told all the same.
  virtual void RedrawChanged(bool on) = 0;

  virtual void VisibleChanged(bool visible) = 0;
  virtual void WidthChanged(int twips) = 0;  // of the control; a view may go by its window's
  virtual void RightMarginChanged(int twips) = 0;
  virtual void PointerChanged(PanePointer pointer) = 0;
  virtual void Refresh() = 0;  // a repaint is wanted
  virtual void Scroll(PaneScroll command) = 0;

  virtual PaneScrollInfo GetScrollInfo() const = 0;

  // The character under a point of the view, in device-independent pixels: the position ahead of
  // it. Behind a line's end: the end of the line.
  virtual PanePosition CharFromPos(int x, int y) const = 0;
};

}  // namespace parlorwire
