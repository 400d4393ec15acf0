#include "shell/window_fit.h"

#include <gtest/gtest.h>

#include <random>

namespace parlorwire {

void PrintTo(const Place& place, std::ostream* out) {
  *out << place.left << "," << place.top << " " << place.width << "x" << place.height;
}

namespace {

constexpr int kTitle = 450;
const std::vector<Place> kScreen{{0, 0, 19200, 12000}};
// Two side by side; the right one is lower and has a panel at its upper edge.
const std::vector<Place> kTwo{{0, 0, 19200, 12000}, {19200, 600, 15000, 8400}};

TEST(WindowFit, AWindowThatLiesWellKeepsItsPlace) {
  for (const Place& place :
       {Place{0, 0, 14000, 8000}, Place{2600, 2000, 14000, 8000}, Place{0, 0, 19200, 12000}})
    EXPECT_EQ(FitWindow(place, kTitle, kScreen), place);
}

TEST(WindowFit, OneThatHangsOutKeepsItAsLongAsItsTitleCanBeTakenHoldOf) {
  const Place right{17600, 4000, 14000, 8000};
  const Place left{-12400, 4000, 14000, 8000};
  const Place below{2000, 11500, 14000, 8000};
  for (const Place& place : {right, left, below})
    EXPECT_EQ(FitWindow(place, kTitle, kScreen), place);
}

TEST(WindowFit, OneWhoseTitleCanNotBeTakenHoldOfComesInside) {
  EXPECT_EQ(FitWindow({18000, 4000, 14000, 8000}, kTitle, kScreen),
            (Place{5200, 4000, 14000, 8000}));
  EXPECT_EQ(FitWindow({-13000, 0, 14000, 8000}, kTitle, kScreen), (Place{0, 0, 14000, 8000}));
  EXPECT_EQ(FitWindow({2000, -1, 14000, 8000}, kTitle, kScreen), (Place{2000, 0, 14000, 8000}));
  EXPECT_EQ(FitWindow({2000, 11600, 14000, 8000}, kTitle, kScreen),
            (Place{2000, 4000, 14000, 8000}));
}

TEST(WindowFit, ATooLargeOneIsAsLargeAsTheRoomAndFillsIt) {
  EXPECT_EQ(FitWindow({300, 300, 30000, 20000}, kTitle, kScreen), kScreen[0]);
  EXPECT_EQ(FitWindow({300, 300, 30000, 8000}, kTitle, kScreen), (Place{0, 300, 19200, 8000}));
}

TEST(WindowFit, OfSeveralScreensTheOneThatHasTheTitleCounts) {
  const Place on_right{20000, 700, 14000, 8000};
  EXPECT_EQ(FitWindow(on_right, kTitle, kTwo), on_right);
  EXPECT_EQ(FitWindow({20000, 100, 14000, 8000}, kTitle, kTwo), (Place{20000, 600, 14000, 8000}));
  // Most of its title is on the right one, which is too narrow for it.
  EXPECT_EQ(FitWindow({18000, 1000, 16000, 8000}, kTitle, kTwo), (Place{19200, 1000, 15000, 8000}));
}

TEST(WindowFit, WhereAScreenIsGoneTheNearestCounts) {
  EXPECT_EQ(FitWindow({20000, 700, 14000, 8000}, kTitle, kScreen), (Place{5200, 700, 14000, 8000}));
  EXPECT_EQ(FitWindow({90000, 700, 14000, 8000}, kTitle, kTwo), (Place{20200, 700, 14000, 8000}));
}

TEST(WindowFit, WithoutAnyScreenItStaysAsItIs) {
  const Place place{90000, -700, 14000, 8000};
  EXPECT_EQ(FitWindow(place, kTitle, {}), place);
}

TEST(WindowFit, WhateverItsPlaceItIsInsideAndStaysSo) {
  std::mt19937 random(3);
  const auto any = [&random](int least, int most) {
    return std::uniform_int_distribution(least, most)(random);
  };
  for (int i = 0; i < 2000; ++i) {
    const Place window{any(-60000, 60000), any(-60000, 60000), any(1, 40000), any(1, 40000)};
    const Place fitted = FitWindow(window, kTitle, kTwo);
    EXPECT_EQ(FitWindow(fitted, kTitle, kTwo), fitted);
    EXPECT_TRUE(fitted.width <= 19200 && fitted.height <= 12000);
    EXPECT_TRUE(fitted.width <= window.width && fitted.height <= window.height);
  }
}

}  // namespace
}  // namespace parlorwire
