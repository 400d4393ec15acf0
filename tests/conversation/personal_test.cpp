// Personal messages from client to client by way of the service.
#include "service/personal.h"

#include <gtest/gtest.h>

#include "conversation/evening.h"
#include "personal/pers_frm.h"
#include "personal/pers_html.h"
#include "personal/pers_posting.h"
#include "personal/personal_window.h"
#include "service/names.h"
#include "service/presence.h"
#include "session/connect.h"
#include "session/leaving.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kNotice = W<"Вам пришло персональное_сообщение!">;

struct PersonalConversation : testing::Test {
  Evening evening;

  PersonalWindow& Open(Guest& guest, int tab = 0) {
    pers_Click(guest.client, tab);
    evening.Settle();
    return *guest.client.app.PersWindows.back();
  }

  void Send(Guest& guest, PersonalWindow& window, const Text& to, const Text& text) {
    window.send_nick = to;
    window.msg = text;
    pers_frm_button_say_MouseUp(guest.client, window);
    evening.Settle();
  }

  // The lines of a personal window behind its two status lines.
  static Text Lines(const PersonalWindow& window) {
    const Text text = window.Rich.Text();
    return text.substr(text.find("\r\n", text.find("\r\n") + 2) + 2);
  }

  service::Account& Account(const Text& nick) {
    return evening.chat.accounts.at(service::NickKey(nick));
  }
};

TEST_F(PersonalConversation, AWordComesOnBothFramesAndIsAcknowledged) {
  Guest& alice = evening.Come("Алиса"_w, "hall");
  Guest& bob = evening.Come("Боб"_w, "hall");
  PersonalWindow& of_alice = Open(alice);
  PersonalWindow& of_bob = Open(bob);
  EXPECT_TRUE(of_bob.Rich.Text().ends_with("Получение списка сообщений... Ok.\r\n"_w))
      << of_bob.Rich.Text();
  Send(alice, of_alice, "Боб: "_w, "привет, *sweet* & <тебе> 50% \"№\""_w);
  const Text said = " Алиса: привет, *sweet* & <тебе> 50% \"№\"\r\n"_w;
  EXPECT_TRUE(Lines(of_bob).starts_with(">["));
  EXPECT_TRUE(Lines(of_bob).ends_with("]" + said)) << Lines(of_bob);
  EXPECT_TRUE(Lines(of_alice).starts_with("<["));
  EXPECT_TRUE(Lines(of_alice).ends_with("] Алиса: Боб: привет, *sweet* & <тебе> 50% \"№\"\r\n"_w))
      << Lines(of_alice);
  EXPECT_TRUE(Account("Боб"_w).personal.empty());
  EXPECT_TRUE(Account("Алиса"_w).personal.empty());
  EXPECT_EQ(bob.Pane().find(kNotice), Text::npos);
  EXPECT_EQ(alice.ErrorLog() + bob.ErrorLog(), "");
}

TEST_F(PersonalConversation, EveryPictureOfTheServiceIsASmileOfTheClient) {
  Guest& alice = evening.Come("alice", "hall");
  PersonalWindow& window = Open(alice);
  Text sent;
  Text shown;
  for (const SmileSource& smile : kSmileSources) {
    if (smile.name == "hnik" || smile.name.find('<') != smile.name.npos) continue;
    sent += "*" + Text(smile.name) + "* ";
    shown += "*" + Text(smile.name == "hi" ? ":)" : smile.name) + "* ";
  }
  Send(alice, window, "alice", sent);
  EXPECT_TRUE(Lines(window).ends_with(": " + Trim(shown) + "\r\n")) << Lines(window);
}

TEST_F(PersonalConversation, ALinkIsShownWithAllOfIt) {
  Guest& alice = evening.Come("alice", "hall");
  PersonalWindow& window = Open(alice);
  Send(alice, window, "alice", "see http://a.example/x?b=1&c=%20+2#d now");
  EXPECT_TRUE(Lines(window).ends_with(": see http://a.example/x?b=1&c=%20+2#d now\r\n"))
      << Lines(window);
}

