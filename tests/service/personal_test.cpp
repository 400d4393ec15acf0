#include "service/personal.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using PersonalTest = ChatFixture;

TEST_F(PersonalTest, AMessageReachesBothSidesAsALine) {
  Account& alice = Known("alice");
  Account& bob = Known("bob");
  Frame& from = EnterPersonal(chat, alice, now, "", "chat:80");
  Frame& to = EnterPersonal(chat, bob, now, "HEAD\n", "chat:80");
  Read(from);
  EXPECT_EQ(Read(to),
            "HEAD\n<html>\n<head>\n<title>personal messages</title>\n</head>\n<body>\n<br>\n");
  random = 0;
  EXPECT_EQ(SendPersonal(chat, alice, "BOB", " hello <there> ", now), "Сообщение отправлено"_w);
  EXPECT_EQ(Read(to),
            "&gt; [07:08:09] http://chat:80/pm_ack?reqnum=11111112&username=bob&pm_msgnum=1 alice "
            "hello &lt;there&gt;\n");
  EXPECT_EQ(Read(from),
            "&lt; [07:08:09] http://chat:80/pm_ack?reqnum=11111113&username=alice&pm_msgnum=1 bob: "
            "hello &lt;there&gt;\n");
}

TEST_F(PersonalTest, MessagesWaitForThePageUntilTheyAreAcknowledged) {
  Account& alice = Known("alice");
  Account& bob = Known("bob");
  SendPersonal(chat, alice, "bob", "one", now);
  SendPersonal(chat, alice, "bob", "two", now);
  EXPECT_TRUE(HasUnread(bob));
  EXPECT_FALSE(HasUnread(alice));
  EXPECT_TRUE(Acknowledge(bob, 1));
  EXPECT_FALSE(Acknowledge(bob, 1));
  EXPECT_FALSE(Acknowledge(bob, 99));
  Frame& page = EnterPersonal(chat, bob, now, "", "h");
  const Text shown = Read(page);
  EXPECT_EQ(shown.find("one"), Text::npos);
  EXPECT_NE(shown.find("pm_msgnum=2 alice two\n"), Text::npos);
  EXPECT_TRUE(Acknowledge(bob, 2));
  EXPECT_FALSE(HasUnread(bob));
}

TEST_F(PersonalTest, WhoDoesNotReadThePageIsToldOnHisChannels) {
  Account& alice = Known("alice");
  Frame& bob = Come("bob");
  SendPersonal(chat, alice, "bob", "hi", now);
  const Text ticket = chat.accounts.at("bob").tickets.at("hall");
  EXPECT_EQ(Read(bob), "<script>\nwindow.open('/mframe_pm?username=bob&ticket=" + ticket +
                           "', 'personal')\n</script>\n");
  EnterPersonal(chat, chat.accounts.at("bob"), now, "", "h");
  SendPersonal(chat, alice, "bob", "hi", now);
  EXPECT_EQ(Read(bob), "");
}

TEST_F(PersonalTest, WhoCameWithTheTicketOfAnotherChannelIsToldAsWell) {
  Account& alice = Known("alice");
  Frame& bob = Come("bob", "attic");
  SendPersonal(chat, alice, "bob", "hi", now);
  EXPECT_TRUE(Read(bob).starts_with("<script>\nwindow.open('/mframe_pm?username=bob&ticket="));
}

TEST_F(PersonalTest, AMessageIsUntoldUntilAFrameOrAnAnswerTellsOfIt) {
  Account& alice = Known("alice");
  Account& bob = Known("bob");
  EXPECT_FALSE(TakeUntold(bob));
  SendPersonal(chat, alice, "bob", "while he is away", now);
  EXPECT_FALSE(TakeUntold(alice));
  EXPECT_TRUE(TakeUntold(bob));
  EXPECT_FALSE(TakeUntold(bob));

  SendPersonal(chat, alice, "bob", "while he is away", now);
  const FrameId page = EnterPersonal(chat, bob, now, "", "h").id;
  EXPECT_FALSE(TakeUntold(bob));
  SendPersonal(chat, alice, "bob", "on his personal frame", now);
  EXPECT_FALSE(TakeUntold(bob));
  FrameIsGone(chat, page, now);

  Come("bob");
  SendPersonal(chat, alice, "bob", "on his channel", now);
  EXPECT_FALSE(TakeUntold(bob));
}

TEST_F(PersonalTest, AQuietFrameIsKeptAlive) {
  Frame& page = EnterPersonal(chat, Known("bob"), now, "", "h");
  Read(page);
  Pass(29999);
  EXPECT_EQ(Read(page), "");
  Pass(1);
  EXPECT_EQ(Read(page), "<!-- -->\n");
}

TEST_F(PersonalTest, AMessageOfAnotherDayShowsItsDate) {
  Account& alice = Known("alice");
  Known("bob");
  SendPersonal(chat, alice, "bob", "hi", now);
  now.local += 24 * 60 * 60;
  EXPECT_TRUE(Contains(Read(EnterPersonal(chat, chat.accounts.at("bob"), now, "", "h")),
                       "&gt; [06/05/2024 07:08:09] http://h/pm_ack?reqnum="));
}

TEST_F(PersonalTest, AClosedPageIsWrittenToNoMore) {
  Account& bob = Known("bob");
  const FrameId id = EnterPersonal(chat, bob, now, "", "h").id;
  FrameIsGone(chat, id, now);
  EXPECT_FALSE(chat.frames.open.contains(id));
  chat.frames.touched.clear();
  EXPECT_EQ(SendPersonal(chat, Known("alice"), "bob", "hi", now), "Сообщение отправлено"_w);
  EXPECT_TRUE(chat.frames.touched.empty());
  EXPECT_TRUE(HasUnread(bob));
}

TEST_F(PersonalTest, SaysWhyAMessageWasNotSent) {
  Account& alice = Known("alice");
  EXPECT_EQ(SendPersonal(chat, alice, "nobody", "hi", now), "Нет такого ника: nobody"_w);
  EXPECT_EQ(SendPersonal(chat, alice, "alice", "  ", now), "Пустое сообщение не отправлено"_w);
}

TEST_F(PersonalTest, KeepsTheLastHundred) {
  Account& alice = Known("alice");
  Known("bob");
  for (int i = 0; i < 150; ++i)
    SendPersonal(chat, alice, "bob", "x", now);
  EXPECT_EQ(chat.accounts.at("bob").personal.size(), 100U);
  EXPECT_EQ(chat.accounts.at("bob").personal.front().number, 51);
}

TEST(PersonalHtml, MakesLinksAndPictures) {
  EXPECT_EQ(PersonalHtml("hi *sweet* there"), "hi <img src=\"/157.gif\"> there");
  EXPECT_EQ(PersonalHtml("*unknown* 2 < 3"), "*unknown* 2 &lt; 3");
  EXPECT_EQ(PersonalHtml("see http://a.b/?x=1&y=\"2\""),
            "see <a href=\"/redirect?msgtext=http://a.b/?x=1&amp;y=&quot;2&quot;\" "
            "target=\"_blank\">http://a.b/?x=1&amp;y=&quot;2&quot;</a>");
}

}  // namespace
}  // namespace parlorwire::service
