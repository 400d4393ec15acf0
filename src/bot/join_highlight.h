// The highlight of a nick that has just joined: five sweeps of colour over its letters in the list
// of users, a letter each 150 ms.
#pragma once

#include <string_view>

namespace parlorwire {

struct Client;

// The nick is to be highlighted once the list of users shows it. While a highlight of the tab
// sweeps it takes the next slot, else slot 1. Only the latest that waits starts with the list; one
// that waited before it is never shown. More than 32767 slots: Fault 6. The lists of slots of all
// tabs have one size, so a tab that falls back to slot 1 ends the highlights that other tabs have
// in higher slots. See docs/names.md.
void StartJoinHighlight(Client& client, int tab, std::string_view nick);

// A line of the list was drawn: the latest highlight of the tab starts, if it waits for that.
void StartWaitingHighlight(Client& client, int tab);

// The tick of a slot's timer, which is one of `Timer7` (tab 0) to `Timer16` (tab 9).
void JoinTimer_Timer(Client& client, int tab, int slot);

}  // namespace parlorwire
