#include "shell/client_main_layout.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

constexpr ClientMainMeasures kMainMeasures = {14000, 8000, 330, 390};

SharedPlaces PlacesAt(int width, int height, const SharedPlaces& before = {}) {
  return PlaceShared({width, height, kMainMeasures.panel_row, kMainMeasures.strip}, before);
}

TEST(PlaceShared, SSTabLeavesRoomForFrameTitleMenuPanelsAndTheRowsUnderIt) {
  const SharedPlaces at = PlaceShared(kMainMeasures, {});
  EXPECT_EQ(at.SSTab, (Place{120, 600, 13900, 5270}));
  EXPECT_EQ(at.BackColorTab, (Place{130, 600, 13860, 390}));
}

TEST(PlaceShared, TheFirstRowStandsUnderSSTab) {
  const SharedPlaces at = PlaceShared(kMainMeasures, {});
  EXPECT_EQ(at.StopScroll_top, 600 + 5270 + 140);
  EXPECT_EQ(at.pers_top, 6020);
  EXPECT_EQ(at.perecodirovka_label_top, 6025);
  EXPECT_EQ(at.Picture1_top, 5980);
}

TEST(PlaceShared, TheSecondRowStandsUnderTheFirst) {
  const SharedPlaces at = PlaceShared(kMainMeasures, {});
  const int top = 6010 + 285 + 140;
  EXPECT_EQ(at.intonacia, (Place{100, top, 2260, 390}));
  EXPECT_EQ(at.msg, (Place{2420, top, 8400, 390}));
  EXPECT_EQ(at.button_say, (Place{11020, top, 1380, 390}));
  EXPECT_EQ(at.button_clear, (Place{12500, top, 1275, 390}));
}

TEST(PlaceShared, WhatIsSeenOfSSTabEndsWithTheRowUnderIt) {
  const SharedPlaces at = PlaceShared(kMainMeasures, {});
  EXPECT_EQ(at.strip, (Place{120, 600, 13655, 390}));
  EXPECT_EQ(at.page, (Place{120, 990, 13655, 4880}));
  EXPECT_EQ(at.page.Right(), at.button_clear.Right());
}

TEST(PlaceShared, NothingMovesInAWindowLowerThanTheFixedHeights) {
  const SharedPlaces before = PlaceShared(kMainMeasures, {});
  EXPECT_EQ(PlacesAt(14000, 600 + 330 + 1800 - 1, before), before);
  EXPECT_EQ(PlacesAt(14000, 0, before), before);
  EXPECT_EQ(PlacesAt(14000, -500, before), before);
}

TEST(PlaceShared, SSTabMayHaveNoHeightAtAll) {
  const SharedPlaces before = PlaceShared(kMainMeasures, {});
  const SharedPlaces at = PlacesAt(14000, 600 + 330 + 1800, before);
  EXPECT_EQ(at.SSTab, (Place{120, 600, 13900, 0}));
  EXPECT_EQ(at.page, before.page);
  EXPECT_EQ(at.StopScroll_top, 740);
}

TEST(PlaceShared, MsgStaysWhereItIsInANarrowWindowAndTheButtonsStayBehindIt) {
  const SharedPlaces before = PlaceShared(kMainMeasures, {});
  const SharedPlaces at = PlacesAt(5000, 8000, before);
  EXPECT_EQ(at.SSTab, (Place{120, 600, 4900, 5270}));
  EXPECT_EQ(at.msg, before.msg);
  EXPECT_EQ(at.button_say, before.button_say);
  EXPECT_EQ(at.button_clear, before.button_clear);
}

TEST(PlaceShared, SSTabStaysWhereItIsInAWindowWithoutWidth) {
  const SharedPlaces before = PlaceShared(kMainMeasures, {});
  EXPECT_EQ(PlacesAt(99, 8000, before), before);
  EXPECT_EQ(PlacesAt(100, 8000, before).SSTab.width, 0);
}

TEST(MeasuresAround, FrameTitleMenuAndPanelsAreAddedToTheClientArea) {
  const ClientMainMeasures measures = MeasuresAround(10000, 6000, 330, 390);
  EXPECT_EQ(measures.Width, 10120);
  EXPECT_EQ(measures.Height, 6000 + 330 + 705);
  EXPECT_EQ(measures.panel_row, 330);
  EXPECT_EQ(measures.strip, 390);
}

TEST(MeasuresAround, TheRowsUnderSSTabJustFillTheClientArea) {
  for (const int panel_row : {0, 330, 600}) {
    const SharedPlaces shared = PlaceShared(MeasuresAround(12000, 7000, panel_row, 390), {});
    EXPECT_EQ(shared.msg.Bottom(), 7000 - 140);
    EXPECT_LE(shared.button_clear.Right(), 12000);
    EXPECT_LE(PlaceSlot(shared, 75, {}).Rich_Users.Right(), shared.page.Right());
  }
}

