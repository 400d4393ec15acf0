// The labels of the main window that open a page of the service in the user's browser.
#pragma once

namespace parlorwire {

struct Client;

// The pages of bans, of operators and of the topic's changes, for the active tab.
void sp_bans(Client& client);
void sp_opers(Client& client);
void hist_topic(Client& client);

// The page of the statistics site that config.ini names; `LetografUrl` is not empty.
void letogr(Client& client);

}  // namespace parlorwire
