// Messages that begin with "/": what a nick asks of the service.
#pragma once

#include "service/chat.h"
#include "service/moderation.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// Does what the text, which begins with "/", asks. The result is the sentence to answer with,
// Windows-1251 and not escaped; it tells why, if nothing came of it. The member and the channel may
// be gone after it.
Text RunCommand(Chat& chat, const Speaker& speaker, const Text& text, const Moment& now);

}  // namespace parlorwire::service
