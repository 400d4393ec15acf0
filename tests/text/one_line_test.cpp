#include "text/one_line.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

TEST(OneLineText, GetsABlankForEachCharacterThatBreaksIt) {
  EXPECT_EQ(OneLine("a\tb\rc\nd\r\ne"), "a b c d  e");
}

TEST(OneLineText, KeepsAllOthers) {
  const Text text = "\x01\x0B\x0C :;*? ёЯ"_w;
  EXPECT_EQ(OneLine(text), text);
  EXPECT_EQ(OneLine(""), "");
}

}  // namespace
}  // namespace parlorwire
