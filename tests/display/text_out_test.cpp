#include "display/text_out.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/text_out_fixture.h"
#include "support/one_smile.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

// ---- runs by kind ----

TEST_F(TextOutTest, Message) {
  Out("alice:", "hello", kMessage);
  EXPECT_THAT(Runs(), ElementsAre("[1] |Main 12 777777 b", "alice:|Main 12 444444 b u",
                                  " hello\\r\\n|Main 12 888888"));
}

TEST_F(TextOutTest, Echo) {
  Out("alice:", "hello", kEcho);
  EXPECT_THAT(Runs(), ElementsAre("[1] |Main 12 777777 b", "### |Main 12 222222",
                                  "alice:|Main 12 444444 b u", " hello\\r\\n|Main 12 888888"));
}

TEST_F(TextOutTest, Action) {
  Out("alice:", "waves", kAction);
  EXPECT_THAT(Runs(), ElementsAre("[1]|Main 12 222222", " |System 9 222222 i",
                                  "***|System 9 222222", " waves\\r\\n|System 9 222222 i"));
}

TEST_F(TextOutTest, System) {
  Out("", "bob приходит на канал"_w, kSystem);
  EXPECT_THAT(Runs(),
              ElementsAre("[1]|Main 12 222222", " bob приходит на канал\\r\\n|System 9 222222 i"));
}

TEST_F(TextOutTest, SystemFontsBoldAndItalicAreThoseOfTheText) {
  client.app.rFontSystem.Bold = true;
  client.app.rFontSystem.Italic = false;
  Out("alice:", "waves", kAction);
  EXPECT_THAT(Runs(), ElementsAre("[1]|Main 12 222222", " |System 9 222222 b",
                                  "***|System 9 222222", " waves\\r\\n|System 9 222222 b"));
}

TEST_F(TextOutTest, BoldOfNickAndTimeAreSettings) {
  client.app.rFontMain.Bold = false;
  client.app.rFontMain.TimeBold = false;
  Out("alice:", "hello", kMessage);
  EXPECT_THAT(Runs(), ElementsAre("[1] |Main 12 777777", "alice:|Main 12 444444 u",
                                  " hello\\r\\n|Main 12 888888"));
}

TEST_F(TextOutTest, WhatStandsInAPaneIsNeverRecoloured) {
  Out("alice:", "hello", kMessage);
  const auto before = session.Rich.Runs();
  const PanePosition end = session.Rich.Length();
  client.app.rFontMain.Name = "Other";
  client.app.rFontMain.Size = 20;
  client.app.rRichColors.Nicks = client.app.rRichColors.Times = Rgb(0xAB, 0xAB, 0xAB);
  EXPECT_EQ(session.Rich.Runs(), before);
  Out("alice:", "hello", kMessage);
  EXPECT_EQ(session.Rich.RunsBetween(0, end), before);
  EXPECT_THAT(Runs(), ElementsAre("[1] |Other 20 ababab b", "alice:|Other 20 ababab b u",
                                  " hello\\r\\n|Other 20 888888"));
}

TEST_F(TextOutTest, TheSecondLineLooksAsTheFirst) {
  Out("alice:", "hello", kMessage);
  Out("bob:", "hi", kMessage);
  EXPECT_THAT(Runs(), ElementsAre("[1] |Main 12 777777 b", "bob:|Main 12 444444 b u",
                                  " hi\\r\\n|Main 12 999999"));
}

TEST_F(TextOutTest, WithoutATimeASystemLineBeginsWithOneBlank) {
  Out("", "hello world", kSystem, "");
  EXPECT_THAT(Runs(), ElementsAre(" hello world\\r\\n|System 9 222222 i"));
}

TEST_F(TextOutTest, ATextOfBlanksIsOneBlank) {
  Out("alice:", "   ", kMessage);
  EXPECT_EQ(session.Rich.Text(), "[1] alice: \r\n");
}

