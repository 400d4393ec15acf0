// What operators do: they send away and let in again, silence and give the word back, and make
// others operators. All of it is seen by the channel. Every result is the sentence to answer with,
// Windows-1251 and not escaped; it tells why, if nothing came of it. Whoever speaks must be on the
// channel, and his rights are the caller's affair.
#pragma once

#include <cstdint>
#include <optional>

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// Who commands, and where.
struct Speaker {
  Account& account;
  Channel* channel = nullptr;  // that was named; none if there is none of that name
  Member* member = nullptr;    // the account's own, on that channel; none if it isn't there
};

// Sends away, and keeps out for ChatOptions::kick_ms: a nick, or all others who come from an
// address. A nick that looks like an address is taken for the nick. The member and the channel may
// be gone after it.
Text Kick(Chat& chat, const Speaker& speaker, const Text& whom, const Text& reason,
          const Moment& now);

// Keeps out whom a mask names, see MaskMatches, and sends away who is there, but not the speaker. A
// channel keeps its last 500 bans.
Text Ban(Chat& chat, const Speaker& speaker, const Text& mask, const Text& reason,
         const Moment& now);

// Takes a ban or a kick back; the mask as it was said, in any case of letters.
Text Unban(const Speaker& speaker, const Text& mask);

// Sends away in a way that tells a client not to come back, but keeps nobody out. The member and
// the channel may be gone after it.
Text Eject(Chat& chat, const Speaker& speaker, const Text& nick, const Text& reason,
           const Moment& now);

// Takes a right for so many seconds, 1000000 at most; without a number for good. Taken twice, the
// last time counts.
Text TakeRight(Chat& chat, const Speaker& speaker, Right right, const Text& nick,
               std::optional<std::int64_t> seconds, const Text& reason, const Moment& now);

// Gives it back, also to one who has left.
Text GiveRight(Chat& chat, const Speaker& speaker, Right right, const Text& nick,
               const Moment& now);

// Makes an operator of somebody, or takes that back.
Text SetOperator(Chat& chat, const Speaker& speaker, bool on, const Text& nick, const Moment& now);

// The sentence about a nick against whom no operator may act.
Text IsProtectedSentence();

// The sentence about a nick that isn't there.
Text NoSuchNick(const Text& nick);

}  // namespace parlorwire::service
