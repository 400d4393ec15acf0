// Search in the message pane of the active tab: what the dialog `search_form` decides. Its controls
// are AppState::search_form.
#pragma once

namespace parlorwire {

struct Client;

enum class SearchDirection { kDown, kUp };

// Finds the next hit and selects it in the pane, for the reader to see. The first search starts at
// what is selected in the pane, every other one from the hit before, also if another tab has come
// up since. Downwards a hit may overlap the one before, upwards it ends ahead of it, and the blank
// ahead of a whole word counts to the word. Nothing found is said in a message box, and the next
// search starts at the same place again. Without a text nothing is done.
//
// Waiting events run while a long pane is searched; another search, another active tab, another
// session of the tab or StopSearch then ends this one.
void FindNext(Client& client, SearchDirection direction);

// The dialog goes away: what is still being searched is given up.
void StopSearch(Client& client);

}  // namespace parlorwire
