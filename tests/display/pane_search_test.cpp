#include "display/pane_search.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "support/chat.h"

namespace parlorwire {
namespace {

constexpr auto kDown = SearchDirection::kDown;
constexpr auto kUp = SearchDirection::kUp;

struct PaneSearchTest : testing::Test {
  void SetPane(const Text& text, int tab = 0) {
    chat.tab(tab).Rich.Text(text);
    chat.tab(tab).Rich.HideSelection(true);
  }
  // Where the next hit begins; nothing if the search is over.
  std::optional<PanePosition> Next(SearchDirection direction = kDown) {
    auto& boxes = chat.platform.desktop.boxes;
    boxes.clear();
    const RichTextBox& pane = chat.tab(chat.platform.desktop.active_tab).Rich;
    FindNext(chat.client, direction);
    if (boxes.empty()) return pane.SelStart();
    EXPECT_EQ(boxes,
              (std::vector{SimulatedDesktop::Box{"Поиск завершен"_w, BoxIcon::kInformation}}));
    return std::nullopt;
  }
  Chat chat;
  SearchForm& form = chat.client.app.search_form;
};

TEST_F(PaneSearchTest, GoesDownFromHitToHitAndThenIsOver) {
  SetPane("one two one two\r\none");
  form.txt_to_search = "one";
  EXPECT_EQ(Next(), 0);
  EXPECT_EQ(Next(), 8);
  EXPECT_EQ(Next(), 17);
  EXPECT_EQ(Next(), std::nullopt);
  EXPECT_EQ(Next(), std::nullopt);
}

TEST_F(PaneSearchTest, GoesUpFromTheEndAndThenIsOver) {
  SetPane("one two one two\r\none");
  form.txt_to_search = "one";
  EXPECT_EQ(Next(kUp), 17);
  EXPECT_EQ(Next(kUp), 8);
  EXPECT_EQ(Next(kUp), 0);
  EXPECT_EQ(Next(kUp), std::nullopt);
  EXPECT_EQ(Next(kUp), std::nullopt);
  EXPECT_EQ(Next(kDown), 8);
}

TEST_F(PaneSearchTest, AHitIsSelectedForTheReaderToSee) {
  SetPane("a Привет b"_w);
  form.txt_to_search = "привет"_w;
  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(chat.tab().Rich.SelText(), "Привет"_w);
  EXPECT_FALSE(chat.tab().Rich.HideSelection());
}

TEST_F(PaneSearchTest, NothingFoundLeavesLastFoundAndTheSelection) {
  SetPane("one two");
  form.txt_to_search = "two";
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(form.LastFound, 5);
  form.txt_to_search = "three";
  EXPECT_EQ(Next(), std::nullopt);
  EXPECT_EQ(form.LastFound, 5);
  EXPECT_EQ(chat.tab().Rich.SelText(), "two");
  form.txt_to_search = "one";
  EXPECT_EQ(Next(kUp), 0);
}

TEST_F(PaneSearchTest, WithoutATextNothingIsDone) {
  SetPane("one");
  FindNext(chat.client, kDown);
  FindNext(chat.client, kUp);
  EXPECT_TRUE(chat.platform.desktop.boxes.empty());
  EXPECT_FALSE(form.Started);
}

TEST_F(PaneSearchTest, TheFirstSearchStartsAtWhatIsSelected) {
  SetPane("one one one one");
  form.txt_to_search = "one";
  chat.tab().Rich.ExSetSel(4, 7);
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(Next(), 8);
  chat.tab().Rich.ExSetSel(0, 3);
  EXPECT_EQ(Next(), 12);
}

TEST_F(PaneSearchTest, UpwardsTheFirstSearchEndsAheadOfWhatIsSelected) {
  SetPane("one one one one");
  form.txt_to_search = "one";
  chat.tab().Rich.ExSetSel(8, 11);
  EXPECT_EQ(Next(kUp), 4);
}

TEST_F(PaneSearchTest, ASelectionBehindTheFirstSearchMovesNothing) {
  SetPane("one one");
  form.txt_to_search = "two";
  EXPECT_EQ(Next(), std::nullopt);
  chat.tab().Rich.ExSetSel(4, 7);
  form.txt_to_search = "one";
  EXPECT_EQ(Next(), 0);
}

TEST_F(PaneSearchTest, CaseCountsOnlyIfItIsTicked) {
  SetPane("One ПРИВЕТ one привет"_w);
  form.txt_to_search = "привет"_w;
  EXPECT_EQ(Next(), 4);
  form.LastFound = 0;
  form.case_sensitive = true;
  EXPECT_EQ(Next(), 15);
  form.txt_to_search = "One";
  EXPECT_EQ(Next(kUp), 0);
}

TEST_F(PaneSearchTest, AWholeWordIsBoundedByBlanksAlone) {
  SetPane("(one) stone one, x one y\r\none\r\n one ");
  form.txt_to_search = "one";
  form.compl_word = true;
  EXPECT_EQ(Next(), 19);
  EXPECT_EQ(Next(), 32);
  EXPECT_EQ(Next(), std::nullopt);
  EXPECT_EQ(Next(kUp), 19);
  EXPECT_EQ(Next(kUp), std::nullopt);
}

TEST_F(PaneSearchTest, AWholeWordAtEitherEndOfThePaneIsFound) {
  SetPane("one and ONE");
  form.txt_to_search = "one";
  form.compl_word = true;
  EXPECT_EQ(Next(), 0);
  EXPECT_EQ(Next(), 8);
  EXPECT_EQ(chat.tab().Rich.SelText(), "ONE");
  EXPECT_EQ(Next(), std::nullopt);
  EXPECT_EQ(Next(kUp), 0);
  EXPECT_EQ(Next(kUp), std::nullopt);
  form.case_sensitive = true;
  form.LastFound = 0;
  EXPECT_EQ(Next(kUp), 0);
}

TEST_F(PaneSearchTest, AWholeWordThatIsThePaneIsFound) {
  SetPane("one");
  form.compl_word = true;
  form.txt_to_search = "one";
  EXPECT_EQ(Next(), 0);
  EXPECT_EQ(Next(), std::nullopt);
  form.LastFound = 0;
  EXPECT_EQ(Next(kUp), 0);
  form.txt_to_search = "on";
  form.LastFound = 0;
  EXPECT_EQ(Next(), std::nullopt);
}

TEST_F(PaneSearchTest, DownwardsHitsMayOverlap) {
  SetPane("aaaa");
  form.txt_to_search = "aa";
  EXPECT_EQ(Next(), 0);
  EXPECT_EQ(Next(), 1);
  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(Next(), std::nullopt);
}

TEST_F(PaneSearchTest, UpwardsAHitEndsAheadOfTheOneBefore) {
  SetPane("aaaa");
  form.txt_to_search = "aa";
  EXPECT_EQ(Next(kUp), 2);
  EXPECT_EQ(Next(kUp), 0);
  EXPECT_EQ(Next(kUp), std::nullopt);
}

TEST_F(PaneSearchTest, UpwardsTheBlankAheadOfAWholeWordCountsToIt) {
  SetPane("one one  one");
  form.txt_to_search = "one";
  form.compl_word = true;
  EXPECT_EQ(Next(kUp), 9);
  EXPECT_EQ(Next(kUp), 4);
  EXPECT_EQ(Next(kUp), std::nullopt);
  EXPECT_EQ(Next(kDown), 9);
}

TEST_F(PaneSearchTest, GoesOnAtItsOldPlaceInThePaneOfAnotherTab) {
  SetPane("one one one one one");
  SetPane("one one one one one", 3);
  form.txt_to_search = "one";
  EXPECT_EQ(Next(), 0);
  EXPECT_EQ(Next(), 4);
  chat.platform.desktop.active_tab = 3;
  EXPECT_EQ(Next(), 8);
  EXPECT_EQ(chat.tab(3).Rich.SelText(), "one");
  EXPECT_EQ(chat.tab(0).Rich.SelStart(), 4);
}

TEST_F(PaneSearchTest, APlaceBehindTheEndOfAShorterPaneIsItsEnd) {
  SetPane("one two one");
  form.txt_to_search = "one";
  form.LastFound = 5'000;
  EXPECT_EQ(Next(), std::nullopt);
  EXPECT_EQ(Next(kUp), 8);
}

TEST_F(PaneSearchTest, AnEmptyPaneHoldsNothing) {
  form.txt_to_search = "one";
  for (const bool whole : {false, true}) {
    form.compl_word = whole;
    EXPECT_EQ(Next(), std::nullopt);
    EXPECT_EQ(Next(kUp), std::nullopt);
  }
}

// ---- a pane of many slices ----

struct LongPaneSearchTest : PaneSearchTest {
  LongPaneSearchTest() {
    Text text = "needle ";
    text.append(9'000'000, 'x');
    text += " needle";
    SetPane(text);
    form.txt_to_search = "needle";
    chat.platform.desktop.events_waiting = true;
  }
  static constexpr PanePosition kLast = 9'000'008;
};

TEST_F(LongPaneSearchTest, IsSearchedWhileWaitingEventsRun) {
  for (const bool whole : {false, true}) {
    form.compl_word = whole;
    form.LastFound = 1;
    const int yields = chat.platform.desktop.yields;
    EXPECT_EQ(Next(), kLast);
    EXPECT_GE(chat.platform.desktop.yields - yields, 2);
    EXPECT_EQ(Next(kUp), 0);
    EXPECT_GE(chat.platform.desktop.yields - yields, 4);
  }
}

TEST_F(LongPaneSearchTest, AWordAcrossTheEdgeOfTwoSlicesIsFound) {
  for (const PanePosition at : {3'999'990, 3'999'995, 3'999'999, 4'000'000, 4'000'001}) {
    chat.tab().Rich.ExSetSel(at, at + 6);
    chat.tab().Rich.ReplaceSel("NEEDLE");
    form.LastFound = 1;
    EXPECT_EQ(Next(), at);
    form.LastFound = kLast + 1;
    EXPECT_EQ(Next(kUp), at);
    chat.tab().Rich.ExSetSel(at, at + 6);
    chat.tab().Rich.ReplaceSel("xxxxxx");
  }
}

TEST_F(LongPaneSearchTest, WithNoEventsWaitingNoneAreLetRun) {
  chat.platform.desktop.events_waiting = false;
  form.LastFound = 1;
  EXPECT_EQ(Next(), kLast);
  EXPECT_EQ(chat.platform.desktop.yields, 0);
}

TEST_F(LongPaneSearchTest, IsGivenUpInSilence) {
  const auto given_up_by = [&](const std::function<void()>& event) {
    form.LastFound = 1;
    chat.tab().Rich.SelStart(0);
    chat.platform.desktop.on_yield = event;
    FindNext(chat.client, kDown);
    chat.platform.desktop.on_yield = nullptr;
    return chat.tab().Rich.SelLength() == 0 && chat.platform.desktop.boxes.empty();
  };
  EXPECT_FALSE(given_up_by([] {}));
  EXPECT_TRUE(given_up_by([&] { StopSearch(chat.client); }));
  EXPECT_TRUE(given_up_by([&] { ++chat.tab().SessionNumber; }));
  EXPECT_TRUE(given_up_by([&] { chat.platform.desktop.active_tab = 1; }));
}

TEST_F(LongPaneSearchTest, ASecondSearchEndsTheFirst) {
  form.LastFound = 1;
  bool begun = false;
  chat.platform.desktop.on_yield = [&] {
    if (begun) return;
    begun = true;
    FindNext(chat.client, kUp);
    EXPECT_FALSE(chat.platform.desktop.boxes.empty());
    chat.platform.desktop.boxes.clear();
  };
  FindNext(chat.client, kDown);
  EXPECT_TRUE(begun);
  EXPECT_EQ(form.LastFound, 1);
  EXPECT_TRUE(chat.platform.desktop.boxes.empty());
}

TEST_F(LongPaneSearchTest, LinesThatComeMeanwhileAreSearchedToo) {
  form.LastFound = kLast + 1;
  form.txt_to_search = "fresh";
  form.LastFound = 1;
  chat.platform.desktop.on_yield = [&] {
    RichTextBox& pane = chat.tab().Rich;
    chat.platform.desktop.on_yield = nullptr;
    pane.ExSetSel(-1, -1);
    pane.ReplaceSel(" fresh");
  };
  EXPECT_EQ(Next(), kLast + 7);
}

}  // namespace
}  // namespace parlorwire
