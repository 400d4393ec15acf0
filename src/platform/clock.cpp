#include "platform/clock.h"

namespace parlorwire {
namespace {

Text TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

Text DateText(const LocalTime& time) {
  return TwoDigits(time.day) + "." + TwoDigits(time.month) + "." + std::to_string(time.year);
}

Text TimeText(const LocalTime& time) {
  return std::to_string(time.hour) + ":" + TwoDigits(time.minute) + ":" + TwoDigits(time.second);
}

Text PaddedTimeText(const LocalTime& time) {
  return (time.hour < 10 ? "0" : "") + TimeText(time);
}

}  // namespace parlorwire
