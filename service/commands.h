// Messages that begin with "/": what a nick asks of the service.
#pragma once

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// Who commands, and where.
struct Speaker {
  Account& account;
  Channel* channel = nullptr;  // none when the nick isn't on the channel that it named
  Member* member = nullptr;    // the account's own, on that channel
};

// Does what the text, which begins with "/", asks. The result is the sentence to answer with,
// Windows-1251 and not escaped; it tells why, if nothing came of it. The member and the channel may
// be gone after it.
Text RunCommand(Chat& chat, const Speaker& speaker, const Text& text, const Moment& now);

}  // namespace parlorwire::service
