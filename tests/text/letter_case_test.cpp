#include "text/letter_case.h"

#include <gtest/gtest.h>

#include <map>

#include "text/cut.h"

namespace parlorwire {
namespace {

// Upper case to lower case, of every character that has both.
std::map<int, int> Pairs() {
  std::map<int, int> pairs = {{0xA8, 0xB8}, {0x80, 0x90}, {0x81, 0x83}, {0x8A, 0x9A}, {0x8C, 0x9C},
                              {0x8D, 0x9D}, {0x8E, 0x9E}, {0x8F, 0x9F}, {0xA1, 0xA2}, {0xA3, 0xBC},
                              {0xA5, 0xB4}, {0xAA, 0xBA}, {0xAF, 0xBF}, {0xB2, 0xB3}, {0xBD, 0xBE}};
  for (int i = 'A'; i <= 'Z'; ++i)
    pairs[i] = i + 0x20;
  for (int i = 0xC0; i <= 0xDF; ++i)
    pairs[i] = i + 0x20;
  return pairs;
}

Text Character(int code) {
  return Text(1, static_cast<char>(code));
}

TEST(LetterCase, OfAll256Characters) {
  std::map<int, int> lower = Pairs();
  for (int i = 0; i < 256; ++i)
    lower.try_emplace(i, i);
  for (int i = 0; i < 256; ++i)
    EXPECT_EQ(LCase(Character(i)), Character(lower[i])) << i;
}

TEST(LetterCase, BothCasesAreEqualWithoutCase) {
  for (const auto& [large, small] : Pairs()) {
    EXPECT_TRUE(EqualsNoCase(Character(large), Character(small))) << large;
    EXPECT_EQ(InStrNoCase("1" + Character(large), Character(small)), 2) << large;
  }
  EXPECT_FALSE(EqualsNoCase("a", "b"));
  EXPECT_FALSE(EqualsNoCase("a", "ab"));
}

}  // namespace
}  // namespace parlorwire
