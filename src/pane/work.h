// The work that a pane does, counted for tests of what it costs.
#pragma once

#include <cstdint>

namespace parlorwire {

// A pane has one, and its parts write to it as they work.
struct PaneWork {
  std::uint64_t blocks_touched = 0;  // blocks read or changed by editing and finding
  std::uint64_t runs_moved = 0;      // runs inserted, removed or shifted
};

}  // namespace parlorwire
