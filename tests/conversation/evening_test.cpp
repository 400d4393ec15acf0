// The client and the service speak to each other: what the one writes the other must understand.
#include <gtest/gtest.h>

#include "conversation/evening.h"
#include "session/connect.h"
#include "session/leaving.h"
#include "text/cut.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

bool Has(const Text& text, const Text& part) {
  return Contains(text, part);
}

TEST(ConversationTest, ANewNickIsBroughtFromStyle1ToStyle9) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  EXPECT_TRUE(alice.tab().Connected);
  EXPECT_TRUE(Has(alice.Pane(), "Проверка установленного стиля... s0 или s1."_w)) << alice.Pane();
  EXPECT_TRUE(Has(alice.Pane(), "Установка стиля s9..."_w));
  EXPECT_TRUE(Has(alice.Pane(), "Проверка установленного стиля... s9."_w));
  EXPECT_TRUE(Has(alice.Pane(), "alice приходит на канал (10.0.0.1)"_w));
  EXPECT_EQ(alice.ErrorLog(), "");
}

class EveryStyle : public testing::TestWithParam<int> {};

TEST_P(EveryStyle, IsRecognisedAndRepaired) {
  Evening evening;
  evening.Come("bob", "hall");
  evening.Say(*evening.guests[0], "hello there");
  Guest& alice = evening.Come("alice", "");
  evening.chat.accounts.at("alice").style = GetParam();
  alice.tab().Channel = "hall";
  ConnectToChat(alice.client, 0);
  evening.Settle();
  const Text style = std::to_string(GetParam());
  EXPECT_TRUE(Has(alice.Pane(), "Проверка установленного стиля... s"_w + style + "."))
      << alice.Pane();
  EXPECT_TRUE(alice.tab().Connected);
  EXPECT_EQ(evening.chat.accounts.at("alice").style, 9);
  EXPECT_EQ(alice.ErrorLog(), "");
}

INSTANTIATE_TEST_SUITE_P(All, EveryStyle, testing::Values(0, 1, 2, 4, 9));

TEST(ConversationTest, AStyleThatIsChangedWhileReadingIsRepaired) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Pass(kSoonAfter);
  evening.Say(alice, "/set s 4");
  EXPECT_TRUE(alice.tab().Connected);
  evening.Say(alice, "hello");
  EXPECT_TRUE(Has(alice.Pane(), "Обнаружена смена стиля. Установка s9..."_w));
  EXPECT_EQ(evening.chat.accounts.at("alice").style, 9);
  EXPECT_TRUE(alice.tab().Connected);
}

TEST(ConversationTest, FlagRIsTakenBackOnAFreshFrame) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.chat.accounts.at("alice").reload = true;
  ConnectToChat(alice.client, 0);
  evening.Settle();
  EXPECT_TRUE(Has(alice.Pane(), "Обнаружен недопустимый флаг +R. Установка -R..."_w));
  EXPECT_FALSE(evening.chat.accounts.at("alice").reload);
  EXPECT_TRUE(alice.tab().Connected);
}

TEST(ConversationTest, FlagRIsTakenBackWhileReading) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  evening.Pass(kSoonAfter);
  evening.Say(alice, "/mo +R bob");
  evening.Say(alice, "hello");
  EXPECT_TRUE(Has(bob.Pane(), "Обнаружен недопустимый флаг +R. Установка -R..."_w));
  EXPECT_FALSE(evening.chat.accounts.at("bob").reload);
  EXPECT_TRUE(bob.tab().Connected);
}

TEST(ConversationTest, TheTimerFlagIsTakenBackOnce) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  EXPECT_FALSE(evening.chat.accounts.at("alice").timer);
  EXPECT_EQ(alice.platform.desktop.at(0).users_num, "Пользователей: 1/1"_w);
  EXPECT_TRUE(alice.tab().IsOperator);
}

