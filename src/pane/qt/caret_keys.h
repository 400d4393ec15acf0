// Where keys take the reader's caret.
#pragma once

#include <optional>

#include "pane/qt/arrangement.h"
#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

class CaretKeys {
 public:
  CaretKeys(const RichTextBox& box, PaneArrangement& arrangement)
      : box_(box), arrangement_(arrangement) {}

  // From `caret`, by a Qt::Key; nothing for a key that does not move it.
  std::optional<PanePosition> Moved(PanePosition caret, int key, bool by_word);

  // The column in which the caret goes up and down, in pixels from the lines' left edge. Without
  // one it goes from where it is.
  std::optional<int> column() const { return column_; }
  void SetColumn(std::optional<int> column) { column_ = column; }

 private:
  PanePosition Beside(PanePosition caret, int key, bool by_word) const;
  PanePosition Below(PanePosition caret, int pixels);
  PanePosition RowStart(PanePosition caret) const;
  PanePosition RowEnd(PanePosition caret) const;

  const RichTextBox& box_;
  PaneArrangement& arrangement_;
  std::optional<int> column_;
};

}  // namespace parlorwire
