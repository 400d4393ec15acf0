#include "platform/dib.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/little_endian.h"

namespace parlorwire {
namespace {

constexpr std::uint32_t kOldHeader = 12;  // 16-bit sizes, palette entries of 3 bytes
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kHeaderWithMasks = 52;  // from this size on
constexpr std::array<std::uint32_t, 6> kHeaders{kOldHeader, kInfoHeader, kHeaderWithMasks,
                                                56,         108,         124};
constexpr std::array<std::uint32_t, 6> kDepths{1, 4, 8, 16, 24, 32};

enum Compression : std::uint32_t { kNone = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3 };

constexpr std::uint64_t kAlwaysTaken = 262'144;  // pixels
constexpr std::uint64_t kPixelsForAByte = 8;

// 192 dots an inch, in dots a metre, as programs round it.
constexpr std::uint32_t kLeastDoubled = 7500;
constexpr std::uint32_t kMostDoubled = 7620;

constexpr std::uint32_t kOpaque = 0xFF000000;

struct BrokenDib : std::runtime_error {
  BrokenDib() : std::runtime_error("no such bitmap") {}
};

void Demand(bool holds) {
  if (!holds) throw BrokenDib();
}

std::uint32_t ColourOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return kOpaque | red << 16U | green << 8U | blue;
}

// One colour of a pixel that is told by masks.
class Mask {
 public:
  explicit Mask(std::uint32_t bits)
      : bits_(bits), shift_(bits == 0 ? 0 : std::countr_zero(bits)), most_(bits >> shift_) {}
  std::uint32_t Of(std::uint32_t pixel) const {
    if (bits_ == 0) return 0;
    const std::uint64_t value = (pixel & bits_) >> shift_;
    return static_cast<std::uint32_t>((value * 255 + most_ / 2) / most_);
  }

 private:
  std::uint32_t bits_;
  int shift_;
  std::uint32_t most_;
};

class DibReader {
 public:
  explicit DibReader(std::string_view bytes) : bytes_(bytes) {}

  Picture Read() {
    ReadHeader();
    ReadMasks();
    ReadPalette();
    picture_.pixels.assign(
        static_cast<std::size_t>(picture_.width) * static_cast<std::size_t>(picture_.height),
        PaletteColour(0));
    if (compression_ == kRuns8 || compression_ == kRuns4)
      ReadRuns();
    else
      ReadRows();
    return std::move(picture_);
  }

 private:
  void ReadHeader();
  void ReadMasks();
  void ReadPalette();
  void ReadRows();
  void ReadRuns();
  void ReadAbsolute(std::uint32_t count);

  std::uint32_t PaletteColour(std::uint32_t index) const {
    return index < palette_.size() ? palette_[index] : kOpaque;
  }
  std::uint32_t PixelOf(std::string_view row, std::uint32_t x) const;

  // The row that is told as the number `told`.
  std::uint32_t* Row(std::uint32_t told) {
    const auto height = static_cast<std::uint32_t>(picture_.height);
    const std::size_t row = top_down_ ? told : height - 1 - told;
    return picture_.pixels.data() + row * static_cast<std::size_t>(picture_.width);
  }
  std::uint8_t NextByte() { return Number8(bytes_, at_++); }
  // The next pixel of a run; those beyond the row's end are left out.
  void Put(std::uint32_t index) {
    if (run_x_ < static_cast<std::uint32_t>(picture_.width) &&
        run_y_ < static_cast<std::uint32_t>(picture_.height))
      Row(run_y_)[run_x_] = PaletteColour(index);
    ++run_x_;
  }

