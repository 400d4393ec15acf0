#include "service/presentation.h"

#include <gtest/gtest.h>

#include <ostream>

#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::int64_t kNow = 1'714'979'289;  // 2024-05-06 07:08:09
constexpr Look kRobot{kRobotStyle, false};

Line Message(const Text& text, const Text& tone = "") {
  return {kNow, LineForm::kMessage, "alice", tone, text};
}

TEST(TimeText, ShowsTheDateOfAnotherDay) {
  EXPECT_EQ(TimeText(kNow, kNow), "07:08:09");
  EXPECT_EQ(TimeText(kNow, kNow + 86400), "06/05/2024 07:08:09");
  EXPECT_EQ(TimeText(951782400, kNow), "29/02/2000 00:00:00");
  EXPECT_EQ(TimeText(-1, kNow), "31/12/1969 23:59:59");
}

TEST(RobotStyle, BeginsWithPre) {
  EXPECT_EQ(FrameHead(kRobot), "<pre>\n");
}

TEST(RobotStyle, PresentsEveryForm) {
  EXPECT_EQ(PresentLine(kRobot, Message("hello"), kNow), "..[07:08:09]alice:() hello\n");
  EXPECT_EQ(PresentLine(kRobot, Message("да"_w, "уныло"_w), kNow),
            "..[07:08:09]alice:(уныло) да\n"_w);
  EXPECT_EQ(PresentLine(kRobot, {kNow, LineForm::kAction, "alice", "", "alice waves"}, kNow),
            "..[07:08:09]alice:() *** alice waves\n");
  EXPECT_EQ(PresentLine(kRobot, {kNow, LineForm::kOperators, "alice", "", "look"}, kNow),
            "..[07:08:09] ### alice:() look\n");
  EXPECT_EQ(
      PresentLine(kRobot, {kNow, LineForm::kSystem, "", "", "bob приходит на канал (1.2.3.4)"_w},
                  kNow),
      "..[07:08:09]bob приходит на канал (1.2.3.4)\n"_w);
}

TEST(RobotStyle, EscapesWhatPeopleSay) {
  EXPECT_EQ(PresentLine(kRobot, Message("<b>&\"x\"&lt;"), kNow),
            "..[07:08:09]alice:() &lt;b&gt;&amp;&quot;x&quot;&amp;lt;\n");
}

TEST(RobotStyle, ALineOfYesterdayShowsItsDate) {
  EXPECT_EQ(PresentLine(kRobot, Message("hello"), kNow + 86400),
            "..[06/05/2024 07:08:09]alice:() hello\n");
}

// What tells the styles for browsers from each other.
struct Marks {
  int style;
  std::string_view has;
};

void PrintTo(const Marks& marks, std::ostream* out) {
  *out << marks.has;
}

class BrowserStyle : public testing::TestWithParam<Marks> {};

TEST_P(BrowserStyle, HasItsMarkAndNoneThatIsLookedForEarlier) {
  const Look look{GetParam().style, false};
  const Text page = FrameHead(look) + PresentLine(look, Message("<hello>"), kNow);
  EXPECT_TRUE(Contains(page, GetParam().has)) << page;
  EXPECT_TRUE(Contains(page, "&lt;hello&gt;"));
  EXPECT_FALSE(page.starts_with("<pre>"));
  EXPECT_FALSE(Contains(page, "<BODY onLoad="));
  for (const std::string_view mark : {"function std () {\n}", "<BODY bgColor=\"#281860",
                                      "<FONT color=\"#FF5050", "<FONT color=\"#b0b0b0"}) {
    if (mark == GetParam().has) break;
    EXPECT_FALSE(Contains(page, mark)) << mark;
  }
}

INSTANTIATE_TEST_SUITE_P(All, BrowserStyle,
                         testing::Values(Marks{2, "function std () {\n}"},
                                         Marks{4, "<BODY bgColor=\"#281860"},
                                         Marks{1, "<FONT color=\"#FF5050"},
                                         Marks{0, "<FONT color=\"#b0b0b0"}));

TEST(BrowserStyles, WithOnlySystemLinesStyles0And1LookAlike) {
  for (const int style : {0, 1}) {
    const Look look{style, false};
    const Text page =
        FrameHead(look) + PresentLine(look, {kNow, LineForm::kSystem, "", "", "bob x"}, kNow);
    EXPECT_TRUE(Contains(page, "<font size=-1 color=\"#cfcfff"));
    EXPECT_FALSE(Contains(page, "<FONT color=\"#FF5050"));
    EXPECT_FALSE(Contains(page, "<FONT color=\"#b0b0b0"));
  }
}

TEST(BrowserStyles, EveryLineBeginsSoThatARobotSeesTheChange) {
  for (const int style : {0, 1, 2, 4})
    for (const LineForm form :
         {LineForm::kMessage, LineForm::kAction, LineForm::kOperators, LineForm::kSystem})
      EXPECT_TRUE(StartsWithNoCase(
          PresentLine({style, false}, {kNow, form, "alice", "", "text"}, kNow), "<b><font color="))
          << style;
}

TEST(FlagR, MakesAPageThatRunsAScriptAtEachLine) {
  for (const int style : {0, 1, 2, 4, kRobotStyle}) {
    const Look look{style, true};
    const Text head = FrameHead(look);
    EXPECT_TRUE(Contains(head, "function std () {\n}")) << style;
    EXPECT_TRUE(Contains(head, "<BODY onLoad=")) << style;
    EXPECT_TRUE(Contains(LCase(PresentLine(look, Message("x"), kNow)),
                         "\n<script language=\"javascript\">\n"))
        << style;
  }
}

TEST(Signals, HaveTheirForms) {
  EXPECT_EQ(EjectMark(), "<hr>----- Аварийное катапультирование ----<hr>"_w);
  EXPECT_EQ(kKeepAlive, "<!-- -->\n");
  EXPECT_EQ(PersonalSignal("/x"), "<script>\nwindow.open('/x', 'personal')\n</script>\n");
}

TEST(Styles, Exist) {
  for (const int style : {0, 1, 2, 4, 9})
    EXPECT_TRUE(StyleExists(style));
  for (const int style : {-1, 3, 5, 8, 10})
    EXPECT_FALSE(StyleExists(style));
}

}  // namespace
}  // namespace parlorwire::service
