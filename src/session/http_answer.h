// What the client reads of an answer's head.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// The most that is kept of an answer, in bytes. No page of a chat comes near it; a server that
// never ends must not fill the memory.
inline constexpr std::size_t kLargestAnswer = std::size_t{16} * 1024 * 1024;

// Appends what has arrived of an answer to what is there of it; what goes beyond kLargestAnswer is
// dropped.
void TakeAnswer(Text& answer, std::string_view arrived);

// The line that pages in the robots' style begin with.
inline constexpr std::string_view kRobotsMark = W<"этот стиль (номер 9) предназначен для роботов">;

// The answer without the header of a success ("HTTP/1.0 200" or "HTTP/1.1 200") but for its very
// last LF, so that the body begins with a LF. Any other answer stays whole, and so does a header
// whose blank line is missing.
Text WithoutHeader(Text answer);

}  // namespace parlorwire
