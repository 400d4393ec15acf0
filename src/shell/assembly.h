// Puts the rooms of the core together.
#pragma once

namespace parlorwire {

struct Client;

// Fills the hooks, and gives every event of the sockets and timers of all tabs to its procedure. A
// fault that escapes a procedure ends there: it is logged, and the event loop goes on.
void Assemble(Client& client);

}  // namespace parlorwire
