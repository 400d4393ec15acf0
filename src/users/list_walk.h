// The user list by keyboard: from nick to nick. A walk goes on at the nick that it reached last,
// wherever the list has it by now; a list that is drawn anew does not end it.
#pragma once

#include <optional>
#include <string_view>

#include "users/listed_user.h"

namespace parlorwire {

enum class ListStep { kUp, kDown, kFirst, kLast };

// The user whom a step reaches; nothing at an end of the list. `reached` is the nick that the last
// step reached, "" if there was none; then, and when that nick has left, the walk is where the
// caret is.
std::optional<ListedUser> StepInList(const RichTextBox& list, PanePosition caret,
                                     std::string_view reached, ListStep step);

// The user for whom a key acts: `reached`, or that of the caret's line if it is "". Nothing if
// `reached` has left: the one who stands there now is another.
std::optional<ListedUser> UserInHand(const RichTextBox& list, PanePosition caret,
                                     std::string_view reached);

}  // namespace parlorwire
