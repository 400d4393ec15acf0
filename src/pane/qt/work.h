// The work that a view does, counted for tests of what it costs.
#pragma once

#include <cstdint>

namespace parlorwire {

// A view has one, and its parts write to it as they work.
struct ViewWork {
  std::uint64_t laid_out = 0;  // fragments
  std::uint64_t wrapped = 0;   // characters measured, to be painted or only to be broken
  std::uint64_t paints = 0;    // paint events
  std::uint64_t painted = 0;   // fragments painted
};

}  // namespace parlorwire
