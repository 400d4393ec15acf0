// The entry of every event that the windows hand to the logic.
#pragma once

#include <string_view>
#include <utility>

#include "session/client.h"
#include "session/fault_trap.h"

namespace parlorwire {

// Runs what an event does. A fault that nobody trapped is logged under the event's name, and the
// program goes on with the next event.
template <class Procedure>
void OnEvent(Client& client, std::string_view name, Procedure&& procedure) {
  GoOnAfterFault(client, ". Function: " + Text(name), std::forward<Procedure>(procedure));
}

}  // namespace parlorwire
