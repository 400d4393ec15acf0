// Formats: what text is written in, what a format set on a selection changes, and what it does not.
#include <gtest/gtest.h>

#include "pane/rich_text_box.h"

namespace parlorwire {

// How a failed comparison shows a run.
void PrintTo(const PaneRun& run, std::ostream* out) {
  *out << run.start << "+" << run.length << " " << run.format.font_name << " "
       << run.format.font_size << " colour " << run.format.colour << " back "
       << (run.format.back_colour ? static_cast<int>(*run.format.back_colour) : -1)
       << (run.format.bold ? " bold" : "") << (run.format.italic ? " italic" : "")
       << (run.format.underline ? " underline" : "") << (run.picture ? " picture" : "");
}

namespace {

// Colours stand for formats here: the rest of the format is the control's own.
PaneRun Coloured(PanePosition start, PanePosition length, PaneColour colour) {
  PaneFormat format;
  format.colour = colour;
  return {start, length, format, nullptr};
}

using Runs = std::vector<PaneRun>;

void Append(RichTextBox& pane, std::string_view text, PaneColour colour) {
  pane.ExSetSel(pane.Length(), pane.Length());
  pane.SelColor(colour);
  pane.ReplaceSel(text);
}

TEST(RichTextBoxWriting, WithASelectionTakesTheFormatOfItsFirstCharacter) {
  RichTextBox pane;
  Append(pane, "aa", 1);
  Append(pane, "bb", 2);
  pane.ExSetSel(1, 3);
  pane.ReplaceSel("XYZ");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 4, 1), Coloured(4, 1, 2)}));
}

TEST(RichTextBoxWriting, TakesThePendingFormat) {
  RichTextBox pane;
  Append(pane, "aa", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 1), Coloured(1, 1, 7), Coloured(2, 1, 1)}));
}

TEST(RichTextBoxWriting, ElseTakesTheFormatOfTheCharacterBefore) {
  RichTextBox pane;
  Append(pane, "aa", 1);
  Append(pane, "bb", 2);
  pane.ExSetSel(2, 2);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 3, 1), Coloured(3, 2, 2)}));
}

TEST(RichTextBoxWriting, AtALinesStartTakesTheFormatOfTheCharacterBehind) {
  RichTextBox pane;
  Append(pane, "aa\r\n", 1);
  Append(pane, "bb", 2);
  pane.ExSetSel(4, 4);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 4, 1), Coloured(4, 3, 2)}));
}

TEST(RichTextBoxWriting, AtTheStartOfTheTextTakesTheFormatOfTheFirstCharacter) {
  RichTextBox pane;
  Append(pane, "aa", 3);
  pane.ExSetSel(0, 0);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 3, 3)}));
}

TEST(RichTextBoxWriting, BehindTheLastLineEndTakesTheOwnFormat) {
  for (const std::string_view line_break : {"\r\n", "\r\r\n", "\n", "\r"}) {
    RichTextBox pane;
    Append(pane, line_break, 3);
    pane.ReplaceSel("X");
    const auto size = static_cast<PanePosition>(line_break.size());
    EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, size, 3), Coloured(size, 1, 0)}));
  }
}

TEST(RichTextBoxWriting, IntoAnEmptyPaneTakesTheOwnFormat) {
  PaneFormat own;
  own.font_name = "A font with a long name";
  own.colour = 9;
  RichTextBox pane(own);
  pane.ReplaceSel("X\r\n");
  EXPECT_EQ(pane.Runs(), (Runs{{0, 3, own, nullptr}}));
}

TEST(RichTextBoxWriting, GivesLineBreaksTheFormatToo) {
  RichTextBox pane;
  Append(pane, "a\r\nb\r\n", 5);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 6, 5)}));
}

TEST(RichTextBoxWriting, GoesOnInTheFormatOfWhatWasWritten) {
  RichTextBox pane;
  Append(pane, "a", 5);
  pane.ReplaceSel("b");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 2, 5)}));
}

// So the bar of a notice does not colour the lines behind it.
TEST(RichTextBoxWriting, BehindALineEndHasNoBackColour) {
  RichTextBox pane;
  pane.SetCharFormat(0x94A300, 0xE0E0E0);
  pane.ReplaceSel("\r\n   \r\n");
  pane.ReplaceSel("text");
  PaneFormat bar;
  bar.back_colour = 0x94A300;
  bar.colour = 0xE0E0E0;
  EXPECT_EQ(pane.Runs(), (Runs{{0, 7, bar, nullptr}, Coloured(7, 4, 0)}));
}

