#include "display/framed_notice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/pane_output.h"
#include "support/pane_runs.h"
#include "support/scripted_view.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

struct FramedNoticeTest : testing::Test {
  FramedNoticeTest() {
    client.app.rFontMain.Name = "Main";
    client.app.rFontMain.Size = 12;
    client.app.rFontStatus.Name = "Status";
    client.app.rFontStatus.TextColor = Rgb(0x33, 0x33, 0x33);
    client.app.rRichColors.TextColor = Rgb(0x66, 0x66, 0x66);
  }
  const std::string bar = "\\r\\n" + std::string(1000, ' ') + "\\r\\n|Status 1 333333 back=";
  SimulatedPlatform platform;
  Client client{platform.Ports()};
  RichTextBox& pane = client.tab(2).Rich;
};

TEST_F(FramedNoticeTest, MentionBox) {
  MentionBox(client, ">>>[1] alice: hi"_w, "Me", "Болтовня"_w, 2, 1234567);
  EXPECT_THAT(RunsOf(pane),
              ElementsAre(bar + "00a394", "Канал |Main 12 ffff00", "Болтовня|Main 12 ffff00 b",
                          " [Me]|Main 12 ffff00", " id#1234567\\r\\n|Main 12 000000",
                          ">>>[1] alice: hi\\r\\n|Main 12 ffff00", "Перейти|Main 10 00ff00 u",
                          bar + "00a394"));
}

TEST_F(FramedNoticeTest, BotReport) {
  BotReportOut(client, "carol 10.0.0.1 [+o]", 2);
  EXPECT_THAT(RunsOf(pane),
              ElementsAre(bar + "003f94", "carol 10.0.0.1 [+o]|Main 12 666666", bar + "003f94"));
}

TEST_F(FramedNoticeTest, Scrolling) {
  using enum PaneScroll;
  struct Case {
    bool ticked;
    PaneScrollInfo bar;
    std::vector<PaneScroll> scrolls;
  };
  const std::vector<Case> cases = {
      {false, {0, 100, 10, 20}, {kBottom}}, {true, {0, 0, 0, 0}, {kBottom}},
      {true, {0, 100, 10, 20}, {}},         {true, {0, 100, 10, 88}, {}},
      {true, {0, 100, 10, 89}, {kLineUp}},  {true, {0, 100, 10, 90}, {kLineUp}},
      {true, {0, 100, 10, 95}, {kLineUp}}};
  for (const Case& c : cases) {
    for (const bool report : {false, true}) {
      ScriptedView view(pane);
      view.bar = c.bar;
      platform.desktop.at(2).stop_scroll = c.ticked;
      if (report)
        BotReportOut(client, "report", 2);
      else
        MentionBox(client, "text", "Me", "talk", 2, 0);
      EXPECT_EQ(view.scrolls, c.scrolls) << report << c.ticked << " " << c.bar.pos;
    }
  }
}

TEST_F(FramedNoticeTest, YieldsOnceBetweenTheBarsStateAndTheScroll) {
  using enum PaneScroll;
  ScriptedView view(pane);
  platform.desktop.on_yield = [&] {
    EXPECT_TRUE(view.scrolls.empty());
    view.bar = {0, 100, 10, 95};                 // too late to count
    platform.desktop.at(2).stop_scroll = false;  // in time
  };
  for (const bool report : {false, true}) {
    view.bar = {0, 100, 10, 20};
    view.scrolls.clear();
    platform.desktop.at(2).stop_scroll = true;
    platform.desktop.yields = 0;
    if (report)
      BotReportOut(client, "report", 2);
    else
      MentionBox(client, "text", "Me", "talk", 2, 0);
    EXPECT_EQ(platform.desktop.yields, 1);
    EXPECT_THAT(view.scrolls, ElementsAre(kBottom));
  }
}

}  // namespace
}  // namespace parlorwire
