// How long the client waits before it connects once more of its own accord: a service that ends
// each connection as soon as it stands must not be asked without a pause.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "platform/timer.h"

namespace parlorwire {

inline constexpr std::int32_t kFirstWait = 1000;     // ms
inline constexpr std::int32_t kLongestWait = 60000;  // ms
inline constexpr std::int32_t kSoonAfter = 5000;     // ms
inline constexpr std::int64_t kCalm = 60000;         // ms

// The connects of one kind that a tab makes of its own accord. One that is wanted within SoonAfter
// of the last waits, kFirstWait at first and twice as long each time, up to LongestWait. Any other
// is made at once. When the last was kCalm ago, or there
// was none, the waits begin anew.
struct Backoff {
  std::unique_ptr<Timer> Wait;              // runs while a connect waits
  std::int32_t SoonAfter = kSoonAfter;      // ms
  std::int32_t LongestWait = kLongestWait;  // ms
  std::int32_t NextWait = kFirstWait;       // ms
  std::optional<std::int64_t> LastConnect;  // by Clock::Milliseconds
};

// Whether the connect that is wanted is to be made now; it counts as made then. If not, one waits:
// `Wait` ticks when its time has come, which it does once for all that are wanted until then.
bool ConnectsNow(Backoff& backoff, const Clock& clock);

// A connect is made now, whatever the waits: that for which `Wait` has ticked, or one at its own
// time.
void NoteConnect(Backoff& backoff, const Clock& clock);

// The user connects: nothing waits any more, and the next connect of the client's own accord is the
// first.
void StartAfresh(Backoff& backoff);

}  // namespace parlorwire
