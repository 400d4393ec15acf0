// UTF-8 at the edge of the system: the names of files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

std::string ToUtf8(std::string_view text);

// Nothing for bytes that are no UTF-8, and for characters that Windows-1251 lacks.
std::optional<Text> FromUtf8(std::string_view utf8);

}  // namespace parlorwire
