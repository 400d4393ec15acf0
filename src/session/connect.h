// Starting the connection of a tab.
#pragma once

#include "session/client.h"

namespace parlorwire {

// Puts the tab back to its start and connects it, with the login that its identity fields hold.
void ConnectToChat(Client& client, int tab);

}  // namespace parlorwire