TEST(RichTextBoxPending, StartsAsTheFormatOfTheNextTextAndTakesWhatIsSet) {
  PaneFormat format;
  format.font_name = "Courier New";
  format.font_size = 20;
  format.back_colour = 4;
  RichTextBox pane;
  pane.SelFormat(format);
  pane.ReplaceSel("ab");
  pane.SelBold(true);
  pane.SelItalic(true);
  pane.ReplaceSel("c");
  PaneFormat bold = format;
  bold.bold = bold.italic = true;
  EXPECT_EQ(pane.Runs(), (Runs{{0, 2, format, nullptr}, {2, 1, bold, nullptr}}));
}

TEST(RichTextBoxPending, AppliesToTheNextTextAndToNothingElse) {
  RichTextBox pane;
  Append(pane, "ab", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  pane.ReplaceSel("X");
  pane.ExSetSel(1, 1);
  pane.ReplaceSel("Y");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 2, 1), Coloured(2, 1, 7), Coloured(3, 1, 1)}));
}

TEST(RichTextBoxPending, ChangesNoText) {
  RichTextBox pane;
  Append(pane, "ab", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 2, 1)}));
}

TEST(RichTextBoxPending, IsForgottenWhenTheCaretMoves) {
  RichTextBox pane;
  Append(pane, "ab", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  pane.ExSetSel(2, 2);
  pane.ExSetSel(1, 1);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 3, 1)}));
}

TEST(RichTextBoxPending, IsForgottenWhenSomethingIsSelected) {
  RichTextBox pane;
  Append(pane, "ab", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  pane.SelLength(1);
  pane.SelLength(0);
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 3, 1)}));
}

TEST(RichTextBoxPending, IsKeptWhenTheSamePlaceIsSelected) {
  RichTextBox pane;
  Append(pane, "a\r\nb", 1);
  pane.ExSetSel(1, 1);
  pane.SelColor(7);
  pane.ExSetSel(1, 1);
  pane.SelStart(1);
  pane.SelLength(0);
  pane.ExSetSel(2, 2);  // ahead of the same CR
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 1), Coloured(1, 1, 7), Coloured(2, 3, 1)}));
}

TEST(RichTextBoxPending, IsKeptWhenNothingIsWritten) {
  RichTextBox pane;
  pane.SelColor(7);
  pane.ReplaceSel("");
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 7)}));
}

TEST(RichTextBoxPending, IsForgottenByANewText) {
  RichTextBox pane;
  pane.SelColor(7);
  pane.Text("");
  pane.ReplaceSel("X");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 0)}));
}

TEST(RichTextBoxPending, IsThatOfTheTimeWhenItWasSet) {
  RichTextBox pane;
  pane.SelBold(true);
  PaneFormat own;
  own.font_size = 30;
  pane.OwnFormat(own);
  pane.ReplaceSel("X");
  PaneFormat expected;
  expected.bold = true;
  EXPECT_EQ(pane.Runs(), (Runs{{0, 1, expected, nullptr}}));
}

TEST(RichTextBoxFormatting, ChangesTheSelectedCharactersAndTheirBreaks) {
  RichTextBox pane;
  Append(pane, "ab\r\ncd", 1);
  pane.ExSetSel(1, 5);
  pane.SelColor(2);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 1), Coloured(1, 4, 2), Coloured(5, 1, 1)}));
}

TEST(RichTextBoxFormatting, ChangesOnlyTheMemberThatIsSet) {
  PaneFormat first;
  first.font_name = "Courier New";
  first.bold = true;
  PaneFormat second;
  second.underline = true;
  second.back_colour = 8;
  RichTextBox pane;
  pane.SelFormat(first);
  pane.ReplaceSel("aa");
  pane.SelFormat(second);
  pane.ReplaceSel("bb");
  pane.ExSetSel(1, 3);
  pane.SelColor(5);
  PaneFormat first_tinted = first;
  first_tinted.colour = 5;
  PaneFormat second_tinted = second;
  second_tinted.colour = 5;
  EXPECT_EQ(pane.Runs(), (Runs{{0, 1, first, nullptr},
                               {1, 1, first_tinted, nullptr},
                               {2, 1, second_tinted, nullptr},
                               {3, 1, second, nullptr}}));
}

