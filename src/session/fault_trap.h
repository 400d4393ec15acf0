// How procedures go on after a fault.
#pragma once

#include <string_view>

#include "session/error_log.h"
#include "text/fault.h"

namespace parlorwire {

struct Client;

// Writes "Error ", number, " ", description and `suffix` to error.log; number 360 is dropped.
void LogFault(Client& client, const Fault& fault, std::string_view suffix);

// Runs one statement that may fault; after a fault, logged under `suffix`, the procedure goes on
// behind it. True if it did not fault.
template <class Statement>
bool GoOnAfterFault(Client& client, std::string_view suffix, Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const Fault& fault) {
    LogFault(client, fault, suffix);
    return false;
  }
}

// The same where a fault is passed over without a word.
template <class Statement>
bool PassOverFault(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace parlorwire
