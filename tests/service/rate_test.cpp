#include "service/rate.h"

#include <gtest/gtest.h>

namespace parlorwire::service {
namespace {

int TakenAt(Bucket& bucket, std::int64_t per_second, std::int64_t now_ms) {
  int taken = 0;
  while (taken < 10000 && Take(bucket, per_second, now_ms))
    ++taken;
  return taken;
}

TEST(Rate, IsTenSecondsWorthAtOnceAndThenSoMuchASecond) {
  Bucket bucket;
  EXPECT_EQ(TakenAt(bucket, 20, 5'000), 200);
  EXPECT_EQ(TakenAt(bucket, 20, 5'040), 0);
  EXPECT_EQ(TakenAt(bucket, 20, 6'000), 20);
  EXPECT_EQ(TakenAt(bucket, 20, 60'000), 200);
}

TEST(Rate, OfZeroIsNone) {
  Bucket bucket;
  EXPECT_EQ(TakenAt(bucket, 0, 5'000), 10000);
}

TEST(Rate, WaitsBehindWrongPasswordsDoubleUpToTheLongest) {
  Guesses guesses;
  for (int i = 0; i < 3; ++i)
    NoteWrong(guesses, 3, 60'000, 100);
  EXPECT_EQ(guesses.wait_until_ms, 0);
  for (const int wait : {1, 2, 4, 8, 16, 32, 60, 60}) {
    NoteWrong(guesses, 3, 60'000, 100);
    EXPECT_EQ(guesses.wait_until_ms, 100 + wait * 1000);
  }
  for (int i = 0; i < 100; ++i)
    NoteWrong(guesses, 3, 60'000, 100);
  EXPECT_EQ(guesses.wait_until_ms, 60'100);
}

}  // namespace
}  // namespace parlorwire::service
