// Every nick has a colour for the text of its messages, the same from one day to the next.
#pragma once

#include <string_view>

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// The colour of a nick; a ":" at its end doesn't count. A nick without one is given a random
// colour, whose green part is at least 100; one above kLongestColouredNick at each look-up. The
// nick's entry moves to the front of `CmIniText`. A fault inside lets waiting events run and gives
// 0.
PaneColour LookupMessageColor(Client& client, std::string_view nick);

// `CmIniText` from "CM.ini"; empty if there is no such file, if it can't be read, or if it is
// larger than 16 MiB. A file of the last two kinds is left alone from then on.
void LoadNickColours(Client& client);

// Writes `CmIniText` to "CM.ini" from its first byte on. What an older and longer text left behind
// the new one stays. A file that could not be loaded, or that has grown beyond 16 MiB, is not
// written, nor is a text that large. Failures are ignored.
void SaveNickColours(Client& client);

// The colour that the dialog of change_message_color opens with: that of the user's own messages
// for the nick of the active tab, and for a nick without an entry.
PaneColour MessageColorOf(const Client& client, std::string_view nick);

// The menu command of that name on `nick`, with the colour that was chosen, for the active tab. On
// the tab's own nick it sets rRichColors.TextColor, else the nick's entry. `CM.ini` is written at
// once, and `msg` gets the focus.
void change_message_color(Client& client, const Text& nick, PaneColour colour);

}  // namespace parlorwire