TEST(ConversationTest, AMessageIsAnsweredAndShownToBoth) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  evening.Say(alice, "привет & <всем>, №1"_w);
  EXPECT_EQ(alice.tab().Rich_Server.Text(), "Сообщение отправлено"_w);
  EXPECT_TRUE(Has(alice.Pane(), "<["));
  EXPECT_TRUE(Has(alice.Pane(), "] alice: привет & <всем>, №1\r\n"_w)) << alice.Pane();
  EXPECT_TRUE(Has(bob.Pane(), "] alice: привет & <всем>, №1\r\n"_w));
  evening.Say(bob, "/me waves");
  EXPECT_TRUE(Has(alice.Pane(), "] *** bob waves\r\n"));
  evening.Say(bob, "/op help");
  EXPECT_TRUE(Has(alice.Pane(), "] ### bob: help\r\n"));
}

TEST(ConversationTest, EveryCharacterOfTheWireComesThrough) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Text all;
  for (int c = 0x21; c < 0x100; ++c)
    // These are no characters, or have no place on the wire.
    if (c != 0x7F && c != 0x9D && c != 0xA0) all += static_cast<char>(c);
  evening.Say(alice, all);
  EXPECT_TRUE(Has(alice.Pane(), "] alice: " + all + "\r\n"));
}

TEST(ConversationTest, UsersAreListedInBothForms) {
  for (const bool form_b : {false, true}) {
    Evening evening;
    evening.chat.options.form_b = form_b;
    Guest& alice = evening.Come("alice", "hall");
    evening.Come("bob", "hall");
    UpdateUsersFrame(alice.client, 0);
    evening.Settle();
    EXPECT_EQ(alice.platform.desktop.at(0).users_num, "Пользователей: 1/2"_w);
    const Text list = alice.tab().Rich_Users.Text();
    EXPECT_TRUE(Has(list, "alice [+o-t] 10.0.0.1\r\n")) << list;
    EXPECT_TRUE(Has(list, "bob [-t] 10.0.0.2\r\n")) << list;
    EXPECT_EQ(alice.ErrorLog(), "");
  }
}

TEST(ConversationTest, AWrongPasswordIsToldAndNotRetried) {
  Evening evening;
  evening.Come("alice", "hall");
  Guest& other = evening.Come("alice", "hall", "guess");
  EXPECT_TRUE(Has(other.Pane(), "неверные логин или пароль"_w));
  const Text pane = other.Pane();
  evening.Pass(20000);
  EXPECT_EQ(other.Pane(), pane);
}

TEST(ConversationTest, AFullServiceIsTriedAgain) {
  Evening evening;
  evening.chat.options.most_frames = 0;
  Guest& alice = evening.Come("alice", "hall");
  EXPECT_TRUE(Has(alice.Pane(), "HTTP/1.0 503 Service Unavailable"));
  evening.chat.options.most_frames = 100;
  evening.Pass(5100);
  EXPECT_TRUE(Has(alice.Pane(), "Установка стиля s9... Ok."_w));
  evening.Pass(kFirstWait);  // the second time in a row that it connects by itself
  EXPECT_TRUE(alice.tab().Connected);
}

TEST(ConversationTest, AKickedNickLandsOnTheListOfChannels) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  evening.Pass(kSoonAfter);
  evening.Say(alice, "/k bob enough");
  EXPECT_TRUE(Has(alice.Pane(), "bob удален с канала (alice: enough)"_w));
  EXPECT_TRUE(Has(alice.Pane(), "bob покидает нас (10.0.0.2)"_w));
  EXPECT_TRUE(bob.tab().IsChannelList);
  EXPECT_TRUE(Has(bob.Pane(), "Доступ на канал hall с Вашего ника или адреса запрещен!"_w));
  EXPECT_TRUE(Has(bob.Pane(), "Канал: hall\r\n"_w)) << bob.Pane();
}