  std::string_view bytes_;
  std::uint64_t at_ = 0;  // where reading goes on
  Picture picture_;
  std::uint32_t header_ = 0;
  std::uint32_t depth_ = 0;
  std::uint32_t compression_ = kNone;
  std::uint32_t colours_ = 0;  // named in the header; 0 for the whole palette
  bool top_down_ = false;
  Mask red_{0};
  Mask green_{0};
  Mask blue_{0};
  std::vector<std::uint32_t> palette_;
  std::uint32_t run_x_ = 0;
  std::uint32_t run_y_ = 0;
};

void DibReader::ReadHeader() {
  header_ = Number32(bytes_, 0);
  Demand(std::ranges::find(kHeaders, header_) != kHeaders.end());
  Stretch(bytes_, 0, header_);
  at_ = header_;
  std::int64_t width = 0;
  std::int64_t height = 0;
  if (header_ == kOldHeader) {
    width = Number16(bytes_, 4);
    height = Number16(bytes_, 6);
    depth_ = Number16(bytes_, 10);
    Demand(depth_ != 16 && depth_ != 32);
  } else {
    width = static_cast<std::int32_t>(Number32(bytes_, 4));
    height = static_cast<std::int32_t>(Number32(bytes_, 8));
    depth_ = Number16(bytes_, 14);
    compression_ = Number32(bytes_, 16);
    const std::uint32_t dots = Number32(bytes_, 24);
    if (dots >= kLeastDoubled && dots <= kMostDoubled) picture_.scale = 2;
    colours_ = Number32(bytes_, 32);
  }
  top_down_ = height < 0;
  height = std::abs(height);
  Demand(width >= 1 && width <= kLargestPictureSide);
  Demand(height >= 1 && height <= kLargestPictureSide);
  const auto pixels = static_cast<std::uint64_t>(width * height);
  Demand(pixels <= kAlwaysTaken || pixels / kPixelsForAByte <= bytes_.size());
  Demand(std::ranges::find(kDepths, depth_) != kDepths.end());
  Demand(compression_ == kNone || (compression_ == kRuns8 && depth_ == 8) ||
         (compression_ == kRuns4 && depth_ == 4) ||
         (compression_ == kMasks && (depth_ == 16 || depth_ == 32)));
  picture_.width = static_cast<int>(width);
  picture_.height = static_cast<int>(height);
}

void DibReader::ReadMasks() {
  if (compression_ == kMasks) {
    red_ = Mask(Number32(bytes_, kInfoHeader));
    green_ = Mask(Number32(bytes_, kInfoHeader + 4));
    blue_ = Mask(Number32(bytes_, kInfoHeader + 8));
    if (header_ < kHeaderWithMasks) at_ += 12;
  } else if (depth_ == 16) {
    red_ = Mask(0x7C00);
    green_ = Mask(0x03E0);
    blue_ = Mask(0x001F);
  } else {
    red_ = Mask(0xFF0000);
    green_ = Mask(0x00FF00);
    blue_ = Mask(0x0000FF);
  }
}

void DibReader::ReadPalette() {
  const std::uint32_t size = header_ == kOldHeader ? 3 : 4;
  const std::uint32_t whole = depth_ <= 8 ? 1U << depth_ : 0;
  const std::uint64_t named = colours_ == 0 ? whole : colours_;
  const std::string_view entries = Stretch(bytes_, at_, named * size);
  at_ += entries.size();
  for (std::uint32_t i = 0; i < std::min<std::uint64_t>(named, whole); ++i) {
    const std::uint64_t entry = std::uint64_t{i} * size;
    palette_.push_back(ColourOf(Number8(entries, entry + 2), Number8(entries, entry + 1),
                                Number8(entries, entry)));
  }
}

std::uint32_t DibReader::PixelOf(std::string_view row, std::uint32_t x) const {
  if (depth_ <= 8) {
    const std::uint32_t bit = x * depth_;
    const std::uint32_t byte = Number8(row, bit / 8);
    return PaletteColour(byte >> (8 - depth_ - bit % 8) & ((1U << depth_) - 1));
  }
  const std::uint64_t at = std::uint64_t{x} * depth_ / 8;
  const std::uint32_t pixel = depth_ == 16 ? Number16(row, at)
                              : depth_ == 32
                                  ? Number32(row, at)
                                  : Number16(row, at) | std::uint32_t{Number8(row, at + 2)} << 16U;
  return ColourOf(red_.Of(pixel), green_.Of(pixel), blue_.Of(pixel));
}

void DibReader::ReadRows() {
  const auto width = static_cast<std::uint32_t>(picture_.width);
  const auto height = static_cast<std::uint32_t>(picture_.height);
  const std::uint64_t stride = (std::uint64_t{width} * depth_ + 31) / 32 * 4;
  const std::string_view rows = Stretch(bytes_, at_, stride * height);
  for (std::uint32_t y = 0; y < height; ++y) {
    const std::string_view row = Stretch(rows, y * stride, stride);
    std::uint32_t* pixels = Row(y);
    for (std::uint32_t x = 0; x < width; ++x)
      pixels[x] = PixelOf(row, x);
  }
}

// Pairs of a count and a pixel (with 4 bits two pixels, that take turns); a count of 0 begins a
// word of command.
void DibReader::ReadRuns() {
  enum Command : std::uint8_t { kEndOfLine = 0, kEndOfBitmap = 1, kDelta = 2 };
  const auto height = static_cast<std::uint32_t>(picture_.height);
  while (run_y_ < height) {
    const std::uint32_t count = NextByte();
    const std::uint32_t value = NextByte();
    if (count > 0) {
      for (std::uint32_t i = 0; i < count; ++i)
        Put(depth_ == 8 ? value : i % 2 == 0 ? value >> 4U : value & 15U);
    } else if (value == kEndOfLine) {
      run_x_ = 0;
      ++run_y_;
    } else if (value == kEndOfBitmap) {
      return;
    } else if (value == kDelta) {
      run_x_ += NextByte();
      run_y_ += NextByte();
    } else {
      ReadAbsolute(value);
    }
    // All pixels are there; what follows can only be the end.
    if (run_y_ + 1 == height && run_x_ >= static_cast<std::uint32_t>(picture_.width) &&
        at_ == bytes_.size())
      return;
  }
}

void DibReader::ReadAbsolute(std::uint32_t count) {
  const std::uint32_t size = depth_ == 8 ? count : (count + 1) / 2;
  const std::string_view run = Stretch(bytes_, at_, size);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (depth_ == 8)
      Put(Number8(run, i));
    else
      Put(i % 2 == 0 ? Number8(run, i / 2) >> 4U : Number8(run, i / 2) & 15U);
  }
  at_ += size + size % 2;
}

}  // namespace

std::optional<Picture> ReadDib(std::string_view bytes) {
  try {
    return DibReader(bytes).Read();
  } catch (const std::out_of_range&) {
    return std::nullopt;
  } catch (const BrokenDib&) {
    return std::nullopt;
  }
}

}  // namespace parlorwire
