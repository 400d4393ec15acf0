// Search through the day logs. Runs on a thread of its own: it knows nothing of the Client.
#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>

#include "platform/day_logs.h"
#include "text/searcher.h"
#include "text/text.h"

namespace parlorwire {

struct LogQuery {
  Text wanted;   // found in no line if empty
  Text channel;  // empty for all
  LogDay first;  // both days belong to it
  LogDay last;
  LetterCase letter_case = LetterCase::kIgnored;
  bool whole_words = false;  // no letter and no digit stands beside it
};

struct LogHit {
  DayLog log;
  std::int64_t at = 0;  // where the line begins, in bytes, 0-based
  Text line;            // without its end

  friend bool operator==(const LogHit&, const LogHit&) = default;
};

struct LogProgress {
  std::size_t logs = 0;    // that are searched already
  std::size_t of = 0;      // that are to be searched
  std::int64_t bytes = 0;  // that were read

  friend bool operator==(const LogProgress&, const LogProgress&) = default;
};

// Tells each line that holds what is wanted: those of the newest day first, its channels by name,
// the lines of a log from its beginning. Between blocks of 256 KiB and behind each log it tells how
// far it is; it ends at such a moment if it is asked to stop. What is written meanwhile may be
// found or not. A line above 256 KiB counts as several.
void SearchLogs(const DayLogs& logs, const LogQuery& query, const std::stop_token& stop,
                const std::function<void(LogHit)>& found,
                const std::function<void(const LogProgress&)>& progress);

}  // namespace parlorwire
