// What is publicly known of an address: its kind by the registry of special addresses. Nothing is
// told of who uses it.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire::service {

// Where it is asked for, as at the gateways of the web.
inline constexpr std::string_view kWhoisPage = "/serv/wwwwhois/nph-wwwtr.cgi";

// What the page says of an IPv4 address or of a mask, in which "*" and "?" stand for digits that
// are not shown. A mask may fit addresses of several kinds; all are named then.
Text AddressKind(std::string_view mask);

// The page about an address, as HTML.
Text WhoisPage(std::string_view mask);

}  // namespace parlorwire::service
