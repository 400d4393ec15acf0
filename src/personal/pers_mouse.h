// The mouse in the pane of a personal window: links and address masks are live, and what is
// selected can be copied. `at` is as in display/pane_mouse.h.
#pragma once

#include "display/pane_mouse.h"

namespace parlorwire {

struct PersonalWindow;

void pers_frm_Rich_MouseDown(PersonalWindow& window, PanePosition at, MouseButton button);

// Finds out what is under the pointer, which is kept until the next move. While the user selects,
// nothing is.
void pers_frm_Rich_MouseMove(PersonalWindow& window, PanePosition at);

// Acts on what was under the pointer at the last move. With the left button that needs a press.
void pers_frm_Rich_MouseUp(Client& client, PersonalWindow& window, PanePosition at,
                           MouseButton button);

// By keyboard: what a click does on what stands at the caret, or else on the last character of a
// selection that ends there.
void ClickAtPersCaret(Client& client, PersonalWindow& window, PaneRange selected,
                      PanePosition caret, MouseButton button);

}  // namespace parlorwire
