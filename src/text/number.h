// Numbers and truth values out of text, by the classic conversions.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// A decimal number, with blanks around it, a sign, a fraction and an exponent allowed; a fraction
// is rounded to the nearest even. No number: Fault 13. Too large for the type: Fault 6.
std::int32_t ToLong(std::string_view text);
std::int16_t ToInteger(std::string_view text);

// The same without rounding.
double ToDouble(std::string_view text);

// "True" and "False" in any case; a number is true unless it is zero. Anything else: Fault 13.
bool ToBoolean(std::string_view text);

// Hexadecimal digits in either case. Empty, or any other character: Fault 13. Too large: Fault 6.
std::uint32_t FromHex(std::string_view digits);

// The number in decimal, with at most seven significant digits.
Text NumberText(double value);

// "True" or "False".
Text BooleanText(bool value);

}  // namespace parlorwire
