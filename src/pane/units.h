// What a pane is measured in: positions, what lies between two of them, and colours.
#pragma once

#include <cstdint>

namespace parlorwire {

using PanePosition = std::int64_t;  // 0-based, between two characters
using PaneColour = std::uint32_t;   // 0x00BBGGRR

// The characters from `start` up to `end`.
struct PaneRange {
  PanePosition start = 0;
  PanePosition end = 0;

  bool empty() const { return start >= end; }
  bool operator==(const PaneRange&) const = default;
};

struct PaneLine {
  PanePosition start = 0;
  PanePosition length = 0;  // without its break
  PanePosition next = 0;    // the start of the next line; the text's end for the last line
};

}  // namespace parlorwire
