// The entry of every event, of sockets, timers and windows alike.
#pragma once

#include <exception>
#include <string_view>

#include "session/fault_trap.h"
#include "text/fault.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// Runs what an event does. What nobody has caught is logged under the event's name, and the program
// goes on with the next event.
template <class Procedure>
void OnEvent(Client& client, std::string_view name, Procedure&& procedure) {
  const auto suffix = [name] { return ". Function: " + Text(name); };
  try {
    procedure();
  } catch (const Fault& fault) {
    LogFault(client, fault, suffix());
  } catch (const std::exception& failure) {  // of the language's library
    LogFault(client, Fault(fault::kInternal, failure.what()), suffix());
  }
}

}  // namespace parlorwire
