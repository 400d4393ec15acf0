// A picture of pixels, as plain as it gets.
#pragma once

#include <cstdint>
#include <vector>

namespace parlorwire {

struct Picture {
  int width = 0;   // pixels
  int height = 0;  // pixels
  // How many of its pixels make one device-independent pixel: 2 for a picture that says that it has
  // 192 dots an inch, 1 for all others.
  int scale = 1;
  std::vector<std::uint32_t> pixels;  // 0xFFRRGGBB, row by row from the top

  bool operator==(const Picture&) const = default;
};

}  // namespace parlorwire
