#include "text/cut.h"

#include <gtest/gtest.h>

#include "support/fault_of.h"

namespace parlorwire {
namespace {

TEST(Literal, IsTranscodedToWindows1251) {
  EXPECT_EQ("Ёж №1"_w,
            "\xA8\xE6 \xB9"
            "1");
  EXPECT_EQ(W<"Отключено">, "\xCE\xF2\xEA\xEB\xFE\xF7\xE5\xED\xEE");
  EXPECT_EQ(""_w, "");
}

TEST(Left, CutsAndRefusesNegativeLengths) {
  EXPECT_EQ(Left("abc", 2), "ab");
  EXPECT_EQ(Left("abc", 9), "abc");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(FaultOf([] { Left("abc", -1); }), 5);
}

TEST(Right, CutsAndRefusesNegativeLengths) {
  EXPECT_EQ(Right("abc", 2), "bc");
  EXPECT_EQ(Right("abc", 9), "abc");
  EXPECT_EQ(Right("abc", 0), "");
  EXPECT_EQ(FaultOf([] { Right("abc", -1); }), 5);
}

TEST(Mid, IsOneBased) {
  EXPECT_EQ(Mid("abc", 1, 1), "a");
  EXPECT_EQ(Mid("abc", 2), "bc");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 9, 2), "");
  EXPECT_EQ(FaultOf([] { Mid("abc", 0, 1); }), 5);
  EXPECT_EQ(FaultOf([] { Mid("abc", 1, -1); }), 5);
}

TEST(InStr, FindsFromAStart) {
  EXPECT_EQ(InStr("abcabc", "c"), 3);
  EXPECT_EQ(InStr(4, "abcabc", "c"), 6);
  EXPECT_EQ(InStr("abc", "x"), 0);
  EXPECT_EQ(InStr("abc", "C"), 0);
  EXPECT_EQ(InStr(2, "abc", ""), 2);
  EXPECT_EQ(InStr("", ""), 0);
  EXPECT_EQ(InStr(4, "abc", "c"), 0);
  EXPECT_EQ(FaultOf([] { InStr(0, "abc", "c"); }), 5);
}

TEST(InStrNoCase, KnowsRussianLetters) {
  EXPECT_EQ(InStrNoCase("Привет, ЁЖ"_w, "ёж"_w), 9);
  EXPECT_EQ(InStrNoCase("abc", "B"), 2);
  EXPECT_EQ(InStrNoCase(3, "abcab", "AB"), 4);
}

TEST(InStrRev, FindsTheLastThatEndsAtTheStart) {
  EXPECT_EQ(InStrRev("abcabc", "b"), 5);
  EXPECT_EQ(InStrRev("abcabc", "bc", 5), 2);
  EXPECT_EQ(InStrRev("abcabc", "bc", 6), 5);
  EXPECT_EQ(InStrRev("abc", "x"), 0);
  EXPECT_EQ(InStrRev("", "x"), 0);
  EXPECT_EQ(InStrRev("abc", "c", 9), 0);
  EXPECT_EQ(InStrRev("abc", "abc", 2), 0);
  EXPECT_EQ(FaultOf([] { InStrRev("abc", "c", 0); }), 5);
}

TEST(Trim, TakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("\t a\r"), "\t a\r");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("\r"), "\r");
}

TEST(Split, GivesThePieces) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(Split("a b c", " "), (Pieces{"a", "b", "c"}));
  EXPECT_EQ(Split(" ", " "), (Pieces{"", ""}));
  EXPECT_EQ(Split("", " "), Pieces{});
  EXPECT_EQ(Split("abc", ""), Pieces{"abc"});
}

TEST(ElementAt, FaultsOutsideTheList) {
  const auto pieces = Split("a b", " ");
  EXPECT_EQ(ElementAt(pieces, 1), "b");
  EXPECT_EQ(FaultOf([&] { ElementAt(pieces, 2); }), 9);
  EXPECT_EQ(FaultOf([&] { ElementAt(pieces, -1); }), 9);
}

TEST(Replace, GoesFromLeftToRight) {
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("abab", "b", "bb"), "abbabb");
  EXPECT_EQ(Replace("ab", "", "x"), "ab");
  EXPECT_EQ(ReplaceNoCase("&LT;b&lt;", "&lt;", "<"), "<b<");
}

TEST(MinNonZero3, IsTheSmallestThatIsNotZero) {
  EXPECT_EQ(MinNonZero3(3, 2, 1), 1);
  EXPECT_EQ(MinNonZero3(3, 0, 5), 3);
  EXPECT_EQ(MinNonZero3(0, 0, 0), 0);
}

}  // namespace
}  // namespace parlorwire
