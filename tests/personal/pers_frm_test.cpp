#include "personal/pers_frm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/personal_fixture.h"
#include "session/personal_notice.h"
#include "shell/shut_down.h"
#include "users/nick_menu.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using PersFrm = PersonalTest;

// ---- opening ----

TEST_F(PersFrm, AClickOpensAWindowOfTheTabsLogin) {
  const PersonalWindow& window = Open();
  EXPECT_EQ(window.PersLogin, "alice");
  EXPECT_EQ(window.PersTicket, "T1");
  EXPECT_EQ(window.msg, "");
  EXPECT_EQ(window.send_nick, "");
  EXPECT_TRUE(window.ActivateWhenMess);
  EXPECT_TRUE(window.Rich.Locked());
  EXPECT_EQ(window.Rich.BackColor(), 0U);
  EXPECT_THAT(shown, ElementsAre(window.Handle));
  EXPECT_EQ(List(), "alice_" + std::to_string(window.Handle));
}

TEST_F(PersFrm, ItsCaption) {
  EXPECT_EQ(ToUtf8(PersCaption(Open())), "Персональные сообщения (alice) - Parlorwire");
  EXPECT_EQ(ToUtf8(kActivateWhenMessCaption), "Всплывать при поступлении сообщения");
  EXPECT_EQ(ToUtf8(kSaveLogCaption), "Сохранить лог");
}

