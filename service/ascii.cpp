#include "service/ascii.h"

#include <algorithm>

namespace parlorwire::service {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsAlphanumeric(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::optional<std::int64_t> ReadNumber(std::string_view text, std::size_t most_digits) {
  if (!IsNumber(text) || text.size() > most_digits) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : text)
    number = number * 10 + (digit - '0');
  return number;
}

}  // namespace parlorwire::service
