// What the mouse does in a message pane. `at` is the position of the character under the pointer,
// or of the end of its line.
#pragma once

#include "pane/units.h"

namespace parlorwire {

struct Client;

enum class MouseButton { kLeft = 1, kRight = 2 };

void Rich_MouseDown(Client& client, int tab, PanePosition at, MouseButton button);

// Finds out what is under the pointer; that is kept until the next move. While the user selects,
// nothing is.
void Rich_MouseMove(Client& client, int tab, PanePosition at);

// Acts on what is under the pointer.
void Rich_MouseUp(Client& client, int tab, MouseButton button);

}  // namespace parlorwire
