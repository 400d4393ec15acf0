#include "text/utf8.h"

#include "text/windows1251.h"

namespace parlorwire {

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  for (const char c : text) {
    const unsigned code = ToUnicode(c);
    if (code < 0x80) {
      utf8 += static_cast<char>(code);
    } else if (code < 0x800) {
      utf8 += static_cast<char>(0xC0 | code >> 6);
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | code >> 12);
      utf8 += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

// Each character of Windows-1251 has one to three bytes, and one way to be written in them. So what
// does not come out again as it went in was no UTF-8.
std::optional<Text> FromUtf8(std::string_view utf8) {
  Text text;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
    if (size > utf8.size() - i) return std::nullopt;
    char32_t character = size == 1 ? lead : lead & (0x7FU >> size);
    for (std::size_t k = 1; k < size; ++k)
      character = character << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3FU);
    const int byte = FromUnicode(character);
    if (byte < 0) return std::nullopt;
    text += static_cast<char>(byte);
    i += size;
  }
  if (ToUtf8(text) != utf8) return std::nullopt;
  return text;
}

}  // namespace parlorwire
