#include "bot/join_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/chat.h"
#include "text/fault.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct JoinReport : testing::Test {
  JoinReport() {
    chat.client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
    chat.client.hooks.FindAutoKick = [this](const Text& who, const Text& channel, bool is_nick,
                                            const Text& nick) {
      asked.push_back(who + "|" + channel + "|" + (is_nick ? "nick" : "address") + "|" + nick);
      if (on_look_up) on_look_up();
      return who == kicked ? Text("spam") : Text();
    };
    chat.client.app.SayIPAndFlags = true;
    chat.client.app.AutoKick = true;
    chat.tab().IsOperator = true;
  }
  void User(const Text& nick, const Text& ip, const Text& flags = "", const Text& status = "") {
    chat.tab().UsersText.Append(nick, ip, flags, status);
  }
  void Join(const Text& nicks) {
    chat.tab().JoinLines = nicks;
    SayBotFunction(chat.client, 0);
  }
  Text& log() { return chat.client.app.IpLogText; }
  Text NoteFor(const Text& others) {
    log() = "\r\n10.0.0.7 " + others;
    chat.tab().UsersText.Clear();
    User("bob", "10.0.0.7");
    said.clear();
    Join("bob");
    const Text& line = said.at(0);
    const std::size_t note = line.find(" *n ");
    return note == Text::npos ? Text() : line.substr(note);
  }

  Chat chat;
  std::vector<Text> said, asked;
  Text kicked = "nobody";
  std::function<void()> on_look_up;
};

// ---- the report ----

TEST_F(JoinReport, ANewAddressIsLoggedAndReportedToTheOperators) {
  User("bob", "10.0.0.7", "[+v]");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7 [+v]. IP logged"));
  EXPECT_EQ(log(), "\r\n10.0.0.7 bob");
  EXPECT_EQ(chat.platform.files.files["IPlog.log"], "\r\n10.0.0.7 bob");
}

