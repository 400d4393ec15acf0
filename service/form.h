// The fields of a form, out of a body or a query and back.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "text/text.h"

namespace parlorwire::service {

// What the bytes of a form stand for.
enum class FormBytes {
  kKoi,        // the wire's character set
  kKoiOrUtf8,  // UTF-8 if the decoded bytes are that and hold more than ASCII; a browser's address
               // line
};

struct Form {
  std::vector<std::pair<Text, Text>> fields;

  // The first field of that name; "" if there is none.
  const Text& operator[](std::string_view name) const;
  bool Has(std::string_view name) const;
};

// "a=1&b=2", with "+" for a blank and "%XX" for a byte; a "%" without two digits stands for itself,
// and so does every other byte. At most 64 fields are read.
Form DecodeForm(std::string_view encoded, FormBytes bytes);

// The value of the first field of that name as it stands in the form, not decoded; "" if there is
// none.
std::string_view EncodedValue(std::string_view encoded, std::string_view name);

// A value whose escaped bytes are the wire's, and whose other bytes are Windows-1251 already.
Text DecodeUnrecoded(std::string_view encoded);

// A value for an address: the wire's bytes, all but letters and digits of ASCII and "-._~" as
// "%XX".
Text PercentEncode(std::string_view value);

// UTF-8 to Windows-1251; "?" for what the code page lacks. Not UTF-8: the result is empty.
Text FromUtf8(std::string_view utf8);

}  // namespace parlorwire::service
