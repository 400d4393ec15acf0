// Which fragments of a pane are seen, and where.
//
// The anchor is a place in the text held at the view's top or bottom edge, never a distance from
// the start of the text: so what comes, goes or changes its height outside the view does not move
// what is seen, and nothing outside the view is ever measured.
//
//        line 41 |................................|   top edge: character 3005, 4 pixels into
//                |--------------------------------|             its row
//        line 42 |................................|
//        line 43 |................................|
//                |--------------------------------|   bottom edge: character 3210, its whole row
//
// The scroll bar cannot know the height of a million lines. Its unit is an estimated pixel: so much
// a line and so much a character, both from the width of the view, and so a place in the text has
// its place on the bar, and the other way round, without a table of heights.
#pragma once

#include <memory>
#include <vector>

#include "pane/qt/layout_cache.h"
#include "pane/qt/reader_selection.h"
#include "pane/units.h"
#include "pane/view.h"

namespace parlorwire {

// A fragment in the view; `top` is where it begins, in pixels below the view's top edge.
struct PlacedFragment {
  Fragment fragment;
  std::shared_ptr<const FragmentLayout> layout;
  int top = 0;
};

class PaneArrangement {
 public:
  // Its work is counted in `work`, which must outlive it.
  PaneArrangement(const RichTextBox& box, ViewWork& work);

  // The place of the text within the view: what is laid out is `width` wide and `height` high.
  void Resize(int width, int height);
  // Everything is laid out anew, the place at the edge stays.
  void Forget();

  void TextChanged(const PaneView::TextChange& change);
  void FormatChanged(PanePosition start, PanePosition end);

  // What is in the view, from top to bottom, at least one fragment. Lays out what has to be.
  const std::vector<PlacedFragment>& Seen();
  // Of these the one at that height; the first above all, the last below all.
  const PlacedFragment& SeenAt(int y);

  void ScrollBy(int pixels);  // positive: towards the end
  void ScrollToStart();
  void ScrollToEnd();
  void ScrollToUnit(int unit);
  // Brings the character into the view, at its nearest edge.
  void Show(PanePosition position);
  // The row that holds the character lies at the upper edge, `pixels` of it beyond.
  void PutAtTop(PanePosition position, int pixels);

  // Where the line that goes furthest to the right ends, of those seen; as long as that line stands
  // in the pane, those that are not in the view any more count too.
  int Widest();

  // The scroll bar. Lays out nothing where it can be told without.
  PaneScrollInfo ScrollInfo();
  // Whether the end of the text is at the view's bottom edge, or the whole text in the view.
  bool AtEnd();

  int RowHeight() const { return row_height_; }
  int Height() const { return height_; }
  int PageHeight() const;  // a step of a page leaves a row of what was seen
  LayoutTools& Tools() { return tools_; }
  FragmentFinder& Fragments() { return finder_; }
  // Of a fragment anywhere, seen or not.
  std::shared_ptr<const FragmentLayout> LayoutOf(const Fragment& fragment);
  // The characters of the row in which the position lies, with the line's break.
  PaneRange RowAround(PanePosition position);

 private:
  enum class Edge { kTop, kBottom };
  struct Anchor {
    PanePosition position = 0;
    int pixels = 0;  // below the top of the row that holds the position
    bool whole_row = false;
    Edge edge = Edge::kTop;
  };

  struct Units {
    double start = 0;
    double end = 0;
  };

  int AnchorOffset(const Fragment& fragment, const FragmentLayout& layout) const;
  void Hold(Edge edge, const Fragment& fragment, const FragmentLayout& layout, int offset);
  void Arrange();
  bool ArrangeUpwards();
  void ArrangeDownwards();
  bool Overflows();
  bool HeldAtEnd();
  void MeasureUnits();
  void ForgetWidest(PanePosition start, PanePosition end);
  double UnitsAt(std::int64_t line, PanePosition position) const;
  Units UnitsOf(const Fragment& fragment) const;
  double UnitsAt(const PlacedFragment& placed, int y) const;
  double Total() const;
  PaneScrollInfo Info(double pos, double page, bool at_end) const;

  const RichTextBox& box_;
  LayoutTools tools_;
  FragmentFinder finder_;
  LayoutCache cache_;
  int width_ = 1;
  int height_ = 1;
  int row_height_ = 1;
  double characters_in_row_ = 1;
  Anchor anchor_;
  bool stale_ = true;
  std::vector<PlacedFragment> seen_;
  int widest_ = 0;
  ReaderSelection widest_line_;
  // The characters ahead of this one are higher than the view; 0: not known.
  PanePosition overflowing_ = 0;
};

}  // namespace parlorwire