TEST(ConversationTest, ABannedNewNickGetsItsStyleOnAChannelOfItsOwn) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Say(alice, "/mo +b bob");
  Guest& bob = evening.Come("bob", "hall");
  EXPECT_TRUE(Has(bob.Pane(), "Внимание! Доступ на канал hall"_w)) << bob.Pane();
  evening.Pass(kFirstWait);
  EXPECT_TRUE(bob.tab().Connected);
  EXPECT_NE(bob.tab().Channel, "hall");
  EXPECT_EQ(evening.chat.accounts.at("bob").style, 9);
}

TEST(ConversationTest, ANickWithoutAChannelGetsTheList) {
  Evening evening;
  evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  bob.tab().Channel = "";
  ConnectToChat(bob.client, 0);
  evening.Settle();
  EXPECT_TRUE(bob.tab().IsChannelList);
  EXPECT_TRUE(Has(bob.Pane(), "Канал: hall\r\n"_w)) << bob.Pane();
  EXPECT_TRUE(Has(bob.Pane(), "alice\r\n"));
}

TEST(ConversationTest, LeavingShowsTheListAndTellsTheOthers) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  LeaveChannel(bob.client, 0);
  evening.Settle();
  EXPECT_TRUE(Has(alice.Pane(), "bob покидает нас (10.0.0.2)"_w));
  EXPECT_TRUE(bob.tab().IsChannelList);
  EXPECT_FALSE(bob.tab().Connected);
  EXPECT_TRUE(Has(bob.Pane(), "Канал: hall\r\n"_w)) << bob.Pane();
}

TEST(ConversationTest, LoggingOffEndsTheSession) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  LogoffChat(alice.client, 0);
  evening.Settle();
  EXPECT_TRUE(Has(alice.Pane(), "Вы вышли из чата"_w)) << alice.Pane();
  EXPECT_FALSE(alice.tab().Connected);
  EXPECT_TRUE(evening.chat.channels.empty());
  evening.Pass(20000);
  EXPECT_FALSE(alice.tab().Connected);
}

TEST(ConversationTest, AnEjectedNickStaysAway) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  evening.Say(alice, "/eject");
  EXPECT_TRUE(Has(alice.Pane(), "Аварийное катапультирование"_w)) << alice.Pane();
  evening.Pass(20000);
  EXPECT_FALSE(alice.tab().Connected);
}

TEST(ConversationTest, TwoClientsWithOneNickDoNotFightForTheFrame) {
  Evening evening;
  Guest& first = evening.Come("alice", "hall");
  Guest& second = evening.Come("alice", "hall");
  EXPECT_FALSE(first.tab().Connected);
  EXPECT_TRUE(second.tab().Connected);
  evening.Pass(20000);
  EXPECT_FALSE(first.tab().Connected);
  EXPECT_TRUE(second.tab().Connected);
}

TEST(ConversationTest, AReconnectIsNotSeenByTheOthers) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  const Text pane = alice.Pane();
  ConnectToChat(bob.client, 0);
  evening.Settle();
  evening.Pass(10000);
  EXPECT_TRUE(bob.tab().Connected);
  EXPECT_EQ(alice.Pane(), pane);
}

TEST(ConversationTest, TheServiceKeepsAQuietFrameAlive) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  const Text pane = alice.Pane();
  evening.Pass(600000);
  EXPECT_TRUE(alice.tab().Connected);
  EXPECT_EQ(alice.Pane(), pane);
}

TEST(ConversationTest, APersonalMessageIsTold) {
  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  service::Request request;
  evening.Come("bob", "hall");
  request.method = "POST";
  request.path = "/newmsg_pm";
  request.body = "username=bob&ticket=" + evening.guests[1]->tab().Ticket +
                 "&reqnum=1&xtouser=alice&msgtext=psst";
  service::Handle(evening.chat, request, {"10.0.0.2", ""}, evening.now);
  evening.Settle();
  EXPECT_TRUE(Has(alice.Pane(), "Вам пришло персональное_сообщение!"_w)) << alice.Pane();
  EXPECT_TRUE(alice.tab().Timer2->Enabled());
}

}  // namespace
}  // namespace parlorwire
