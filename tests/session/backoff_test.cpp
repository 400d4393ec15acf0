#include "session/backoff.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct BackoffTest : testing::Test {
  BackoffTest() {
    backoff.Wait = time.NewTimer();
    backoff.Wait->Tick = [this] {
      NoteConnect(backoff, time);
      ++ticks;
    };
  }
  // A connect is wanted; how long it waits, in ms, 0 if it does not.
  int Want() {
    if (ConnectsNow(backoff, time)) return 0;
    const std::int64_t from = time.Milliseconds();
    for (const int before = ticks; ticks == before;)
      time.Advance(1);
    return static_cast<int>(time.Milliseconds() - from);
  }
  SimulatedTime time;
  Backoff backoff;
  int ticks = 0;
};

TEST_F(BackoffTest, TheFirstIsAtOnceAndTheNextOnesWaitTwiceAsLongEach) {
  std::vector<int> waits;
  for (int i = 0; i < 10; ++i)
    waits.push_back(Want());
  EXPECT_EQ(waits,
            (std::vector<int>{0, 1000, 2000, 4000, 8000, 16000, 32000, 60000, 60000, 60000}));
}

TEST_F(BackoffTest, WhatIsWantedWhileOneWaitsIsOneWithIt) {
  ConnectsNow(backoff, time);
  for (int i = 0; i < 100; ++i)
    EXPECT_FALSE(ConnectsNow(backoff, time));
  time.Advance(1000);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(Want(), 2000);
}

TEST_F(BackoffTest, FiveSecondsBehindTheLastIsAtOnceAndChangesNoWait) {
  Want();
  Want();
  time.Advance(5000);
  EXPECT_EQ(Want(), 0);
  EXPECT_EQ(Want(), 2000);
}

TEST_F(BackoffTest, AMinuteBehindTheLastTheWaitsBeginAnew) {
  for (int i = 0; i < 5; ++i)
    Want();
  time.Advance(59'999);
  EXPECT_EQ(Want(), 0);
  EXPECT_EQ(Want(), 16000);
  time.Advance(60'000);
  EXPECT_EQ(Want(), 0);
  EXPECT_EQ(Want(), 1000);
}

TEST_F(BackoffTest, TheUserEndsTheWaitAndMakesTheNextTheFirst) {
  for (int i = 0; i < 5; ++i)
    Want();
  ConnectsNow(backoff, time);
  StartAfresh(backoff);
  time.Advance(100'000);
  EXPECT_EQ(ticks, 4);
  StartAfresh(backoff);
  EXPECT_EQ(Want(), 0);
  EXPECT_EQ(Want(), 1000);
}

TEST_F(BackoffTest, ItsMeasuresMayBeOthers) {
  backoff.SoonAfter = 1000;
  backoff.LongestWait = 1000;
  std::vector<int> waits;
  for (int i = 0; i < 4; ++i)
    waits.push_back(Want());
  EXPECT_EQ(waits, (std::vector<int>{0, 1000, 1000, 1000}));
  time.Advance(1000);
  EXPECT_EQ(Want(), 0);
}

TEST_F(BackoffTest, AClockOnTheWallThatIsSetChangesNothing) {
  Want();
  time.SetNow({2030, 1, 1, 0, 0, 0});
  EXPECT_EQ(Want(), 1000);
}

}  // namespace
}  // namespace parlorwire
