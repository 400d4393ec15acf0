// The presentation that a frame comes in. The service has several; the client reads one, the style
// number 9, which is meant for robots, and has the service change to it.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

enum class FrameStyle {
  kRobots,  // style 9: the tab is on the channel now
  kOther,   // the rest of the connection is to be ignored; a repair may have been started
};

// Decides on the first chunk that holds a whole line, with the carry in front and the header cut.
FrameStyle CheckFrameStyle(Client& client, const Text& data, int tab);

}  // namespace parlorwire
