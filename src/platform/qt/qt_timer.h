// The timer on the toolkit's event loop.
#pragma once

#include <QTimer>

#include "platform/timer.h"

namespace parlorwire {

// A timer may be set, switched off or destroyed by its own tick. Ticks that an occupied event loop
// misses do not come later.
class QtTimer : public Timer {
 public:
  QtTimer();

  void Interval(int milliseconds) override;
  int Interval() const override { return interval_; }
  void Enabled(bool on) override;
  bool Enabled() const override { return enabled_; }

 private:
  void StartPeriod();

  QTimer timer_;
  int interval_ = 0;
  bool enabled_ = false;
};

}  // namespace parlorwire
