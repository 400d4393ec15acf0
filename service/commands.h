// Messages that begin with "/": what a nick asks of the service.
#pragma once

#include "service/chat.h"

namespace parlorwire::service {

struct Speaker {
  Account& account;
  Channel* channel = nullptr;  // none when the nick isn't on the channel that it named
  Member* member = nullptr;    // the account's own, on that channel
};

// Does what the text asks. The result is the sentence to answer with. The member may be gone after
// it.
Text RunCommand(Chat& chat, const Speaker& speaker, const Text& text, const Moment& now);

}  // namespace parlorwire::service
