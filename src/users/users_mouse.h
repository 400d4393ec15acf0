// What the mouse does in a user list. `at` is the position of the character under the pointer, or
// of the end of its line; 0 or less means none.
#pragma once

#include "display/pane_mouse.h"
#include "pane/rich_text_box.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

void Rich_Users_MouseDown(Client& client, int tab, PanePosition at, MouseButton button);

// Finds out what is under the pointer, and tints a nick there; the nick that was tinted before gets
// its colour back first. While the user selects, nothing is under the pointer. The selection of the
// pane stays as it is.
void Rich_Users_MouseMove(Client& client, int tab, PanePosition at);

// Acts on what was under the pointer at the last move.
void Rich_Users_MouseUp(Client& client, int tab, PanePosition at, MouseButton button);

// The pointer has left a pane: Timer17 gives a tinted nick its colour back.
void MouseLeave(Client& client);
void Timer17_Timer(Client& client);

// What a click on a nick of the list does: the left button puts it into `msg` of the tab, ahead of
// what stands there; the right button opens the menu for it.
void ClickListedNick(Client& client, int tab, const Text& nick, MouseButton button);

}  // namespace parlorwire
