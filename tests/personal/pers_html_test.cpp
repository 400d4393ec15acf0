#include "personal/pers_html.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace parlorwire {
namespace {

TEST(PersHtmlToText, ALinkBecomesItsAddress) {
  EXPECT_EQ(PersHtmlToText("<a href=\"/redirect?msgtext=http://a.b/\">label</a>"), "http://a.b/");
  EXPECT_EQ(PersHtmlToText("see <a href=\"/redirect?msgtext=http://a.b/?c=d\" target=\"_blank\">"
                           "x</a>, or <a href=\"/redirect?msgtext=ftp://e\">y</a>!"),
            "see http://a.b/?c=d, or ftp://e!");
}

TEST(PersHtmlToText, OnlyTheServicesOwnFormIsALink) {
  for (const char* text : {"<a href=\"http://a.b/\">x</a>", "<A href=\"/redirect?msgtext=u\">x</a>",
                           "<a href='/redirect?msgtext=u'>x</a>", "</a>", "<a"})
    EXPECT_EQ(PersHtmlToText(text), text);
}

TEST(PersHtmlToText, ALinkWithoutItsEndStays) {
  for (const char* text :
       {"<a href=\"/redirect?msgtext=http://a", "<a href=\"/redirect?msgtext=http://a\">x",
        "<a href=\"/redirect?msgtext=http://a</a>", "<a href=\"/redirect?msgtext=u</a> \""})
    EXPECT_EQ(PersHtmlToText(text), text);
}

TEST(PersHtmlToText, APictureBecomesAWord) {
  EXPECT_EQ(PersHtmlToText("hello <img src=\"/157.gif\"> there"), "hello *sweet* there");
  EXPECT_EQ(PersHtmlToText("<img src=\"/157.gif\"><img src=\"/148.gif\" alt=\"\">"),
            "*sweet**eyes*");
}

TEST(PersHtmlToText, EverySourceHasItsName) {
  const std::vector<std::pair<std::string, std::string>> table = {
      {"157", "sweet"},  {"135", "vasilek"},    {"p12", "wg"},      {"rose_t", "rose"},
      {"148", "eyes"},   {"141", "smoke"},      {"be-be-be", ":P"}, {"s04", ":["},
      {"152", "heart2"}, {"144", "dedmoroz"},   {"dura", ":b"},     {"s21", "%|"},
      {"142", "coffe"},  {"154", "sneg"},       {"kiss1", "kiss"},  {"s03", "8("},
      {"76", "!"},       {"kruto", "fingers"},  {"lachen", ":D"},   {"p06", "skel"},
      {"105", "?("},     {"22", ":)"},          {"s08", ":p"},      {"19", "hnik"},
      {"100", "champ"},  {"icon_solo", "solo"}, {"s44", ";)"},      {"hi", ":)"},
      {"127", "b2"},     {"s36", ":))"},        {"rose3", "r"},     {"icon_beer", "beer"},
      {"128", "b1"},     {"s12", ":o)"},        {"129", "r4"},      {"5", "c"},
      {"130", "r2"},     {"132", "rom"},        {"133", "rom2"},    {"134", "rom3"},
  };
  ASSERT_EQ(table.size(), kSmileSources.size());
  for (const auto& [source, name] : table)
    EXPECT_EQ(PersHtmlToText("<img src=\"/" + source + ".gif\">"), "*" + name + "*") << source;
}

TEST(PersHtmlToText, Source22EndsByTheChain) {
  EXPECT_EQ(PersHtmlToText("<img src=\"/22.gif\">"), "*:)*");
}

TEST(PersHtmlToText, AnyOtherSourceStaysAsItIs) {
  EXPECT_EQ(PersHtmlToText("<img src=\"/999.gif\">"), "*999*");
  EXPECT_EQ(PersHtmlToText("<img src=\"/HI.gif\">"), "*HI*");
}

TEST(PersHtmlToText, OfTheSourceCountsWhatStandsBetweenItsFirstCharacterAndADot) {
  EXPECT_EQ(PersHtmlToText("<img src=\"x.gif\">"), "**");
  EXPECT_EQ(PersHtmlToText("<img src=\".a.gif\">"), "*a*");
  EXPECT_EQ(PersHtmlToText("<img src=\"/a.b.gif\">"), "*a*");
  EXPECT_EQ(PersHtmlToText("<img src=\"/pic\">"), "*/pic\"*");
  EXPECT_EQ(PersHtmlToText("<img src=\"hi> <img src=\"hi"), "*:)* *:)*");
  EXPECT_EQ(PersHtmlToText("<img src=\"a <img src=\"b"), "*a *b**");
}

TEST(PersHtmlToText, APictureWithoutItsEndGoesToTheEndOfTheText) {
  EXPECT_EQ(PersHtmlToText("a <img src=\"/157.gif"), "a *sweet*");
  EXPECT_EQ(PersHtmlToText("a <img src=\"/157.gif\" and more"), "a *sweet*");
}

TEST(PersHtmlToText, APictureWithoutAQuoteStays) {
  EXPECT_EQ(PersHtmlToText("<img src=/157.gif> he said \"hi\""),
            "<img src=/157.gif> he said \"hi\"");
  EXPECT_EQ(PersHtmlToText("<img src=/157.gif"), "<img src=/157.gif");
  EXPECT_EQ(PersHtmlToText("<img src> <img src=\"/157.gif\">"), "<img src> *sweet*");
}

TEST(PersHtmlToText, WhatAnAddressHoldsIsReadOn) {
  EXPECT_EQ(PersHtmlToText("<a href=\"/redirect?msgtext=\"></a><img src=\"/157.gif\">"), "*sweet*");
  EXPECT_EQ(PersHtmlToText("<a href=\"/redirect?msgtext=<img src\">x</a>=\"/157.gif\">"),
            "*sweet*");
}

TEST(PersHtmlToText, TextWithoutHtmlStays) {
  for (const char* text : {"", " ", " a  b ", "a < b > c", "*:)*", "&lt;"})
    EXPECT_EQ(PersHtmlToText(text), text);
}

// A text of a megabyte that is nothing but beginnings must not take a search of its rest for each.
TEST(PersHtmlToText, AMegabyteOfBeginnings) {
  for (const std::string_view beginning : {"<a href=\"/redirect?msgtext=", "<img src",
                                           "<img src=\"", "<a href=\"/redirect?msgtext=</a>"}) {
    Text text;
    while (text.size() < 1000000)
      text += beginning;
    const Text reduced = PersHtmlToText(text);
    EXPECT_LE(reduced.size(), text.size());
    EXPECT_FALSE(reduced.empty());
  }
}

}  // namespace
}  // namespace parlorwire
