#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "display/links.h"
#include "display/smiles.h"
#include "support/one_smile.h"
#include "support/pane_runs.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

struct PastePictureTest : testing::Test {
  // The text stands behind other text and a blank, and its codes become pictures.
  Text Paste(std::string_view text) {
    pane.Text("");
    pane.ReplaceSel("ahead " + Text(text) + "\r\nbehind");
    PastePicture(client, text, 6, 0);
    Text shown;
    for (const PaneRun& run : pane.Runs())
      shown += run.picture ? "<" + run.picture->code + ">"
                           : pane.TextBetween(run.start, run.start + run.length);
    EXPECT_TRUE(shown.starts_with("ahead ")) << shown;
    EXPECT_TRUE(shown.ends_with("\r\nbehind")) << shown;
    return shown.substr(6, shown.size() - 14);
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  RichTextBox& pane = client.tab(0).Rich;
};

TEST_F(PastePictureTest, ACodeThatIsTheWholeText) {
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste("*:)"), "<*:)>");
}

TEST_F(PastePictureTest, ACodeStandsBetweenBlanks) {
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste("*:) dfg"), "<*:)> dfg");
  EXPECT_EQ(Paste("test *:) fdg"), "test <*:)> fdg");
  EXPECT_EQ(Paste("test *:)"), "test <*:)>");
  for (const char* text : {"test *:), fdg", "(*:)", "x*:)", "**:)", "*:)*", "*:)\n", "\n*:)",
                           "* :)", "*", "*:", ":)", "*:-", "* ", " *", ""})
    EXPECT_EQ(Paste(text), text);
}

TEST_F(PastePictureTest, ACodeTwice) {
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste("*:) and *:)"), "<*:)> and <*:)>");
  EXPECT_EQ(Paste("*:) *:) *:)"), "<*:)> <*:)> <*:)>");
  EXPECT_EQ(Paste("*:)  *:)"), "<*:)>  <*:)>");
}

TEST_F(PastePictureTest, NamesOfOnePictureKeepTheirCodes) {
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste("*:-) *:)"), "<*:-)> <*:)>");
  const auto runs = pane.Runs();
  EXPECT_EQ(runs.at(1).picture->image, runs.at(3).picture->image);
}

TEST_F(PastePictureTest, UpperAndLowerCaseCount) {
  LoadSmileLines(platform, client, {":P", ":p"});
  EXPECT_EQ(Paste("*:p *:P"), "<*:p> <*:P>");
  EXPECT_EQ(pane.Runs().at(1).picture->image->pixels.at(0), 0xFF010000U);
  LoadSmileLines(platform, client, {"rose"});
  EXPECT_EQ(Paste("*Rose *ROSE"), "*Rose *ROSE");
}

TEST_F(PastePictureTest, OfTwoEqualNamesTheFirstCounts) {
  LoadSmileLines(platform, client, {"a b", "b c"});
  EXPECT_EQ(Paste("*b *c"), "<*b> <*c>");
  EXPECT_EQ(pane.Runs().at(1).picture->image->pixels.at(0), 0xFF000000U);
  EXPECT_EQ(pane.Runs().at(3).picture->image->pixels.at(0), 0xFF010000U);
}

TEST_F(PastePictureTest, BlanksAroundNamesAreNone) {
  LoadSmileLines(platform, client, {"  ", " a  b "});
  EXPECT_EQ(Paste("* *a *b"), "* <*a> <*b>");
}

TEST_F(PastePictureTest, APictureIsOnePosition) {
  LoadOneSmile(platform, client);
  Paste("a *:-) b");
  EXPECT_EQ(pane.Text(), "ahead a   b\r\nbehind");
}

