#include "session/writer_selection.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct WriterSelection : testing::TestWithParam<bool> {
  void Select(PanePosition start, PanePosition end, int tab) {
    if (GetParam())
      SelectPaneEnd(client, start, end, tab);
    else
      SelectUsersPaneEnd(client, start, end, tab);
  }
  RichTextBox& Pane(int tab) {
    RichTextBox& pane = GetParam() ? client.tab(tab).Rich : client.tab(tab).Rich_Users;
    if (pane.Length() == 0) {
      pane.Text("0123456789");
      pane.HideSelection(false);
    }
    return pane;
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_P(WriterSelection, IsHidden) {
  RichTextBox& pane = Pane(0);
  Select(8, 100, 0);
  EXPECT_TRUE(pane.HideSelection());
  EXPECT_EQ(pane.SelText(), "89");
}

TEST_P(WriterSelection, IsNotHiddenFromAUserWhoSelectsThere) {
  RichTextBox& pane = Pane(3);
  client.app.MouseSelecting = true;
  client.app.MouseDownTab = 3;
  Select(2, 5, 3);
  EXPECT_FALSE(pane.HideSelection());
  EXPECT_EQ(pane.SelText(), "234");
}

TEST_P(WriterSelection, IsHiddenInTheOtherTabs) {
  RichTextBox& pane = Pane(2);
  client.app.MouseSelecting = true;
  client.app.MouseDownTab = 3;
  Select(2, 5, 2);
  EXPECT_TRUE(pane.HideSelection());
  EXPECT_EQ(pane.SelText(), "234");
}

INSTANTIATE_TEST_SUITE_P(Panes, WriterSelection, testing::Bool(),
                         [](const auto& row) { return row.param ? "Rich" : "Rich_Users"; });

TEST(PaintOnce, PaintsWhenItIsOver) {
  RichTextBox pane;
  {
    const PaintOnce paint(pane);
    EXPECT_FALSE(pane.Redraw());
  }
  EXPECT_TRUE(pane.Redraw());
}

}  // namespace
}  // namespace parlorwire
