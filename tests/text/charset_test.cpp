#include "text/charset.h"

#include <gtest/gtest.h>

#include <set>

namespace parlorwire {
namespace {

Text ToWire(std::string_view text) {
  return ConvertCharset(Text(text), Charset::kWindows1251, Charset::kKoi);
}

TEST(Charset, LettersAreThoseOfKoi8R) {
  EXPECT_EQ(ToWire("АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"_w),
            "\xE1\xE2\xF7\xE7\xE4\xE5\xF6\xFA\xE9\xEA\xEB\xEC\xED\xEE\xEF\xF0"
            "\xF2\xF3\xF4\xF5\xE6\xE8\xE3\xFE\xFB\xFD\xFF\xF9\xF8\xFC\xE0\xF1");
  EXPECT_EQ(ToWire("абвгдежзийклмнопрстуфхцчшщъыьэюя"_w),
            "\xC1\xC2\xD7\xC7\xC4\xC5\xD6\xDA\xC9\xCA\xCB\xCC\xCD\xCE\xCF\xD0"
            "\xD2\xD3\xD4\xD5\xC6\xC8\xC3\xDE\xDB\xDD\xDF\xD9\xD8\xDC\xC0\xD1");
}

TEST(Charset, YoGoesOutAs0xB3AndComesBack) {
  EXPECT_EQ(ToWire("Ёё"_w), "\xB3\xA3");
  EXPECT_EQ(DecodeKoi("\xB3\xA3"), "Ёё"_w);
}

TEST(Charset, AsciiPassesUnchanged) {
  Text ascii;
  for (char c = 0; c < 0x7F; ++c)
    ascii += c;
  EXPECT_EQ(ToWire(ascii), ascii);
  EXPECT_EQ(DecodeKoi(ascii), ascii);
}

TEST(Charset, TheOddEntriesOfThePermutation) {
  EXPECT_EQ(ToWire("\x9D"), " ");
  EXPECT_EQ(ToWire("©"_w), "\x85");
  EXPECT_EQ(ToWire("\x98"), "\xAB");
  EXPECT_EQ(ToWire("\xA0"), "?");
  EXPECT_EQ(DecodeKoi("\xBA"), " ");
  EXPECT_EQ(DecodeKoi("\xAB"), "\x98");
  EXPECT_EQ(DecodeKoi("\xA0"), "?");
  EXPECT_EQ(DecodeKoi("\x85"), "©"_w);
  EXPECT_EQ(DecodeKoi("\xBF"), "\xBD");  // not the copyright sign that KOI8-R has there
}

TEST(Charset, TheBytesFrom0x80To0xBFAreThisPermutation) {
  const Text wire =
      "\x90\x91\x92\x81\x87\xB2\xB4\xA7\xA6\xB5\xA1\xA8\xAE\xAD\xAC\x83"
      "\x84\x89\x88\x86\x80\x8A\xAF\xB0\xAB\xA5\xBB\xB8\xB1\x20\xBE\xB9"
      "?\xB6\xB7\xAA\xA9\xA2\xA4\xBD\xB3\x85\x82\x8D\x8C\x8E\x8F\x8B"
      "\x99\x98\x93\x9B\x9F\x97\x9C\x9E\xA3\x96\x9A\x9D\x94\xBF\xBC\x95";
  ASSERT_EQ(wire.size(), 64U);
  for (std::size_t i = 0; i < wire.size(); ++i) {
    const Text memory(1, static_cast<char>(0x80 + i));
    EXPECT_EQ(ToWire(memory), wire.substr(i, 1)) << i;
    if (wire[i] < 0) {
      EXPECT_EQ(DecodeKoi(wire.substr(i, 1)), memory) << i;
    }
  }
}

TEST(Charset, AllOtherHighBytesMakeTheRoundTrip) {
  std::set<char> wire;
  for (int byte = 0x80; byte < 0x100; ++byte) {
    if (byte == 0x9D || byte == 0xA0) continue;
    const Text text(1, static_cast<char>(byte));
    EXPECT_EQ(DecodeKoi(ToWire(text)), text) << byte;
    EXPECT_LT(ToWire(text)[0], 0) << byte;  // a high byte again
    wire.insert(ToWire(text)[0]);
  }
  EXPECT_EQ(wire.size(), 126U);
}

TEST(Charset, ATextIsMappedLikeItsCharacters) {
  Text all, decoded, wire;
  for (int i = 0; i < 256; ++i) {
    all += static_cast<char>(i);
    decoded += DecodeKoi(Text(1, all.back()));
    wire += ToWire(Text(1, all.back()));
  }
  EXPECT_EQ(DecodeKoi(all), decoded);
  EXPECT_EQ(ToWire(all), wire);
}

TEST(Charset, TheSameTableOnBothSidesChangesNothing) {
  EXPECT_EQ(ConvertCharset("\xA0\x9D", Charset::kKoi, Charset::kKoi), "\xA0\x9D");
}

}  // namespace
}  // namespace parlorwire
