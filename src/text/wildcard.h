// Masks with wildcards.
#pragma once

#include <string_view>

namespace parlorwire {

// Whether the whole of `text` fits a mask, without regard to case: "*" is any run of characters,
// also none, "?" one character, "#" one digit. Every other character, a bracket too, is itself.
bool MatchesMaskNoCase(std::string_view text, std::string_view mask);

}  // namespace parlorwire
