// Resource libraries and bitmaps, written for tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "text/text.h"

namespace parlorwire {

enum class ResourceForm { k32, k64 };

// A library without code.
struct ResourceFile {
  ResourceForm form = ResourceForm::k64;
  std::uint32_t address = 0x1000;  // where the section stands in the image
  // By type (2 bitmap, 6 block of strings), number and language.
  std::map<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>, Text> resources = {};

  void Bitmap(std::uint32_t id, const Text& dib, std::uint32_t language = 0);
  // The other strings of its block are empty unless they are set, too.
  void String(std::uint32_t id, std::u16string_view text, std::uint32_t language = 0);

  Text Bytes() const;

  // Offsets in Bytes().
  static constexpr std::size_t kHeader = 0x80;      // "PE"
  static constexpr std::size_t kResources = 0x200;  // the first directory; its section begins here
  std::size_t OptionalHeader() const { return kHeader + 24; }
  std::size_t Directories() const;    // of the optional header
  std::size_t SectionHeader() const;  // the only one
};

// `count` bytes of a number, the lowest first.
Text LittleEndianBytes(std::uint64_t number, std::size_t count);

// A bitmap's header and what follows it, put together by hand.
struct DibParts {
  std::uint32_t header = 40;  // its size
  std::int32_t width = 1;
  std::int32_t height = 1;
  std::uint32_t depth = 24;
  std::uint32_t compression = 0;
  std::uint32_t dots = 0;  // a metre
  std::uint32_t colours = 0;
  std::vector<std::uint32_t> masks = {};  // inside a header that has room for them, else behind it
  std::vector<std::uint32_t> palette = {};  // 0xRRGGBB
  Text data = {};

  Text Bytes() const;
};

// The smallest good picture of each kind of bitmap that there is, with its name.
std::vector<std::pair<Text, DibParts>> EveryKindOfDib();

}  // namespace parlorwire
