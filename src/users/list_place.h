// Where a reader stands in a list of users, by nick, so that a list that is drawn anew is shown
// from there on.
#pragma once

#include <optional>
#include <vector>

#include "pane/rich_text_box.h"
#include "text/text.h"

namespace parlorwire {

// The nicks from the first line in view on, as many as are worth to be kept; none for the list's
// first line.
using ListPlace = std::vector<Text>;

// `top` is the position at the view's upper edge.
ListPlace PlaceInList(const RichTextBox& list, PanePosition top);

// The line of the first of these nicks that is still there; nothing if none is.
std::optional<PanePosition> FindListPlace(const RichTextBox& list, const ListPlace& place);

}  // namespace parlorwire
