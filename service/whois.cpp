#include "service/whois.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "service/markup.h"
#include "text/cut.h"
#include "text/wildcard.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kOctets = 4;
constexpr std::size_t kLongestMask = 15;

struct Block {
  std::array<std::uint8_t, kOctets> base;
  unsigned prefix;  // bits
  std::string_view kind;
};

constexpr std::array<Block, 15> kSpecialBlocks = {{
    {{0, 0, 0, 0}, 8, W<"«эта сеть» (0.0.0.0/8)">},
    {{10, 0, 0, 0}, 8, W<"частная сеть (10.0.0.0/8)">},
    {{100, 64, 0, 0}, 10, W<"общий адрес сети поставщика (100.64.0.0/10)">},
    {{127, 0, 0, 0}, 8, W<"этот же компьютер (127.0.0.0/8)">},
    {{169, 254, 0, 0}, 16, W<"местный адрес линии (169.254.0.0/16)">},
    {{172, 16, 0, 0}, 12, W<"частная сеть (172.16.0.0/12)">},
    {{192, 0, 0, 0}, 24, W<"назначения протоколов (192.0.0.0/24)">},
    {{192, 0, 2, 0}, 24, W<"для примеров (192.0.2.0/24)">},
    {{192, 88, 99, 0}, 24, W<"бывший переход на IPv6 (192.88.99.0/24)">},
    {{192, 168, 0, 0}, 16, W<"частная сеть (192.168.0.0/16)">},
    {{198, 18, 0, 0}, 15, W<"для измерений (198.18.0.0/15)">},
    {{198, 51, 100, 0}, 24, W<"для примеров (198.51.100.0/24)">},
    {{203, 0, 113, 0}, 24, W<"для примеров (203.0.113.0/24)">},
    {{224, 0, 0, 0}, 4, W<"групповая рассылка (224.0.0.0/4)">},
    {{240, 0, 0, 0}, 4, W<"не распределён (240.0.0.0/4)">},
}};

// The numbers that each part of a mask fits.
using Octets = std::array<std::vector<std::uint8_t>, kOctets>;

std::optional<Octets> OctetsOf(std::string_view mask) {
  if (mask.size() > kLongestMask) return std::nullopt;
  const auto parts = Split(mask, ".");
  if (parts.size() != kOctets) return std::nullopt;
  Octets octets;
  for (std::size_t i = 0; i < kOctets; ++i) {
    for (unsigned value = 0; value < 256; ++value)
      if (MatchesMaskNoCase(std::to_string(value), parts[i]))
        octets[i].push_back(static_cast<std::uint8_t>(value));
    if (octets[i].empty()) return std::nullopt;
  }
  return octets;
}

enum class Overlap { kNone, kPart, kWhole };

Overlap OverlapOf(const Octets& octets, const Block& block) {
  Overlap overlap = Overlap::kWhole;
  for (std::size_t i = 0; i < kOctets; ++i) {
    const unsigned bits = std::clamp<unsigned>(block.prefix, 8 * static_cast<unsigned>(i),
                                               8 * static_cast<unsigned>(i) + 8) -
                          8 * static_cast<unsigned>(i);
    const unsigned network = (0xFF00U >> bits) & 0xFFU;
    const auto fits = std::ranges::count_if(octets[i], [&](std::uint8_t value) {
      return (value & network) == (block.base[i] & network);
    });
    if (fits == 0) return Overlap::kNone;
    if (fits < static_cast<std::ptrdiff_t>(octets[i].size())) overlap = Overlap::kPart;
  }
  return overlap;
}

}  // namespace

Text AddressKind(std::string_view mask) {
  const auto octets = OctetsOf(mask);
  if (!octets) return "это не адрес IPv4"_w;
  Text kinds;
  for (const Block& block : kSpecialBlocks) {
    const Overlap overlap = OverlapOf(*octets, block);
    if (overlap == Overlap::kWhole) return Text(block.kind);
    if (overlap == Overlap::kPart) kinds += " или "_w + Text(block.kind);
  }
  return "общедоступный адрес"_w + kinds;
}

Text WhoisPage(std::string_view mask) {
  return Page("whois", "<h1>" + EscapeHtml(mask) + "</h1>\n<p>" + EscapeHtml(AddressKind(mask)) +
                           "\n<p>О том, кто им пользуется, здесь ничего не известно.\n"_w);
}

}  // namespace parlorwire::service