TEST_F(TextOutTest, AnEmptySystemLineIsWritten) {
  Out("", "", kSystem);
  EXPECT_EQ(session.Rich.Text(), "[1] \r\n");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(TextOutTest, ACarriageReturnStaysInTheText) {
  Out("alice:", "hello\r", kMessage);
  EXPECT_EQ(session.Rich.Text(), "[1] alice: hello\r\r\n");
}

// ---- marks ----

TEST_F(TextOutTest, ALineThatNamesTheUserIsMarked) {
  Out("alice:", "hi mE there", kMessage);
  EXPECT_THAT(Runs(),
              ElementsAre(">|Main 12 555555", "[1] |Main 12 777777 b", "alice:|Main 12 444444 b u",
                          " hi mE there\\r\\n|Main 12 888888"));
}

TEST_F(TextOutTest, AColonWithinTheNameDoesNotHideIt) {
  Out("alice:", "m:e", kMessage);
  EXPECT_THAT(session.Rich.Text(), testing::StartsWith(">[1]"));
}

TEST_F(TextOutTest, ALoginWithAColonIsNeverNamed) {
  session.Login = "m:e";
  Out("alice:", "m:e", kMessage);
  EXPECT_THAT(session.Rich.Text(), testing::StartsWith("[1]"));
}

TEST_F(TextOutTest, AnOwnLineIsMarkedAndHasTheUsersColours) {
  Out("mE:", "hello", kMessage);
  EXPECT_THAT(Runs(), ElementsAre("<|Main 12 555555", "[1] |Main 12 777777 b",
                                  "mE:|Main 12 111111 b u", " hello\\r\\n|Main 12 666666"));
}

TEST_F(TextOutTest, AnOwnLineThatNamesTheUserHasBothMarks) {
  Out("Me:", "me", kMessage);
  EXPECT_THAT(Runs(), ElementsAre("<>|Main 12 555555", "[1] |Main 12 777777 b",
                                  "Me:|Main 12 111111 b u", " me\\r\\n|Main 12 666666"));
}

TEST_F(TextOutTest, AnOwnEchoIsMarked) {
  Out("Me:", "hello", kEcho);
  EXPECT_THAT(Runs(),
              ElementsAre("<|Main 12 555555", "[1] |Main 12 777777 b", "### |Main 12 222222",
                          "Me:|Main 12 111111 b u", " hello\\r\\n|Main 12 666666"));
}

TEST_F(TextOutTest, AnOwnActionHasNoMarkOfItsOwn) {
  Out("Me:", "waves", kAction);
  EXPECT_EQ(session.Rich.Text(), "[1] *** waves\r\n");
}

TEST_F(TextOutTest, ANickThatBeginsAsTheLoginIsNotOwn) {
  Out("Meg:", "hello", kMessage);
  Out("M:", "hello", kMessage);
  EXPECT_EQ(session.Rich.Text(), "[1] Meg: hello\r\n[1] M: hello\r\n");
}

struct About {
  const char* text;
  const char* mark;
};

TEST_F(TextOutTest, MarksOfSystemLines) {
  const std::vector<About> cases = {{"Me leaves", "<>"},
                                    {"ME leaves", "<>"},
                                    {"Me", "<>"},
                                    {"bob kicks (Me)", "<>"},
                                    {"bob kicks (mE))", "<>"},
                                    {"(Me)", "<>"},
                                    {"bob kicks (Me)))", ">"},
                                    {"bob kicks Me)", ">"},
                                    {"bob kicks ((Me))", ">"},
                                    {"bob kicks (Me) now", ">"},
                                    {"bob sees Me", ">"},
                                    {"Me: leaves", ">"},
                                    {"bob leaves", ""},
                                    {"bob (", ""},
                                    {"bob ()", ""}};
  for (const About& about : cases) {
    session.Rich.Text("");
    Out("", about.text, kSystem);
    EXPECT_EQ(session.Rich.Text(), Text(about.mark) + "[1] " + about.text + "\r\n") << about.text;
  }
}

TEST_F(TextOutTest, AnActionAboutTheUserHasBothSymbolsTinted) {
  Out("alice:", "hugs (Me)", kAction);
  EXPECT_THAT(Runs(), ElementsAre("<>|Main 12 555555", "[1]|Main 12 222222", " |System 9 222222 i",
                                  "***|System 9 222222", " hugs (Me)\\r\\n|System 9 222222 i"));
}

TEST_F(TextOutTest, ASystemLineThatNamesTheUserHasOneSymbolTinted) {
  Out("", "bob sees Me", kSystem);
  EXPECT_THAT(Runs(), ElementsAre(">|Main 12 555555", "[1]|Main 12 222222",
                                  " bob sees Me\\r\\n|System 9 222222 i"));
}

TEST_F(TextOutTest, WithoutALoginEveryMessageIsMarkedAndNoneIsOwn) {
  session.Login.clear();
  Out("bob:", "hello", kMessage);
  Out("alice:", "", kEcho);
  EXPECT_EQ(session.Rich.Text(), ">[1] bob: hello\r\n>[1] ### alice: \r\n");
}

TEST_F(TextOutTest, MarksStandAheadOfALineWithoutATime) {
  Out("Me:", "me", kMessage, "");
  EXPECT_THAT(Runs(), ElementsAre("<>|Main 12 555555", " |Main 12 777777 b",
                                  "Me:|Main 12 111111 b u", " me\\r\\n|Main 12 666666"));
}

// ---- colours of nicks ----

TEST_F(TextOutTest, FlagsOfTheListColourANick) {
  struct Case {
    const char* flags;
    const char* colour;
  };
  for (const Case& c :
       {Case{"[+o]", "00ffff"}, Case{"[+O]", "4096b3"}, Case{"[+A]", "ff0000"},
        Case{"[+oOA]", "00ffff"}, Case{"[+O+o]", "00ffff"}, Case{"[+A+O]", "4096b3"},
        Case{"[+a]", "444444"}, Case{"[-o]", "444444"}, Case{"", "444444"}}) {
    session.UsersText.Clear();
    session.UsersText.Append("other", "10.0.0.1", "[+o]", "");
    session.UsersText.Append("Alice", "10.0.0.2", c.flags, "busy");
    Out("alice:", "hello", kMessage);
    EXPECT_EQ(Runs().at(1), "alice:|Main 12 " + std::string(c.colour) + " b u") << c.flags;
  }
}

TEST_F(TextOutTest, ANickWithinALongerOneGetsTheColourOfTheFirstHit) {
  session.UsersText.Append("Malice", "10.0.0.1", "[+A]", "");
  session.UsersText.Append("alice", "10.0.0.2", "[+o]", "");
  Out("alice:", "hello", kMessage);
  EXPECT_EQ(Runs().at(1), "alice:|Main 12 ff0000 b u");
}

TEST_F(TextOutTest, ANickWithinTheLastCommentHasNoFlags) {
  session.UsersText.Append("bob", "10.0.0.1", "[+o]", "loves alice");
  Out("alice:", "hello", kMessage);
  EXPECT_EQ(Runs().at(1), "alice:|Main 12 444444 b u");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(TextOutTest, TheOwnNickIsNeverColouredByFlags) {
  session.UsersText.Append("Me", "10.0.0.1", "[+o]", "");
  Out("Me:", "hello", kMessage);
  EXPECT_EQ(Runs().at(2), "Me:|Main 12 111111 b u");
}

TEST_F(TextOutTest, ANewNickGetsATextColourThatStays) {
  platform.random.script = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6};
  Out("carol:", "one", kMessage);
  const std::string first = Runs().back();
  Out("Carol:", "one", kMessage);
  EXPECT_EQ(Runs().back(), first);
  Out("dave:", "one", kMessage);
  EXPECT_NE(Runs().back(), first);
}

// ---- the text ----

TEST_F(TextOutTest, MarkersBecomeLineBreaks) {
  struct Case {
    const char* text;
    const char* shown;
  };
  for (const Case& c :
       {Case{"a *n b", "a \n\t b"}, Case{"a *n *n b", "a \n\t \n\t b"}, Case{"*n a", "\n\t a"},
        Case{"a *n", "a \n\t"}, Case{"a*n b", "a*n b"}, Case{"a *nb", "a *nb"},
        Case{"a *N b", "a *N b"}, Case{"*n *n *n *n", "\n\t \n\t \n\t \n\t"}}) {
    session.Rich.Text("");
    Out("alice:", c.text, kMessage);
    EXPECT_EQ(session.Rich.Text(), "[1] alice: " + Text(c.shown) + "\r\n") << c.text;
  }
}

TEST_F(TextOutTest, LinksAndPicturesCountFromTheText) {
  LoadOneSmile(platform, client);
  Out("alice:", "*:) see www.a.b *:)", kMessage);
  EXPECT_THAT(
      Runs(),
      ElementsAre("[1] |Main 12 777777 b", "alice:|Main 12 444444 b u", " |Main 12 888888",
                  "<*:)>|Main 12 888888", " see |Main 12 888888", "www.a.b|Main 12 ff0000 b u",
                  " |Main 12 888888", "<*:)>|Main 12 888888", "\\r\\n|Main 12 888888"));
  Out("alice:", "*:) sees 10.0.*.* *:)", kAction);
  EXPECT_THAT(Runs(), ElementsAre("[1]|Main 12 222222", " |System 9 222222 i",
                                  "***|System 9 222222", " |System 9 222222 i",
                                  "<*:)>|System 9 222222 i", " sees |System 9 222222 i",
                                  "10.0.*.*|System 9 ff0000 b i u", " |System 9 222222 i",
                                  "<*:)>|System 9 222222 i", "\\r\\n|System 9 222222 i"));
  Out("", "*:) ftp://a *:)", kSystem, "");
  EXPECT_THAT(Runs(),
              ElementsAre(" |System 9 222222 i", "<*:)>|System 9 222222 i", " |System 9 222222 i",
                          "ftp://a|System 9 ff0000 b i u", " |System 9 222222 i",
                          "<*:)>|System 9 222222 i", "\\r\\n|System 9 222222 i"));
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(TextOutTest, TheLoggedLineKeepsTheCode) {
  LoadOneSmile(platform, client);
  session.Channel = "talk";
  Out("alice:", "hello *:)", kMessage);
  EXPECT_EQ(session.Rich.Text(), "[1] alice: hello  \r\n");
  bool logged = false;
  for (const auto& [name, content] : platform.files.files)
    logged = logged || (name.starts_with("Logs") && Contains(content, " hello *:)\r"));
  EXPECT_TRUE(logged);
}

TEST_F(TextOutTest, WhatIsLoggedInWhichPieces) {
  struct LoggingFiles : SimulatedFiles {
    void Append(const Text& name, const Text& bytes) override {
      SimulatedFiles::Append(name, bytes);
      pieces.push_back(bytes);
    }
    void WriteAt(const Text& name, std::int64_t at, const Text& bytes) override {
      SimulatedFiles::WriteAt(name, at, bytes);
      pieces.push_back(bytes);
    }
    std::vector<Text> pieces;
  };
  LoggingFiles files;
  files.folders = {"Logs", "Logs\\talk"};
  Client logging(platform.Ports(files));
  logging.tab(0).Channel = "talk";
  logging.tab(0).Login = "Me";
  TextOut(logging, "[1]", "Me:", "hello", kMessage, 0);
  TextOut(logging, "[1]", "alice:", "hello", kEcho, 0);
  TextOut(logging, "[1]", "alice:", "waves", kAction, 0);
  TextOut(logging, "", "", "a *n b", kSystem, 0);
  EXPECT_THAT(files.pieces,
              ElementsAre("<[1] ", "Me: ", " hello\r\r\n", "[1] ", "### alice: ", " hello\r\r\n",
                          "[1] ", " *** waves\r\r\n", " ", " a \r\n\t b\r\r\n"));
}

}  // namespace
}  // namespace parlorwire