TEST_F(JoinReport, WithoutFlagsTheAddressEndsIt) {
  User("bob", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged"));
}

TEST_F(JoinReport, ANewNickAtAKnownAddressIsLoggedAndTheOthersAreNamed) {
  log() = "\r\n10.0.0.7 ann carl";
  User("bob", "10.0.0.7", "[+v]");
  Join("bob");
  EXPECT_THAT(
      said,
      ElementsAre("/op bob 10.0.0.7 [+v]. Nick logged *n На этом же IP записаны: ann, carl"_w));
  EXPECT_EQ(log(), "\r\n10.0.0.7 ann carl bob");
}

TEST_F(JoinReport, AKnownNickAtAKnownAddressIsOnlyReported) {
  log() = "\r\n10.0.0.7 ann BOB carl";
  User("bob", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7 *n На этом же IP записаны: ann, carl"_w));
  EXPECT_EQ(log(), "\r\n10.0.0.7 ann BOB carl");
  said.clear();
  log() = "\r\n10.0.0.7 bob";
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7"));
}

TEST_F(JoinReport, TenOthersAreAllNamed) {
  EXPECT_EQ(NoteFor("a b c d e f g h i j"),
            " *n На этом же IP записаны: a, b, c, d, e, f, g, h, i, j"_w);
}

TEST_F(JoinReport, OfElevenOthersTheLastSevenAreNamed) {
  EXPECT_EQ(NoteFor("a b c d e f g h i j k"),
            " *n На этом же IP записаны (последние 7 из 11): e, f, g, h, i, j, k"_w);
}

TEST_F(JoinReport, TheNickItselfIsNotCountedAmongTheOthers) {
  EXPECT_EQ(NoteFor("a b c d e bob f g h i j"),
            " *n На этом же IP записаны: a, b, c, d, e, f, g, h, i, j"_w);
}

TEST_F(JoinReport, OtherUsersPresentAtTheAddressAreNamed) {
  User("ann", "10.0.0.7");
  User("bob", "10.0.0.7", "[+v]");
  User("carl", "10.0.0.8");
  User("dora", "10.0.0.7", "[+o]", "at work");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7 [+v]. IP logged. Совпадение IP: ann, dora"_w));
}

TEST_F(JoinReport, TheAddressesOfThePresentAreSearchedAsPlainText) {
  User("ann", "110.0.0.77");
  User("10.0.0.7", "10.0.0.9");
  User("bob", "10.0.0.7");
  User("carl", "10.0.0.8", "", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged. Совпадение IP: ann, carl"_w));
}

TEST_F(JoinReport, TheOwnNickInAnotherCaseIsNoOther) {
  User("BOB", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged"));
}

// ---- where it goes ----

TEST_F(JoinReport, InTheChatFourWordsAreMasked) {
  log() = "\r\n10.0.0.7 e60x SCYKA";
  User("FuckXyeE60cyka", "10.0.0.7");
  Join("FuckXyeE60cyka");
  EXPECT_THAT(said, ElementsAre("/op f*ckx*ee*0C*KA 10.0.0.7. Nick logged *n На этом же IP "
                                "записаны: e*0x, SC*KA"_w));
}

TEST_F(JoinReport, InThePaneTheyAreNot) {
  chat.tab().SayReportInChat = false;
  log() = "\r\n10.0.0.7 e60x";
  User("fuckbob", "10.0.0.7");
  Join("fuckbob");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_THAT(chat.Pane(),
              HasSubstr("\r\nfuckbob 10.0.0.7. Nick logged\r\nНа этом же IP записаны: e60x\r\n"_w));
}

TEST_F(JoinReport, InThePaneAReportWithoutANoteIsOneLine) {
  chat.tab().SayReportInChat = false;
  User("bob", "10.0.0.7", "[+v]");
  Join("bob");
  EXPECT_THAT(chat.Pane(), HasSubstr("\r\nbob 10.0.0.7 [+v]. IP logged\r\n"));
  EXPECT_THAT(chat.Pane(), Not(HasSubstr("/op")));
}

TEST_F(JoinReport, UnlessItIsWantedNothingIsSaidAndTheLogGrows) {
  User("bob", "10.0.0.7");
  chat.client.app.SayIPAndFlags = false;
  Join("bob");
  chat.client.app.SayIPAndFlags = true;
  chat.tab().SayReportOnTab = false;
  Join("bob");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(chat.Pane(), "");
  EXPECT_EQ(log(), "\r\n10.0.0.7 bob");
}

// ---- kicks ----

TEST_F(JoinReport, AnAddressOnTheListIsKickedAndNotReported) {
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  kicked = "10.0.0.7";
  Join("bob\r\nann");
  EXPECT_THAT(asked, ElementsAre("10.0.0.7|lobby|address|bob", "10.0.0.8|lobby|address|ann"));
  EXPECT_THAT(said, ElementsAre("/k bob spam", "/op ann 10.0.0.8. IP logged"));
  EXPECT_EQ(log(), "\r\n10.0.0.8 ann");
}

TEST_F(JoinReport, WithAutoKickUncheckedNobodyIsKickedButLoggedAndReported) {
  chat.client.app.AutoKick = false;
  kicked = "10.0.0.7";
  User("bob", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged"));
}

TEST_F(JoinReport, AFaultInTheListIsLoggedAndTheNickIsReported) {
  on_look_up = [] { throw Fault(fault::kSubscript); };
  User("bob", "host");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob host. IP logged"));
  EXPECT_TRUE(
      chat.ErrorLog().ends_with("Error 9 Subscript out of range. Function: SayBotFunction.\r\n"));
}

// ---- who is treated ----

TEST_F(JoinReport, WhoIsNoOperatorDoesNothing) {
  chat.tab().IsOperator = false;
  User("bob", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_EQ(log(), "");
  EXPECT_EQ(chat.tab().JoinLines, "bob");
}

TEST_F(JoinReport, NobodyHavingJoinedNothingHappens) {
  User("bob", "10.0.0.7");
  for (const char* nobody : {"", "   "}) {
    Join(nobody);
    EXPECT_EQ(chat.platform.desktop.yields, 0);
  }
}

TEST_F(JoinReport, TheRobotTheWardensAndTheUserAreExempt) {
  for (const Text& nick : {"ОператорШа"_w, "ALICE"_w, "WardenOne"_w, "wardentwo"_w, "bob"_w})
    User(nick, "10.0.0.7");
  Join("ОператорШа\r\nALICE\r\nWardenOne\r\nwardentwo\r\nbob"_w);
  EXPECT_THAT(asked, ElementsAre("10.0.0.7|lobby|address|bob"));
  EXPECT_EQ(log(), "\r\n10.0.0.7 bob");
}

TEST_F(JoinReport, ANickThatIsNotOnTheListIsPassedOver) {
  User("ann", "10.0.0.7");
  Join("bob\r\nann");
  EXPECT_THAT(said, ElementsAre("/op ann 10.0.0.7. IP logged"));
}

TEST_F(JoinReport, AnEmptyAddressEndsAllOfIt) {
  User("bob", "");
  User("ann", "10.0.0.7");
  Join("bob\r\nann");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(log(), "");
}

TEST_F(JoinReport, ANickIsFoundInsideALongerOne) {
  User("bobby", "10.0.0.9", "[+v]");
  User("bob", "10.0.0.7");
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.9 [+v]. IP logged. Совпадение IP: bobby"_w));
}

TEST_F(JoinReport, ANickThatOnlyALastCommentHoldsHasNoAddress) {
  User("ann", "10.0.0.7", "", "bob is here");
  Join("bob\r\nann");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(JoinReport, EachNickLeavesTheJoinedOnes) {
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  std::vector<Text> left;
  on_look_up = [&] { left.push_back(chat.tab().JoinLines); };
  Join("bob\r\nann");
  EXPECT_THAT(left, ElementsAre("\r\nann", "\r\n"));
}

// ---- events in the middle ----

TEST_F(JoinReport, EventsRunAheadOfEachNick) {
  User("bob", "10.0.0.7");
  Join("bob\r\nann\r\n\r\ncarl");
  EXPECT_EQ(chat.platform.desktop.yields, 4);
}

TEST_F(JoinReport, WhenTheSessionEndsMeanwhileItStops) {
  chat.client.app.AutoKick = false;
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  chat.platform.desktop.on_yield = [&] {
    if (chat.platform.desktop.yields == 2) ConnectToChat(chat.client, 0);
  };
  Join("bob\r\nann");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged"));
}

TEST_F(JoinReport, WhenTheSessionEndsInALookUpNobodyIsKicked) {
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  kicked = "10.0.0.7";
  on_look_up = [&] { ConnectToChat(chat.client, 0); };
  Join("bob\r\nann");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(log(), "");
}

TEST_F(JoinReport, WhoJoinsMeanwhileIsNotTreatedWithTheOthers) {
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  chat.platform.desktop.on_yield = [&] { chat.tab().JoinLines += "\r\nann"; };
  Join("bob");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged"));
  EXPECT_EQ(chat.tab().JoinLines, "\r\nann");
}

TEST_F(JoinReport, WhatANewerListHasTreatedMeanwhileIsNotTreatedTwice) {
  chat.client.app.AutoKick = false;
  User("bob", "10.0.0.7");
  User("ann", "10.0.0.8");
  chat.platform.desktop.on_yield = [&] {
    if (chat.platform.desktop.yields == 2) SayBotFunction(chat.client, 0);
  };
  Join("bob\r\nann");
  EXPECT_THAT(said, ElementsAre("/op bob 10.0.0.7. IP logged", "/op ann 10.0.0.8. IP logged"));
}

// ---- by the user frame ----

struct JoinReportByTheFrame : testing::Test {
  void Frame(const Text& users) {
    UpdateUsersFrame(chat.client, 0);
    chat.Winsock3().Accept();
    chat.Winsock3().Deliver(Koi("HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n." + users));
    chat.Winsock3().PeerCloses();
  }
  Chat chat;
};

TEST_F(JoinReportByTheFrame, WhoJoinedIsKickedByHisAddress) {
  chat.client.app.AutoKick = true;
  chat.client.app.AutoKickText = "10.0.*.*\tAll\tSpam\tfriend";
  chat.tab().JoinLines = "friend\r\nbob";
  Frame("alice|[+o-t][10.0.0.1:]''\nfriend|[][10.0.0.7:]''\nbob|[][10.0.0.7:]''\n");
  chat.Winsock4().Accept();
  EXPECT_THAT(chat.Winsock4().sent, HasSubstr("&msgtext=/k bob Spam&"));
  EXPECT_EQ(chat.tab().JoinLines, "");
}

TEST_F(JoinReportByTheFrame, AFrameEmptiesTheJoinedOnesAlsoOfWhoIsNoOperator) {
  chat.tab().JoinLines = "bob";
  Frame("alice|[-t][10.0.0.1:]''\nbob|[][10.0.0.7:]''\n");
  EXPECT_EQ(chat.tab().JoinLines, "");
  EXPECT_EQ(chat.client.app.IpLogText, "");
  EXPECT_EQ(chat.Winsock4().connects, 0);
}

TEST_F(JoinReportByTheFrame, AnEmptyAddressEmptiesTheJoinedOnesAllTheSame) {
  chat.tab().JoinLines = "bob\r\nann";
  Frame("alice|[+o-t][10.0.0.1:]''\nbob|[][]''\nann|[][10.0.0.7:]''\n");
  EXPECT_EQ(chat.tab().JoinLines, "");
  EXPECT_EQ(chat.client.app.IpLogText, "");
}

TEST_F(JoinReportByTheFrame, WhoJoinsInTheMiddleOfAReportIsForgotten) {
  chat.tab().ActionsArmed = true;
  chat.tab().JoinLines = "bob";
  const int ahead = chat.platform.desktop.yields;
  chat.platform.desktop.on_yield = [&] {
    if (chat.platform.desktop.yields != ahead + 2) return;  // the first is that of the frame
    chat.client.hooks.ClientAction("ann приходит на канал"_w, 0);
    EXPECT_EQ(chat.tab().JoinLines, "bob\r\nann");
  };
  const Text list = "alice|[+o-t][10.0.0.1:]''\nbob|[][10.0.0.7:]''\nann|[][10.0.0.8:]''\n";
  Frame(list);
  EXPECT_EQ(chat.tab().JoinLines, "");
  EXPECT_EQ(chat.Winsock3().State(), SocketState::kConnecting);
  Frame(list);
  EXPECT_EQ(chat.client.app.IpLogText, "\r\n10.0.0.7 bob");
}

}  // namespace
}  // namespace parlorwire
