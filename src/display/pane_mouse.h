// What the mouse does in a message pane. `at` is the position of the character under the pointer,
// or of the end of its line; 0 or less means none.
//
// There is no table of what can be clicked: at each move the line under the pointer is read anew.
// So this rests on how TextOut, StatusOut and MentionBox write their lines.
#pragma once

#include "pane/units.h"

namespace parlorwire {

struct Client;

enum class MouseButton { kLeft = 1, kRight = 2 };

void Rich_MouseDown(Client& client, int tab, PanePosition at, MouseButton button);

// Finds out what is under the pointer, which is kept until the next move, and tints a nick there;
// the nick that was tinted before gets a colour back first, its own or that of all nicks, whatever
// rank it had. While the user selects, nothing is under the pointer, and nothing is tinted. The
// selection of the pane stays as it is.
void Rich_MouseMove(Client& client, int tab, PanePosition at);

// Acts on what was under the pointer at the last move. With the left button that needs a press: a
// double click acts once.
void Rich_MouseUp(Client& client, int tab, PanePosition at, MouseButton button);

// The pointer has left the pane: nothing is under it, and nothing is tinted.
void Rich_MouseLeave(Client& client, int tab);

// By keyboard: what a click does on what stands at the caret, or else on the last character of a
// selection that ends there.
void ClickAtCaret(Client& client, int tab, PaneRange selected, PanePosition caret,
                  MouseButton button);

}  // namespace parlorwire
