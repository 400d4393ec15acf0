#include "service/names.h"

#include <gtest/gtest.h>

namespace parlorwire::service {
namespace {

TEST(Names, AreTheSameInAnyCase) {
  EXPECT_EQ(NickKey("Ёж_Bob"_w), "ёж_bob"_w);
}

TEST(Names, OfNicksHoldNoPunctuationOfTheWire) {
  EXPECT_TRUE(NickIsAllowed("Ёж-2_!"_w));
  EXPECT_TRUE(NickIsAllowed(Text(30, 'a')));
  EXPECT_FALSE(NickIsAllowed(Text(31, 'a')));
  EXPECT_FALSE(NickIsAllowed(""));
  for (const char c : Text(" :|()[]'\"%+*?,/=#;\\\n\t\x7F\xA0"))
    EXPECT_FALSE(NickIsAllowed(Text("a") + c + "b")) << c;
}

TEST(Names, OfChannelsMayHoldBlanksButNoColon) {
  EXPECT_TRUE(ChannelIsAllowed("Большая кухня"_w));
  EXPECT_TRUE(ChannelIsAllowed(Text(60, 'a')));
  EXPECT_FALSE(ChannelIsAllowed(Text(61, 'a')));
  EXPECT_FALSE(ChannelIsAllowed(""));
  EXPECT_FALSE(ChannelIsAllowed("  "));
  EXPECT_FALSE(ChannelIsAllowed("a:b"));
  EXPECT_FALSE(ChannelIsAllowed("a\nb"));
}

TEST(Names, OfAddressesAreFourGroupsOfDigits) {
  EXPECT_TRUE(IsAddress("10.0.0.7"));
  for (const char* text :
       {"", "10.0.0", "10.0.0.7.8", "10..0.7", "10.0.0.1234", "10.0.0.*", "a.b.c.d"})
    EXPECT_FALSE(IsAddress(text)) << text;
}

TEST(Names, AreMatchedByMasks) {
  EXPECT_TRUE(MaskMatches("Ёж*"_w, "ёжик"_w));
  EXPECT_TRUE(MaskMatches("10.0.*", "10.0.0.7"));
  EXPECT_TRUE(MaskMatches("10.0.?.#", "10.0.0.7"));
  EXPECT_FALSE(MaskMatches("10.0.*", "10.1.0.7"));
  EXPECT_FALSE(MaskMatches("al", "alice"));
  EXPECT_FALSE(MaskMatches("*", ""));
  EXPECT_FALSE(MaskMatches("", ""));
}

}  // namespace
}  // namespace parlorwire::service
