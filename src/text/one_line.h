// Text that has to stay on one line.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

// The text with a blank for each TAB, CR and LF.
Text OneLine(std::string_view text);

}  // namespace parlorwire
