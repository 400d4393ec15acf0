#include "text/number.h"

#include <gtest/gtest.h>

#include "support/fault_of.h"

namespace parlorwire {
namespace {

TEST(Number, DecimalWithBlanksSignFractionAndExponent) {
  EXPECT_EQ(ToLong(" 42 "), 42);
  EXPECT_EQ(ToLong("+7"), 7);
  EXPECT_EQ(ToLong("-7"), -7);
  EXPECT_EQ(ToLong("1e3"), 1000);
  EXPECT_DOUBLE_EQ(ToDouble("84.9"), 84.9);
}

TEST(Number, AFractionIsRoundedToTheNearestEven) {
  EXPECT_EQ(ToLong("2.5"), 2);
  EXPECT_EQ(ToLong("3.5"), 4);
  EXPECT_EQ(ToLong("2.51"), 3);
}

TEST(Number, WhatIsNoNumberIsATypeMismatch) {
  for (const char* text : {"", " ", "x", "1x", "1 2", "inf", "nan", "0x10", "+-1", "--1"})
    EXPECT_EQ(FaultOf([&] { ToLong(text); }), 13) << text;
}

TEST(Number, WhatDoesNotFitOverflows) {
  EXPECT_EQ(ToInteger("32767"), 32767);
  EXPECT_EQ(FaultOf([] { ToInteger("32768"); }), 6);
  EXPECT_EQ(FaultOf([] { ToInteger("40000"); }), 6);
  EXPECT_EQ(ToInteger("-32768"), -32768);
  EXPECT_EQ(FaultOf([] { ToLong("2147483648"); }), 6);
  EXPECT_EQ(FaultOf([] { ToDouble("1e999"); }), 6);
}

TEST(Number, TruthValuesAreWordsOrNumbers) {
  EXPECT_TRUE(ToBoolean("True"));
  EXPECT_TRUE(ToBoolean(" TRUE "));
  EXPECT_TRUE(ToBoolean("-1"));
  EXPECT_FALSE(ToBoolean("False"));
  EXPECT_FALSE(ToBoolean("0"));
  EXPECT_EQ(FaultOf([] { ToBoolean("yes"); }), 13);
  EXPECT_EQ(FaultOf([] { ToBoolean(""); }), 13);
  EXPECT_EQ(BooleanText(true) + BooleanText(false), "TrueFalse");
}

TEST(Number, HexadecimalDigitsInEitherCase) {
  EXPECT_EQ(FromHex("fFa0"), 0xFFA0U);
  EXPECT_EQ(FromHex("FFFFFFFF"), 0xFFFFFFFFU);
  for (const char* text : {"", "G", "12 ", "-1"})
    EXPECT_EQ(FaultOf([&] { FromHex(text); }), 13) << text;
  EXPECT_EQ(FaultOf([] { FromHex("100000000"); }), 6);
}

}  // namespace
}  // namespace parlorwire
