// The selection by which all output of the logic is made.
#pragma once

#include "platform/rich_text_box.h"
#include "session/client.h"

namespace parlorwire {

// Selects [start, end) in a pane, 0-based, out of the user's sight unless he is selecting with the
// mouse.
void SelectPaneEnd(Client& client, PanePosition start, PanePosition end, int tab);  // Rich
void SelectUsersPaneEnd(Client& client, PanePosition start, PanePosition end,
                        int tab);  // Rich_Users

}  // namespace parlorwire
