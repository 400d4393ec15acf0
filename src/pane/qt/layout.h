// One fragment of a pane, laid out at a width: its rows, and what lies where in them.
//
// Painting, hit test, caret and accessibility all read these rows. Coordinates are
// device-independent pixels from the fragment's top left corner; indices count characters from the
// fragment's start.
#pragma once

#include <QColor>
#include <QRectF>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "pane/qt/fragment.h"
#include "pane/qt/wrap.h"

namespace parlorwire {

class RichTextBox;

struct FragmentLayout {
  // What a row's place in the text is told by.
  struct Row {
    int start = 0;  // the first index in it
    int end = 0;    // one behind the last; the next row's start
    int top = 0;
    int height = 0;
    int base = 0;     // the base line, below the top
    float left = 0;   // where its first character begins
    float right = 0;  // where its last one ends
  };

  std::uint64_t serial = 0;  // no other layout has it
  int width = 0;
  int height = 0;
  int widest = 0;       // where the row that goes furthest to the right ends, blanks left out
  int length = 0;       // characters
  bool breaks = false;  // a line break follows
  ShownText text;
  std::vector<float> edges;  // the left edge of each character, from its row's left edge
  std::vector<Row> rows;     // at least one

  const Row& RowNumber(int number) const { return rows[static_cast<std::size_t>(number)]; }
  float EdgeOf(const Row& row, int index) const {
    return index >= row.end ? row.right : row.left + edges[static_cast<std::size_t>(index)];
  }
};

std::shared_ptr<const FragmentLayout> LayOut(const RichTextBox& box, const Fragment& fragment,
                                             int width, LayoutTools& tools);

// How far a picture goes below the base line: its middle is on a level with that of its font.
int PictureBelowBase(const ToolkitLook& look);

// The row that holds the index; for a border of two rows the lower one.
int RowOf(const FragmentLayout& layout, int index);
// The row at that height; the first above all, the last below all.
int RowAt(const FragmentLayout& layout, int y);

// The colour of a row of nothing but blanks on one back colour: it is a bar from edge to edge of
// the view.
std::optional<QColor> BarColour(const FragmentLayout& layout, const FragmentLayout::Row& row);

// Of the row, the index ahead of the character at `x`; the row's end behind its end.
int CharacterIn(const FragmentLayout& layout, const FragmentLayout::Row& row, qreal x);
// Of what lies under the point: the index ahead of the character, the row's end behind its end.
int CharacterAt(const FragmentLayout& layout, int x, int y);
// The border between two characters that is nearest to the point.
int BorderAt(const FragmentLayout& layout, int x, int y);

// The left edge of the character, in its row.
qreal XOf(const FragmentLayout& layout, int index);
// The box of the characters [start, end) as far as they lie in the row of `start`.
QRectF BoxOf(const FragmentLayout& layout, int start, int end);

}  // namespace parlorwire
