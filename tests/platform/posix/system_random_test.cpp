#include "platform/posix/system_random.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

TEST(SystemRandom, GivesNumbersFromZeroToBelowOneInEveryTenth) {
  SystemRandom random;
  int tenths[10] = {};
  for (int i = 0; i < 10'000; ++i) {
    const double number = random.Next();
    ASSERT_GE(number, 0.0);
    ASSERT_LT(number, 1.0);
    ++tenths[static_cast<int>(number * 10)];
  }
  for (const int count : tenths) {
    EXPECT_GT(count, 700);
    EXPECT_LT(count, 1300);
  }
}

TEST(SystemRandom, TwoOfThemDiffer) {
  SystemRandom one, other;
  EXPECT_NE(one.Next(), other.Next());
}

}  // namespace
}  // namespace parlorwire
