#include "session/status.h"

#include <gtest/gtest.h>

#include "session/error_log.h"
#include "session/personal_notice.h"
#include "support/chat.h"
#include "support/scripted_view.h"
#include "support/scrolled_view.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

struct Status : testing::Test {
  Status() {
    // The pieces that reach the day log, and the balloons.
    chat.client.hooks.LogChatLine = [this](const Text& piece, const Text& channel) {
      logged.push_back(channel + "|" + piece);
    };
    chat.client.hooks.ShowBalloon = [this](const Text& title, const Text& text, int flags,
                                           const BalloonAbout& about) {
      balloons.push_back(title + "|" + text + "|" + std::to_string(flags));
      EXPECT_EQ(about, BalloonAbout{0});
    };
    chat.client.hooks.SetTrayBlink = [this](int mode) { blinks.push_back(mode); };
  }
  PaneFormat Face() const {
    PaneFormat face;
    face.font_name = "Times New Roman";
    face.font_size = 10;
    face.colour = 0xE0E0E0;
    return face;
  }
  Chat chat;
  RichTextBox& rich = chat.tab().Rich;
  std::vector<Text> logged, balloons;
  std::vector<int> blinks;
};

TEST_F(Status, ALineHasTheTimeInFrontAndTheStatusFace) {
  StatusOut(chat.client, "Готово."_w, 0);
  EXPECT_EQ(chat.Pane(), "[12:00:00] Готово.\r\n"_w);
  EXPECT_EQ(rich.Runs(), (std::vector<PaneRun>{{0, 20, Face(), nullptr}}));
}

TEST_F(Status, AnHourOfOneDigitGetsALeadingZero) {
  chat.platform.time.SetNow({2026, 11, 21, 9, 5, 7});
  StatusOut(chat.client, "x", 0);
  EXPECT_EQ(chat.Pane(), "[09:05:07] x\r\n");
}

TEST_F(Status, TheFaceIsTheUsersOwn) {
  FontStatus& font = chat.client.app.rFontStatus;
  font.Name = "DejaVu Sans";
  font.Size = 14;
  font.Bold = font.Italic = true;
  font.TextColor = 0x123456;
  StatusOut(chat.client, "x", 0);
  PaneFormat face;
  face.font_name = "DejaVu Sans";
  face.font_size = 14;
  face.bold = face.italic = true;
  face.colour = 0x123456;
  EXPECT_EQ(rich.Runs(), (std::vector<PaneRun>{{0, 14, face, nullptr}}));
}

TEST_F(Status, AVerdictFinishesTheLastLine) {
  StatusOut(chat.client, "Подключение к чату..."_w, 0);
  StatusOk(chat.client, 0);
  StatusOut(chat.client, "b...", 0);
  StatusOut(chat.client, "reason", StatusMode::kFailed, 0);
  EXPECT_EQ(chat.Pane(),
            "[12:00:00] Подключение к чату... Ok.\r\n[12:00:00] b... Ошибка: reason\r\n"_w);
  chat.client.app.Language = UiLanguage::kEnglish;
  StatusOut(chat.client, "c...", 0);
  StatusOut(chat.client, "reason", StatusMode::kFailed, 0);
  EXPECT_TRUE(chat.Pane().ends_with("c... Failed: reason\r\n"));
}

TEST_F(Status, OkBehindALineThatDidNotEndInDotsIsAppendedAllTheSame) {
  StatusOut(chat.client, "done", 0);
  StatusOk(chat.client, 0);
  EXPECT_EQ(chat.Pane(), "[12:00:00] done Ok.\r\n");
}

TEST_F(Status, AVerdictInAnEmptyPaneStandsAlone) {
  StatusOk(chat.client, 0);
  EXPECT_EQ(chat.Pane(), " Ok.\r\n");
}

TEST_F(Status, AnOpenLineIsLoggedAsItIsAndItsVerdictWithTheLineEnd) {
  StatusOut(chat.client, "a...", 0);
  StatusOk(chat.client, 0);
  StatusOut(chat.client, "b..", 0);
  StatusOut(chat.client, "why", StatusMode::kFailed, 0);
  EXPECT_EQ(logged, (std::vector<Text>{"lobby|[12:00:00] a...", "lobby| Ok.\r\n",
                                       "lobby|[12:00:00] b..", "lobby| Ошибка: why\r\n"_w}));
}

TEST_F(Status, AClosedLineIsLoggedWithABlankAndThenTheLineEnd) {
  StatusOut(chat.client, "a.", 0);
  EXPECT_EQ(logged, (std::vector<Text>{"lobby|[12:00:00] a. ", "lobby|\r\n"}));
}

TEST_F(Status, GoesToTheLogOfTheChannelAtThatMoment) {
  StatusOut(chat.client, "a.", 0);
  chat.tab().Channel = "";
  StatusOut(chat.client, "b.", 0);
  EXPECT_EQ(logged[2], "|[12:00:00] b. ");
}

TEST_F(Status, ThePersonalNoticeEndsInALinkAndCallsTheUser) {
  StatusOut(chat.client, "Вам пришло персональное_сообщение!"_w, 0);
  PaneFormat link = Face();
  link.underline = true;
  EXPECT_EQ(rich.Runs(),
            (std::vector<PaneRun>{
                {0, 22, Face(), nullptr}, {22, 23, link, nullptr}, {45, 2, Face(), nullptr}}));
  EXPECT_EQ(
      balloons,
      std::vector<Text>{"|Вам пришло персональное сообщение!\r\nНик: alice\r\nКанал: lobby|16"_w});
  EXPECT_EQ(blinks, std::vector<int>{1});
}

