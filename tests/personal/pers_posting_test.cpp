#include "personal/pers_posting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/personal_fixture.h"
#include "session/http_answer.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::string_view kOldLogin =
    "[12:00:00] Ваши уникальные данные (логин и/или тикет) изменились. Закройте перс и повторите "
    "попытку.\r\n";

struct PersPosting : PersonalTest {
  PersPosting() {
    window = &Open();
    window->Rich.Text("");
    window->send_nick = "Bob";
    platform.random.script = {0.0, 0.5, 0.99999999};
  }
  void Say(const Text& text) {
    window->msg = text;
    pers_frm_button_say_MouseUp(client, *window);
  }
  void Answer(const Text& answer) {
    Say("hi");
    socket().Accept();
    socket().Deliver(answer);
    socket().PeerCloses();
  }
  Text Up() { return PersHistoryStep(*window, "", "up", true); }
  Text Down() { return PersHistoryStep(*window, "", "down", true); }
  SimulatedSocket& socket() { return Simulated(window->W2); }
  std::string Number() const { return " " + std::to_string(window->Handle); }

  PersonalWindow* window = nullptr;
};

// ---- sending ----

TEST_F(PersPosting, ARequestToTheByte) {
  window->PersLogin = "a&\xE6";
  window->PersTicket = "t&1";
  window->send_nick =
      "B\xEE"
      "b +";
  Say("a+b & \xE6");
  EXPECT_EQ(socket().host, "chat.example");
  socket().Accept();
  EXPECT_EQ(socket().sends, 1);
  EXPECT_EQ(socket().sent,
            "POST /newmsg_pm HTTP/1.0\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 73\r\n"
            "\r\n"
            "username=a&\xE6&ticket=t&1&reqnum=11111111&xtouser=B\xEE"
            "b +&msgtext=a%2Bb %26 \xD6");
  EXPECT_EQ(window->PersLogin, "a&\xE6");
}

TEST_F(PersPosting, WithoutANickTheUserIsToldAndNothingElseHappens) {
  for (const char* nick : {"", "   "}) {
    window->send_nick = nick;
    platform.desktop.boxes.clear();
    Say("text");
    ASSERT_EQ(platform.desktop.boxes.size(), 1U);
    EXPECT_EQ(ToUtf8(platform.desktop.boxes[0].text),
              "Укажите ник, которому следует отправить приват!");
    EXPECT_EQ(platform.desktop.boxes[0].icon, BoxIcon::kExclamation);
    EXPECT_EQ(window->msg, "text");
    EXPECT_EQ(socket().connects, 0);
    EXPECT_EQ(window->PersHistory[0], "");
    EXPECT_TRUE(window->Timer1->Enabled());
  }
  window->send_nick = "";
  asked.clear();
  platform.time.Advance(2);
  EXPECT_THAT(asked, ElementsAre("ComeUp" + Number(), "Focus send_nick" + Number()));
}

TEST_F(PersPosting, ANickWithItsColonWorks) {
  for (const char* nick : {"Bob: ", " Bob", "B:ob:"}) {
    window->send_nick = nick;
    Say("x");
    socket().Accept();
    EXPECT_THAT(socket().sent, HasSubstr("&xtouser=Bob&msgtext=x"));
  }
}

TEST_F(PersPosting, GoesToWhoStoodInTheBoxWhenItWasSent) {
  Say("secret");
  window->send_nick = "Eve";
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&xtouser=Bob&msgtext=secret"));
}

TEST_F(PersPosting, TheBoxIsEmptiedAndHasTheFocus) {
  Say("x");
  EXPECT_EQ(window->msg, "");
  EXPECT_EQ(window->PersOutText, "x");
  EXPECT_THAT(asked, ElementsAre("ShowFields" + Number(), "Focus msg" + Number()));
  EXPECT_EQ(window->send_nick, "Bob");
}

TEST_F(PersPosting, AnEmptyTextIsPostedLikeAnyOtherAndNotRemembered) {
  for (const char* text : {"", "  "}) {
    Say(text);
    socket().Accept();
    EXPECT_TRUE(socket().sent.ends_with("&xtouser=Bob&msgtext=" + Text(text)));
  }
  EXPECT_EQ(window->PersHistory[0], "");
  EXPECT_EQ(socket().connects, 2);
}

TEST_F(PersPosting, TheSecondOfTwoPostsCutsTheFirst) {
  Say("one");
  Say("two");
  EXPECT_EQ(socket().connects, 2);
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&msgtext=two"));
  EXPECT_THAT(socket().sent, Not(HasSubstr("one")));
}

TEST_F(PersPosting, EachPostHasANumberOfItsOwn) {
  Say("one");
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&reqnum=11111111&"));
  Say("two");
  socket().Accept();
  EXPECT_THAT(socket().sent, HasSubstr("&reqnum=55555555&"));
}

TEST_F(PersPosting, NothingGoesToTheChannel) {
  Say("secret");
  socket().Accept();
  socket().PeerCloses();
  platform.time.Advance(60000);
  EXPECT_EQ(chat.Winsock2().connects, 0);
  EXPECT_EQ(chat.Winsock4().connects, 0);
}

