#include "session/wire_encoding.h"

#include <gtest/gtest.h>

#include "text/charset.h"

namespace parlorwire {
namespace {

TEST(WireEncoding, AnEmptyTextPassesEveryFunctionAsAnEmptyText) {
  Text empty;
  EXPECT_EQ(UrlEncodeKoi(empty), "");
  EXPECT_EQ(Base64Encode(""), "");
  EXPECT_EQ(PercentEncodeBytes(""), "");
  EXPECT_EQ(DecodeKoi(""), "");
  EXPECT_EQ(ConvertCharset("", Charset::kWindows1251, Charset::kKoi), "");
}

TEST(UrlEncodeKoi, EscapesPercentPlusAndAmpersandAndNothingElse) {
  Text text = "a%b+c&d =?\"'";
  EXPECT_EQ(UrlEncodeKoi(text), "a%25b%2Bc%26d =?\"'");
}

TEST(UrlEncodeKoi, StoresTheEscapedTextBackSoThatAFieldGrows) {
  Text nick = "a+b";
  EXPECT_EQ(UrlEncodeKoi(nick), "a%2Bb");
  EXPECT_EQ(nick, "a%2Bb");
  EXPECT_EQ(UrlEncodeKoi(nick), "a%252Bb");
  EXPECT_EQ(nick, "a%252Bb");
}

TEST(UrlEncodeKoi, SendsRussianAsRawKoiBytesAndKeepsTheFieldInMemory) {
  Text text = "Ёж"_w;
  EXPECT_EQ(UrlEncodeKoi(text), "\xB3\xD6");
  EXPECT_EQ(text, "Ёж"_w);
}

TEST(Base64Encode, PadsLikeTheStandard) {
  EXPECT_EQ(Base64Encode("a"), "YQ==");
  EXPECT_EQ(Base64Encode("ab"), "YWI=");
  EXPECT_EQ(Base64Encode("abc"), "YWJj");
  EXPECT_EQ(Base64Encode("user:password"), "dXNlcjpwYXNzd29yZA==");
  EXPECT_EQ(Base64Encode(Text(3, '\0')), "AAAA");
  EXPECT_EQ(Base64Encode("\xFF\xFE\xFD"), "//79");
}

TEST(Base64Encode, OfATextWithAnAtSignIsShorterThanTheStandardResult) {
  // 01100001 + "00000 " + 01100010, cut in sixes: 24, 16, the piece with the blank gives nothing,
  // and a short rest of "0010".
  EXPECT_EQ(ByteToBits('@', 8), "00000 ");
  EXPECT_EQ(Base64Encode("a@b"), "YQC");
  EXPECT_LT(Base64Encode("a@bc").size(), 8U);
}

TEST(ByteToBits, PadsOnTheLeft) {
  EXPECT_EQ(ByteToBits(0, 8), "00000000");
  EXPECT_EQ(ByteToBits(5, 8), "00000101");
  EXPECT_EQ(ByteToBits(255, 8), "11111111");
  EXPECT_EQ(ByteToBits(255, 4), "11111111");
  EXPECT_EQ(ByteToBits(64, 3), "00000 ");
}

TEST(BitsToNumber, KnowsThePaddingAndTheBlank) {
  EXPECT_EQ(BitsToNumber("000101"), 5U);
  EXPECT_EQ(BitsToNumber("11"), 3U);
  EXPECT_EQ(BitsToNumber("00000="), 64U);
  EXPECT_EQ(BitsToNumber("000 00"), 256U);
  EXPECT_EQ(BitsToNumber("00 0=0"), 64U);
}

TEST(PercentEncodeBytes, GivesTwoUpperCaseDigitsForEachByte) {
  EXPECT_EQ(PercentEncodeBytes("a\n\xFF"), "%61%0A%FF");
}

}  // namespace
}  // namespace parlorwire
