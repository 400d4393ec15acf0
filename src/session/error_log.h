// error.log, the one file that the program's own troubles go to.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// What is kept of what is dumped, in bytes.
inline constexpr std::size_t kLargestDump = 4096;

// The first kLargestDump bytes of what an entry or a status line is to show, and how many there
// were if that is not all of them.
Text DumpText(std::string_view dumped);

// Appends "[" date time "] " text CR LF. A file that has reached 51000 bytes is started anew. Never
// fails: an entry that can't be written is lost.
void WriteErrorLog(Client& client, const Text& text);

}  // namespace parlorwire