TEST(PlaceSlot, ThePanesFillThePageSideBySide) {
  const SlotPlaces at = PlaceSlot(PlaceShared(kMainMeasures, {}), 75, {});
  EXPECT_EQ(at.split_percent, 75);
  EXPECT_EQ(at.Rich, (Place{165, 1035, 10425, 4490}));
  EXPECT_EQ(at.Rich_Server, (Place{165, 5525, 10425, 300}));
  EXPECT_EQ(at.line_razdel, (Place{10605, 1035, 60, 4790}));
  EXPECT_EQ(at.frame_button_update, (Place{10680, 1035, 3050, 900}));
  EXPECT_EQ(at.Rich_Users, (Place{10680, 1935, 3050, 3890}));
  EXPECT_EQ(at.Rich_Users_right_margin, 53050);
}

TEST(PlaceSlot, TheUserListEndsAheadOfTheEdgeOfSSTab) {
  const SharedPlaces shared = PlaceShared(kMainMeasures, {});
  for (const double percent : {20.0, 50.0, 80.0})
    EXPECT_EQ(PlaceSlot(shared, percent, {}).Rich_Users.Right(), shared.SSTab.Right() - 290);
}

// Both tests of the split fire, the second one last.
TEST(PlaceSlot, InAnSSTabOfThreeThousandTheUserListHasWhatTheMessagePaneLeaves) {
  const SharedPlaces shared = PlacesAt(3100, 8000);
  ASSERT_EQ(shared.SSTab.width, 3000);
  const SlotPlaces at = PlaceSlot(shared, 50, {});
  EXPECT_DOUBLE_EQ(at.split_percent, 2000.0 * 100 / 3000);
  EXPECT_EQ(at.Rich.width, 2000);
  EXPECT_EQ(at.line_razdel.left, 165 + 2000 + 15);
  EXPECT_EQ(at.Rich_Users.left, 2180 + 60 + 15);
  EXPECT_EQ(at.Rich_Users.width, 3120 - 2255 - 290);
}

TEST(PlaceSlot, AUserListWithoutRoomStaysWhereItIs) {
  const SlotPlaces before = PlaceSlot(PlaceShared(kMainMeasures, {}), 75, {});
  const SlotPlaces at = PlaceSlot(PlacesAt(2000, 8000), 75, before);
  EXPECT_EQ(at.Rich.width, 2000);
  EXPECT_EQ(at.line_razdel.left, 2180);
  EXPECT_EQ(at.Rich_Users, before.Rich_Users);
  EXPECT_EQ(at.frame_button_update, before.frame_button_update);
  EXPECT_EQ(at.Rich_Users_right_margin, before.Rich_Users_right_margin);
}

TEST(PlaceSlot, PanesWithoutHeightStayWhereTheyAre) {
  const SharedPlaces wide = PlaceShared(kMainMeasures, {});
  const SlotPlaces before = PlaceSlot(wide, 75, {});
  EXPECT_EQ(PlaceSlot(PlacesAt(14000, 2900, wide), 75, before).Rich, before.Rich);
  EXPECT_EQ(PlaceSlot(PlacesAt(14000, 2900, wide), 75, before).Rich_Users, before.Rich_Users);
  EXPECT_EQ(PlaceSlot(PlacesAt(14000, 500, wide), 75, before), before);
}

TEST(PlaceSlot, TheSplitIsGivenBackClamped) {
  const SharedPlaces shared = PlaceShared(kMainMeasures, {});
  const SlotPlaces right = PlaceSlot(shared, 99, {});
  EXPECT_DOUBLE_EQ(right.split_percent, 11900.0 * 100 / 13900);
  EXPECT_EQ(right.Rich.width, 11900);
  const SlotPlaces left = PlaceSlot(shared, 1, {});
  EXPECT_DOUBLE_EQ(left.split_percent, 2000.0 * 100 / 13900);
  EXPECT_EQ(left.Rich.width, 2000);
}

TEST(ClampSplit, LeavesBothPanesTwoThousand) {
  EXPECT_EQ(ClampSplit(10000, 75), 75);
  EXPECT_EQ(ClampSplit(10000, 80), 80);
  EXPECT_EQ(ClampSplit(10000, 80.01), 80);
  EXPECT_EQ(ClampSplit(10000, 20), 20);
  EXPECT_EQ(ClampSplit(10000, 19.99), 20);
  EXPECT_EQ(ClampSplit(10000, 1e308), 80);
  EXPECT_EQ(ClampSplit(10000, -1e308), 20);
}

TEST(ClampSplit, ATabWithoutWidthLeavesTheSplit) {
  EXPECT_EQ(ClampSplit(0, 75), 75);
  EXPECT_EQ(ClampSplit(-10, 5), 5);
}

TEST(DragSplit, IsThePartOfTheTabLeftOfTheSplitter) {
  EXPECT_EQ(DragSplit(13900, 6950), 50);
  EXPECT_EQ(DragSplit(20000, 5000), 25);
}

