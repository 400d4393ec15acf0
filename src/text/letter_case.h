// Lower and upper case of all 256 characters of Windows-1251: those of Unicode.
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

consteval std::array<char, 256> MakeTable(bool to_lower) {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i)
    table[i] = static_cast<char>(i);
  const auto add = [&](unsigned upper, unsigned lower) {
    if (to_lower)
      table[upper] = static_cast<char>(lower);
    else
      table[lower] = static_cast<char>(upper);
  };
  for (unsigned i = 'A'; i <= 'Z'; ++i)
    add(i, i + 0x20);
  for (unsigned i = 0xC0; i <= 0xDF; ++i)
    add(i, i + 0x20);
  for (const Pair& pair : kScatteredPairs)
    add(pair.upper, pair.lower);
  return table;
}

inline constexpr std::array<char, 256> kLower = MakeTable(true);
inline constexpr std::array<char, 256> kUpper = MakeTable(false);

}  // namespace letter_case

constexpr char LowerCase(char c) {
  return letter_case::kLower[static_cast<std::uint8_t>(c)];
}

constexpr char UpperCase(char c) {
  return letter_case::kUpper[static_cast<std::uint8_t>(c)];
}

}  // namespace parlorwire
