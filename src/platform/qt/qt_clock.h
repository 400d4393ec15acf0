// The clock of the machine, in the user's time zone.
#pragma once

#include <chrono>

#include "platform/clock.h"

namespace parlorwire {

// Works the calendar out once a second: to ask for the time zone costs more than to write a line.
class QtClock : public Clock {
 public:
  LocalTime Now() const override;
  std::int64_t Milliseconds() const override;

 private:
  mutable std::chrono::sys_seconds second_ = std::chrono::sys_seconds::min();
  mutable LocalTime now_;
};

}  // namespace parlorwire
