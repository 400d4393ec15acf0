#include "session/fault_trap.h"

namespace parlorwire {

void LogFault(Client& client, const Fault& fault, std::string_view suffix) {
  if (fault.number == fault::kAlreadyLoaded) return;
  WriteErrorLog(client,
                "Error " + std::to_string(fault.number) + " " + fault.description + Text(suffix));
}

}  // namespace parlorwire