TEST(DragSplit, MovesNothingBeyondTheLimits) {
  EXPECT_EQ(DragSplit(20000, 3600), std::nullopt);  // 18
  EXPECT_EQ(DragSplit(20000, 3601), 18.005);
  EXPECT_EQ(DragSplit(20000, 17000), std::nullopt);  // 85
  EXPECT_EQ(DragSplit(20000, 16999), 84.995);
  EXPECT_EQ(DragSplit(20000, 19999), std::nullopt);
  EXPECT_EQ(DragSplit(20000, 25000), std::nullopt);
  EXPECT_EQ(DragSplit(20000, -5000), std::nullopt);
}

TEST(DragSplit, MovesNothingAtTwoThousandOrLess) {
  EXPECT_EQ(DragSplit(10000, 2000), std::nullopt);
  EXPECT_EQ(DragSplit(10000, 2001), 20.01);
  EXPECT_EQ(DragSplit(4100, 2001), 2001 * 100.0 / 4100);
}

TEST(DragSplit, LeavesTheUserListItsRoom) {
  EXPECT_EQ(DragSplit(10000, 8000), 80);
  EXPECT_EQ(DragSplit(10000, 8001), std::nullopt);
  EXPECT_EQ(DragSplit(4000, 2001), std::nullopt);
}

TEST(DragSplit, TheLayoutPutsTheSplitterWhereItWasDropped) {
  const SharedPlaces shared = PlaceShared(kMainMeasures, {});
  SlotPlaces at = PlaceSlot(shared, 75, {});
  for (int left = 2520; left < 11800; left += 15) {
    at = PlaceSlot(shared, DragSplit(shared.SSTab.width, left).value(), at);
    EXPECT_EQ(SplitterLeft(at), left);
    EXPECT_EQ(at.Rich.width, left);
  }
}

TEST(KeySplit, ArrowsMoveOneStep) {
  EXPECT_EQ(KeySplit(20000, 10000, SplitKey::kLeft), 48.8);
  EXPECT_EQ(KeySplit(20000, 10000, SplitKey::kRight), 51.2);
}

TEST(KeySplit, HomeAndEndGoToTheLimits) {
  EXPECT_EQ(KeySplit(20000, 10000, SplitKey::kHome), DragSplit(20000, 3601));
  EXPECT_EQ(KeySplit(20000, 10000, SplitKey::kEnd), DragSplit(20000, 16999));
  EXPECT_EQ(KeySplit(10000, 5000, SplitKey::kHome), DragSplit(10000, 2001));
  EXPECT_EQ(KeySplit(10000, 5000, SplitKey::kEnd), DragSplit(10000, 8000));
}

TEST(KeySplit, TheLastStepIsShortAndBehindItThereIsNone) {
  EXPECT_EQ(KeySplit(20000, 3700, SplitKey::kLeft), DragSplit(20000, 3601));
  EXPECT_EQ(KeySplit(20000, 3601, SplitKey::kLeft), std::nullopt);
  EXPECT_EQ(KeySplit(20000, 3601, SplitKey::kHome), std::nullopt);
  EXPECT_EQ(KeySplit(20000, 16900, SplitKey::kRight), DragSplit(20000, 16999));
  EXPECT_EQ(KeySplit(20000, 16999, SplitKey::kRight), std::nullopt);
}

TEST(KeySplit, FromBeyondALimitAnArrowMovesOnlyBack) {
  EXPECT_EQ(KeySplit(20000, 2000, SplitKey::kLeft), std::nullopt);
  EXPECT_EQ(KeySplit(20000, 2000, SplitKey::kRight), DragSplit(20000, 3601));
}

TEST(KeySplit, MovesNothingWithoutRoomForBothPanes) {
  for (const SplitKey key : {SplitKey::kLeft, SplitKey::kRight, SplitKey::kHome, SplitKey::kEnd}) {
    EXPECT_EQ(KeySplit(4000, 2000, key), std::nullopt);
    EXPECT_EQ(KeySplit(0, 0, key), std::nullopt);
  }
}

TEST(PlaceLinks, TheRowEndsAtTheRight) {
  const auto places = PlaceLinks({600, 450}, 75, 1000, 10000);
  ASSERT_EQ(places.size(), 2U);
  EXPECT_EQ(places[0], (LinkPlace{8530, 8605, 9205}));
  EXPECT_EQ(places[1], (LinkPlace{9400, 9475, 9925}));
}

TEST(PlaceLinks, TheRowNeverReachesIntoWhatStandsLeftOfIt) {
  const auto places = PlaceLinks({600, 450}, 75, 1000, 2000);
  EXPECT_EQ(places[0], (LinkPlace{1000, 1075, 1675}));
  EXPECT_EQ(places[1], (LinkPlace{1870, 1945, 2395}));
}

}  // namespace
}  // namespace parlorwire
