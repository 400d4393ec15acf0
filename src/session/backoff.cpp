#include "session/backoff.h"

#include <algorithm>

namespace parlorwire {

bool ConnectsNow(Backoff& backoff, const Clock& clock) {
  if (backoff.Wait->Enabled()) return false;
  const std::int64_t since_last =
      backoff.LastConnect ? clock.Milliseconds() - *backoff.LastConnect : kCalm;
  if (since_last >= kCalm) backoff.NextWait = kFirstWait;
  if (since_last >= backoff.SoonAfter) {
    NoteConnect(backoff, clock);
    return true;
  }
  backoff.Wait->Interval(std::min(backoff.NextWait, backoff.LongestWait));
  backoff.Wait->Enabled(true);
  backoff.NextWait = std::min(2 * backoff.NextWait, backoff.LongestWait);
  return false;
}

void NoteConnect(Backoff& backoff, const Clock& clock) {
  backoff.Wait->Enabled(false);
  backoff.LastConnect = clock.Milliseconds();
}

void StartAfresh(Backoff& backoff) {
  backoff.Wait->Enabled(false);
  backoff.LastConnect.reset();
}

}  // namespace parlorwire
