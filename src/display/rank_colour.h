// What the flags that the service shows for a nick mean.
#pragma once

#include <string_view>

#include "pane/units.h"

namespace parlorwire {

struct AppState;
struct Client;

// The colour by the flags of a user, as in "[+o]"; the first of "+o", "+O" and "+A" decides, in
// this order and with regard to case. Without any of them: rRichColors.Nicks.
PaneColour RankColour(const AppState& app, std::string_view flags);

// Whether the flags are those of an operator or an administrator of any case; a user with "+a"
// counts as one and yet has no colour of his own.
bool HasOperatorFlag(std::string_view flags);

// The colour of a nick in the list of users that the tab has. A nick that is not in it:
// rRichColors.Nicks. A nick that a longer one ahead of it ends with gets that one's colour.
PaneColour ListedRankColour(const Client& client, std::string_view nick, int tab);

}  // namespace parlorwire