TEST_F(PastePictureTest, APictureThatCannotBeHadEndsIt) {
  LoadSmileLines(platform, client, {"a", "b", "c"});
  ResourceFile file;
  file.String(101, u"3");
  file.String(102, u"a");
  file.String(103, u"b");
  file.String(104, u"c");
  file.Bitmap(102, OnePixelDib());
  file.Bitmap(104, OnePixelDib());
  platform.files.files["smiles.dll"] = file.Bytes();
  LoadSmiles(client);
  EXPECT_EQ(Paste("*c *b *a"), "*c *b <*a>");  // c would have its turn behind b
  EXPECT_EQ(Paste("*c *a"), "<*c> <*a>");
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

TEST_F(PastePictureTest, WithoutALibraryCodesStayText) {
  EXPECT_EQ(Paste("*:) *:)"), "*:) *:)");
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste("*:)"), "<*:)>");
  FreeResourceLibrary(client.app.resources);
  EXPECT_EQ(Paste("*:)"), "*:)");
}

TEST_F(PastePictureTest, AnotherLibraryHasOtherPictures) {
  LoadSmileLines(platform, client, {"a"});
  Paste("*a");
  ResourceFile file;
  file.String(101, u"1");
  file.String(102, u"a");
  file.Bitmap(102, OnePixelDib(9));
  platform.files.files["smiles.dll"] = file.Bytes();
  LoadResourceLibrary(client.app.resources, platform.Ports(), "smiles.dll");
  EXPECT_EQ(Paste("*a"), "<*a>");
  EXPECT_EQ(pane.Runs().at(1).picture->image->pixels.at(0), 0xFF090000U);
  platform.files.files.clear();
  LoadSmileLines(platform, client, {"b", "a"});
  EXPECT_EQ(Paste("*a"), "<*a>");
  EXPECT_EQ(pane.Runs().at(1).picture->image->pixels.at(0), 0xFF010000U);
}

TEST_F(PastePictureTest, ThePaneIsLockedBehindIt) {
  LoadOneSmile(platform, client);
  pane.Locked(false);
  Paste("no code");
  EXPECT_FALSE(pane.Locked());
  Paste("*:)");
  EXPECT_TRUE(pane.Locked());
}

TEST_F(PastePictureTest, TheClipboardIsLeftAlone) {
  LoadOneSmile(platform, client);
  platform.clipboard.text = "the user's";
  Paste("*:)");
  EXPECT_EQ(platform.clipboard.text, "the user's");
}

// A code may have the form of an address mask. What follows it in the line is not touched.
TEST_F(PastePictureTest, APictureInsideALink) {
  LoadSmileLines(platform, client, {"1.2.3.4"});
  pane.ReplaceSel(" see *1.2.3.4 www.a.b\r\n");
  WriteLinks(client, " see *1.2.3.4 www.a.b", 1, 0, false);
  PastePicture(client, "see *1.2.3.4 www.a.b", 1, 0);
  const auto runs = RunsOf(pane);
  ASSERT_EQ(runs.size(), 5U);
  EXPECT_EQ(runs[1], "<*1.2.3.4>|Times New Roman 10 ff0000 b u");
  EXPECT_EQ(runs[3], "www.a.b|Times New Roman 10 ff0000 b u");
}

TEST_F(PastePictureTest, APictureBetweenLinksLeavesThemAsTheyAre) {
  LoadOneSmile(platform, client);
  pane.ReplaceSel(" www.a.b *:) http://c *:)\r\n");
  WriteLinks(client, " www.a.b *:) http://c *:)", 1, 0, false);
  PastePicture(client, "www.a.b *:) http://c *:)", 1, 0);
  const auto runs = RunsOf(pane);
  ASSERT_EQ(runs.size(), 9U);
  EXPECT_EQ(runs[1], "www.a.b|Times New Roman 10 ff0000 b u");
  EXPECT_EQ(runs[3], "<*:)>|Times New Roman 10 000000");
  EXPECT_EQ(runs[5], "http://c|Times New Roman 10 ff0000 b u");
}

// ---- the plain algorithm ----

// What a pane holds, a piece a position: a character, or the code of a picture.
using Cells = std::vector<Text>;

