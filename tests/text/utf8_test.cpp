#include "text/utf8.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

using namespace std::string_literals;

TEST(Utf8Test, EveryCharacterGoesOutAndComesBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const Text character(1, static_cast<char>(byte));
    EXPECT_EQ(FromUtf8(ToUtf8(character)), character) << byte;
  }
}

TEST(Utf8Test, CharactersHaveOneToThreeBytes) {
  EXPECT_EQ(ToUtf8("aЖ€"_w), "aЖ€");
  EXPECT_EQ(FromUtf8("aЖ€"), "aЖ€"_w);
  EXPECT_EQ(FromUtf8(""), "");
}

TEST(Utf8Test, CharactersThatTheCodePageLacksAreNothing) {
  EXPECT_EQ(FromUtf8("日"), std::nullopt);
  EXPECT_EQ(FromUtf8("é"), std::nullopt);
  EXPECT_EQ(FromUtf8("😀"), std::nullopt);
}

TEST(Utf8Test, BytesThatAreNoUtf8AreNothing) {
  EXPECT_EQ(FromUtf8("\x80"), std::nullopt);
  EXPECT_EQ(FromUtf8("a\xD0"), std::nullopt);
  EXPECT_EQ(FromUtf8("\xD0z"), std::nullopt);
  EXPECT_EQ(FromUtf8("\xE2\x82"), std::nullopt);
  EXPECT_EQ(FromUtf8("\xC1\xA1"), std::nullopt);      // "a", longer than need be
  EXPECT_EQ(FromUtf8("\xE0\x90\x96"), std::nullopt);  // a letter of two bytes in three
}

}  // namespace
}  // namespace parlorwire
