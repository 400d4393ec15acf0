#include "service/form.h"

#include <gtest/gtest.h>

#include "text/charset.h"

namespace parlorwire::service {
namespace {

TEST(Form, DecodesWhatTheClientSends) {
  // Blanks and bytes above 127 come raw, "+", "&" and "%" escaped.
  const Form form = DecodeForm("msgtext=\xF0\xD2\xC9 2%2B2%26 50%25&action=204", FormBytes::kKoi);
  EXPECT_EQ(form["msgtext"], "При 2+2& 50%"_w);
  EXPECT_EQ(form["action"], "204");
}

TEST(Form, DecodesWhatABrowserSends) {
  const Form form = DecodeForm("a+b=c+d%F0&flag", FormBytes::kKoi);
  EXPECT_EQ(form["a b"], "c dП"_w);
  EXPECT_TRUE(form.Has("flag"));
  EXPECT_FALSE(form.Has("other"));
  EXPECT_EQ(form["other"], "");
}

TEST(Form, APercentWithoutDigitsStandsForItself) {
  EXPECT_EQ(DecodeForm("a=100%", FormBytes::kKoi)["a"], "100%");
  EXPECT_EQ(DecodeForm("a=%4", FormBytes::kKoi)["a"], "%4");
  EXPECT_EQ(DecodeForm("a=%zz", FormBytes::kKoi)["a"], "%zz");
  EXPECT_EQ(DecodeForm("a=%41", FormBytes::kKoi)["a"], "A");
}

TEST(Form, TheFirstFieldOfANameCountsAndValuesMayHoldEqualsSigns) {
  EXPECT_EQ(DecodeForm("a=1=2&a=3", FormBytes::kKoi)["a"], "1=2");
}

TEST(Form, AnAddressMayBeInUtf8) {
  EXPECT_EQ(DecodeForm("c=%D0%9A%D1%83", FormBytes::kKoiOrUtf8)["c"], "Ку"_w);
  EXPECT_EQ(DecodeForm("c=%EB%D5%C8%CE%D1", FormBytes::kKoiOrUtf8)["c"], "Кухня"_w);
  EXPECT_EQ(DecodeForm("c=plain", FormBytes::kKoiOrUtf8)["c"], "plain");
  EXPECT_NE(DecodeForm("c=%D0%9A", FormBytes::kKoi)["c"], "К"_w);
}

TEST(Form, ReadsNoMoreThan64Fields) {
  Text encoded;
  for (int i = 0; i < 1000; ++i)
    encoded += "a=1&";
  EXPECT_EQ(DecodeForm(encoded, FormBytes::kKoi).fields.size(), 64U);
}

TEST(PercentEncode, EscapesAllButPlainCharactersAsBytesOfTheWire) {
  EXPECT_EQ(PercentEncode("a-Z_0.~"), "a-Z_0.~");
  EXPECT_EQ(PercentEncode("К' &"_w), "%EB%27%20%26");
  EXPECT_EQ(DecodeForm("x=" + PercentEncode("Гость & <1>"_w), FormBytes::kKoi)["x"],
            "Гость & <1>"_w);
}

TEST(FromUtf8, ConvertsAndRefusesWhatIsNotUtf8) {
  EXPECT_EQ(FromUtf8("Кот €"), "Кот €"_w);
  EXPECT_EQ(FromUtf8("\xE6\x97\xA5"), "?");
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), "?");
  for (const char* bad : {"\x80", "\xC0\xAF", "\xD0", "\xE6\x97", "\xF5\x80\x80\x80", "a\xFF"})
    EXPECT_EQ(FromUtf8(bad), "") << bad;
}

TEST(Form, AValueAsItStandsIsThatOfTheFirstFieldOfTheName) {
  EXPECT_EQ(EncodedValue("a=1&b=x%20+y&b=2", "b"), "x%20+y");
  EXPECT_EQ(EncodedValue("ab=1", "b"), "");
}

TEST(Form, AnUnrecodedValueHoldsTheWiresBytesInEscapesOnly) {
  const Text koi = ConvertCharset("Кот"_w, Charset::kWindows1251, Charset::kKoi);
  EXPECT_EQ(DecodeUnrecoded("Кот"_w), "Кот"_w);
  EXPECT_EQ(DecodeUnrecoded(PercentEncode("Кот"_w) + "+%2B%"), "Кот +%"_w);
  EXPECT_NE(DecodeUnrecoded(koi), "Кот"_w);
}

}  // namespace
}  // namespace parlorwire::service
