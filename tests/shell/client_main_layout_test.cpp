#include "shell/client_main_layout.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

constexpr int kStrip = 390;

TEST(ClampSplit, LeavesBothPanesTwoThousand) {
  EXPECT_EQ(ClampSplit(10000, 75), 75);
  EXPECT_EQ(ClampSplit(10000, 80), 80);
  EXPECT_EQ(ClampSplit(10000, 95), 80);
  EXPECT_EQ(ClampSplit(10000, 20), 20);
  EXPECT_EQ(ClampSplit(10000, 5), 20);
}

// Both tests fire, the second one last, so the message pane gets its room.
TEST(ClampSplit, ANarrowTabGivesTheMessagePaneItsRoom) {
  EXPECT_DOUBLE_EQ(ClampSplit(3000, 50), 2000.0 * 100 / 3000);
}

TEST(LayOutClientMain, PanesFillThePageSideBySide) {
  const ClientMainPlaces at = LayOutClientMain({14000, 7000, kStrip, 75});
  EXPECT_EQ(at.SSTab.left, 120);
  EXPECT_EQ(at.SSTab.top, 600);
  EXPECT_EQ(at.Rich.width, at.SSTab.width * 75 / 100);
  EXPECT_EQ(at.Rich_Server.top, at.Rich.Bottom());
  EXPECT_EQ(at.Rich_Server.left, at.Rich.left);
  EXPECT_EQ(at.Rich_Server.width, at.Rich.width);
  EXPECT_EQ(at.Rich_Server.height, 300);
  EXPECT_EQ(at.line_razdel.left, at.Rich.Right() + 15);
  EXPECT_EQ(at.line_razdel.width, 60);
  EXPECT_EQ(at.line_razdel.height, at.Rich.height + at.Rich_Server.height);
  EXPECT_EQ(at.Rich_Users.left, at.line_razdel.Right() + 15);
  EXPECT_EQ(at.frame_button_update.left, at.Rich_Users.left);
  EXPECT_EQ(at.frame_button_update.width, at.Rich_Users.width);
  EXPECT_EQ(at.Rich_Users.top, at.frame_button_update.Bottom());
  EXPECT_LE(at.Rich_Users.Right(), at.SSTab.Right());
  EXPECT_EQ(at.Rich_Users.Bottom(), at.Rich_Server.Bottom());
}

TEST(LayOutClientMain, InputRowsStandUnderThePage) {
  const ClientMainPlaces at = LayOutClientMain({14000, 7000, kStrip, 75});
  EXPECT_EQ(at.first_row_top, at.SSTab.Bottom() + 140);
  EXPECT_GT(at.msg.top, at.first_row_top);
  EXPECT_LE(at.msg.Bottom(), 7000);
  EXPECT_EQ(at.msg.width, at.SSTab.width - 5500);
  EXPECT_EQ(at.button_say.left, at.msg.Right() + 200);
  EXPECT_EQ(at.button_clear.left, at.button_say.Right() + 100);
  EXPECT_LE(at.button_clear.Right(), at.SSTab.Right());
  for (const Place& place : {at.intonacia, at.button_say, at.button_clear})
    EXPECT_EQ(place.top, at.msg.top);
}

TEST(LayOutClientMain, TheSplitIsGivenBackClamped) {
  EXPECT_EQ(LayOutClientMain({14000, 7000, kStrip, 75}).split_percent, 75);
  const ClientMainPlaces at = LayOutClientMain({14000, 7000, kStrip, 99});
  EXPECT_LT(at.split_percent, 99);
  EXPECT_EQ(at.SSTab.width - at.Rich.width, 2000);
}

}  // namespace
}  // namespace parlorwire
