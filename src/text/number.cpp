#include "text/number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

template <class Integer>
Integer Rounded(std::string_view text) {
  const double value = std::nearbyint(ToDouble(text));  // to nearest, halves to even
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
    throw Fault(fault::kOverflow);
  return static_cast<Integer>(value);
}

}  // namespace

std::int32_t ToLong(std::string_view text) {
  return Rounded<std::int32_t>(text);
}

std::int16_t ToInteger(std::string_view text) {
  return Rounded<std::int16_t>(text);
}

double ToDouble(std::string_view text) {
  std::string_view number = TrimView(text);
  if (number.starts_with('+') && !number.starts_with("+-")) number.remove_prefix(1);
  // Words such as "inf" and "nan", which the library would take, are no numbers here.
  if (number.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
    throw Fault(fault::kTypeMismatch);
  double value = 0;
  const char* end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, value);
  if (error == std::errc::result_out_of_range) throw Fault(fault::kOverflow);
  if (error != std::errc() || stop != end) throw Fault(fault::kTypeMismatch);
  return value;
}

bool ToBoolean(std::string_view text) {
  const std::string_view word = TrimView(text);
  if (EqualsNoCase(word, "true")) return true;
  if (EqualsNoCase(word, "false")) return false;
  return ToDouble(word) != 0;
}

std::uint32_t FromHex(std::string_view digits) {
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
  if (error == std::errc::result_out_of_range) throw Fault(fault::kOverflow);
  if (error != std::errc() || stop != end) throw Fault(fault::kTypeMismatch);
  return value;
}

Text NumberText(double value) {
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::general, 7);
  return Text(digits.data(), end);
}

Text BooleanText(bool value) {
  return value ? "True" : "False";
}

}  // namespace parlorwire
