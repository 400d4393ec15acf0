// The log of the addresses at which nicks were seen: IPlog.log, which is held as one text,
// `IpLogText`.
//
// A line is an address and the nicks seen there, oldest first, with a blank ahead of each. CR LF
// joins the lines and stands ahead of the first, so a new log begins with an empty line.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// IPlog.log as it stands; "" if there is no such file or it can't be read. Such a one is never
// written.
void LoadIpLog(Client& client);

// What the log had of a nick and an address before they were logged.
struct SeenBefore {
  bool address = false;
  bool nick = false;  // at this address
  Text others;        // the other nicks there, blanks between them
};

// Logs the nick at the address, unless it stands there, and brings the file up to date. The address
// is found wherever the text has it, also inside a longer one. See docs/names.md. A file that can't
// be written is noted in error.log; the next change writes all of it.
SeenBefore LogNickAtAddress(Client& client, const Text& nick, const Text& address);

}  // namespace parlorwire
