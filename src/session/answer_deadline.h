// A service that takes a connection and says nothing, or does not end its answer, must not hold a
// tab for ever.
#pragma once

#include <functional>

#include "platform/timer.h"
#include "platform/winsock.h"

namespace parlorwire {

inline constexpr int kAnswerDeadline = 60000;  // ms

// Watches a socket whose events are set, with a timer of its own. A connection that carries a
// finite answer, as `is_finite` says each time, and on which nothing has come for kAnswerDeadline,
// be it the first byte, more bytes or the service's close, ends like a connect that timed out: it
// is closed, and the socket's handler for errors is told 10060.
void WatchAnswers(Winsock& socket, Timer& timer, std::function<bool()> is_finite);

}  // namespace parlorwire
