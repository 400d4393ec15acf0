// The first reader of the frame: cuts the stream into lines as it arrives.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// Reads one decoded chunk, exactly as the socket handed it over: the header and the marks of the
// style count in the chunk in which they come. The first chunk with a whole line decides whether
// the frame is in the robots' style; if it is not, the style is
// repaired where that is possible. Then every message line
// goes to the hook ParseChatLine: without its LF, not blank, not "<!-- -->" or "<pre>", outside
// script blocks, its entities decoded, in stream order.
void CacheMessages(Client& client, const Text& chunk, int tab);

}  // namespace parlorwire