TEST_F(PersonalConversation, WhoReadsAChannelIsToldThere) {
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  Send(alice, Open(alice), "bob", "psst");
  EXPECT_TRUE(Contains(bob.Pane(), kNotice)) << bob.Pane();
  EXPECT_TRUE(bob.tab().Timer2->Enabled());
  PersonalWindow& window = Open(bob);
  EXPECT_TRUE(Lines(window).ends_with(" alice: psst\r\n")) << Lines(window);
  EXPECT_TRUE(Account("bob").personal.empty());
  EXPECT_EQ(bob.ErrorLog(), "");
}

TEST_F(PersonalConversation, WhatComesWhileOneIsAwayWaitsAndTheUserFrameTellsOfIt) {
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  LogoffChat(bob.client, 0);
  evening.Settle();
  PersonalWindow& window = Open(alice);
  Send(alice, window, "bob", "one");
  Send(alice, window, "bob", "two");
  ConnectToChat(bob.client, 0);
  evening.Settle();
  EXPECT_TRUE(Contains(bob.Pane(), kNotice)) << bob.Pane();
  const Text lines = Lines(Open(bob));
  EXPECT_TRUE(Contains(lines, " alice: one\r\n>["));
  EXPECT_TRUE(lines.ends_with(" alice: two\r\n"));
  EXPECT_TRUE(Account("bob").personal.empty());
}

TEST_F(PersonalConversation, WhatCameWhileTheFrameWasBrokenIsToldInTheAnswerToAPost) {
  Guest& alice = evening.Come("alice", "hall");
  Guest& bob = evening.Come("bob", "hall");
  // The connection breaks, and neither the client nor the others have noticed yet.
  service::Channel& hall = *service::FindChannel(evening.chat, "hall");
  service::FrameIsGone(evening.chat, service::FindMember(hall, "bob")->frame->id, evening.now);
  Send(alice, Open(alice), "bob", "psst");
  EXPECT_FALSE(Contains(bob.Pane(), kNotice));
  evening.Say(bob, "here I am");
  EXPECT_TRUE(Contains(bob.Pane(), kNotice)) << bob.Pane();
  EXPECT_TRUE(Contains(alice.Pane(), "bob: here I am"));
  evening.Say(bob, "and again");
  EXPECT_EQ(bob.tab().Rich_Server.Text(), "Сообщение отправлено"_w);
}

TEST_F(PersonalConversation, AKeepAliveChangesNothingInTheWindow) {
  Guest& alice = evening.Come("alice", "hall");
  PersonalWindow& window = Open(alice);
  const Text before = window.Rich.Text();
  evening.Pass(61000);
  EXPECT_EQ(window.Rich.Text(), before);
  Send(alice, window, "alice", "still here");
  EXPECT_TRUE(Contains(Lines(window), "] alice: still here\r\n")) << window.Rich.Text();
}

TEST_F(PersonalConversation, AnOldTicketIsRefused) {
  Guest& alice = evening.Come("alice", "hall");
  PersonalWindow& window = Open(alice);
  ConnectToChat(alice.client, 0);
  evening.Settle();
  Send(alice, window, "alice", "lost");
  EXPECT_TRUE(window.Rich.Text().ends_with(
      "Ваши уникальные данные (логин и/или тикет) изменились. Закройте перс и повторите попытку."
      "\r\n"_w))
      << window.Rich.Text();
  pers_frm_Unload(alice.client, window);

  alice.tab().Ticket = "OLD";
  PersonalWindow& refused = Open(alice);
  EXPECT_TRUE(Lines(refused).ends_with("] чат: неверное имя или пароль\r\n"_w)) << Lines(refused);
  EXPECT_TRUE(refused.PersQueue == std::vector<Text>{""});
}

TEST_F(PersonalConversation, AMessageToNobodyComesNowhere) {
  Guest& alice = evening.Come("alice", "hall");
  PersonalWindow& window = Open(alice);
  const Text before = window.Rich.Text();
  Send(alice, window, "nobody", "hi");
  EXPECT_EQ(window.Rich.Text(), before);
}

}  // namespace
}  // namespace parlorwire
