#include "text/charset.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "text/charset_wide.h"

namespace parlorwire {
namespace {

// The wire's byte for each byte of memory from 0x80 on.
constexpr std::array<std::uint8_t, 128> kKoiTable = {
    // 0x80: a permutation
    0x90, 0x91, 0x92, 0x81, 0x87, 0xB2, 0xB4, 0xA7, 0xA6, 0xB5, 0xA1, 0xA8, 0xAE, 0xAD, 0xAC, 0x83,
    0x84, 0x89, 0x88, 0x86, 0x80, 0x8A, 0xAF, 0xB0, 0xAB, 0xA5, 0xBB, 0xB8, 0xB1, 0x20, 0xBE, 0xB9,
    0xBA, 0xB6, 0xB7, 0xAA, 0xA9, 0xA2, 0xA4, 0xBD, 0xB3, 0x85, 0x82, 0x8D, 0x8C, 0x8E, 0x8F, 0x8B,
    0x99, 0x98, 0x93, 0x9B, 0x9F, 0x97, 0x9C, 0x9E, 0xA3, 0x96, 0x9A, 0x9D, 0x94, 0xBF, 0xBC, 0x95,
    // 0xC0, the letters: KOI8-R (RFC 1489)
    0xE1, 0xE2, 0xF7, 0xE7, 0xE4, 0xE5, 0xF6, 0xFA, 0xE9, 0xEA, 0xEB, 0xEC, 0xED, 0xEE, 0xEF, 0xF0,
    0xF2, 0xF3, 0xF4, 0xF5, 0xE6, 0xE8, 0xE3, 0xFE, 0xFB, 0xFD, 0xFF, 0xF9, 0xF8, 0xFC, 0xE0, 0xF1,
    0xC1, 0xC2, 0xD7, 0xC7, 0xC4, 0xC5, 0xD6, 0xDA, 0xC9, 0xCA, 0xCB, 0xCC, 0xCD, 0xCE, 0xCF, 0xD0,
    0xD2, 0xD3, 0xD4, 0xD5, 0xC6, 0xC8, 0xC3, 0xDE, 0xDB, 0xDD, 0xDF, 0xD9, 0xD8, 0xDC, 0xC0, 0xD1};

// What stands beside each entry of the table: the byte of memory itself, but for the no-break
// space, in whose place is a plain blank.
constexpr std::uint8_t BaseEntry(unsigned index) {
  return index == 0x20 ? ' ' : static_cast<std::uint8_t>(0x80 + index);
}

using Mapping = std::array<char, 256>;

// A character below 0x80 stays; one above goes from its first place on one side to the other side.
template <class FromEntry, class ToEntry>
consteval Mapping MakeMapping(FromEntry from, ToEntry to) {
  Mapping mapping{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    mapping[byte] = byte < 0x80 ? static_cast<char>(byte) : '?';
    if (byte < 0x80) continue;
    for (unsigned i = 128; i-- > 0;)
      if (from(i) == byte) mapping[byte] = static_cast<char>(to(i));
  }
  return mapping;
}

constexpr auto kKoiEntry = [](unsigned i) { return kKoiTable[i]; };
constexpr Mapping kFromKoi = MakeMapping(kKoiEntry, BaseEntry);
constexpr Mapping kToKoi = MakeMapping(BaseEntry, kKoiEntry);

void MapPlainly(char* bytes, std::size_t count, const Mapping& mapping) {
  for (std::size_t i = 0; i < count; ++i)
    bytes[i] = mapping[static_cast<std::uint8_t>(bytes[i])];
}

void Map(Text& text, const Mapping& mapping) {
  std::size_t done = 0;
#ifdef PARLORWIRE_AVX2
  if (__builtin_cpu_supports("avx2")) done = MapWide(text.data(), text.size(), mapping.data());
#endif
  MapPlainly(text.data() + done, text.size() - done, mapping);
}

}  // namespace

Text ConvertCharset(Text text, Charset from, Charset to) {
  if (from != to) Map(text, from == Charset::kKoi ? kFromKoi : kToKoi);
  return text;
}

Text DecodeKoi(Text text) {
  return ConvertCharset(std::move(text), Charset::kKoi, Charset::kWindows1251);
}

}  // namespace parlorwire
