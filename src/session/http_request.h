// The one form in which every request goes out: a form POST over HTTP/1.0 (RFC 1945), on a
// connection of its own.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct TabSession;

// The whole text to send, in the direct or in a proxy form as the proxy's controls say. `url` is
// the path, "?", and the query, which becomes the body; a url without "?" is Fault 5.
Text BuildRequest(Client& client, std::string_view url);

// The keys that most requests begin with: "username=", "&ticket=", "&channel=", "&chpwd=" with
// their values. The ticket goes raw; the other fields are escaped in place (see UrlEncodeKoi).
Text SessionQuery(TabSession& tab);

// A number of eight digits, 11111111..99999999, in decimal: fresh for each post, so that no two
// requests are alike.
Text EightDigitNumber(Client& client);

}  // namespace parlorwire
