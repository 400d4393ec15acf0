#include "platform/qt/qt_clock.h"

#include <QDateTime>

namespace parlorwire {

LocalTime QtClock::Now() const {
  using std::chrono::seconds, std::chrono::system_clock;
  const auto second = std::chrono::floor<seconds>(system_clock::now());
  if (second == second_) return now_;
  const QDateTime now = QDateTime::fromSecsSinceEpoch(second.time_since_epoch().count());
  const QDate date = now.date();
  const QTime time = now.time();
  second_ = second;
  now_ = {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
  return now_;
}

std::int64_t QtClock::Milliseconds() const {
  using std::chrono::steady_clock, std::chrono::milliseconds;
  return std::chrono::floor<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace parlorwire
