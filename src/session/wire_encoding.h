// What the wire asks of a text besides its character set.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

// The value of a form field: "%", "+" and "&" escaped, everything else raw, in the wire's character
// set. The escaped text is stored back into `text`: a field that is passed directly grows with each
// request ("a+b" reads "a%2Bb" after the first and "a%252Bb" after the second). See docs/names.md.
Text UrlEncodeKoi(Text& text);

// The same for a text that is not to change.
Text UrlEncodeKoiCopy(Text text);

// Base64 (RFC 4648), with one deviation: a "@" does not give its eight bits. See docs/names.md.
Text Base64Encode(std::string_view text);

// The binary digits of a value, padded with zeros to `width`; "00000 " for 64, whatever the width.
Text ByteToBits(unsigned value, std::size_t width);

// 64 for digits with a "=" among them, else 256 for digits with a blank, else their value.
unsigned BitsToNumber(std::string_view bits);

// "%" and two upper-case hexadecimal digits for each byte.
Text PercentEncodeBytes(std::string_view text);

}  // namespace parlorwire
