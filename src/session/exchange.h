// One request to the service and its answer, on a connection of their own: connect, send, and
// gather what comes until the service closes.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/winsock.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// Gives up whatever the socket is doing, and connects it to the service.
void ConnectAfresh(Client& client, Winsock& socket);

// Sends the request for `url`, which is the path, "?" and the query. Without a "?": Fault 5.
void SendRequest(Client& client, Winsock& socket, std::string_view url);

// Appends to `answer` what has arrived, up to kLargestAnswer; with `bytes_total` 0 nothing.
void GatherAnswer(Winsock& socket, std::size_t bytes_total, Text& answer);

}  // namespace parlorwire
