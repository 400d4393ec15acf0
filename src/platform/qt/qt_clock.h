// The clock of the machine, in the user's time zone.
#pragma once

#include "platform/clock.h"

namespace parlorwire {

class QtClock : public Clock {
 public:
  LocalTime Now() const override;
};

}  // namespace parlorwire
