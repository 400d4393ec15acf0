#include "platform/qt/qt_clock.h"

#include <QDateTime>

namespace parlorwire {

LocalTime QtClock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

}  // namespace parlorwire
