// What a RichTextBox holds: the text with its looks, the selection, the properties; and the edits
// at the selection, each of which tells the view.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "pane/formats.h"
#include "pane/rich_text_box.h"
#include "pane/text.h"
#include "pane/view.h"
#include "pane/work.h"

namespace parlorwire {

struct RichTextBox::Storage {
  PaneFormats formats;
  PaneWork work;
  PaneText text{work};

  PanePosition selection_start = 0;
  PanePosition selection_end = 0;
  std::optional<PaneLook> pending;  // for an empty selection

  PaneFormat own_format;
  PaneLook own_look;
  PaneColour back_colour = 0xFFFFFF;
  bool hide_selection = false;
  bool locked = true;
  bool visible = true;
  bool redraw = true;
  PanePointer pointer = PanePointer::kArrow;
  int width = 0;
  int right_margin = 0;
  std::uint64_t look_epoch = 0;

  PaneView* view = nullptr;

  bool SelectionIsEmpty() const { return selection_start == selection_end; }
  PanePosition Clamped(PanePosition position) const {
    return std::clamp<PanePosition>(position, 0, text.Length());
  }
  PanePosition AheadOfBreak(PanePosition position) const {
    return text.PartsCrLf(position) ? position - 1 : position;
  }

  // Both are within the text, and start <= end. Selecting the same again changes nothing.
  void Select(PanePosition start, PanePosition end);
  // The look of what is written at the selection.
  PaneLook LookOfNextText() const;
  // Of what is selected; if nothing is, of what is written there next.
  void ChangeLook(const PaneLookChange& change);
  template <class Value>
  void Set(PaneLookChange::Member which, Value PaneLook::* member, Value value);
  // Puts text of one look in the place of what is selected.
  void Write(std::string_view written, PaneLookId look);
};

template <class Value>
void RichTextBox::Storage::Set(PaneLookChange::Member which, Value PaneLook::* member,
                               Value value) {
  if (SelectionIsEmpty()) {
    if (!pending) pending = LookOfNextText();
    (*pending).*member = value;
  } else {
    PaneLookChange change{which, {}};
    change.value.*member = value;
    ChangeLook(change);
  }
}

}  // namespace parlorwire