TEST(RichTextBoxFormatting, LeavesTheSelectionAndWhatIsWrittenLater) {
  RichTextBox pane;
  Append(pane, "abc", 1);
  pane.ExSetSel(1, 2);
  pane.SelColor(2);
  EXPECT_EQ(pane.SelStart(), 1);
  EXPECT_EQ(pane.SelLength(), 1);
  Append(pane, "d", 1);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 1), Coloured(1, 1, 2), Coloured(2, 2, 1)}));
}

TEST(RichTextBoxFormatting, OfASelectionGivesItsTextsSuccessorTheFormat) {
  RichTextBox pane;
  Append(pane, "nick: ", 1);
  pane.ExSetSel(5, 6);
  pane.SelColor(2);
  pane.ReplaceSel(" text\r\n");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 5, 1), Coloured(5, 7, 2)}));
}

TEST(RichTextBoxFormatting, BackAgainJoinsTheRuns) {
  RichTextBox pane;
  Append(pane, "abcdef", 1);
  pane.ExSetSel(2, 4);
  pane.SelColor(2);
  pane.SelColor(1);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 6, 1)}));
}

TEST(RichTextBoxFormatting, EachMember) {
  RichTextBox pane;
  pane.Text("abc");
  pane.ExSetSel(1, 2);
  pane.SelFontName("Arial");
  pane.SelFontSize(17);
  pane.SelBold(true);
  pane.SelItalic(true);
  pane.SelUnderline(true);
  pane.SelAlignment(PaneAlignment::kCentre);
  pane.SetCharFormat(3, 4);
  PaneFormat expected;
  expected.font_name = "Arial";
  expected.font_size = 17;
  expected.bold = expected.italic = expected.underline = true;
  expected.alignment = PaneAlignment::kCentre;
  expected.back_colour = 3;
  expected.colour = 4;
  EXPECT_EQ(pane.RunsBetween(1, 2), (Runs{{1, 1, expected, nullptr}}));
  pane.SelBold(false);
  pane.SelItalic(false);
  pane.SelUnderline(false);
  expected.bold = expected.italic = expected.underline = false;
  EXPECT_EQ(pane.RunsBetween(1, 2), (Runs{{1, 1, expected, nullptr}}));
}

TEST(RichTextBoxBackColour, SetsTheTextColourAndALaterOneStands) {
  RichTextBox pane;
  pane.SetCharFormat(0x94A300, 5);
  pane.ReplaceSel("a");
  pane.SetCharFormat(0x94A300, 5);
  pane.SelColor(6);
  pane.ReplaceSel("b");
  PaneFormat first;
  first.back_colour = 0x94A300;
  first.colour = 5;
  PaneFormat second = first;
  second.colour = 6;
  EXPECT_EQ(pane.Runs(), (Runs{{0, 1, first, nullptr}, {1, 1, second, nullptr}}));
}

TEST(RichTextBoxBackColour, OfBlackIsNotNone) {
  RichTextBox pane;
  Append(pane, "ab", 0);
  pane.ExSetSel(0, 1);
  pane.SetCharFormat(0, 0);
  ASSERT_EQ(pane.Runs().size(), 2U);
  EXPECT_EQ(pane.Runs()[0].format.back_colour, std::optional<PaneColour>(0));
  EXPECT_EQ(pane.Runs()[1].format.back_colour, std::nullopt);
}

TEST(RichTextBoxOwnFormat, ShowsInLaterTextOnly) {
  RichTextBox pane;
  pane.ReplaceSel("a\r\n");
  PaneFormat own;
  own.colour = 8;
  pane.OwnFormat(own);
  EXPECT_EQ(pane.OwnFormat(), own);
  pane.ReplaceSel("b");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 3, 0), Coloured(3, 1, 8)}));
}

TEST(RichTextBoxNewText, DropsFormatsAndPictures) {
  PaneFormat own;
  own.colour = 8;
  RichTextBox pane(own);
  Append(pane, "abc", 1);
  pane.PastePicture(std::make_shared<PanePicture>());
  pane.Text("abcd");
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 4, 8)}));
}

TEST(RichTextBoxPicture, IsARunOfItsOwnAlsoBesideItsLike) {
  const auto picture = std::make_shared<PanePicture>(PanePicture{"*:)", nullptr});
  RichTextBox pane;
  Append(pane, "ab", 1);
  pane.ExSetSel(1, 1);
  pane.PastePicture(picture);
  pane.PastePicture(picture);
  PaneRun first = Coloured(1, 1, 1);
  first.picture = picture;
  PaneRun second = first;
  second.start = 2;
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 1, 1), first, second, Coloured(3, 1, 1)}));
}

