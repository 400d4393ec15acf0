// Lines that name the user on a channel that he does not see are told in the tab that he does.
#pragma once

#include <string_view>

#include "pane/units.h"

namespace parlorwire {

struct Client;

// Shows the notice of a line that begins at `start` in Rich of `tab`, unless that is the tab that
// is seen, the window is not active, or what is seen is no channel. Beyond 20 in the second that
// begins with the first of them they are only counted, and one notice says how many these were.
void TellMention(Client& client, std::string_view text, int tab, PanePosition start);

// The tick of MentionSecond: that second is over.
void MentionSecond_Timer(Client& client, int tab);

}  // namespace parlorwire