// Name by name through the table and place by place through the text. `has_picture` tells whether
// the picture of a line, 1-based, can be had.
template <class HasPicture>
void PlainPaste(const Text& table, Text text, std::size_t base, Cells& cells,
                const HasPicture& has_picture) {
  int j = -1;
  for (const std::string_view line : Split(table, "\r\n")) {
    ++j;
    if (Trim(line).empty()) continue;
    for (const std::string_view name : Split(line, " ")) {
      if (name.empty()) continue;
      const Position length = Len(" " + text + " ");
      const Text code = "*" + Text(name);
      for (Position pos = 1; pos <= length; ++pos) {
        const Text padded = " " + text + " ";
        if (Mid(padded, pos, Len(code) + 2) != " " + code + " ") continue;
        if (!has_picture(j)) return;
        const auto at = cells.begin() + static_cast<std::ptrdiff_t>(base) + pos - 1;
        cells.insert(cells.erase(at, at + Len(code)), "<" + code + ">");
        text = Left(text, pos - 1) + Right(text, Len(text) - pos + 2 - Len(code));
      }
    }
  }
}

TEST_F(PastePictureTest, RandomTextsAndTablesGiveWhatThePlainAlgorithmGives) {
  const std::vector<Text> parts{" ",  " ",  " ",    "*",     "*",   "**", ":)",  "a", "b",
                                "ab", "*a", " *a ", " *:) ", "*:)", "\n", "*b*", ")"};
  const std::vector<Text> names{":)", "a", "b", "ab", "*", "**", "a*", "ba", "*a", " ", ")"};
  std::minstd_rand random(11);
  const auto below = [&](std::size_t count) { return random() % count; };
  int pictures = 0;
  for (int round = 0; round < 4000; ++round) {
    ResourceFile file;
    const auto lines = static_cast<std::uint32_t>(below(5));
    std::vector<bool> has{false};
    file.String(101, std::u16string(1, static_cast<char16_t>('0' + lines)));
    for (std::uint32_t j = 1; j <= lines; ++j) {
      Text line;
      for (auto n = below(4); n > 0; --n)
        line += names[below(names.size())] + " ";
      file.String(101 + j, std::u16string(line.begin(), line.end()));
      has.push_back(below(6) > 0);
      if (has.back()) file.Bitmap(101 + j, OnePixelDib());
    }
    platform.files.files["smiles.dll"] = file.Bytes();
    LoadSmiles(client);
    Text text;
    for (auto n = below(12); n > 0; --n)
      text += parts[below(parts.size())];
    const Text whole = "ahead " + text + "\r\nbehind";
    Cells cells;
    for (const char c : whole)
      cells.emplace_back(1, c);
    PlainPaste(client.app.SmileTable, text, 6, cells,
               [&](int j) { return has.at(static_cast<std::size_t>(j)); });
    Text expected;
    for (const Text& cell : cells) {
      expected += cell;
      pictures += cell.size() > 1 ? 1 : 0;
    }
    ASSERT_EQ("ahead " + Paste(text) + "\r\nbehind", expected)
        << "text '" << text << "' table '" << client.app.SmileTable << "'";
  }
  EXPECT_GT(pictures, 500);
}

// ---- cost ----

// What a text of that many words costs in a pane, in blocks and runs.
std::uint64_t CostOf(std::string_view word, int count) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  LoadSmileLines(platform, client, {":) :-)", "a"});
  RichTextBox& pane = client.tab(0).Rich;
  Text text;
  for (int i = 0; i < count; ++i)
    text += word;
  pane.ReplaceSel(" " + text + "\r\n");
  const auto work = [&] { return pane.work().blocks_touched + pane.work().runs_moved; };
  const std::uint64_t before = work();
  WriteLinks(client, " " + text, 1, 0, false);
  PastePicture(client, text, 1, 0);
  return work() - before;
}

TEST(SmilesAndLinksCost, ALongLineCostsInProportion) {
  for (const std::string_view word : {"*:) ", "www.a.b ", "1.2.3.4 ", "*:) http://a "}) {
    const std::uint64_t small = CostOf(word, 4000);
    const std::uint64_t large = CostOf(word, 16000);
    EXPECT_GT(small, 4000U) << word;
    EXPECT_LT(large, small * 5) << word;
  }
}

TEST(SmilesAndLinksCost, WhatIsNeitherCostsThePaneNothing) {
  for (const std::string_view word : {"*", "* ", " ", "http:// ", "www. ", "*no ", "1.2.3 ", "?"})
    EXPECT_EQ(CostOf(word, 10000), 0U) << word;
}

}  // namespace
}  // namespace parlorwire
