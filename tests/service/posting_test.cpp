#include "service/posting.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"

namespace parlorwire::service {
namespace {

using PostingTest = ChatFixture;

TEST_F(PostingTest, ControlCharactersBecomeBlanks) {
  Frame& alice = Come("alice");
  Say("alice", "one\r\ntwo\xA0x");
  EXPECT_EQ(Read(alice), "..[07:08:09]alice:() one  two x\n");
}

TEST_F(PostingTest, StarsMakeAnAction) {
  Frame& alice = Come("alice");
  Say("alice", "*** waves");
  Say("alice", "/me sits");
  EXPECT_EQ(Read(alice),
            "..[07:08:09]alice:() *** alice waves\n..[07:08:09]alice:() *** alice sits\n");
}

TEST_F(PostingTest, SaysWhyAMessageWasNotSent) {
  Frame& alice = Come("alice");
  EXPECT_EQ(Say("alice", "  "), "Пустое сообщение не отправлено"_w);
  EXPECT_EQ(Say("alice", "hi", "attic"), "Вы не на канале, сообщение не отправлено"_w);
  EXPECT_EQ(Read(alice), "");
}

TEST_F(PostingTest, TheSamePostIsTakenOnce) {
  Frame& alice = Come("alice");
  Account& account = chat.accounts.at("alice");
  Post(chat, account, "hall", "hi", "", "11111111", now);
  EXPECT_EQ(Post(chat, account, "hall", "hi", "", "11111111", now),
            "Это сообщение уже отправлено"_w);
  Post(chat, account, "hall", "ho", "", "11111111", now);
  Post(chat, account, "hall", "hi", "", "22222222", now);
  EXPECT_EQ(Read(alice),
            "..[07:08:09]alice:() hi\n..[07:08:09]alice:() ho\n..[07:08:09]alice:() hi\n");
}

TEST_F(PostingTest, TheSameCommandIsCarriedOutAgain) {
  Come("alice");
  Account& account = chat.accounts.at("alice");
  for (const char* text : {"/set s 9", "/set s 1", "/set s 9"})
    Post(chat, account, "hall", text, "", "11111111", now);
  EXPECT_EQ(account.style, 9);
}

}  // namespace
}  // namespace parlorwire::service
