// Where the pages of the chat service are.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct AppState;

// "http://", the service's host and, unless it is 80, ":" and its port.
Text ServiceAddress(const AppState& app);

}  // namespace parlorwire
