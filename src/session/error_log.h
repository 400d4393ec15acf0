// error.log, the one file that the program's own troubles go to.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// Appends "[" date time "] " text CR LF. A file that has reached 51000 bytes is started anew. Never
// fails: an entry that can't be written is lost.
void WriteErrorLog(Client& client, const Text& text);

}  // namespace parlorwire
