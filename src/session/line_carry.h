// A line that comes in pieces must end some time.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// The most that is kept of a line whose end has not come, in bytes.
inline constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

// Appends more of a line to its beginning, `carry`. What goes beyond kLongestLine is dropped, but
// for a line feed at the end: `cut` is set, and error.log is told.
void CarryOn(Client& client, Text& carry, bool& cut, std::string_view more);

// Takes from what has arrived the rest of a line that was cut, up to the line feed that ends it.
// `cut` goes with that.
void DropRestOfCutLine(Text& arrived, bool& cut);

}  // namespace parlorwire
