#include "session/wire_encoding.h"

#include <algorithm>
#include <cstdint>

#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=";

}  // namespace

Text UrlEncodeKoi(Text& text) {
  text = Replace(text, "%", "%25");
  text = Replace(text, "+", "%2B");
  text = Replace(text, "&", "%26");
  return ConvertCharset(text, Charset::kWindows1251, Charset::kKoi);
}

Text UrlEncodeKoiCopy(Text text) {
  return UrlEncodeKoi(text);
}

Text Base64Encode(std::string_view text) {
  Text bits;
  for (std::size_t group = 0; group < text.size(); group += 3)
    for (std::size_t i = group; i < group + 3; ++i)
      bits += i < text.size() ? ByteToBits(static_cast<std::uint8_t>(text[i]), 8) : "0000000=";
  Text result;
  for (std::size_t i = 0; i < bits.size(); i += 6) {
    const unsigned number = BitsToNumber(std::string_view(bits).substr(i, 6));
    if (number < kAlphabet.size()) result += kAlphabet[number];
  }
  return result;
}

Text ByteToBits(unsigned value, std::size_t width) {
  if (value == 64) return "00000 ";
  Text bits;
  for (; value != 0; value /= 2)
    bits += value % 2 ? '1' : '0';
  if (bits.size() < width) bits.append(width - bits.size(), '0');
  std::reverse(bits.begin(), bits.end());
  return bits;
}

unsigned BitsToNumber(std::string_view bits) {
  if (Contains(bits, "=")) return 64;
  if (Contains(bits, " ")) return 256;
  unsigned number = 0;
  for (const char bit : bits)
    number = number * 2 + (bit == '1' ? 1 : 0);
  return number;
}

Text PercentEncodeBytes(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  Text result;
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    result += {'%', kDigits[byte / 16], kDigits[byte % 16]};
  }
  return result;
}

}  // namespace parlorwire
