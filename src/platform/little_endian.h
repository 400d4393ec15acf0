// Numbers in bytes from outside, the lowest byte first. Whatever reaches beyond the bytes throws
// std::out_of_range.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace parlorwire {

// `size` bytes from the 0-based offset `at` on.
inline std::string_view Stretch(std::string_view bytes, std::uint64_t at, std::uint64_t size) {
  if (at > bytes.size() || size > bytes.size() - at) throw std::out_of_range("beyond the bytes");
  return bytes.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
}

inline std::uint8_t Number8(std::string_view bytes, std::uint64_t at) {
  return static_cast<std::uint8_t>(Stretch(bytes, at, 1)[0]);
}

inline std::uint16_t Number16(std::string_view bytes, std::uint64_t at) {
  const std::string_view found = Stretch(bytes, at, 2);
  return static_cast<std::uint16_t>(static_cast<std::uint8_t>(found[0]) |
                                    static_cast<std::uint8_t>(found[1]) << 8U);
}

inline std::uint32_t Number32(std::string_view bytes, std::uint64_t at) {
  const std::string_view found = Stretch(bytes, at, 4);
  return Number16(found, 0) | std::uint32_t{Number16(found, 2)} << 16U;
}

}  // namespace parlorwire
