// Nicks, names of channels, addresses, and the masks that name many of them. All Windows-1251.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire::service {

// The key under which a nick or a channel is kept: they are the same in any case of letters.
Text NickKey(std::string_view nick);

// Whether there are no line ends or other control characters in it: they would break a line of the
// wire. The no-break space counts as one.
bool IsPrintable(char c);

// 1 to 30 characters that may stand in a line and in an address without being taken for its
// punctuation, and that are seen; the letters of one alphabet.
bool NickIsAllowed(std::string_view nick);

// 1 to 60 characters that are seen, not all blanks, no colon.
bool ChannelIsAllowed(std::string_view name);

// Four numbers from 0 to 255, of one to three digits.
bool IsAddress(std::string_view text);

// Whether a mask names a nick or an address, in any case of letters. "*" stands for any run of
// characters, "?" for one, "#" for a digit; all others for themselves. No mask names "", which is
// an address that is hidden.
bool MaskMatches(std::string_view mask, std::string_view text);

}  // namespace parlorwire::service
