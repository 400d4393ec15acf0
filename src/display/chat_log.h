// The day log of a channel: "Logs\<channel>\dd.MM.yyyy.log".
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// Appends a piece of a line to today's log of a channel, creating the folders if need be. Pieces
// come in the order in which they are written to the pane; the first ones of a line end in the
// blank that the last one begins with.
// - A line feed is written as CR LF, so the CR LF that ends a piece becomes CR CR LF.
// - A piece that ends in a line feed goes over the last byte of the file, that is, over that blank.
//   In an empty file there is no such byte, and the piece is lost.
// - A channel that is blank has no log.
// Never fails: what can't be written is lost, and error.log is told of it once for a channel and
// day. The file is Windows-1251.
void LogChatLine(Client& client, std::string_view piece, const Text& channel);

}  // namespace parlorwire
