// The reader's selection in a pane, and the words and lines that it grows by. Positions of the
// pane.
#pragma once

#include "pane/units.h"
#include "pane/view.h"

namespace parlorwire {

class RichTextBox;

// It begins at `anchor` and follows the caret.
struct ReaderSelection {
  PanePosition anchor = 0;
  PanePosition caret = 0;

  PaneRange range() const;
  // Stays on its characters while text comes and goes elsewhere.
  void TextChanged(const PaneView::TextChange& change);
};

enum class SelectionGrain { kCharacter, kWord, kLine };

// What of that size lies around the position. A word is of letters, digits and "_", or of blanks,
// or of other signs; a line includes its break.
PaneRange RangeAround(const RichTextBox& box, PanePosition position, SelectionGrain grain);

// The next place of a caret to either side; a line break is one step.
PanePosition CharacterBefore(const RichTextBox& box, PanePosition position);
PanePosition CharacterAfter(const RichTextBox& box, PanePosition position);
// The start of a word ahead, and behind.
PanePosition WordBefore(const RichTextBox& box, PanePosition position);
PanePosition WordAfter(const RichTextBox& box, PanePosition position);

}  // namespace parlorwire
