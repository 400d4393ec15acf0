#include "users/posting.h"

#include <gtest/gtest.h>

#include "shell/assembly.h"
#include "support/pane_runs.h"
#include "support/simulated_platform.h"
#include "text/charset.h"

namespace parlorwire {
namespace {

struct PostingTest : testing::Test {
  PostingTest() {
    Assemble(client);
    client.app.ChatHost = "chat.example";
    client.app.ChatPort = "8080";
    session.Login = "Me";
    session.Ticket = "t&1";
    session.Channel = "talk";
    session.ChannelPassword = "";
    desktop.at(0).intonacia = Text(kTones[0].label);
    platform.random.script = {0.0, 0.5, 0.99999999};
  }
  void Say(const Text& text) {
    desktop.at(0).msg = text;
    button_say_MouseUp(client, 0);
  }
  SimulatedSocket& socket() { return Simulated(session.Winsock2); }
  void Answer(const Text& answer) {
    Say("hi");
    socket().Accept();
    socket().Deliver(answer);
    socket().PeerCloses();
  }
  Text Body() const {
    const Text& sent = Simulated(session.Winsock2).sent;
    return sent.substr(sent.find("\r\n\r\n") + 4);
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  TabSession& session = client.tab(0);
  SimulatedDesktop& desktop = platform.desktop;
};

TEST(Tones, StandInTheirOrderWithTheirValues) {
  const std::vector<std::pair<const char*, int>> table = {
      {"Обычным тоном", 200}, {"Внутренним голосом", 201}, {"Смеется", 202}, {"Задумчиво", 203},
      {"Уныло", 204},         {"Напевает", 205},           {"Ворчливо", 206}};
  ASSERT_EQ(kTones.size(), table.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    EXPECT_EQ(ToUtf8(kTones[i].label), table[i].first);
    EXPECT_EQ(ToneAction(kTones[i].label), table[i].second);
  }
}

TEST(Tones, ALabelThatIsNotInTheTableGivesZero) {
  EXPECT_EQ(ToneAction(""), 0);
  EXPECT_EQ(ToneAction("уныло"_w), 0);
  EXPECT_EQ(ToneAction("Уныло "_w), 0);
}

TEST_F(PostingTest, AnAnswerThatNamesAColourSetsTheColourOfOwnMessages) {
  Answer("<font size=1>" +
         ConvertCharset("Цвет фонта: 0000FF"_w, Charset::kWindows1251, Charset::kKoi) + "</font>");
  EXPECT_EQ(client.app.rRichColors.TextColor, Rgb(0, 0, 255));
}

TEST_F(PostingTest, ARequestToTheByte) {
  Say("hello world");
  socket().Accept();
  EXPECT_EQ(socket().host, "chat.example");
  EXPECT_EQ(socket().port, "8080");
  EXPECT_EQ(socket().sends, 1);
  EXPECT_EQ(socket().sent,
            "POST /newmsg_t HTTP/1.0\r\n"
            "Host: chat.example:8080\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 110\r\n"
            "\r\n"
            "username=Me&ticket=t&1&channel=talk&chpwd=&reqnum=11111111"
            "&msgtext=hello world&msgtext0=hello world&action=200");
}

TEST_F(PostingTest, GoesToTheProxyIfOneIsUsed) {
  client.app.sett_conn = {true, true, "proxy.example", "3128", false, "", ""};
  Say("hi");
  socket().Accept();
  EXPECT_EQ(socket().host, "proxy.example");
  EXPECT_EQ(socket().port, "3128");
  EXPECT_TRUE(socket().sent.starts_with("POST http://chat.example:8080/newmsg_t HTTP/1.0\r\n"));
}

TEST_F(PostingTest, CyrillicGoesOutInTheWiresCharacterSet) {
  Say("Ёж и ж"_w);
  socket().Accept();
  EXPECT_NE(Body().find("&msgtext=\xB3\xD6 \xC9 \xD6&msgtext0=\xB3\xD6 \xC9 \xD6&"), Text::npos);
}

TEST_F(PostingTest, TheTextIsEscapedOnceAndGoesOutTwiceEqual) {
  Say("a+b&c%d");
  socket().Accept();
  EXPECT_NE(Body().find("&msgtext=a%2Bb%26c%25d&msgtext0=a%2Bb%26c%25d&"), Text::npos);
  EXPECT_EQ(session.PostText, "a+b&c%d");
}

TEST_F(PostingTest, TheSessionsOwnFieldsGrowWithEachPost) {
  session.Login = "a+b";
  session.Channel = "x&y";
  session.ChannelPassword = "%";
  Say("hi");
  socket().Accept();
  EXPECT_TRUE(Body().starts_with("username=a%2Bb&ticket=t&1&channel=x%26y&chpwd=%25&reqnum="));
  EXPECT_EQ(session.Login, "a%2Bb");
  EXPECT_EQ(session.Ticket, "t&1");
  Say("hi");
  socket().Accept();
  EXPECT_TRUE(
      Body().starts_with("username=a%252Bb&ticket=t&1&channel=x%2526y&chpwd=%2525&reqnum="));
}

TEST_F(PostingTest, EachPostHasANumberOfEightDigits) {
  for (const char* number : {"11111111", "55555555", "99999999"}) {
    Say("hi");
    socket().Accept();
    EXPECT_NE(Body().find("&reqnum=" + Text(number) + "&"), Text::npos) << Body();
  }
}

TEST_F(PostingTest, AToneHoldsForOneMessage) {
  desktop.at(0).intonacia = "Уныло"_w;
  Say("hi");
  socket().Accept();
  EXPECT_TRUE(Body().ends_with("&action=204"));
  EXPECT_EQ(desktop.at(0).intonacia_selected, 0);
  Say("hi");
  socket().Accept();
  EXPECT_TRUE(Body().ends_with("&action=200"));
}

TEST_F(PostingTest, AnUnknownToneIsZero) {
  desktop.at(0).intonacia = "";
  Say("hi");
  socket().Accept();
  EXPECT_TRUE(Body().ends_with("&action=0"));
}

TEST_F(PostingTest, SayUseOpPutsItsCommandInFront) {
  desktop.say_use_op = true;
  Say("hi");
  socket().Accept();
  EXPECT_NE(Body().find("&msgtext=/op hi&msgtext0=/op hi&"), Text::npos);
  EXPECT_EQ(session.HistoryLines[0], "hi");
}

TEST_F(PostingTest, AnEmptyBoxIsSentAndNotRemembered) {
  session.HistoryPos = 2;
  Say("");
  socket().Accept();
  EXPECT_NE(Body().find("&msgtext=&msgtext0=&action=200"), Text::npos);
  EXPECT_EQ(session.HistoryLines[0], "");
  EXPECT_EQ(session.HistoryPos, 0);
}

TEST_F(PostingTest, BlanksResetThePositionButNotTheState) {
  Say("a");
  session.HistoryPos = 2;
  session.HistoryState = "upoverflow";
  Say("   ");
  EXPECT_EQ(session.HistoryLines[0], "a");
  EXPECT_EQ(session.HistoryPos, 0);
  EXPECT_EQ(session.HistoryState, "upoverflow");
  EXPECT_EQ(session.PostText, "   ");
}

TEST_F(PostingTest, TheTextIsNotTrimmed) {
  Say("  hi ");
  EXPECT_EQ(session.PostText, "  hi ");
  EXPECT_EQ(session.HistoryLines[0], "  hi ");
}

TEST_F(PostingTest, SendingEmptiesAndFocusesTheBoxAndLetsThePaneScroll) {
  desktop.at(0).stop_scroll = true;
  session.HistoryPos = 2;
  Say("hi");
  EXPECT_EQ(desktop.at(0).msg, "");
  EXPECT_EQ(desktop.focused_msg, 0);
  EXPECT_FALSE(desktop.at(0).stop_scroll);
  EXPECT_EQ(session.HistoryPos, 0);
}

TEST_F(PostingTest, ASecondPostDropsAFirstThatHasNotConnected) {
  Say("first");
  Say("second");
  EXPECT_EQ(socket().connects, 2);
  socket().Accept();
  EXPECT_EQ(socket().sends, 1);
  EXPECT_NE(Body().find("&msgtext=second&"), Text::npos);
}

TEST_F(PostingTest, ALongTextGoesOutWhole) {
  const Text text(100000, 'x');
  Say(text);
  socket().Accept();
  EXPECT_EQ(socket().sends, 1);
  EXPECT_NE(Body().find("&msgtext0=" + text + "&"), Text::npos);
}

// ---- the answer ----

TEST_F(PostingTest, TheSentenceOfTheAnswerShowsInGreen) {
  Answer("HTTP/1.0 200 OK\r\n\r\n<font size=1>Message refused</font> more <font size=1>x</font>");
  EXPECT_EQ(RunsOf(session.Rich_Server),
            std::vector<std::string>{"Message refused|verdana 10 00ff00"});
  EXPECT_EQ(session.SendBuffer, "");
}

TEST_F(PostingTest, TheSentenceOfAQuotedSizeShowsTheSame) {
  Answer("<font size=\"1\">Message refused</font>");
  EXPECT_EQ(RunsOf(session.Rich_Server),
            std::vector<std::string>{"Message refused|verdana 10 00ff00"});
}

TEST_F(PostingTest, AnUnquotedSizeOutranksAQuotedOne) {
  Answer("<font size=\"1\">a</font><font size=1>b</font>");
  EXPECT_EQ(session.Rich_Server.Text(), "b");
}

TEST_F(PostingTest, TheSentenceIsDecoded) {
  Answer("<font size=1>\xF0\xD2\xC9 &quot;&lt;a&gt;&quot; &amp;lt; &nbsp; &AMP;</font>");
  EXPECT_EQ(ToUtf8(session.Rich_Server.Text()), "При \"<a>\" &lt; &nbsp; &AMP;");
}

TEST_F(PostingTest, ASentenceWithoutAnEndGoesToTheEnd) {
  Answer("<font size=1>half a sent");
  EXPECT_EQ(session.Rich_Server.Text(), "half a sent");
}

TEST_F(PostingTest, AnAnswerWithoutASentenceEmptiesTheLine) {
  session.Rich_Server.Text("old");
  Answer("HTTP/1.0 500 Oops\r\n\r\n<font size=2>no</font>");
  EXPECT_EQ(session.Rich_Server.Text(), "");
  EXPECT_EQ(session.SendBuffer, "");
}

TEST_F(PostingTest, AnAnswerThatEndsBehindTheTagEmptiesTheLine) {
  session.Rich_Server.Text("old");
  Answer("<font size=1>");
  EXPECT_EQ(session.Rich_Server.Text(), "");
}

TEST_F(PostingTest, AnEmptyAnswerChangesNothing) {
  session.Rich_Server.Text("old");
  Answer("");
  EXPECT_EQ(session.Rich_Server.Text(), "old");
}

TEST_F(PostingTest, AnAnswerMayComeInPieces) {
  Say("hi");
  socket().Accept();
  for (const char c : Text("<font size=1>ok</font>"))
    socket().Deliver(Text(1, c));
  socket().PeerCloses();
  EXPECT_EQ(session.Rich_Server.Text(), "ok");
}

TEST_F(PostingTest, AFailedConnectionLeavesNoTrace) {
  session.Rich_Server.Text("old");
  Say("hi");
  socket().Fail(10061);
  EXPECT_EQ(session.Rich_Server.Text(), "old");
  EXPECT_EQ(session.Rich.Length(), 0);
  EXPECT_EQ(desktop.at(0).caption, "");
  EXPECT_EQ(socket().connects, 1);
  EXPECT_FALSE(session.Timer1->Enabled());
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

TEST_F(PostingTest, AScriptMeansThatAPersonalMessageWaits) {
  session.Rich_Server.Text("old");
  Answer("<SCRIPT>open()</SCRIPT>");
  EXPECT_EQ(ToUtf8(session.Rich.Text()), "[12:00:00] Вам пришло персональное_сообщение!\r\n");
  EXPECT_TRUE(session.Timer2->Enabled());
  EXPECT_EQ(session.Rich_Server.Text(), "old");
  EXPECT_EQ(session.SendBuffer, "");
  Answer("<script>");
  EXPECT_EQ(session.Rich.LineCount(), 2);
}

TEST_F(PostingTest, ThePersonalNoticeHasAnEnglishForm) {
  client.app.Language = UiLanguage::kEnglish;
  Answer("<script>");
  EXPECT_EQ(session.Rich.Text(), "[12:00:00] You have a personal_message!\r\n");
}

TEST_F(PostingTest, AScriptBehindAHeaderIsNone) {
  Answer("HTTP/1.0 200 OK\r\n\r\n<script>");
  EXPECT_EQ(session.Rich.Length(), 0);
  EXPECT_FALSE(session.Timer2->Enabled());
}

}  // namespace
}  // namespace parlorwire
