// The labels of the main window that open a page of the service in the user's browser.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct AppState;
struct Client;

// "http://", the service's host and, unless it is 80, ":" and its port.
Text ServiceAddress(const AppState& app);

// The pages of bans, of operators and of the topic's changes, for the active tab.
void sp_bans(Client& client);
void sp_opers(Client& client);
void hist_topic(Client& client);

// The page of the statistics site that config.ini names; `LetografUrl` is not empty.
void letogr(Client& client);

}  // namespace parlorwire
