// What the client reads of an answer's head.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

// The line that pages in the robots' style begin with.
inline constexpr std::string_view kRobotsMark = W<"этот стиль (номер 9) предназначен для роботов">;

// The answer without the header of a success ("HTTP/1.0 200" or "HTTP/1.1 200") but for its very
// last LF, so that the body begins with a LF. Any other answer stays whole, and so does a header
// whose blank line is missing.
Text WithoutHeader(Text answer);

}  // namespace parlorwire
