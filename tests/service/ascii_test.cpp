#include "service/ascii.h"

#include <gtest/gtest.h>

namespace parlorwire::service {
namespace {

TEST(Ascii, KnowsDigitsAndLettersBelow128Only) {
  for (const char c : {'0', '9', 'a', 'z', 'A', 'Z'})
    EXPECT_TRUE(IsAlphanumeric(c)) << c;
  for (const char c : {'/', ':', '@', '[', '`', '{', '\xE0', '\0'})
    EXPECT_FALSE(IsAlphanumeric(c)) << c;
  EXPECT_TRUE(IsDigit('0'));
  EXPECT_TRUE(IsDigit('9'));
  for (const char c : {'/', ':', 'a', '\xB2'})
    EXPECT_FALSE(IsDigit(c)) << c;
}

TEST(ReadNumber, TakesDigitsAloneAndNoMoreThanAskedFor) {
  EXPECT_EQ(ReadNumber("0", 1), 0);
  EXPECT_EQ(ReadNumber("0042", 4), 42);
  EXPECT_EQ(ReadNumber("999999999999999999", 18), 999999999999999999);
  for (const char* text : {"", "10000", " 1", "1 ", "-1", "+1", "0x1", "1a"})
    EXPECT_FALSE(ReadNumber(text, 4).has_value()) << text;
}

}  // namespace
}  // namespace parlorwire::service
