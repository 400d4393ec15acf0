#include "platform/qt/qt_timer.h"

#include "text/fault.h"

namespace parlorwire {

QtTimer::QtTimer() {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    const auto tick = Tick;  // a copy, since the tick may destroy the timer
    if (tick) tick();
  });
}

void QtTimer::Interval(int milliseconds) {
  if (milliseconds < 0) throw Fault(fault::kInvalidProperty);
  interval_ = milliseconds;
  if (enabled_) StartPeriod();
}

void QtTimer::Enabled(bool on) {
  if (on == enabled_) return;
  enabled_ = on;
  if (on)
    StartPeriod();
  else
    timer_.stop();
}

void QtTimer::StartPeriod() {
  if (interval_ > 0)
    timer_.start(interval_);
  else
    timer_.stop();
}

}  // namespace parlorwire
