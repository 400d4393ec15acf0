// The way from a framed notice to the line that it tells of.
#pragma once

#include "pane/units.h"

namespace parlorwire {

struct Client;

// Reads the notice in Rich of `tab` back whose last word stands at `jump`, shows the tab that is on
// its channel with its nick, and there the line; a message box says if either is gone. What is no
// notice is passed over.
void JumpToNoticed(Client& client, int tab, PanePosition jump);

}  // namespace parlorwire
