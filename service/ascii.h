// ASCII digits and letters, whatever the locale: of numbers, addresses and the heads of requests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace parlorwire::service {

// 0 to 9.
bool IsDigit(char c);

// 0 to 9, a to z, A to Z.
bool IsAlphanumeric(char c);

// Whether a text is digits and nothing else. "" is none.
bool IsNumber(std::string_view text);

// The value of a text of 1 to `most_digits` digits, leading zeros counted; nothing if it is any
// other text. most_digits is 18 at most.
std::optional<std::int64_t> ReadNumber(std::string_view text, std::size_t most_digits);

}  // namespace parlorwire::service
