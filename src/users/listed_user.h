// Who stands where in a drawn list of users, read off the pane itself. Positions are those of the
// pane; lines are its lines, 0-based.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "pane/rich_text_box.h"
#include "text/text.h"

namespace parlorwire {

// A line of the list.
struct ListedUser {
  Text nick;
  PanePosition nick_start = 0;
  Text IP;  // "" if the line shows none
  PanePosition IP_start = 0;

  PanePosition NickEnd() const { return nick_start + static_cast<PanePosition>(nick.size()); }
  bool OnNick(PanePosition at) const { return at >= nick_start && at < NickEnd(); }
  bool OnIP(PanePosition at) const {
    return at >= IP_start && at < IP_start + static_cast<PanePosition>(IP.size());
  }
};

// The user of the line in which the position lies; nothing on a line that shows none, such as a
// note. The nick is the first column, the one that is underlined, so it may hold blanks; the IP is
// the column behind it that is drawn in red. Costs the same in a list of any length.
std::optional<ListedUser> ListedUserAt(const RichTextBox& list, PanePosition at);

// The first user from a line on: downwards, or upwards. Lines without a user are passed over.
enum class ListDirection { kDown, kUp };
std::optional<ListedUser> NextListedUser(const RichTextBox& list, std::int64_t line,
                                         ListDirection direction);

// The line of exactly this nick.
std::optional<ListedUser> FindListedUser(const RichTextBox& list, std::string_view nick);

}  // namespace parlorwire
