#include "service/form.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "service/ascii.h"
#include "text/charset.h"
#include "text/windows1251.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kMostFields = 64;

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Hands over byte by byte what an encoded value stands for, with whether it was escaped.
template <class Take>
void ForEachByte(std::string_view encoded, Take take) {
  for (std::size_t i = 0; i < encoded.size(); ++i) {
    if (encoded[i] == '+') {
      take(' ', false);
    } else if (encoded[i] == '%' && i + 2 < encoded.size() && HexDigit(encoded[i + 1]) >= 0 &&
               HexDigit(encoded[i + 2]) >= 0) {
      take(static_cast<char>(HexDigit(encoded[i + 1]) * 16 + HexDigit(encoded[i + 2])), true);
      i += 2;
    } else {
      take(encoded[i], false);
    }
  }
}

std::string Unescape(std::string_view encoded) {
  std::string bytes;
  bytes.reserve(encoded.size());
  ForEachByte(encoded, [&](char byte, bool) { bytes += byte; });
  return bytes;
}

// The next field of a form: its name and its value, both encoded.
std::pair<std::string_view, std::string_view> TakeField(std::string_view& encoded) {
  const auto end = std::min(encoded.find('&'), encoded.size());
  const std::string_view field = encoded.substr(0, end);
  encoded.remove_prefix(std::min(end + 1, encoded.size()));
  const auto equals = std::min(field.find('='), field.size());
  return {field.substr(0, equals), field.substr(std::min(equals + 1, field.size()))};
}

// The next character of a UTF-8 text; nothing if it is not UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& utf8) {
  const auto lead = static_cast<std::uint8_t>(utf8[0]);
  if (lead < 0x80) {
    utf8.remove_prefix(1);
    return lead;
  }
  if (lead < 0xC2 || lead > 0xF4) return std::nullopt;
  const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (utf8.size() < size) return std::nullopt;
  char32_t character = lead & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    const auto byte = static_cast<std::uint8_t>(utf8[i]);
    if ((byte & 0xC0U) != 0x80) return std::nullopt;
    character = (character << 6) | (byte & 0x3FU);
  }
  utf8.remove_prefix(size);
  return character;
}

Text Decode(std::string_view encoded, FormBytes bytes) {
  const std::string raw = Unescape(encoded);
  if (bytes == FormBytes::kKoiOrUtf8) {
    const bool ascii = std::all_of(raw.begin(), raw.end(), [](char c) { return (c & 0x80) == 0; });
    if (Text text = FromUtf8(raw); !ascii && !text.empty()) return text;
  }
  return DecodeKoi(raw);
}

}  // namespace

const Text& Form::operator[](std::string_view name) const {
  static const Text kNone;
  const auto found = std::find_if(fields.begin(), fields.end(),
                                  [&](const auto& field) { return field.first == name; });
  return found == fields.end() ? kNone : found->second;
}

bool Form::Has(std::string_view name) const {
  return std::any_of(fields.begin(), fields.end(),
                     [&](const auto& field) { return field.first == name; });
}

Form DecodeForm(std::string_view encoded, FormBytes bytes) {
  Form form;
  while (!encoded.empty() && form.fields.size() < kMostFields) {
    const auto [name, value] = TakeField(encoded);
    if (!name.empty() || !value.empty())
      form.fields.emplace_back(Decode(name, bytes), Decode(value, bytes));
  }
  return form;
}

std::string_view EncodedValue(std::string_view encoded, std::string_view name) {
  while (!encoded.empty()) {
    const auto [found, value] = TakeField(encoded);
    if (found == name) return value;
  }
  return {};
}

Text DecodeUnrecoded(std::string_view encoded) {
  Text text;
  text.reserve(encoded.size());
  ForEachByte(encoded, [&](char byte, bool escaped) {
    text += escaped ? ConvertCharset({byte}, Charset::kKoi, Charset::kWindows1251)[0] : byte;
  });
  return text;
}

Text PercentEncode(std::string_view value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  Text encoded;
  for (const char c : ConvertCharset(Text(value), Charset::kWindows1251, Charset::kKoi)) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (IsAlphanumeric(c) || c == '-' || c == '.' || c == '_' || c == '~') {
      encoded += c;
    } else {
      encoded += '%';
      encoded += kDigits[byte >> 4];
      encoded += kDigits[byte & 0xF];
    }
  }
  return encoded;
}

Text FromUtf8(std::string_view utf8) {
  Text text;
  while (!utf8.empty()) {
    const auto character = TakeCharacter(utf8);
    if (!character) return {};
    const int byte = FromUnicode(*character);
    text += byte < 0 ? '?' : static_cast<char>(byte);
  }
  return text;
}

}  // namespace parlorwire::service
