// Notices that stand in a pane between two coloured bars.
#pragma once

#include <string_view>

#include "pane/units.h"

namespace parlorwire {

struct Client;

// Tells in the pane of `pane_tab` of a line that concerns the user on another channel: that channel
// and the login there, the line, and the word "Перейти". `id` is where the line begins in the pane
// of its own tab; it stands in the notice, in black, for the click on that word to read.
void MentionBox(Client& client, std::string_view text, std::string_view login,
                std::string_view channel, int pane_tab, PanePosition id);

// What the bot has to report, shown to the user alone.
void BotReportOut(Client& client, std::string_view text, int tab);

}  // namespace parlorwire
