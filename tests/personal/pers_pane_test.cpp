#include "personal/pers_pane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/personal_fixture.h"
#include "support/one_smile.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PersPane : PersonalTest {
  // What becomes a link, in order.
  std::vector<Text> Links(std::string_view text) {
    pane.Text("");
    WriteAtEnd(pane, "ahead" + Text(text) + "\r\n", {});
    PersWriteLinks(window, text, 5);
    std::vector<Text> links;
    for (const PaneRun& run : pane.Runs()) {
      EXPECT_EQ(run.format.underline, run.format.colour == 255) << text;
      EXPECT_FALSE(run.format.bold) << text;
      if (run.format.underline)
        links.push_back(pane.TextBetween(run.start, run.start + run.length));
    }
    return links;
  }
  // The text with its smiles.
  Text Paste(std::string_view text) {
    pane.Text("");
    WriteAtEnd(pane, "ahead" + Text(text) + "\r\nbehind", {});
    PersPasteSmiles(client, window, text, 5);
    Text shown;
    for (const PaneRun& run : pane.Runs())
      shown += run.picture ? "<" + run.picture->code + ">"
                           : pane.TextBetween(run.start, run.start + run.length);
    EXPECT_TRUE(shown.starts_with("ahead")) << shown;
    EXPECT_TRUE(shown.ends_with("\r\nbehind")) << shown;
    EXPECT_TRUE(pane.Locked());
    return shown.substr(5, shown.size() - 13);
  }

  PersPane() { pane.Locked(true); }
  PersonalWindow window;
  RichTextBox& pane = window.Rich;
};

// ---- links ----

TEST_F(PersPane, EachMarkerBeginsALink) {
  EXPECT_THAT(Links(" http://a.b ftp://c.d www.e.f https://g.h"),
              ElementsAre("http://a.b", "ftp://c.d", "www.e.f", "https://g.h"));
  EXPECT_THAT(Links(" HTTP://A.B Www.E"), ElementsAre("HTTP://A.B", "Www.E"));
}

TEST_F(PersPane, ALinkHoldsADot) {
  EXPECT_THAT(Links(" http://a ftp://b http:// www. http://. www"), IsEmpty());
  EXPECT_THAT(Links(" www.sdf http://a.b"), ElementsAre("www.sdf", "http://a.b"));
}

TEST_F(PersPane, PunctuationAtTheEndIsCut) {
  EXPECT_THAT(Links(" http://a.b.,!?<>'()[]{}:;"), ElementsAre("http://a.b"));
  EXPECT_THAT(Links(" www.a.b, www.c.d"), ElementsAre("www.a.b", "www.c.d"));
}

TEST_F(PersPane, AMarkerStandsBehindABlank) {
  EXPECT_THAT(Links("(http://a.b) xwww.a.b"), IsEmpty());
}

TEST_F(PersPane, AnAddressMaskIsMarked) {
  EXPECT_THAT(Links(" 10.0.0.1 from 1.2.*.??, not 1.2.3 nor 1.2.3.? nor 1.2.3.4444"),
              ElementsAre("10.0.0.1"));
  EXPECT_THAT(Links(" 1.2.*.*, 1.?.3.4"), ElementsAre("1.2.*.*", "1.?.3.4"));
}

// ---- smiles ----

TEST_F(PersPane, AWordBetweenStarsIsASmile) {
  LoadOneSmile(platform, client);
  EXPECT_EQ(Paste(" *:)*"), " <*:)*>");
  EXPECT_EQ(Paste(" a *:)* b *:-)*"), " a <*:)*> b <*:-)*>");
  EXPECT_EQ(Paste(" *:)* *:)*  *:)* "), " <*:)*> <*:)*>  <*:)*> ");
}

TEST_F(PersPane, OnlySuchWords) {
  LoadOneSmile(platform, client);
  for (const char* text : {" *:)", " :)*", " :)", " *:)*,", " *:)x", " (*:)*", " *:)**:)*", " **",
                           " *", " ***", " *:(*", " *:)*\n", ""})
    EXPECT_EQ(Paste(text), text);
}

TEST_F(PersPane, WithoutATableNothingIsASmile) {
  EXPECT_EQ(Paste(" *:)*"), " *:)*");
}

TEST_F(PersPane, OnceAPictureCannotBeHadTheRestStaysText) {
  const auto wide = [](std::string_view text) { return std::u16string(text.begin(), text.end()); };
  ResourceFile file;
  file.String(101, wide("2"));
  file.String(102, wide(":)"));
  file.Bitmap(102, OnePixelDib());
  file.String(103, wide("none"));
  platform.program_files.files["smiles.dll"] = file.Bytes();
  LoadSmiles(client);
  EXPECT_EQ(Paste(" *:)* *none* *:)*"), " <*:)*> *none* *:)*");
}

}  // namespace
}  // namespace parlorwire
