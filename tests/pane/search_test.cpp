// Finding a text in a pane, also across the blocks that the pane is kept in.
#include "pane/search.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <tuple>

#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr auto kCounts = LetterCase::kCounts;
constexpr auto kIgnored = LetterCase::kIgnored;

TEST(PaneSearch, GoesForwardsFromAPlace) {
  RichTextBox pane;
  pane.Text("one two one two one");
  EXPECT_EQ(FindForwards(pane, "one", 0, kCounts), 0);
  EXPECT_EQ(FindForwards(pane, "one", 1, kCounts), 8);
  EXPECT_EQ(FindForwards(pane, "one", 8, kCounts), 8);
  EXPECT_EQ(FindForwards(pane, "one", 16, kCounts), 16);
  EXPECT_EQ(FindForwards(pane, "one", 17, kCounts), std::nullopt);
  EXPECT_EQ(FindForwards(pane, "one", -5, kCounts), 0);
  EXPECT_EQ(FindForwards(pane, "one", 1'000, kCounts), std::nullopt);
  EXPECT_EQ(FindForwards(pane, "three", 0, kCounts), std::nullopt);
}

TEST(PaneSearch, GoesBackwardsFromAPlace) {
  RichTextBox pane;
  pane.Text("one two one two one");
  EXPECT_EQ(FindBackwards(pane, "one", 1'000, kCounts), 16);
  EXPECT_EQ(FindBackwards(pane, "one", 16, kCounts), 16);
  EXPECT_EQ(FindBackwards(pane, "one", 15, kCounts), 8);
  EXPECT_EQ(FindBackwards(pane, "one", 7, kCounts), 0);
  EXPECT_EQ(FindBackwards(pane, "two", 3, kCounts), std::nullopt);
  EXPECT_EQ(FindBackwards(pane, "one", -1, kCounts), std::nullopt);
}

TEST(PaneSearch, CanIgnoreTheCaseOfAllLettersOfTheCodePage) {
  RichTextBox pane;
  pane.Text("x \xCF\xF0\xC8\xE2\xC5\xF2 \xA8 Hello");
  EXPECT_EQ(FindForwards(pane, "\xEF\xD0\xE8\xC2\xE5\xD2 \xB8 HELLO", 0, kIgnored), 2);
  EXPECT_EQ(FindBackwards(pane, "\xEF\xD0\xE8\xC2\xE5\xD2 \xB8 HELLO", 99, kIgnored), 2);
  EXPECT_EQ(FindForwards(pane, "hello", 0, kCounts), std::nullopt);
  EXPECT_EQ(FindForwards(pane, "Hello", 0, kCounts), 11);
}

TEST(PaneSearch, OneAndTwoLettersAreFoundInEitherCase) {
  RichTextBox pane;
  pane.Text("x \xCF\xF0 N y n");
  for (const auto& [wanted, first, last] :
       {std::tuple("n", 5, 9), std::tuple("N", 5, 9), std::tuple(" n", 4, 8),
        std::tuple("\xEF\xD0", 2, 2), std::tuple("\xD0", 3, 3)}) {
    EXPECT_EQ(FindForwards(pane, wanted, 0, kIgnored), first) << wanted;
    EXPECT_EQ(FindBackwards(pane, wanted, 99, kIgnored), last) << wanted;
  }
  EXPECT_EQ(FindForwards(pane, "n", 0, kCounts), 9);
  EXPECT_EQ(FindBackwards(pane, "N", 99, kCounts), 5);
  EXPECT_EQ(FindForwards(pane, "yn", 0, kIgnored), std::nullopt);
  EXPECT_EQ(FindBackwards(pane, "yn", 99, kIgnored), std::nullopt);
}

TEST(PaneSearch, FindsNothingInNothing) {
  RichTextBox pane;
  EXPECT_EQ(FindForwards(pane, "a", 0, kCounts), std::nullopt);
  EXPECT_EQ(FindBackwards(pane, "a", 0, kCounts), std::nullopt);
  pane.Text("abc");
  EXPECT_EQ(FindForwards(pane, "", 0, kCounts), std::nullopt);
  EXPECT_EQ(FindBackwards(pane, "", 3, kCounts), std::nullopt);
  EXPECT_EQ(FindForwards(pane, "abcd", 0, kCounts), std::nullopt);
  EXPECT_EQ(FindBackwards(pane, "abcd", 3, kCounts), std::nullopt);
}

TEST(PaneSearch, SeesLineBreaksAndPicturesAsCharacters) {
  RichTextBox pane;
  pane.Text("a\r\nb");
  pane.ExSetSel(4, 4);
  pane.PastePicture(std::make_shared<PanePicture>(PanePicture{"*:)", nullptr}));
  pane.ReplaceSel("c");
  EXPECT_EQ(FindForwards(pane, "a\r\nb c", 0, kCounts), 0);
  EXPECT_EQ(FindForwards(pane, "*:)", 0, kCounts), std::nullopt);
}

// The same answers as a search in the whole text.
TEST(PaneSearch, FindsWhatASearchInTheWholeTextFinds) {
  std::mt19937 random(3);
  for (int round = 0; round < 6; ++round) {
    RichTextBox pane;
    std::string text;
    for (std::size_t i = 0; i < 100'000; ++i)
      text += static_cast<char>('a' + random() % (round % 2 == 0 ? 2 : 20));
    pane.Text(text);
    for (int i = 0; i < 20; ++i) {
      const std::size_t length = i % 10 == 9 ? 40'000 : 1 + random() % 14;
      const std::string wanted = text.substr(random() % (text.size() - length), length);
      const std::size_t from = random() % text.size();
      const auto told = [](std::size_t found) {
        return found == std::string::npos ? std::nullopt
                                          : std::optional(static_cast<PanePosition>(found));
      };
      const auto at = static_cast<PanePosition>(from);
      EXPECT_EQ(FindForwards(pane, wanted, at, kCounts), told(text.find(wanted, from)));
      EXPECT_EQ(FindBackwards(pane, wanted, at, kCounts), told(text.rfind(wanted, from)));
    }
  }
}

}  // namespace
}  // namespace parlorwire
