// The ten tabs of the main window.
#pragma once

#include "session/client.h"

namespace parlorwire {

// The first tab that is not visible becomes visible, empty and active. With all ten visible there
// is a message and nothing else.
void AddTab(Client& client);

// A tab has become the active one, by a click or by the program; `previous` is the tab that was
// left. The window shows the tab's controls already.
void SSTab_Click(Client& client, int previous);

// The check box `SayUseOp` was clicked; it is ticked or not now. Each tab has a state of its own.
void SayUseOp_Click(Client& client, bool ticked);

}  // namespace parlorwire