TEST_F(PersFrm, ATabWithoutALoginOpensNone) {
  chat.tab().Login = "";
  pers_Click(client, 0);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_EQ(List(), "");
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(PersFrm, ASecondClickRaisesTheWindowAndCreatesNothing) {
  const PersonalWindow& window = Open();
  pers_Click(client, 0);
  EXPECT_THAT(asked, ElementsAre("Raise " + std::to_string(window.Handle)));
  EXPECT_EQ(client.app.PersWindows.size(), 1U);
  EXPECT_EQ(shown.size(), 1U);
  EXPECT_EQ(Simulated(window.W1).connects, 1);
}

TEST_F(PersFrm, TwoTabsWithOneNickInDifferentCaseShareAWindow) {
  chat.tab(3).Login = "ALICE";
  const PersonalWindow& window = Open();
  pers_Click(client, 3);
  EXPECT_THAT(asked, ElementsAre("Raise " + std::to_string(window.Handle)));
  EXPECT_EQ(client.app.PersWindows.size(), 1U);
}

TEST_F(PersFrm, TwoTabsWithDifferentNicksGetTwoWindowsEachWithItsTicket) {
  chat.tab(3).Login = "bob";
  chat.tab(3).Ticket = "T3";
  const PersonalWindow& first = Open(0);
  const PersonalWindow& second = Open(3);
  EXPECT_NE(first.Handle, second.Handle);
  EXPECT_EQ(first.PersTicket, "T1");
  EXPECT_EQ(second.PersTicket, "T3");
  EXPECT_EQ(List(),
            "alice_" + std::to_string(first.Handle) + " bob_" + std::to_string(second.Handle));
  pers_Click(client, 3);
  EXPECT_THAT(asked, ElementsAre("Raise " + std::to_string(second.Handle)));
}

TEST_F(PersFrm, ALoginWithinAListedOneIsTakenForOpen) {
  chat.tab(3).Login = "lic";
  const PersonalWindow& window = Open(0);
  pers_Click(client, 3);
  EXPECT_THAT(asked, ElementsAre("Raise " + std::to_string(window.Handle)));
  EXPECT_EQ(client.app.PersWindows.size(), 1U);
}

TEST_F(PersFrm, AHandleThatDoesNotConvertIsOneEntryInTheErrorLogAndNothingElse) {
  List() = "alice_1bob_2";
  pers_Click(client, 0);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_THAT(chat.ErrorLog(), HasSubstr("Error 13 Type mismatch. Function: pers_Click\r\n"));
}

TEST_F(PersFrm, AHandleThatBelongsToNoWindowIsOneEntryInTheErrorLogAndNothingElse) {
  List() = "alice_77";
  pers_Click(client, 0);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_EQ(List(), "alice_77");
  EXPECT_THAT(chat.ErrorLog(),
              HasSubstr("Error 9 There is no personal window 77. Function: pers_Click\r\n"));
}

TEST_F(PersFrm, AHandleIsOneThatNoOtherWindowHasHad) {
  PersonalWindow& first = Open();
  const std::int32_t handle = first.Handle;
  pers_frm_Unload(client, first);
  EXPECT_NE(Open().Handle, handle);
}

TEST_F(PersFrm, TheBlinkStopsOnEveryTabOfTheLogin) {
  chat.tab(4).Login = "Alice";
  chat.tab(5).Login = "alice2";
  for (const int tab : {0, 4, 5}) {
    NoticePersonalMessage(client, tab);
    client.platform.desktop.SetPersRed(tab, true);
  }
  Open();
  EXPECT_FALSE(chat.tab(0).Timer2->Enabled());
  EXPECT_FALSE(chat.tab(4).Timer2->Enabled());
  EXPECT_TRUE(chat.tab(5).Timer2->Enabled());
  EXPECT_FALSE(platform.desktop.at(0).pers_red);
  EXPECT_FALSE(platform.desktop.at(4).pers_red);
  EXPECT_TRUE(platform.desktop.at(5).pers_red);
}

TEST_F(PersFrm, TheBlinkStopsAlsoWhereAWindowIsRaised) {
  Open();
  NoticePersonalMessage(client, 0);
  pers_Click(client, 0);
  EXPECT_FALSE(chat.tab().Timer2->Enabled());
}

TEST_F(PersFrm, TheMenuOfANickOpensTheWindowForThatNick) {
  client.app.MenuNick = "bob";
  send_pers(client);
  platform.time.Advance(10);
  ASSERT_EQ(shown.size(), 1U);
  PersonalWindow& window = *PersWindow(client, shown[0]);
  EXPECT_EQ(window.send_nick, "bob");
}

TEST_F(PersFrm, BeingActivatedItTakesTheNickThatItIsFor) {
  PersonalWindow& window = Open();
  window.send_nick = "carl";
  client.app.PersTargetNick = "bob";
  pers_frm_Activate(client, window);
  EXPECT_EQ(window.send_nick, "bob");
  EXPECT_EQ(client.app.PersTargetNick, "");
  platform.time.Advance(2);
  const std::string number = std::to_string(window.Handle);
  EXPECT_THAT(asked,
              ElementsAre("ShowFields " + number, "ComeUp " + number, "Focus msg " + number));
}

TEST_F(PersFrm, BeingActivatedForNobodyItStaysAsItIs) {
  PersonalWindow& window = Open();
  window.send_nick = "carl";
  pers_frm_Activate(client, window);
  platform.time.Advance(10);
  EXPECT_EQ(window.send_nick, "carl");
  EXPECT_THAT(asked, IsEmpty());
}

// ---- the frame's socket ----

TEST_F(PersFrm, TheRequestForTheFrameToTheByte) {
  chat.tab().Login = "a&b% \xC6";
  chat.tab().Ticket = "t+1";
  SimulatedSocket& socket = Simulated(Open().W1);
  EXPECT_EQ(socket.host, "chat.example");
  EXPECT_EQ(socket.port, "80");
  socket.Accept();
  EXPECT_EQ(socket.sends, 1);
  EXPECT_EQ(socket.sent,
            "POST /mframe_pm HTTP/1.0\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 26\r\n"
            "\r\n"
            "username=a&b% \xC6&ticket=t+1");
}

TEST_F(PersFrm, AllThreeSocketsGoToTheProxy) {
  client.app.sett_conn = {true, true, "proxy.example", "3128", true, "", ""};
  client.app.ProxyAuthBasic = "QQ==";
  PersonalWindow& window = Open();
  QueueAndSay(window);
  for (auto* port : {&window.W1, &window.W2, &window.W3}) {
    SimulatedSocket& socket = Simulated(*port);
    EXPECT_EQ(socket.host, "proxy.example");
    EXPECT_EQ(socket.port, "3128");
    socket.Accept();
    EXPECT_TRUE(socket.sent.starts_with("POST http://chat.example:80/")) << socket.sent;
    EXPECT_THAT(socket.sent, HasSubstr("\r\nProxy-Authorization: Basic QQ==\r\n"));
  }
}

TEST_F(PersFrm, SaysWhatItDoes) {
  PersonalWindow& window = Open();
  EXPECT_EQ(ToUtf8(window.Rich.Text()),
            "[12:00:00] Подключение к серверу персональных сообщений...\r\n");
  Simulated(window.W1).Accept();
  EXPECT_EQ(ToUtf8(window.Rich.Text()),
            "[12:00:00] Подключение к серверу персональных сообщений... Ok.\r\n"
            "[12:00:00] Получение списка сообщений...\r\n");
  Simulated(window.W1).Deliver("HTTP/1.0 200 OK\r\n\r\n");
  EXPECT_EQ(ToUtf8(window.Rich.Text()),
            "[12:00:00] Подключение к серверу персональных сообщений... Ok.\r\n"
            "[12:00:00] Получение списка сообщений... Ok.\r\n");
  Simulated(window.W1).Deliver("<!-- -->\n");
  EXPECT_THAT(ToUtf8(window.Rich.Text()), Not(HasSubstr("Ok. Ok.")));
}

TEST_F(PersFrm, TheFirstDataBringsItUpOnce) {
  PersonalWindow& window = Open();
  const std::string number = std::to_string(window.Handle);
  Simulated(window.W1).Accept();
  Simulated(window.W1).Deliver("HTTP/1.0 200 OK\r\n\r\n");
  platform.time.Advance(1);
  EXPECT_THAT(asked, IsEmpty());
  platform.time.Advance(1);
  EXPECT_THAT(asked, ElementsAre("ComeUp " + number, "Focus send_nick " + number));
  EXPECT_FALSE(window.Timer1->Enabled());
  Simulated(window.W1).Deliver("<!-- -->\n");
  platform.time.Advance(100);
  EXPECT_EQ(asked.size(), 2U);
}

TEST_F(PersFrm, TheEndOfTheFrameShowsNothingAndConnectsNothing) {
  PersonalWindow& window = OpenOnFrame();
  const Text before = window.Rich.Text();
  Simulated(window.W1).PeerCloses();
  platform.time.Advance(100000);
  EXPECT_EQ(window.Rich.Text(), before);
  EXPECT_EQ(Simulated(window.W1).connects, 1);
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(PersFrm, AFailureOfTheFrameShowsNothingAndConnectsNothing) {
  PersonalWindow& window = Open();
  const Text before = window.Rich.Text();
  Simulated(window.W1).Fail(10061);
  platform.time.Advance(100000);
  EXPECT_EQ(window.Rich.Text(), before);
  EXPECT_EQ(Simulated(window.W1).connects, 1);
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(PersFrm, LivesOnWithItsCopyWhenTheTabLogsInAnew) {
  PersonalWindow& window = OpenOnFrame();
  chat.tab().Login = "zoe";
  chat.tab().Ticket = "T2";
  window.send_nick = "bob";
  window.msg = "hi";
  QueueAndSay(window);
  Simulated(window.W2).Accept();
  EXPECT_THAT(Simulated(window.W2).sent, HasSubstr("username=alice&ticket=T1&"));
}

// ---- the end ----

TEST_F(PersFrm, ClosedItIsOutOfTheListAndItsSocketsAreClosed) {
  chat.tab(3).Login = "bob";
  PersonalWindow& window = OpenOnFrame();
  const PersonalWindow& other = Open(3);
  QueueAndSay(window);
  const auto kept = client.app.PersWindows.front();
  pers_frm_Unload(client, window);
  EXPECT_EQ(List(), "bob_" + std::to_string(other.Handle));
  EXPECT_EQ(client.app.PersWindows.size(), 1U);
  for (const auto* port : {&kept->W1, &kept->W2, &kept->W3})
    EXPECT_EQ((*port)->State(), SocketState::kClosed);
  EXPECT_FALSE(kept->Timer1->Enabled());
}

TEST_F(PersFrm, AfterItWasClosedAClickOpensANewOne) {
  PersonalWindow& window = Open();
  pers_frm_Unload(client, window);
  Open();
  EXPECT_EQ(shown.size(), 2U);
}

TEST_F(PersFrm, ANickThatGrewInRequestsStillLeavesTheList) {
  chat.tab().Login = "a+b";
  PersonalWindow& window = Open();
  QueueAndSay(window);
  Simulated(window.W3).Accept();
  EXPECT_EQ(window.PersLogin, "a%2Bb");
  pers_frm_Unload(client, window);
  EXPECT_EQ(List(), "");
}

TEST_F(PersFrm, ClosedInItsOwnEventItLivesUntilThatIsOver) {
  PersonalWindow& window = OpenOnFrame();
  const std::weak_ptr<PersonalWindow> record = client.app.PersWindows.front();
  client.app.CmIniText.Assign("bob=none");  // a fault in the look-up lets events run
  platform.desktop.on_yield = [&] {
    if (window.Closed) return;
    pers_frm_Unload(client, window);
    EXPECT_FALSE(record.expired());
  };
  Simulated(window.W1).Deliver(
      "&gt; [1] http://h/a?reqnum=1&pm_msgnum=2 bob one\n"
      "&gt; [2] http://h/a?reqnum=1&pm_msgnum=2 bob two\n");
  ASSERT_FALSE(record.expired());
  EXPECT_THAT(window.Rich.Text(), Not(HasSubstr("two")));
  EXPECT_FALSE(window.Timer1->Enabled());
  Open();
  EXPECT_TRUE(record.expired());
}

TEST_F(PersFrm, TheyCloseWithTheProgram) {
  chat.tab(3).Login = "bob";
  Open(0);
  Open(3);
  const auto windows = client.app.PersWindows;
  UnloadStep(client, std::nullopt);
  EXPECT_THAT(client.app.PersWindows, IsEmpty());
  EXPECT_EQ(List(), "");
  for (const auto& window : windows)
    EXPECT_EQ(window->W1->State(), SocketState::kClosed);
}

}  // namespace
}  // namespace parlorwire
