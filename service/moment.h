// A point in time, as the chat sees it. The chat reads no clock of its own: it is handed a Moment.
#pragma once

#include <cstdint>

namespace parlorwire::service {

struct Moment {
  std::int64_t ms = 0;     // milliseconds of a clock that only runs forward; for periods
  std::int64_t local = 0;  // seconds of the local wall clock since 1970-01-01; for what people read
};

}  // namespace parlorwire::service
