// The list of nicks and addresses that are kicked on sight: AutoKick.lst, which is held as one
// text, `AutoKickText`.
//
// A line is an entry of fields with a TAB between them: mask; channels with ";" between them, or
// "All"; reason; nicks that are spared, with ";" between them. Empty lines, and those that begin
// with "//", are no entries.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

inline constexpr std::string_view kDefaultReason = W<"Доступ с Вашего ника или IP запрещен">;
inline constexpr std::string_view kAllChannels = "All";

// Whether a mask is one of addresses: four groups with "." between them, of one to three characters
// each, which are digits, "*" or "?". Any other mask is one of nicks.
bool IsAddressMask(std::string_view mask);

// Whether a field with ";" between its elements has this one; case does not matter.
bool Lists(std::string_view list, std::string_view element);

// AutoKick.lst as it stands, without the line ends behind its last line. "" if there is no such
// file or it can't be read; such a one is never written.
void LoadAutoKick(Client& client);

// Gives AutoKick.lst the two lines that begin it, and `AutoKickText`. A text that was read from the
// file begins with these lines itself, and has them twice then. See docs/names.md. Failures are
// passed over.
void SaveAutoKick(Client& client);

// The reason for which the list names a nick (`by_nick`) or an address on a channel; "" if it
// doesn't. `except_nick` is spared by an entry that says so, which ends the look-up. Nothing is
// named on a channel of `DisableKickChannels`.
// - An entry without reason never counts, but the next line that is no entry ends the look-up with
//   the default reason. An entry that ends in its third TAB gives the reason without its first
//   letter and with that TAB. See docs/names.md.
// - An entry of three fields that fits: Fault 5. An address of fewer than four groups: Fault 9 at
//   the first mask of addresses.
// Waiting events run in the middle; what they do to the list changes this look-up no more. The
// caller has to see whether its session still stands.
Text FindAutoKick(Client& client, const Text& who, const Text& channel, bool by_nick,
                  const Text& except_nick);

}  // namespace parlorwire
