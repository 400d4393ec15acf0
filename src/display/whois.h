// The page that tells whose an address is.
#pragma once

#include <string_view>

namespace parlorwire {

struct Client;

// Opens the page of the gateway AppState::WhoisHost, or of the chat service if that is empty, for
// an address, which may be a mask such as "10.0.*.*".
void OpenWhois(Client& client, std::string_view address);

}  // namespace parlorwire