TEST(RichTextBoxPicture, ReplacesItsCode) {
  const auto picture = std::make_shared<PanePicture>(PanePicture{"*:)", nullptr});
  RichTextBox pane;
  Append(pane, "a *:) b", 1);
  pane.ExSetSel(2, 5);
  pane.ReplaceSel("");
  pane.PastePicture(picture);
  EXPECT_EQ(pane.Text(), "a   b");
  PaneRun run = Coloured(2, 1, 1);
  run.picture = picture;
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 2, 1), run, Coloured(3, 2, 1)}));
}

TEST(RichTextBoxPicture, TextBehindItIsTextOfItsFormat) {
  RichTextBox pane;
  pane.SelColor(4);
  pane.PastePicture(std::make_shared<PanePicture>());
  pane.ReplaceSel("x");
  ASSERT_EQ(pane.Runs().size(), 2U);
  EXPECT_NE(pane.Runs()[0].picture, nullptr);
  EXPECT_EQ(pane.Runs()[1], Coloured(1, 1, 4));
}

TEST(RichTextBoxPicture, CanBeFormattedAndStaysAPicture) {
  const auto picture = std::make_shared<PanePicture>();
  RichTextBox pane;
  pane.PastePicture(picture);
  pane.ReplaceSel("x");
  pane.ExSetSel(0, 2);
  pane.SelColor(6);
  PaneRun run = Coloured(0, 1, 6);
  run.picture = picture;
  EXPECT_EQ(pane.Runs(), (Runs{run, Coloured(1, 1, 6)}));
}

TEST(RichTextBoxPicture, OfNothingPastesNothing) {
  RichTextBox pane;
  pane.Text("ab");
  pane.ExSetSel(0, 1);
  pane.PastePicture(nullptr);
  EXPECT_EQ(pane.Text(), "ab");
}

TEST(RichTextBoxPicture, EqualPicturesAreKeptOnce) {
  RichTextBox pane;
  for (int i = 0; i < 100; ++i)
    pane.PastePicture(std::make_shared<PanePicture>(PanePicture{
        "*:)", std::make_shared<Picture>(Picture{100, 100, 1, std::vector(10'000, 7U)})}));
  const Runs runs = pane.Runs();
  ASSERT_EQ(runs.size(), 100U);
  for (const PaneRun& run : runs)
    EXPECT_EQ(run.picture, runs.front().picture);
}

TEST(RichTextBoxPicture, IsLetGoByANewText) {
  auto picture = std::make_shared<PanePicture>();
  const std::weak_ptr<const PanePicture> watched = picture;
  RichTextBox pane;
  pane.PastePicture(std::move(picture));
  EXPECT_FALSE(watched.expired());
  pane.Text("");
  EXPECT_TRUE(watched.expired());
}

TEST(RichTextBoxRuns, BetweenPositionsAreCutAndClamped) {
  RichTextBox pane;
  Append(pane, "aaa", 1);
  Append(pane, "bbb", 2);
  EXPECT_EQ(pane.RunsBetween(1, 4), (Runs{Coloured(1, 2, 1), Coloured(3, 1, 2)}));
  EXPECT_EQ(pane.RunsBetween(-4, 2), (Runs{Coloured(0, 2, 1)}));
  EXPECT_EQ(pane.RunsBetween(5, 99), (Runs{Coloured(5, 1, 2)}));
  EXPECT_TRUE(pane.RunsBetween(3, 3).empty());
  EXPECT_TRUE(pane.RunsBetween(4, 2).empty());
}

TEST(RichTextBoxRuns, OfEqualFormatAreOneHoweverLong) {
  RichTextBox pane;
  for (int i = 0; i < 1000; ++i)
    Append(pane, std::string(100, 'x'), 3);
  EXPECT_EQ(pane.Runs(), (Runs{Coloured(0, 100'000, 3)}));
}

TEST(RichTextBoxRuns, MayHaveAsManyFormatsAsThereAreColours) {
  RichTextBox pane;
  for (PaneColour colour = 0; colour < 70'000; ++colour) {
    pane.SelColor(colour);
    pane.ReplaceSel("x");
  }
  const Runs runs = pane.Runs();
  ASSERT_EQ(runs.size(), 70'000U);
  for (std::size_t i = 0; i < runs.size(); ++i)
    ASSERT_EQ(runs[i].format.colour, i);
}

}  // namespace
}  // namespace parlorwire
