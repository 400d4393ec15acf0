#include "users/user_frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/connect.h"
#include "shell/assembly.h"
#include "support/pane_runs.h"
#include "support/scripted_view.h"
#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

constexpr const char* kHeader = "HTTP/1.0 200 OK\r\nServer: x\r\n\r\n";
// What stands ahead of the first empty line is dropped, and one character behind it.
constexpr const char* kTop = "one\ntwo\n\n.";

struct UserFrameTest : testing::Test {
  UserFrameTest() {
    Assemble(client);
    client.app.ChatHost = "chat.example";
    client.app.ChatPort = "8080";
    client.app.rFontSystem.Name = "System";
    client.app.rFontSystem.Size = 9;
    client.app.rFontSystem.TextColor = Rgb(0x22, 0x22, 0x22);
    session.Login = "Me";
    session.Ticket = "t&1";
    session.Channel = "talk";
    client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
  }
  SimulatedSocket& socket() { return Simulated(session.Winsock3); }
  void Answer(const Text& answer) {
    UpdateUsersFrame(client, 0);
    socket().Accept();
    socket().Deliver(answer);
    socket().PeerCloses();
  }
  void Frame(const Text& lines) { Answer(kHeader + Text(kTop) + lines); }
  std::string Shown() const { return ToUtf8(session.Rich_Users.Text()); }
  std::string Counter() const { return ToUtf8(platform.desktop.at(0).users_num); }
  std::string Note() const {
    return ToUtf8(session.Rich_Users.TextBetween(4, session.Rich_Users.Length()));
  }
  Text ErrorLog() { return platform.files.files["error.log"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  TabSession& session = client.tab(0);
  std::vector<Text> said;
};

// ---- the fetch ----

TEST_F(UserFrameTest, ARequestToTheByte) {
  session.ChannelPassword = "p";
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(socket().host, "chat.example");
  EXPECT_EQ(socket().port, "8080");
  socket().Accept();
  EXPECT_EQ(socket().sent,
            "POST /chl HTTP/1.0\r\n"
            "Host: chat.example:8080\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 43\r\n"
            "\r\n"
            "username=Me&ticket=t&1&channel=talk&chpwd=p");
}

TEST_F(UserFrameTest, GoesToTheProxyIfOneIsUsed) {
  client.app.sett_conn = {true, true, "proxy.example", "3128", false, "", ""};
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(socket().host, "proxy.example");
  EXPECT_EQ(socket().port, "3128");
}

TEST_F(UserFrameTest, TheSessionsOwnFieldsGrowWithEachFetch) {
  session.Login = "a+b";
  UpdateUsersFrame(client, 0);
  socket().Accept();
  EXPECT_EQ(session.Login, "a%2Bb");
}

TEST_F(UserFrameTest, ANoteSaysThatAFetchRuns) {
  platform.desktop.at(0).users_num = "old";
  UpdateUsersFrame(client, 0);
  EXPECT_THAT(RunsOf(session.Rich_Users),
              ElementsAre("\\r\\n\\r\\n Обновление фрейма...|System 9 222222 i u"));
  EXPECT_EQ(Counter(), "");
}

TEST_F(UserFrameTest, TheNoteHasAnEnglishForm) {
  client.app.Language = UiLanguage::kEnglish;
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(Shown(), "\r\n\r\n Updating...");
}

TEST_F(UserFrameTest, AFetchThatOverrunsARunningOnePrintsNoNote) {
  UpdateUsersFrame(client, 0);
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(socket().connects, 2);
  EXPECT_EQ(Shown(), "\r\n\r\n Обновление фрейма...");
  socket().Accept();
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(Shown(), "\r\n\r\n Обновление фрейма...");
}

TEST_F(UserFrameTest, AfterAnErrorNoNoteIsPrintedEither) {
  UpdateUsersFrame(client, 0);
  socket().Fail(10061);
  UpdateUsersFrame(client, 0);
  EXPECT_EQ(Shown(), "\r\n\r\n Обновление фрейма...");
}

TEST_F(UserFrameTest, AnEmptyAnswerChangesNothing) {
  Answer("");
  EXPECT_EQ(Shown(), "\r\n\r\n Обновление фрейма...");
  EXPECT_EQ(Counter(), "");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(UserFrameTest, ANewFetchForgetsWhatAnOldOneGot) {
  UpdateUsersFrame(client, 0);
  socket().Accept();
  socket().Deliver(Text(kHeader) + kTop + "ghost|[][]''\nhalf of a li");
  Frame("bob|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\nbob\r\n");
}

TEST_F(UserFrameTest, AnAnswerMayComeByteByByte) {
  UpdateUsersFrame(client, 0);
  socket().Accept();
  for (const char c : Text(kHeader) + kTop + "bob|[+o][1.1.1.1:]'x'\n")
    socket().Deliver(Text(1, c));
  socket().PeerCloses();
  EXPECT_EQ(Shown(), "\r\n\r\nbob [+o] 1.1.1.1 x\r\n");
}

// ---- a frame ----

TEST_F(UserFrameTest, FormA) {
  Frame("Nick|[+o][10.0.0.7:]'at work'\nbob|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\nNick [+o] 10.0.0.7 at work\r\nbob\r\n");
  EXPECT_EQ(session.UsersText.text(), "\r\nNick\n10.0.0.7\n[+o]\nat work\r\nbob\n\n\n");
  EXPECT_EQ(Counter(), "Пользователей: 1/2");
  EXPECT_EQ(session.UsersBuffer, "");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(UserFrameTest, FormB) {
  Frame("<tr>\n10.0.0.7:[+A]Nick rest\n<tr>\n:[]bob\n");
  EXPECT_EQ(Shown(), "\r\n\r\nNick [+A] 10.0.0.7\r\nbob\r\n");
  EXPECT_EQ(session.UsersText.text(), "\r\nNick\n10.0.0.7\n[+A]\n\r\nbob\n\n\n");
  EXPECT_EQ(Counter(), "Пользователей: 1/2");
}

TEST_F(UserFrameTest, TheFormIsDecidedByFourLowerCaseCharacters) {
  Frame("<TR>\nbob|[][]''\n");
  EXPECT_THAT(ErrorLog(), testing::HasSubstr("Error 5 "));
  Frame("<tr>bob|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\n[]'' <tr>bob|[]\r\n");
}

TEST_F(UserFrameTest, NothingButRowsAndBlanksIsAnEmptyList) {
  Frame("<tr>\n\n   \n<tr>\n  <tr>  \n");
  EXPECT_EQ(Shown(), "\r\n\r\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/0");
  EXPECT_EQ(session.UsersText.text(), "");
}

TEST_F(UserFrameTest, TheCounterHasOneLanguage) {
  client.app.Language = UiLanguage::kEnglish;
  Frame("bob|[][]''\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/1");
}

TEST_F(UserFrameTest, LettersComeInTheWiresCharacterSet) {
  Frame("\xE2\xCF\xC2|[][]'\xC4\xC1'\n");
  EXPECT_EQ(Shown(), "\r\n\r\nБоб да\r\n");
}

TEST_F(UserFrameTest, EntitiesAreDecodedInTheirOrder) {
  Frame("a&amp;lt;b|[][]'&amp;quot;&QUOT;'\n");
  EXPECT_EQ(session.UsersText.text(), "\r\na&lt;b\n\n\n\"\"");
}

TEST_F(UserFrameTest, LinesAreTrimmedOfBlanksAlone) {
  Frame("  bob|[][]'x'  \n");
  EXPECT_EQ(session.UsersText.text(), "\r\nbob\n\n\nx");
}

TEST_F(UserFrameTest, ALoneCarriageReturnIsNoBlankLine) {
  Frame("bob|[][]'x'\n\r\n");
  EXPECT_THAT(ErrorLog(), testing::HasSubstr("Function: Winsock3_Close"));
}

TEST_F(UserFrameTest, WithoutAnEmptyLineTheFirstTwoCharactersGo) {
  Answer("xyann|[][]''\nbob|[][]''");
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\nbob\r\n");
}

TEST_F(UserFrameTest, ASuccessWithoutAnEmptyLineInItsBodyLosesOneCharacterOfIt) {
  Answer(Text(kHeader) + "xann|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\n");
}

TEST_F(UserFrameTest, AHeaderMayEndInTwoLineFeeds) {
  Answer("HTTP/1.1 200 OK\n\n" + Text(kTop) + "bob|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\nbob\r\n");
}

TEST_F(UserFrameTest, AnotherStatusKeepsItsHeader) {
  Answer("HTTP/1.0 404 Not Found\n\n.bob|[][]''\n");
  EXPECT_EQ(Shown(), "\r\n\r\nbob\r\n");
}

TEST_F(UserFrameTest, TheListIsOneChangeForItsView) {
  ScriptedView view(session.Rich_Users);
  Text lines;
  for (int i = 0; i < 2000; ++i)
    lines += "user" + std::to_string(i) + "|[+o][1.1.1.1:]'x'\n";
  UpdateUsersFrame(client, 0);
  socket().Accept();
  socket().Deliver(kHeader + Text(kTop) + lines);
  view.painted_changes = 0;
  platform.desktop.users_num_updates = 0;
  socket().PeerCloses();
  EXPECT_EQ(view.painted_changes, 2);  // emptied, and the empty lines at its top
  EXPECT_TRUE(view.painting);
  EXPECT_EQ(view.refreshes, 1);
  EXPECT_EQ(platform.desktop.users_num_updates, 1);
  EXPECT_EQ(Counter(), "Пользователей: 2000/2000");
}

// ---- the channel page instead of a list ----

constexpr const char* kMark =
    "\xDC\xD4\xCF\xD4 \xD3\xD4\xC9\xCC\xD8 (\xCE\xCF\xCD\xC5\xD2 9) "
    "\xD0\xD2\xC5\xC4\xCE\xC1\xDA\xCE\xC1\xDE\xC5\xCE \xC4\xCC\xD1 \xD2\xCF\xC2\xCF\xD4\xCF\xD7";

TEST_F(UserFrameTest, APageOfChannelsWithoutAHeaderClosesTheFrame) {
  session.Winsock1->Connect("h", "1");
  Answer(Text(kMark) + " rest\n\n.bob|[][]''\n");
  EXPECT_EQ(session.Winsock1->State(), SocketState::kClosed);
  EXPECT_EQ(session.UsersBuffer, "");
  EXPECT_EQ(Shown(), "\r\n\r\n Обновление фрейма...");
  EXPECT_EQ(Counter(), "");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(UserFrameTest, APageOfChannelsInCapitalsIsKnownToo) {
  session.Winsock1->Connect("h", "1");
  Answer("\xFC" + Text(kMark).substr(1));
  EXPECT_EQ(session.Winsock1->State(), SocketState::kClosed);
}

TEST_F(UserFrameTest, BehindASuccessThePageOfChannelsIsReadAsUsers) {
  session.Winsock1->Connect("h", "1");
  Answer(Text(kHeader) + kMark + "\n");
  EXPECT_EQ(session.Winsock1->State(), SocketState::kConnecting);
  EXPECT_THAT(ErrorLog(), testing::HasSubstr("Error 5 "));
}

// ---- the own record ----

TEST_F(UserFrameTest, AnOwnOperatorFlagMakesTheUserOne) {
  for (const char* flags : {"[+o -t]", "[+O -t]", "[+a -t]", "[+A -t]"}) {
    session.IsOperator = false;
    platform.desktop.say_use_op_enabled = false;
    platform.desktop.say_use_op = true;
    Frame("mE|" + Text(flags) + "[]''\n");
    EXPECT_TRUE(session.IsOperator) << flags;
    EXPECT_TRUE(platform.desktop.say_use_op_enabled);
    EXPECT_TRUE(platform.desktop.say_use_op);
    EXPECT_EQ(Counter(), "Пользователей: 1/1");
  }
  EXPECT_TRUE(said.empty());
}

TEST_F(UserFrameTest, TheOwnNickInAnotherCaseWithoutTheTimerFlagAsksForIt) {
  Frame("mE|[][]''\n");
  EXPECT_THAT(said, ElementsAre("/mo -t"));
  EXPECT_EQ(socket().State(), SocketState::kConnecting);
}

TEST_F(UserFrameTest, OnATabThatIsNotShownSayUseOpStaysAsItIs) {
  platform.desktop.active_tab = 1;
  Frame("Me|[+o -t][]''\n");
  EXPECT_TRUE(session.IsOperator);
  EXPECT_FALSE(platform.desktop.say_use_op_enabled);
}

TEST_F(UserFrameTest, AFrameNeverTakesTheOperatorAway) {
  session.IsOperator = true;
  Frame("Me|[-t][]''\n");
  EXPECT_TRUE(session.IsOperator);
}

TEST_F(UserFrameTest, TheOperatorsFlagsOfOthersAreCountedAlone) {
  Frame("bob|[+o][]''\n");
  EXPECT_EQ(Counter(), "Пользователей: 1/1");
  EXPECT_FALSE(session.IsOperator);
  EXPECT_FALSE(platform.desktop.say_use_op_enabled);
}

TEST_F(UserFrameTest, AnOwnRecordWithoutTheFlagAsksForItAndForANewFrame) {
  Frame("ann|[][]''\nMe|[][]''\nbob|[][]''\n");
  EXPECT_THAT(said, ElementsAre("/mo -t"));
  EXPECT_EQ(socket().State(), SocketState::kConnecting);
  EXPECT_EQ(socket().connects, 2);
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\n\r\n\r\n Обновление фрейма...Me\r\nbob\r\n");
  EXPECT_EQ(session.UsersText.text(), "\r\nann\n\n\n\r\nMe\n\n\n\r\nbob\n\n\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/3");
  socket().Accept();
  socket().Deliver(kHeader + Text(kTop) + "ann|[][]''\nMe|[-t][]''\n");
  socket().PeerCloses();
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\nMe [-t]\r\n");
  EXPECT_EQ(said.size(), 1U);
}

TEST_F(UserFrameTest, TheFlagIsLookedForWithRegardToCase) {
  Frame("Me|[-T][]''\n");
  EXPECT_EQ(said.size(), 1U);
}

// ---- the sign of a personal message ----

TEST_F(UserFrameTest, AScriptBetweenTwoUsersIsTakenOutAndToldOnce) {
  const Text lines = "ann|[][]''\n<SCRIPT x>\nopen()\n</Script>\nbob|[][]''\n";
  Frame(lines);
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\nbob\r\n");
  EXPECT_EQ(ToUtf8(session.Rich.Text()), "[12:00:00] Вам пришло персональное_сообщение!\r\n");
  EXPECT_TRUE(session.Timer2->Enabled());
  Frame(lines);
  EXPECT_EQ(session.Rich.LineCount(), 2);
  session.Timer2->Enabled(false);
  Frame(lines);
  EXPECT_EQ(session.Rich.LineCount(), 3);
}

TEST_F(UserFrameTest, AScriptIsToldInEnglishToo) {
  client.app.Language = UiLanguage::kEnglish;
  Frame("<script></script>ann|[][]''\n");
  EXPECT_EQ(session.Rich.Text(), "[12:00:00] You have a personal_message!\r\n");
  EXPECT_EQ(Shown(), "\r\n\r\nann\r\n");
}

TEST_F(UserFrameTest, OnlyTheFirstScriptIsTakenOut) {
  Frame("ann|[][]''\n<script></script>\n<script></script>\nbob|[][]''\n");
  EXPECT_THAT(ErrorLog(), testing::HasSubstr("Error 5 "));
  EXPECT_THAT(Shown(), testing::StartsWith("\r\n\r\nann\r\n\r\n\r\n Ошибка"));
}

TEST_F(UserFrameTest, AScriptWithoutAnEndIsFollowedByThePageAgain) {
  Frame("ann|[][]''\n<script");
  // Without an end, what follows is all of the page but its first eight characters.
  EXPECT_EQ(session.UsersText.text(), "\r\nann\n\n\n");
  EXPECT_THAT(ErrorLog(), testing::HasSubstr("Error 5 "));
}

// ---- failures ----

TEST_F(UserFrameTest, ALineThatCannotBeReadIsLoggedWithTheWholeAnswer) {
  client.hooks.SayBotFunction = [](int) { ADD_FAILURE(); };
  session.JoinLines = "bob";
  const Text answer = Text(kHeader) + kTop + "ann|[+o][]''\nbroken\nbob|[][]''\n";
  Answer(answer);
  EXPECT_EQ(ErrorLog(),
            "[21.11.2026 12:00:00] Error 5 Invalid procedure call or argument. Function: "
            "Winsock3_Close. Debug info:\r\n!" +
                answer + "!\r\n");
  EXPECT_EQ(Shown(), "\r\n\r\nann [+o]\r\n\r\n\r\n Ошибка при обновлениии фрейма");
  EXPECT_EQ(RunsOf(session.Rich_Users).back(),
            "\\r\\n\\r\\n Ошибка при обновлениии фрейма|System 9 222222 i u");
  EXPECT_EQ(session.UsersText.text(), "\r\nann\n\n[+o]\n");
  EXPECT_EQ(session.UsersBuffer, "");
  EXPECT_EQ(Counter(), "");
  EXPECT_EQ(session.JoinLines, "bob");
  EXPECT_TRUE(session.Rich_Users.Redraw());
}

TEST_F(UserFrameTest, TheFailureNoteHasAnEnglishForm) {
  client.app.Language = UiLanguage::kEnglish;
  Frame("broken\n");
  EXPECT_EQ(Shown(), "\r\n\r\n\r\n\r\n Error updating");
}

TEST_F(UserFrameTest, AFaultBehindTheListIsThatOfSayBotFunction) {
  client.hooks.SayBotFunction = [](int) { throw Fault(13); };
  session.JoinLines = "bob";
  Frame("bob|[][]''\n");
  EXPECT_EQ(ErrorLog(),
            "[21.11.2026 12:00:00] Error 13 Type mismatch. Function: SayBotFunction.\r\n");
  EXPECT_EQ(Shown(), "\r\n\r\nbob\r\n\r\n\r\n Ошибка при обновлениии фрейма");
  EXPECT_EQ(Counter(), "Пользователей: 0/1");
  EXPECT_EQ(session.JoinLines, "bob");
}

TEST_F(UserFrameTest, AnObjectThatIsLoadedAlreadyIsNotLogged) {
  client.hooks.SayBotFunction = [](int) { throw Fault(fault::kAlreadyLoaded); };
  Frame("bob|[][]''\n");
  EXPECT_EQ(ErrorLog(), "");
  EXPECT_THAT(Shown(), testing::HasSubstr("Ошибка"));
}

TEST_F(UserFrameTest, AfterAGoodFrameTheBotActsAndTheJoinsAreForgotten) {
  session.JoinLines = "bob";
  int calls = 0;
  client.hooks.SayBotFunction = [&](int tab) {
    ++calls;
    EXPECT_EQ(tab, 0);
    EXPECT_EQ(Counter(), "Пользователей: 0/1");
    EXPECT_EQ(session.UsersBuffer, "");
    EXPECT_EQ(session.JoinLines, "bob");
  };
  Frame("bob|[][]''\n");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(session.JoinLines, "");
}

// ---- other events in the middle ----

TEST_F(UserFrameTest, WaitingEventsRunOnceWhileTheListIsEmpty) {
  platform.desktop.on_yield = [&] { EXPECT_EQ(Shown(), "\r\n\r\n"); };
  Frame("bob|[][]''\n");
  EXPECT_EQ(platform.desktop.yields, 1);
}

TEST_F(UserFrameTest, AFetchThatStartsInTheMiddleAndThisOneLoseNothing) {
  platform.desktop.on_yield = [&] {
    platform.desktop.on_yield = nullptr;
    UpdateUsersFrame(client, 0);
    socket().Accept();
    socket().Deliver(Text(kHeader) + kTop + "car");
  };
  Frame("ann|[][]''\nbob|[][]''\n");
  EXPECT_EQ(session.UsersText.text(), "\r\nann\n\n\n\r\nbob\n\n\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/2");
  socket().Deliver("l|[][]''\n");
  socket().PeerCloses();
  EXPECT_EQ(session.UsersText.text(), "\r\ncarl\n\n\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/1");
}

TEST_F(UserFrameTest, ASessionThatBeginsInTheMiddleGetsNoOldList) {
  session.Login = "me";
  platform.desktop.on_yield = [&] {
    platform.desktop.on_yield = nullptr;
    ConnectToChat(client, 0);
  };
  Frame("ann|[][]''\nme|[+o][]''\n");
  EXPECT_EQ(Shown(), "");
  EXPECT_FALSE(session.IsOperator);
  EXPECT_TRUE(said.empty());
}

// ---- large and broken answers ----

TEST_F(UserFrameTest, ThirtyThousandUsersAreListedInBothForms) {
  Text form_a;
  Text form_b;
  for (int i = 0; i < 30'000; ++i) {
    form_a += "nick" + std::to_string(i) + "|[+o][10.0.0.7:]'at work'\n";
    form_b += "<tr>\n10.0.0.7:[+o]nick" + std::to_string(i) + "\n";
  }
  Frame(form_a);
  EXPECT_EQ(Counter(), "Пользователей: 30000/30000");
  EXPECT_TRUE(Shown().ends_with("\r\nnick29999 [+o] 10.0.0.7 at work\r\n"));
  Frame(form_b);
  EXPECT_EQ(Counter(), "Пользователей: 30000/30000");
  EXPECT_TRUE(Shown().ends_with("\r\nnick29999 [+o] 10.0.0.7\r\n"));
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(UserFrameTest, MegabytesInOneLineAreOneUser) {
  const Text megabytes(3'000'000, 'x');
  Frame(megabytes + "|[" + megabytes + "][" + megabytes + "]'" + megabytes + "'\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/1");
  EXPECT_EQ(session.Rich_Users.Length(), 4 * 3'000'000 + 3 + 2 + 2 + 4);
  Frame("<tr>\n:[]" + megabytes + "\n");
  EXPECT_EQ(Counter(), "Пользователей: 0/1");
  EXPECT_EQ(session.Rich_Users.Length(), 3'000'000 + 2 + 4);
}

TEST_F(UserFrameTest, AnAnswerCutAtAnyByteShowsItsUsersOrAFailure) {
  for (const char* lines :
       {"ann|[+o][10.0.0.7:]'at work'\nbob|[][]''\n", "<tr>\n10.0.0.7:[+o]ann x\n<tr>\n:[]bob\n"}) {
    const Text whole = kHeader + Text(kTop) + lines;
    for (std::size_t length = 1; length < whole.size(); ++length) {
      Answer(whole.substr(0, length));
      const bool failed = Shown().ends_with("\r\n\r\n Ошибка при обновлениии фрейма");
      const bool listed = Counter().starts_with("Пользователей: ");
      EXPECT_NE(failed, listed) << length;
      EXPECT_EQ(session.UsersBuffer, "") << length;
      EXPECT_TRUE(session.Rich_Users.Redraw());
    }
  }
}

}  // namespace
}  // namespace parlorwire
