// The ten tabs of the main window.
#pragma once

namespace parlorwire {

struct Client;
struct TabSession;

// The first tab that is not visible becomes visible, empty and active. With all ten visible there
// is a message and nothing else.
void AddTab(Client& client);

// A tab has become the active one, by a click or by the program; `previous` is the tab that was
// left. The window shows the tab's controls already.
void SSTab_Click(Client& client, int previous);

// Closes the active tab, and shows the next one to the right, or else the first. If no tab is in
// use any more, asks instead whether to end the program; the tab stays then, whatever the answer.
// True if the program is to end: `Timer4` does that. While the tab's connections close, waiting
// events run.
bool close_tab(Client& client);

// Whether a tab is connected, connecting or on the channel list; and whether any is.
bool InUse(const TabSession& tab);
bool AnyTabInUse(const Client& client);

// Asks whether to end the program, since no tab is in use. True on yes.
bool AskToQuit(Client& client);

// The check box `SayUseOp` was clicked; it is ticked or not now. Each tab has a state of its own.
void SayUseOp_Click(Client& client, bool ticked);

}  // namespace parlorwire
