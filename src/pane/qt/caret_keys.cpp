#include "pane/qt/caret_keys.h"

#include <Qt>
#include <algorithm>

#include "pane/qt/reader_selection.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

std::optional<PanePosition> CaretKeys::Moved(PanePosition caret, int key, bool by_word) {
  switch (key) {
    case Qt::Key_Up:
      return Below(caret, -1);
    case Qt::Key_Down:
      return Below(caret, 1);
    case Qt::Key_PageUp:
      return Below(caret, -arrangement_.PageHeight());
    case Qt::Key_PageDown:
      return Below(caret, arrangement_.PageHeight());
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
      column_.reset();
      return Beside(caret, key, by_word);
    default:
      return std::nullopt;
  }
}

PanePosition CaretKeys::Beside(PanePosition caret, int key, bool by_word) const {
  switch (key) {
    case Qt::Key_Left:
      return by_word ? WordBefore(box_, caret) : CharacterBefore(box_, caret);
    case Qt::Key_Right:
      return by_word ? WordAfter(box_, caret) : CharacterAfter(box_, caret);
    case Qt::Key_Home:
      return by_word ? 0 : RowStart(caret);
    default:
      return by_word ? box_.Length() : RowEnd(caret);
  }
}

// That many pixels below the caret's row (above it, if negative), as far to the right as the caret
// was when it began to go up and down.
PanePosition CaretKeys::Below(PanePosition caret, int pixels) {
  Fragment fragment = arrangement_.Fragments().At(caret);
  auto layout = arrangement_.LayoutOf(fragment);
  const int index = static_cast<int>(caret - fragment.start);
  const auto& row = layout->RowNumber(RowOf(*layout, index));
  if (!column_) column_ = static_cast<int>(XOf(*layout, index));
  int y = pixels < 0 ? row.top + pixels : row.top + row.height - 1 + pixels;
  while (y < 0 && fragment.start > 0) {
    fragment = arrangement_.Fragments().Before(fragment);
    layout = arrangement_.LayoutOf(fragment);
    y += layout->height;
  }
  if (y < 0) return 0;
  while (y >= layout->height && !fragment.LastOf(box_)) {
    y -= layout->height;
    fragment = arrangement_.Fragments().After(fragment);
    layout = arrangement_.LayoutOf(fragment);
  }
  if (y >= layout->height) return box_.Length();
  return fragment.start + BorderAt(*layout, *column_, y);
}

PanePosition CaretKeys::RowStart(PanePosition caret) const {
  return arrangement_.RowAround(caret).start;
}

// The border of a wrapped row belongs to the row below, so its end is ahead of its last character.
PanePosition CaretKeys::RowEnd(PanePosition caret) const {
  const Fragment fragment = arrangement_.Fragments().At(caret);
  const auto layout = arrangement_.LayoutOf(fragment);
  const int number = RowOf(*layout, static_cast<int>(caret - fragment.start));
  const auto& row = layout->RowNumber(number);
  const bool last = number + 1 == static_cast<int>(layout->rows.size());
  return fragment.start + (last ? row.end : std::max(row.end - 1, row.start));
}

}  // namespace parlorwire
