// What a nick says on a channel.
#pragma once

#include <string_view>

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// The sentence about a message that the channel was shown.
inline constexpr std::string_view kMessageSent = W<"Сообщение отправлено">;

// Shows a message to the channel, or carries out the command that it is: a text that begins with
// "/". It is cut at 2000 characters, and control characters become blanks. `tone` is the name of
// one of kTones, or "". `number` is the post's "reqnum": a message with the number and the text of
// one of the last eight is passed over; "" is no number. The result is the sentence to answer with,
// Windows-1251 and not escaped; it tells why, if nothing came of it.
Text Post(Chat& chat, Account& account, const Text& channel, const Text& text, const Text& tone,
          const Text& number, const Moment& now);

}  // namespace parlorwire::service
