// The wire's character set. The chat service speaks KOI8-R for the letters; the other characters
// from 0x80 to 0xBF are a permutation of its own, which is not that of KOI8-R.
#pragma once

#include "text/text.h"

namespace parlorwire {

// Which table a text is in.
enum class Charset {
  kWindows1251 = 1,  // the text in memory
  kKoi = 3,          // the text on the wire
};

// The text, converted character by character. What has no counterpart becomes "?": coming in, the
// byte 0xA0; going out, the no-break space (0xA0).
Text ConvertCharset(Text text, Charset from, Charset to);

// From the wire to memory.
Text DecodeKoi(Text text);

}  // namespace parlorwire
