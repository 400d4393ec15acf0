// What a line calls up, and how its pane scrolls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/text_out.h"
#include "display/text_out_fixture.h"
#include "support/scripted_view.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

// ---- spam ----

TEST_F(TextOutTest, SpamIsKickedOnceForEachRule) {
  Out("alice:", "http://spam.example flood.example", kMessage);
  EXPECT_THAT(said, ElementsAre("0 /k alice spam detected", "0 /k alice spam detected"));
}

TEST_F(TextOutTest, SpamOfEveryKindOfNickIsKickedAlsoTheUsersOwn) {
  Out("Me:", "http://spam.example", kMessage);
  Out("bob:", "http://spam.example", kAction);
  Out("bob:", "http://spam.example", kEcho);
  EXPECT_THAT(said, ElementsAre("0 /k Me spam detected", "0 /k bob spam detected",
                                "0 /k bob spam detected"));
}

TEST_F(TextOutTest, SpamInASystemLineIsAFaultThatDoesNotFreezeThePane) {
  ScriptedView view(session.Rich);
  client.tab(0).Channel = "talk";
  Out("", "see http://spam.example", kSystem);
  EXPECT_TRUE(said.empty());
  EXPECT_EQ(session.Rich.Text(), "[1] see http://spam.example\r\n");
  EXPECT_EQ(platform.files.files["Logs\\talk\\21.11.2026.log"],
            "[1] see http://spam.example\r\r\n");
  EXPECT_EQ(
      ErrorLog(),
      "[21.11.2026 12:00:00] Error 5 Invalid procedure call or argument. Function: TextOut\r\n");
  EXPECT_TRUE(view.scrolls.empty());
  EXPECT_TRUE(view.painting);
  EXPECT_EQ(view.painted_changes, 0);
  EXPECT_EQ(view.refreshes, 1);
}

// ---- notices ----

TEST_F(TextOutTest, AMentionRaisesABalloonWhenTheWindowIsNotActive) {
  platform.desktop.window_active = false;
  session.LinesArmed = true;
  session.Channel = "talk";
  Out("alice:", "hi me", kMessage);
  ASSERT_EQ(balloons.size(), 1U);
  EXPECT_EQ(ToUtf8(balloons[0]), "|>[1] alice: hi me\r\n\r\nНик: Me\r\nКанал: talk|16");
  EXPECT_EQ(balloons_about[0], BalloonAbout{0});
  EXPECT_THAT(blinks, ElementsAre(2));
}

TEST_F(TextOutTest, ASystemMentionHasAnEmptyNickInItsBalloon) {
  platform.desktop.window_active = false;
  session.LinesArmed = true;
  Out("", "bob sees me", kSystem);
  ASSERT_EQ(balloons.size(), 1U);
  EXPECT_EQ(ToUtf8(balloons[0]), "|>[1]  bob sees me\r\n\r\nНик: Me\r\nКанал: |16");
}

TEST_F(TextOutTest, NoBalloonWhileTheWindowIsActive) {
  session.LinesArmed = true;
  Out("alice:", "hi me", kMessage);
  EXPECT_TRUE(balloons.empty());
  EXPECT_TRUE(blinks.empty());
}

TEST_F(TextOutTest, NoBalloonUntilLinesAreArmed) {
  platform.desktop.window_active = false;
  Out("alice:", "hi me", kMessage);
  EXPECT_TRUE(balloons.empty());
}

TEST_F(TextOutTest, NoBalloonForOwnLinesAndLinesAboutTheUser) {
  platform.desktop.window_active = false;
  session.LinesArmed = true;
  Out("Me:", "me", kMessage);
  Out("Me:", "hello", kMessage);
  Out("", "Me leaves", kSystem);
  Out("alice:", "hello", kMessage);
  EXPECT_TRUE(balloons.empty());
}

struct MentionElsewhereTest : TextOutTest {
  MentionElsewhereTest() {
    session.Channel = "";
    platform.desktop.active_tab = 4;
    client.tab(4).Connected = true;
    Out("alice:", "nothing", kMessage);
  }
  Text Shown() const { return client.tab(4).Rich.Text(); }
};

TEST_F(MentionElsewhereTest, AMentionIsToldInTheVisibleTab) {
  Out("alice:", "hi me", kMessage);
  const Text bar = "\r\n" + Text(1000, ' ') + "\r\n";
  EXPECT_EQ(ToUtf8(Shown()), bar + "Канал  [Me] id#20\r\n>>>[1] alice: hi me\r\nПерейти" + bar);
}

TEST_F(MentionElsewhereTest, NickAndChannelAreThoseOfTheLinesTab) {
  session.Channel = "talk";
  client.tab(4).Channel = "other";
  client.tab(4).Login = "Somebody";
  Out("alice:", "hi me", kMessage);
  EXPECT_NE(ToUtf8(Shown()).find("Канал talk [Me] id#"), std::string::npos);
}