TEST_F(PersPosting, AFailedConnectionShowsNothing) {
  Say("x");
  socket().Fail(10061);
  EXPECT_EQ(window->Rich.Text(), "");
  EXPECT_EQ(window->PersHistory[0], "x");
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(PersPosting, ClearEmptiesTheBox) {
  window->msg = "x";
  pers_frm_button_clear_MouseUp(*window);
  EXPECT_EQ(window->msg, "");
  EXPECT_THAT(asked, ElementsAre("ShowFields" + Number(), "Focus msg" + Number()));
}

// ---- the answer ----

TEST_F(PersPosting, AnAnswerIsDropped) {
  Answer(Koi("HTTP/1.0 200 OK\r\n\r\nпослано"_w));
  EXPECT_EQ(window->Rich.Text(), "");
  EXPECT_EQ(ToUtf8(window->PersPostAnswer), "HTTP/1.0 200 OK\r\n\r\nпослано");
}

TEST_F(PersPosting, ARefusalIsToldAtEveryCloseFromThenOn) {
  Answer(Koi("<b>НЕВЕРНОЕ Имя или пароль</b>"_w));
  EXPECT_EQ(ToUtf8(window->Rich.Text()), kOldLogin);
  Answer("ok");
  EXPECT_EQ(ToUtf8(window->Rich.Text()), Text(kOldLogin) + Text(kOldLogin));
}

TEST_F(PersPosting, ARefusalInPieces) {
  const Text refusal = Koi("неверное имя или пароль"_w);
  for (std::size_t cut = 1; cut < refusal.size(); ++cut) {
    window->Rich.Text("");
    window->PersPostAnswer.clear();
    window->PersRefused = false;
    Say("hi");
    socket().Accept();
    socket().Deliver(refusal.substr(0, cut));
    EXPECT_FALSE(window->PersRefused);
    socket().Deliver(refusal.substr(cut));
    socket().PeerCloses();
    EXPECT_EQ(ToUtf8(window->Rich.Text()), kOldLogin) << cut;
  }
}

TEST_F(PersPosting, AnswersAreKeptUpToALimitAndARefusalOnceSeenStaysSeen) {
  Say("hi");
  socket().Accept();
  socket().Deliver(Koi("неверное имя или пароль"_w));
  socket().Deliver(Text(kLargestAnswer, 'x'));
  EXPECT_EQ(window->PersPostAnswer.size(), kLargestAnswer);
  EXPECT_EQ(window->PersPostAnswer.front(), 'x');
  socket().Deliver("end");
  EXPECT_EQ(window->PersPostAnswer.size(), kLargestAnswer);
  EXPECT_TRUE(window->PersPostAnswer.ends_with("xend"));
  socket().PeerCloses();
  EXPECT_EQ(ToUtf8(window->Rich.Text()), kOldLogin);
}

// ---- the history ----

TEST_F(PersPosting, RemembersThree) {
  for (const char* text : {"a", "b", "c", "d"})
    Say(text);
  EXPECT_THAT(window->PersHistory, ElementsAre("d", "c", "b"));
  EXPECT_EQ(window->PersHistoryPos, 0);
  EXPECT_EQ(window->PersHistoryDir, "none");
}

TEST_F(PersPosting, UpWalksToTheOldestAndStaysThere) {
  window->PersHistory = {"c", "b", "a"};
  EXPECT_EQ(Up(), "c");
  EXPECT_EQ(window->PersHistoryDir, "up");
  EXPECT_EQ(Up(), "b");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(window->PersHistoryDir, "upoverflow");
  EXPECT_EQ(window->PersHistoryPos, 2);
  EXPECT_EQ(Up(), "a");
}

TEST_F(PersPosting, DownGoesOneBackAndAnotherDownStaysThere) {
  window->PersHistory = {"c", "b", "a"};
  Up();
  Up();
  Up();
  EXPECT_EQ(Down(), "b");
  EXPECT_EQ(window->PersHistoryDir, "down");
  EXPECT_EQ(Down(), "b");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(window->PersHistoryDir, "upoverflow");
}

TEST_F(PersPosting, UpAndDownAtTheNewest) {
  window->PersHistory = {"c", "b", "a"};
  EXPECT_EQ(Up(), "c");
  EXPECT_EQ(Down(), "c");
  EXPECT_EQ(Up(), "b");
  EXPECT_EQ(window->PersHistoryPos, 2);
  EXPECT_EQ(Down(), "b");
}

TEST_F(PersPosting, DownAtFirstGivesTheNewest) {
  window->PersHistory = {"c", "b", "a"};
  window->PersHistoryPos = 2;
  EXPECT_EQ(Down(), "c");
  EXPECT_EQ(window->PersHistoryPos, 0);
  EXPECT_EQ(window->PersHistoryDir, "down");
}

TEST_F(PersPosting, SendingBeginsAWalkAnew) {
  Say("a");
  Say("b");
  Up();
  Up();
  Say("");
  EXPECT_EQ(window->PersHistoryPos, 0);
  EXPECT_EQ(window->PersHistoryDir, "none");
  EXPECT_EQ(Up(), "b");
}

TEST_F(PersPosting, AStepGoesIntoTheBoxUnlessItIsBlank) {
  window->PersHistory = {"c", " ", "a"};
  BrowsePersHistory(*window, "up");
  EXPECT_EQ(window->msg, "c");
  EXPECT_THAT(asked, ElementsAre("ShowFields" + Number()));
  BrowsePersHistory(*window, "up");
  EXPECT_EQ(window->msg, "c");
  BrowsePersHistory(*window, "up");
  EXPECT_EQ(window->msg, "a");
  BrowsePersHistory(*window, "down");
  EXPECT_EQ(window->msg, "a");
}

}  // namespace
}  // namespace parlorwire
