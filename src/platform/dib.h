// Bitmaps as resources hold them: a header, a palette or masks, and rows of pixels, without the
// header of a file.
#pragma once

#include <optional>
#include <string_view>

#include "platform/picture.h"

namespace parlorwire {

inline constexpr int kLargestPictureSide = 4096;  // pixels

// Reads headers of 12, 40, 52, 56, 108 and 124 bytes, with 1, 4, 8, 16, 24 and 32 bits a pixel, run
// lengths of 4 and 8 bits, and masks of 16 and 32. Nothing for any other kind, for what is cut or
// larger than kLargestPictureSide, and for a picture of more than 262,144 pixels that has more than
// 8 of them for each byte.
std::optional<Picture> ReadDib(std::string_view bytes);

}  // namespace parlorwire
