#include "session/nick_colours.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/fault_of.h"
#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {
namespace {

// The same on the plain text, step by step. -1: no entry.
struct PlainText {
  Text text;

  std::int64_t TakeOut(const Text& nick, bool convert) {
    const Position at = InStrNoCase(" " + text, " " + nick + "=");
    if (at == 0) return -1;
    Position end = InStr(at, text, " ");
    if (end == 0) end = Len(text) + 1;
    const Text value = Mid(text, at + Len(nick) + 1, end - at - Len(nick) - 1);
    const PaneColour colour = convert ? static_cast<PaneColour>(ToLong(Trim(value))) : 0;
    text = Trim(ReplaceNoCase(" " + text + " ", " " + nick + "=" + value + " ", " "));
    return colour;
  }

  void Prepend(const Text& nick, PaneColour colour) {
    text = Trim(nick + "=" + std::to_string(static_cast<std::int32_t>(colour)) + " " + text);
  }

  std::int64_t Use(const Text& nick) {
    const std::int64_t colour = TakeOut(nick, true);
    if (colour >= 0) Prepend(nick, static_cast<PaneColour>(colour));
    return colour;
  }
};

TEST(NickColours, KeepsAnyTextAsItIs) {
  for (const std::string_view text :
       {"", " ", "  ", "a", "a=1", " a=1 ", "a=1  b=2", "=", "= =", "a=b=c", "\r\n a =\t"})
    EXPECT_EQ(NickColours(text).text(), text);
}

TEST(NickColours, TheUsedEntryMovesToTheFrontSpelledAsUsed) {
  NickColours colours("bob=5 Guest=7 al=9");
  EXPECT_EQ(colours.Use("gUEST"), 7U);
  EXPECT_EQ(colours.text(), "gUEST=7 bob=5 al=9");
  EXPECT_EQ(colours.Use("al"), 9U);
  EXPECT_EQ(colours.text(), "al=9 gUEST=7 bob=5");
  EXPECT_EQ(colours.Use("al"), 9U);
  EXPECT_EQ(colours.text(), "al=9 gUEST=7 bob=5");
}

TEST(NickColours, APeekMovesNothing) {
  NickColours colours("al=1 Bob=2 a b=3 c=red");
  EXPECT_EQ(colours.Peek("bob"), 2U);
  EXPECT_THROW(colours.Peek("a b"), Fault);
  EXPECT_EQ(colours.Peek("nobody"), std::nullopt);
  EXPECT_EQ(colours.Peek("no body"), std::nullopt);
  EXPECT_THROW(colours.Peek("c"), Fault);
  EXPECT_EQ(colours.text(), "al=1 Bob=2 a b=3 c=red");
  colours.Set("al", 7);
  EXPECT_EQ(colours.Peek("al"), 7U);
}

TEST(NickColours, CyrillicNicksCompareWithoutCase) {
  NickColours colours("ЁЖ=5"_w);
  EXPECT_EQ(colours.Use("ёж"_w), 5U);
  EXPECT_EQ(colours.text(), "ёж=5"_w);
}

TEST(NickColours, ANickInsideALongerOneIsNotFound) {
  NickColours colours("xbob=1 bobx=2");
  EXPECT_EQ(colours.Use("bob"), std::nullopt);
  EXPECT_EQ(colours.text(), "xbob=1 bobx=2");
}

TEST(NickColours, AValueThatIsNoNumberFaultsAndLeavesTheText) {
  NickColours colours("bob=x al= cid=99999999999 dan=1=2");
  EXPECT_EQ(FaultOf([&] { colours.Use("bob"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { colours.Use("al"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { colours.Use("cid"); }), fault::kOverflow);
  EXPECT_EQ(FaultOf([&] { colours.Use("dan"); }), fault::kTypeMismatch);
  EXPECT_EQ(colours.text(), "bob=x al= cid=99999999999 dan=1=2");
}

TEST(NickColours, AValueIsWrittenAnewInItsPlainForm) {
  NickColours colours("a=007 b=1.5e2 c=-1");
  EXPECT_EQ(colours.Use("a"), 7U);
  EXPECT_EQ(colours.Use("b"), 150U);
  EXPECT_EQ(colours.Use("c"), 0xFFFFFFFFU);
  EXPECT_EQ(colours.text(), "c=-1 b=150 a=7");
}

TEST(NickColours, ANickWithABlankIsNeverFoundAgain) {
  NickColours colours("al=1");
  colours.Prepend("a b", 5);
  EXPECT_EQ(colours.text(), "a b=5 al=1");
  EXPECT_EQ(FaultOf([&] { colours.Use("a b"); }), fault::kInvalidCall);
  EXPECT_EQ(FaultOf([&] { colours.Set("a b", 6); }), fault::kInvalidCall);
  EXPECT_EQ(colours.text(), "a b=5 al=1");
  EXPECT_EQ(colours.Use("b"), 5U);
  EXPECT_EQ(colours.text(), "b=5 a al=1");
}

TEST(NickColours, ANickWithAnEqualsSign) {
  NickColours colours;
  colours.Prepend("a=b", 5);
  EXPECT_EQ(colours.Use("A=b"), 5U);
  EXPECT_EQ(colours.text(), "A=b=5");
  EXPECT_EQ(FaultOf([&] { colours.Use("a"); }), fault::kTypeMismatch);
}

TEST(NickColours, TheFirstOfTwoEntriesCounts) {
  NickColours colours("a=1 b=2 A=3");
  EXPECT_EQ(colours.Use("a"), 1U);
  EXPECT_EQ(colours.text(), "a=1 b=2 A=3");
}

TEST(NickColours, EqualEntriesGoTogetherButForTheOneDirectlyBehind) {
  NickColours apart("a=1 b=2 A=1 c=3 a=1");
  EXPECT_EQ(apart.Use("a"), 1U);
  EXPECT_EQ(apart.text(), "a=1 b=2 c=3");
  NickColours together("a=1 a=1 a=1 a=1 b=2");
  EXPECT_EQ(together.Use("a"), 1U);
  EXPECT_EQ(together.text(), "a=1 a=1 a=1 b=2");
}

TEST(NickColours, BlanksAtTheEndsGoAndThoseInsideStay) {
  NickColours used("  a=1  b=2 ");
  EXPECT_EQ(used.Use("a"), 1U);
  EXPECT_EQ(used.text(), "a=1 b=2");
  NickColours first("  b=2  ");
  first.Prepend("a", 1);
  EXPECT_EQ(first.text(), "a=1   b=2");
}

TEST(NickColours, SetReplacesAnEntryWithoutALookAtItsValue) {
  NickColours colours("a=x b=2");
  colours.Set("B", 3);
  EXPECT_EQ(colours.text(), "B=3 a=x");
  colours.Set("a", 4);
  EXPECT_EQ(colours.text(), "a=4 B=3");
  colours.Set("c", 0xFFFFFF);
  EXPECT_EQ(colours.text(), "c=16777215 a=4 B=3");
  EXPECT_EQ(colours.Use("a"), 4U);
}

// Random texts and calls; after each the text, the result and the fault are those of the plain
// text.
void CompareOnRandomTexts(unsigned seed, std::string_view alphabet, unsigned longest_nick) {
  std::mt19937 generator(seed);
  const auto random = [&] { return static_cast<unsigned>(generator()); };
  const auto word = [&](unsigned longest) {
    Text word;
    for (unsigned size = random() % (longest + 1); size > 0; --size)
      word += alphabet[random() % alphabet.size()];
    return word;
  };
  for (int round = 0; round < 2000; ++round) {
    PlainText plain{word(40)};
    NickColours colours(plain.text);
    for (int call = 0; call < 12; ++call) {
      const Text before = plain.text;
      const Text nick = word(longest_nick);
      const auto colour = static_cast<PaneColour>(random());
      const unsigned kind = random() % 4;
      std::int64_t expected = -1;
      std::optional<PaneColour> got;
      const int expected_fault = FaultOf([&] {
        if (kind == 0) plain.TakeOut(nick, false);
        if (kind <= 1)
          plain.Prepend(nick, colour);
        else
          expected = plain.Use(nick);
      });
      const int fault = FaultOf([&] {
        if (kind == 0)
          colours.Set(nick, colour);
        else if (kind == 1)
          colours.Prepend(nick, colour);
        else
          got = colours.Use(nick);
      });
      ASSERT_EQ(fault, expected_fault) << "[" << before << "] nick [" << nick << "]";
      ASSERT_EQ(colours.text(), plain.text) << "[" << before << "] nick [" << nick << "]";
      ASSERT_EQ(got ? std::int64_t{*got} : -1, expected)
          << "[" << before << "] nick [" << nick << "]";
    }
  }
}

TEST(NickColours, AreThePlainTextOnRandomEntries) {
  CompareOnRandomTexts(1, "aA1== ", 2);
}

TEST(NickColours, AreThePlainTextOnRandomBlanksAndEquals) {
  CompareOnRandomTexts(2, "a1 =", 3);
}

TEST(NickColours, AreThePlainTextOnRandomLetters) {
  CompareOnRandomTexts(3, "\xC0\xE0\xA8\xB8\r\n\t= 12:.-eE", 3);
}

TEST(NickColours, AreThePlainTextOnALongDay) {
  std::mt19937 generator(4);
  const auto random = [&] { return static_cast<unsigned>(generator()); };
  PlainText plain;
  NickColours colours;
  for (int line = 0; line < 20000; ++line) {
    const unsigned number = random() % 60;
    const Text nick = (random() % 2 ? "nick" : "NICK") + std::to_string(number);
    const std::int64_t expected = plain.Use(nick);
    const auto got = colours.Use(nick);
    ASSERT_EQ(got ? std::int64_t{*got} : -1, expected);
    if (!got) {
      const auto colour = static_cast<PaneColour>(random() % 0x1000000);
      plain.Prepend(nick, colour);
      colours.Prepend(nick, colour);
    }
    if (line % 97 == 0) {
      ASSERT_EQ(colours.text(), plain.text);
    }
  }
}

}  // namespace
}  // namespace parlorwire
