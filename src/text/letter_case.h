// The lower case of all 256 characters of Windows-1251: that of Unicode.
#pragma once

#include <array>
#include <cstdint>

namespace parlorwire {

namespace letter_case {

struct Pair {
  std::uint8_t upper;
  std::uint8_t lower;
};

// The pairs outside A..Z and 0xC0..0xFF.
inline constexpr std::array<Pair, 15> kScatteredPairs = {{{0xA8, 0xB8},
                                                          {0x80, 0x90},
                                                          {0x81, 0x83},
                                                          {0x8A, 0x9A},
                                                          {0x8C, 0x9C},
                                                          {0x8D, 0x9D},
                                                          {0x8E, 0x9E},
                                                          {0x8F, 0x9F},
                                                          {0xA1, 0xA2},
                                                          {0xA3, 0xBC},
                                                          {0xA5, 0xB4},
                                                          {0xAA, 0xBA},
                                                          {0xAF, 0xBF},
                                                          {0xB2, 0xB3},
                                                          {0xBD, 0xBE}}};

consteval std::array<char, 256> MakeLower() {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i)
    table[i] = static_cast<char>(i);
  for (unsigned i = 'A'; i <= 'Z'; ++i)
    table[i] = static_cast<char>(i + 0x20);
  for (unsigned i = 0xC0; i <= 0xDF; ++i)
    table[i] = static_cast<char>(i + 0x20);
  for (const Pair& pair : kScatteredPairs)
    table[pair.upper] = static_cast<char>(pair.lower);
  return table;
}

inline constexpr std::array<char, 256> kLower = MakeLower();

}  // namespace letter_case

constexpr char LowerCase(char c) {
  return letter_case::kLower[static_cast<std::uint8_t>(c)];
}

}  // namespace parlorwire
