// The port to a timer.
#pragma once

#include <functional>

namespace parlorwire {

// A periodic timer, switched off at first. Ticks come from the event loop.
// - Switching Enabled from off to on starts a new period; setting it on again changes nothing.
// - Setting Interval on a running timer starts a new period.
// - An Interval of 0 never ticks. A negative one throws Fault 380 and changes nothing.
class Timer {
 public:
  virtual ~Timer() = default;

  virtual void Interval(int milliseconds) = 0;
  virtual int Interval() const = 0;
  virtual void Enabled(bool on) = 0;
  virtual bool Enabled() const = 0;

  std::function<void()> Tick;
};

}  // namespace parlorwire
