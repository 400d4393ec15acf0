// The port to the calendar and the clock on the wall.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace parlorwire {

// A moment in the user's time zone.
struct LocalTime {
  int year = 2000;
  int month = 1;  // 1..12
  int day = 1;    // 1..31
  int hour = 0;   // 0..23
  int minute = 0;
  int second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() const = 0;

  // The time since some moment, in ms. Goes on evenly, whatever the clock on the wall is set to.
  virtual std::int64_t Milliseconds() const = 0;
};

// "dd.MM.yyyy"
Text DateText(const LocalTime& time);

// "H:mm:ss": the hour without a leading zero
Text TimeText(const LocalTime& time);

// "HH:mm:ss", as status lines show it
Text PaddedTimeText(const LocalTime& time);

}  // namespace parlorwire
