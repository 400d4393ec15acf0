// What the hot keys of the main window do. The window calls these when it is the active one and the
// keys go down; a key that is held acts once.
#pragma once

namespace parlorwire {

struct Client;
class RichTextBox;

// Ctrl+Tab and, the other way round, Ctrl+Shift+Tab: the visible tab after (ahead of) the active
// one, and from the last the first.
void ShowNextTab(Client& client);
void ShowPreviousTab(Client& client);

// Ctrl+1 to Ctrl+9 and, as the tenth, Ctrl+0: the n-th visible tab, from 1 on. False if there are
// not so many.
bool ShowNthTab(Client& client, int n);

// F5: the channel, or the page of channels, from the start.
void RefreshTab(Client& client);
// F6: logs off and in again. Only on a channel.
void LogInAfresh(Client& client);
// F7: gives the login dialog another try while a connect runs.
void LogInAnew(Client& client);
// F8: logs off, if the label `logoff` may.
void LogOff(Client& client);

// Ctrl+C: the pane whose selection is copied, which is the one that was clicked last if it is of
// the active tab; else none.
const RichTextBox* PaneToCopy(const Client& client);

}  // namespace parlorwire
