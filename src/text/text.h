// Text as the whole program holds it: Windows-1251, one byte a character. UTF-8 exists in source
// files and at the toolkit's edge, KOI8-R on the wire, and neither anywhere else.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "text/windows1251.h"

namespace parlorwire {

// Every byte is a character of Windows-1251.
using Text = std::string;

namespace literal {

// A UTF-8 literal, transcoded to Windows-1251 while compiling.
template <std::size_t N>
struct Windows1251Literal {
  std::array<char, N> bytes{};
  std::size_t length = 0;

  // Refuses, as a compile error, whatever the code page lacks.
  consteval Windows1251Literal(const char (&utf8)[N]) {
    for (std::size_t i = 0; i + 1 < N;) {
      const auto lead = static_cast<unsigned char>(utf8[i]);
      const std::size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
      char32_t character = size == 1 ? lead : lead & (0x7FU >> size);
      for (std::size_t k = 1; k < size; ++k)
        character = (character << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3FU);
      const int byte = FromUnicode(character);
      if (byte < 0) throw std::invalid_argument("a character that Windows-1251 lacks");
      bytes[length++] = static_cast<char>(byte);
      i += size;
    }
  }
};

}  // namespace literal

// "Отключено"_w is a Text.
template <literal::Windows1251Literal L>
Text operator""_w() {
  return Text(L.bytes.data(), L.length);
}

// The same as a view of static storage, for tables and comparisons: W<"приходит">.
template <literal::Windows1251Literal L>
inline constexpr std::string_view W{L.bytes.data(), L.length};

}  // namespace parlorwire
