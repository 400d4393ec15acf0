#include "display/links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <vector>

#include "support/simulated_platform.h"
#include "text/letter_case.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PaneColour kPlain = 0x123456;
constexpr PaneColour kRed = 255;

struct LinksTest : testing::Test {
  // The piece stands behind other text, and is scanned.
  void Scan(std::string_view piece, bool hover_only = false) {
    pane.Text("");
    pane.SelColor(kPlain);
    pane.ReplaceSel("ahead" + Text(piece) + "\r\n");
    WriteLinks(client, piece, 6, 0, hover_only);
  }
  // What became a link, in order.
  std::vector<Text> Links(std::string_view piece) {
    Scan(piece);
    std::vector<Text> links;
    for (const PaneRun& run : pane.Runs()) {
      const bool red = run.format.colour == kRed;
      EXPECT_EQ(red, run.format.bold) << piece;
      EXPECT_EQ(red, run.format.underline) << piece;
      if (red) links.push_back(pane.TextBetween(run.start, run.start + run.length));
    }
    return links;
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  RichTextBox& pane = client.tab(0).Rich;
};

// ---- links ----

TEST_F(LinksTest, EachMarkerBeginsALink) {
  EXPECT_THAT(Links(" http://a https://b ftp://c www.d.e"),
              ElementsAre("http://a", "https://b", "ftp://c", "www.d.e"));
}

TEST_F(LinksTest, ABareSchemeIsNoLink) {
  EXPECT_THAT(Links(" http://"), IsEmpty());
  EXPECT_THAT(Links(" https://"), IsEmpty());
  EXPECT_THAT(Links(" ftp://"), IsEmpty());
  EXPECT_THAT(Links(" http://. https://!? ftp://) text"), IsEmpty());
  EXPECT_THAT(Links(" http://a https://a ftp://a"),
              ElementsAre("http://a", "https://a", "ftp://a"));
  EXPECT_THAT(Links(" http:/a https:a ftp//a http"), IsEmpty());
}

TEST_F(LinksTest, PunctuationAtTheEndIsCut) {
  EXPECT_THAT(Links(" http://a."), ElementsAre("http://a"));
  EXPECT_THAT(Links(" http://a.,!?<>'\"()[]{}:;"), ElementsAre("http://a"));
  EXPECT_THAT(Links(" http://a.b/c?d=e/ http://a-- http://a_*"),
              ElementsAre("http://a.b/c?d=e/", "http://a--", "http://a_*"));
}

TEST_F(LinksTest, SeveralInALine) {
  EXPECT_THAT(Links(" test http://g http://g*!:) www www. www.sdf http://www. http://www.sdf d"),
              ElementsAre("http://g", "http://g*", "http://www", "http://www.sdf"));
}

TEST_F(LinksTest, WwwWantsThreeParts) {
  EXPECT_THAT(Links(" www"), IsEmpty());
  EXPECT_THAT(Links(" www."), IsEmpty());
  EXPECT_THAT(Links(" www.sdf"), IsEmpty());
  EXPECT_THAT(Links(" www.sdf."), IsEmpty());
  EXPECT_THAT(Links(" www.sdf.ru"), ElementsAre("www.sdf.ru"));
  EXPECT_THAT(Links(" www..ru"), ElementsAre("www..ru"));
  EXPECT_THAT(Links(" www.sdf.ru."), ElementsAre("www.sdf.ru"));
}

TEST_F(LinksTest, AtTheVeryEndOfThePiece) {
  EXPECT_THAT(Links(" see http://a.b"), ElementsAre("http://a.b"));
  EXPECT_THAT(Links(" see http://a.b "), ElementsAre("http://a.b"));
}

TEST_F(LinksTest, InBracketsThereIsNone) {
  EXPECT_THAT(Links(" (http://a)"), IsEmpty());
  EXPECT_THAT(Links(" \nhttp://a"), IsEmpty());
  EXPECT_THAT(Links("http://a"), IsEmpty());
}

TEST_F(LinksTest, CapitalsAreKeptAndDoNotCount) {
  EXPECT_THAT(Links(" HTTP://A.b WwW.C.d Ftp://E hTTps://F"),
              ElementsAre("HTTP://A.b", "WwW.C.d", "Ftp://E", "hTTps://F"));
}

TEST_F(LinksTest, ALineBreakDoesNotEndALink) {
  EXPECT_THAT(Links(" http://a\nb c"), ElementsAre("http://a\nb"));
}

// ---- address masks ----

TEST_F(LinksTest, AddressMasks) {
  EXPECT_THAT(Links(" 10.0.0.7 192.168.*.* 1?.?2?.***.0 *.*.*.*"),
              ElementsAre("10.0.0.7", "192.168.*.*", "1?.?2?.***.0", "*.*.*.*"));
  EXPECT_THAT(Links(" 999.999.999.999 000.0.0.0"), ElementsAre("999.999.999.999", "000.0.0.0"));
}

TEST_F(LinksTest, WhatIsNoAddressMask) {
  EXPECT_THAT(Links(" 1.2.3 1.2.3.4.5 1.2.3.4444 1..3.4 .1.2.3.4 1.2.3.a 1,2,3,4 1.2.3.-4"),
              IsEmpty());
  EXPECT_THAT(Links(" (1.2.3.4) a1.2.3.4 1.2.3.4a 1.2.3.4/8 1 . * ?"), IsEmpty());
}

TEST_F(LinksTest, PunctuationBehindAnAddressMaskIsCut) {
  EXPECT_THAT(Links(" 1.2.3.4,"), ElementsAre("1.2.3.4"));
  EXPECT_THAT(Links(" 1.2.3.4)."), ElementsAre("1.2.3.4"));
  EXPECT_THAT(Links(" 1.2.3.4?"), ElementsAre("1.2.3.4"));
}

TEST_F(LinksTest, AQuestionMarkAtTheEndIsPunctuation) {
  EXPECT_THAT(Links(" 1.2.3.?"), IsEmpty());
  EXPECT_THAT(Links(" 1.2.3.4?"), ElementsAre("1.2.3.4"));
  EXPECT_THAT(Links(" 1.2.?.4"), ElementsAre("1.2.?.4"));
}

TEST_F(LinksTest, LinksAndMasksInOneLine) {
  EXPECT_THAT(Links(" 1.2.3.4 http://a 5.6.7.8 www.b.c"),
              ElementsAre("1.2.3.4", "http://a", "5.6.7.8", "www.b.c"));
}

// ---- the pointer ----

TEST_F(LinksTest, AWrittenLineLeavesTheArrow) {
  pane.MousePointer(PanePointer::kCustom);
  Scan(" http://a 1.2.3.4");
  EXPECT_EQ(pane.MousePointer(), PanePointer::kArrow);
  EXPECT_EQ(client.app.HoverLink, "");
  EXPECT_EQ(client.app.HoverIP, "");
}

TEST_F(LinksTest, ALineWithNothingToFindLeavesTheArrowToo) {
  for (const char* piece : {"", " ", " plain words", " here, with 1 * and ?"}) {
    pane.MousePointer(PanePointer::kCustom);
    Scan(piece);
    EXPECT_EQ(pane.MousePointer(), PanePointer::kArrow) << piece;
  }
}

TEST_F(LinksTest, HoveringTellsTheFirstLinkAndFormatsNothing) {
  Scan(" 1.2.3.4 HTTP://A, http://b", true);
  EXPECT_EQ(client.app.HoverLink, "HTTP://A");
  EXPECT_EQ(client.app.HoverIP, "");
  EXPECT_EQ(pane.MousePointer(), PanePointer::kCustom);
  EXPECT_EQ(pane.Runs().size(), 1U);
}

TEST_F(LinksTest, HoveringWithoutALinkTellsTheFirstMask) {
  Scan(" www.a 1.2.*.4, 5.6.7.8", true);
  EXPECT_EQ(client.app.HoverLink, "");
  EXPECT_EQ(client.app.HoverIP, "1.2.*.4");
  EXPECT_EQ(pane.MousePointer(), PanePointer::kCustom);
  EXPECT_EQ(pane.Runs().size(), 1U);
}

TEST_F(LinksTest, HoveringOverNeitherLeavesTheArrow) {
  pane.MousePointer(PanePointer::kCustom);
  Scan(" nothing here", true);
  EXPECT_EQ(pane.MousePointer(), PanePointer::kArrow);
  EXPECT_EQ(client.app.HoverLink, "");
  EXPECT_EQ(client.app.HoverIP, "");
}

TEST_F(LinksTest, AnotherTabsPaneIsNotTouched) {
  client.tab(3).Rich.Text("x http://a");
  client.tab(3).Rich.MousePointer(PanePointer::kCustom);
  WriteLinks(client, " http://a", 2, 3, false);
  EXPECT_EQ(client.tab(3).Rich.Runs().size(), 2U);
  EXPECT_EQ(client.tab(3).Rich.MousePointer(), PanePointer::kArrow);
  EXPECT_EQ(pane.Length(), 0);
}

// ---- every place of a text ----

// The same, told plainly: positions are 1-based.
std::vector<Text> PlainlyFound(const Text& piece) {
  const auto is_stop = [](char c) { return Text(".,!?<>'\"()[]{}:;").find(c) != Text::npos; };
  const auto lower = [](Text text) {
    for (char& c : text)
      c = LowerCase(c);
    return text;
  };
  const auto word_behind = [&](std::size_t i, std::size_t from) {
    std::size_t end = from < piece.size() ? piece.find(' ', from) : Text::npos;
    if (end == Text::npos) end = piece.size();
    Text word = end > i ? piece.substr(i, end - i) : "";
    while (!word.empty() && is_stop(word.back()))
      word.pop_back();
    return word;
  };
  const auto begins = [](const Text& text, std::size_t at, const char* with) {
    return text.compare(at, std::string_view(with).size(), with) == 0;
  };
  std::vector<Text> found;
  for (std::size_t i = 1; i <= piece.size(); ++i) {
    const Text low = lower(piece);
    if (!begins(low, i - 1, " http://") && !begins(low, i - 1, " https://") &&
        !begins(low, i - 1, " ftp://") && !begins(low, i - 1, " www."))
      continue;
    const Text word = word_behind(i, i + 2);
    const Text low_word = lower(word);
    if (begins(low_word, 0, "www") && std::count(word.begin(), word.end(), '.') < 2) continue;
    if (low_word == "http://" || low_word == "https://" || low_word == "ftp://") continue;
    found.push_back(word);
  }
  return found;
}

TEST_F(LinksTest, RandomTextsGiveWhatThePlainScanGives) {
  const std::vector<Text> parts{" ",     " ",   " http://", "https://", " ftp://", " www.", "www.",
                                " HtTp", "://", "a",        ".b",       ".",       "?",     ")",
                                "*",     "\n",  " wWw.c.d", "/",        ":",       ";"};
  std::minstd_rand random(5);
  std::size_t links = 0;
  for (int round = 0; round < 3000; ++round) {
    Text piece = " ";
    for (auto i = random() % 14; i > 0; --i)
      piece += parts[random() % parts.size()];
    const std::vector<Text> expected = PlainlyFound(piece);
    std::vector<Text> found;
    for (auto link = NextLink(piece, 0); link; link = NextLink(piece, link->blank + 1)) {
      EXPECT_EQ(piece[link->blank], ' ');
      found.emplace_back(link->word);
    }
    ASSERT_EQ(found, expected) << piece;
    links += found.size();
  }
  EXPECT_GT(links, 1000U);
}

TEST_F(LinksTest, RandomWordsAreMasksIfTheExpressionSaysSo) {
  const std::regex mask(R"(^[0-9\*\?]{1,3}\.[0-9\*\?]{1,3}\.[0-9\*\?]{1,3}\.[0-9\*\?]{1,3}$)");
  const std::vector<Text> parts{"1", "09", "*", "?", "25?", "***",
                                "0", "a",  "-", "",  "2*5", "1234"};
  std::minstd_rand random(7);
  int masks = 0;
  for (int round = 0; round < 20'000; ++round) {
    const auto part = [&] { return parts[random() % parts.size()]; };
    Text word = part();
    for (auto dots = 2 + random() % 3; dots > 0; --dots)
      word += "." + part();
    const Text whole = word;
    while (!word.empty() && (word.back() == '.' || word.back() == '?'))
      word.pop_back();
    const bool expected = std::regex_match(word, mask);
    const auto found = NextAddressMask("x " + whole + " y", 0);
    ASSERT_EQ(found.has_value(), expected) << whole;
    masks += expected ? 1 : 0;
  }
  EXPECT_GT(masks, 300);
}

}  // namespace
}  // namespace parlorwire