TEST_F(Status, TheEnglishNoticeHasItsLinkToo) {
  StatusOut(chat.client, "You have a personal_message!", 0);
  EXPECT_EQ(rich.Runs()[1].start, 22);
  EXPECT_EQ(rich.Runs()[1].length, 17);
  EXPECT_TRUE(rich.Runs()[1].format.underline);
  EXPECT_EQ(balloons.size(), 1U);
}

TEST_F(Status, AFaultDoesNotFreezeThePane) {
  ScriptedView view(rich);
  chat.client.hooks.ShowBalloon = [](const Text&, const Text&, int, const BalloonAbout&) {
    throw Fault(fault::kInvalidCall);
  };
  EXPECT_THROW(NoticePersonalMessage(chat.client, 0), Fault);
  EXPECT_EQ(chat.Pane(), "[12:00:00] Вам пришло персональное_сообщение!\r\n"_w);
  EXPECT_TRUE(view.painting);
}

TEST_F(Status, AnotherTextCallsNobody) {
  StatusOut(chat.client, "You have a personal_message", 0);
  EXPECT_TRUE(balloons.empty());
}

TEST_F(Status, TheReadersSelectionIsLeftToTheReader) {
  rich.HideSelection(false);
  NoticePersonalMessage(chat.client, 0);
  EXPECT_TRUE(rich.HideSelection());  // what is selected for the link is not shown as selected
  rich.HideSelection(false);
  chat.client.app.MouseSelecting = true;
  StatusOut(chat.client, "x", 0);
  EXPECT_FALSE(rich.HideSelection());
}

TEST_F(Status, AVerdictTakesTheFormatOfTheLineEndThatItReplaces) {
  rich.SelColor(0xFF);
  rich.ReplaceSel("red\r\n");
  StatusOk(chat.client, 0);
  EXPECT_EQ(rich.Runs().size(), 1U);
  EXPECT_EQ(rich.Runs()[0].format.colour, 0xFFU);
}

TEST_F(Status, TheNoticeIsSaidOnceHoweverOftenTheSignalComes) {
  NoticePersonalMessage(chat.client, 0);
  NoticePersonalMessage(chat.client, 0);
  EXPECT_EQ(chat.Pane(), "[12:00:00] Вам пришло персональное_сообщение!\r\n"_w);
  EXPECT_TRUE(chat.tab().Timer2->Enabled());
  chat.platform.time.Advance(300);
  EXPECT_TRUE(chat.platform.desktop.at(0).pers_red);
  chat.platform.time.Advance(300);
  EXPECT_FALSE(chat.platform.desktop.at(0).pers_red);
}

TEST_F(Status, TheBlinkingOfTheNextNoticeBeginsWithRed) {
  NoticePersonalMessage(chat.client, 0);
  chat.platform.time.Advance(300);
  StopPersonalNotice(chat.client, 0);
  EXPECT_FALSE(chat.platform.desktop.at(0).pers_red);
  NoticePersonalMessage(chat.client, 0);
  chat.platform.time.Advance(300);
  EXPECT_TRUE(chat.platform.desktop.at(0).pers_red);
}

TEST_F(Status, ANewLineIsPaintedAsOne) {
  const ScriptedView view(rich);
  StatusOut(chat.client, "x", 0);
  EXPECT_TRUE(view.painting);
  EXPECT_EQ(view.painted_changes, 0);
}

// A pane of ten lines with a view of five.
struct ScrolledStatus : Status {
  ScrolledStatus() {
    for (int i = 0; i < 9; ++i)
      rich.ReplaceSel("line\r\n");
    view.Scroll(PaneScroll::kBottom);
  }
  ScrolledView view{rich, 5};
};

TEST_F(ScrolledStatus, ANewLineScrollsToTheBottom) {
  StatusOut(chat.client, "x", 0);
  EXPECT_TRUE(view.AtEnd());
  view.Scroll(PaneScroll::kLineUp);
  StatusOut(chat.client, "x", 0);
  EXPECT_TRUE(view.AtEnd());
}

TEST_F(ScrolledStatus, WithStopScrollAReaderAtTheEndIsTakenAlong) {
  chat.platform.desktop.at(0).stop_scroll = true;
  StatusOut(chat.client, "Чтение с канала..."_w, 0);
  EXPECT_TRUE(view.AtEnd());
  StatusOk(chat.client, 0);
  EXPECT_TRUE(view.AtEnd());
  NoticePersonalMessage(chat.client, 0);
  EXPECT_TRUE(view.AtEnd());
}

TEST_F(ScrolledStatus, WithStopScrollAReaderFurtherUpStaysThere) {
  chat.platform.desktop.at(0).stop_scroll = true;
  view.Scroll(PaneScroll::kLineUp);
  const int top = view.Top();
  StatusOut(chat.client, "x", 0);
  EXPECT_EQ(view.Top(), top);
}

TEST_F(ScrolledStatus, WithStopScrollTheLineThatFillsTheViewIsFollowed) {
  rich.Text("1\r\n2\r\n3\r\n4\r\n");  // five lines with the empty one behind them
  ASSERT_EQ(rich.GetScrollInfo().max, 0);
  chat.platform.desktop.at(0).stop_scroll = true;
  StatusOut(chat.client, "x", 0);
  EXPECT_TRUE(view.AtEnd());
}

}  // namespace
}  // namespace parlorwire