TEST_F(MentionElsewhereTest, TheIdIsWhereTheLineBegins) {
  Out("alice:", "hi me", kMessage);
  const std::string notice = ToUtf8(Shown());
  const PanePosition id = std::stoll(notice.substr(notice.find("id#") + 3));
  EXPECT_EQ(session.Rich.TextBetween(id, session.Rich.Length()), ">[1] alice: hi me\r\n");
}

TEST_F(MentionElsewhereTest, NotWhenTheWindowIsNotActive) {
  platform.desktop.window_active = false;
  Out("alice:", "hi me", kMessage);
  EXPECT_EQ(Shown(), "");
}

TEST_F(MentionElsewhereTest, NotWhenTheVisibleTabIsNotConnected) {
  client.tab(4).Connected = false;
  Out("alice:", "hi me", kMessage);
  EXPECT_EQ(Shown(), "");
}

TEST_F(MentionElsewhereTest, NotInAListOfChannels) {
  client.tab(4).IsChannelList = true;
  Out("alice:", "hi me", kMessage);
  EXPECT_EQ(Shown(), "");
}

TEST_F(MentionElsewhereTest, NotForTheVisibleTabItself) {
  platform.desktop.active_tab = 0;
  session.Connected = true;
  Out("alice:", "hi me", kMessage);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(session.Rich.Text(), "[1] alice: nothing\r\n>[1] alice: hi me\r\n");
}

TEST_F(MentionElsewhereTest, NotForOwnLinesAndLinesAboutTheUser) {
  Out("Me:", "me", kMessage);
  Out("", "Me leaves", kSystem);
  EXPECT_EQ(Shown(), "");
}

// ---- scrolling and painting ----

TEST_F(TextOutTest, ScrollsByTheTickAndTheBar) {
  using enum PaneScroll;
  struct Case {
    bool ticked;
    PaneScrollInfo bar;
    std::vector<PaneScroll> scrolls;
  };
  const std::vector<Case> cases = {{false, {0, 100, 10, 20}, {kBottom}},
                                   {false, {0, 0, 0, 0}, {kBottom}},
                                   {true, {0, 0, 0, 0}, {kBottom}},
                                   {true, {0, 100, 10, 20}, {}},
                                   {true, {0, 100, 10, 89}, {}},
                                   {true, {0, 100, 10, 90}, {kLineUp, kLineUp}},
                                   {true, {0, 100, 10, 95}, {kLineUp, kLineUp}}};
  for (const Case& c : cases) {
    ScriptedView view(session.Rich);
    view.bar = c.bar;
    platform.desktop.at(0).stop_scroll = c.ticked;
    Out("alice:", "hello", kMessage);
    EXPECT_EQ(view.scrolls, c.scrolls) << c.ticked << " " << c.bar.max << " " << c.bar.pos;
  }
}

TEST_F(TextOutTest, AViewThatHoldsStillIsNudgedByItsWidth) {
  session.Rich.Width(5000);
  ScriptedView view(session.Rich);
  view.bar = {0, 100, 10, 20};
  Out("alice:", "hello", kMessage);
  EXPECT_TRUE(view.widths.empty());
  platform.desktop.at(0).stop_scroll = true;
  Out("alice:", "hello", kMessage);
  EXPECT_THAT(view.widths, ElementsAre(4990, 5000));
  view.bar = {};
  Out("alice:", "hello", kMessage);
  EXPECT_EQ(view.widths.size(), 2U);
}

TEST_F(TextOutTest, NothingIsPaintedUntilTheLineIsWhole) {
  ScriptedView view(session.Rich);
  session.Rich.Visible(false);
  Out("alice:", "hello", kMessage);
  EXPECT_EQ(view.painted_changes, 0);
  EXPECT_TRUE(view.painting);
  EXPECT_EQ(view.refreshes, 1);
  EXPECT_TRUE(session.Rich.Visible());
}

TEST_F(TextOutTest, AFaultOfAHookIsLoggedAndEndsTheLine) {
  ScriptedView view(session.Rich);
  client.hooks.SayBot = [](const Text&, int) { throw Fault(9); };
  Out("alice:", "http://spam.example", kMessage);
  EXPECT_EQ(session.Rich.Text(), "[1] alice: http://spam.example\r\n");
  EXPECT_EQ(ErrorLog(),
            "[21.11.2026 12:00:00] Error 9 Subscript out of range. Function: TextOut\r\n");
  EXPECT_TRUE(said.empty());
  EXPECT_TRUE(view.scrolls.empty());
  EXPECT_TRUE(view.painting);
  EXPECT_EQ(view.refreshes, 1);
}

}  // namespace
}  // namespace parlorwire
