#include "users/recode_layout.h"

#include <gtest/gtest.h>

#include "support/chat.h"

namespace parlorwire {
namespace {

struct RecodeLayoutTest : testing::Test {
  RecodeLayoutTest() {
    chat.tab().UsersText.Append("Alice", "10.0.0.1", "[-t]", "");
    chat.tab().UsersText.Append("bob", "", "", "at work");
  }
  Text Recoded(const Text& text) { return RecodeLayout(chat.client, text); }
  Chat chat;
};

TEST_F(RecodeLayoutTest, GoesEitherWay) {
  EXPECT_EQ(Recoded("ghbdtn"), "привет"_w);
  EXPECT_EQ(Recoded("привет"_w), "ghbdtn");
  EXPECT_EQ(Recoded("Ghbdtn привет"_w), "Привет ghbdtn"_w);
}

TEST_F(RecodeLayoutTest, EveryKeyOfBothLayouts) {
  const Text latin = "qwertyuiop[]asdfghjkl;'zxcvbnm,./?QWERTYUIOP{}ASDFGHJKL:\"ZXCVBNM<>";
  EXPECT_EQ(Recoded(latin), "йцукенгшщзхъфывапролджэячсмитьбю.,ЙЦУКЕНГШЩЗХЪФЫВАПРОЛДЖЭЯЧСМИТЬБЮ"_w);
  EXPECT_EQ(Recoded("йцукенгшщзхъфывапролджэячсмитьбюЙЦУКЕНГШЩЗХЪФЫВАПРОЛДЖЭЯЧСМИТЬБЮ"_w),
            "qwertyuiop[]asdfghjkl;'zxcvbnm,.QWERTYUIOP{}ASDFGHJKL:\"ZXCVBNM<>");
}

TEST_F(RecodeLayoutTest, WhatStandsInBothLayoutsCountsAsLatin) {
  EXPECT_EQ(Recoded("ghbdtn."), "приветю"_w);
  EXPECT_EQ(Recoded("привет."_w), "ghbdtnю"_w);
  EXPECT_EQ(Recoded("да, нет"_w), "lfб ytn"_w);
}

TEST_F(RecodeLayoutTest, WhatNoKeyGivesStays) {
  EXPECT_EQ(Recoded("1 2 3 - ё № \t!"_w), "1 2 3 - ё № \t!"_w);
}

TEST_F(RecodeLayoutTest, ANickOfTheListStays) {
  EXPECT_EQ(Recoded("Alice: ghbdtn"), "Alice: привет"_w);
  EXPECT_EQ(Recoded("aLICE: ghbdtn"), "aLICE: привет"_w);
  EXPECT_EQ(Recoded("bob:  ghbdtn bob: x"), "bob:  привет ищиЖ ч"_w);
  EXPECT_EQ(Recoded("bob: "), "bob: ");
}

TEST_F(RecodeLayoutTest, ANickThatIsNotThereIsRecodedToo) {
  EXPECT_EQ(Recoded("carol: ghbdtn"), "сфкщдЖ привет"_w);
  EXPECT_EQ(Recoded("ali: ghbdtn"), "фдшЖ привет"_w);
  EXPECT_EQ(Recoded("bob ghbdtn"), "ищи привет"_w);
  EXPECT_EQ(Recoded("bobs ghbdtn"), "ищиы привет"_w);
  EXPECT_EQ(Recoded("bob:ghbdtn"), "ищиЖпривет"_w);
  EXPECT_EQ(Recoded("bob:"), "ищиЖ"_w);
}

TEST_F(RecodeLayoutTest, NeitherAnAddressNorAStatusNorNothingIsANick) {
  EXPECT_EQ(Recoded("10.0.0.1: q"), "10ю0ю0ю1Ж й"_w);
  EXPECT_EQ(Recoded(": q"), "Ж й"_w);
  EXPECT_EQ(Recoded(" bob: q"), " ищиЖ й"_w);
}

TEST_F(RecodeLayoutTest, BlanksAloneStay) {
  EXPECT_EQ(Recoded(""), "");
  EXPECT_EQ(Recoded("   "), "   ");
}

TEST_F(RecodeLayoutTest, TheListIsThatOfTheActiveTab) {
  chat.platform.desktop.active_tab = 4;
  EXPECT_EQ(Recoded("bob: q"), "ищиЖ й"_w);
  chat.tab(4).UsersText.Append("bob", "", "", "");
  EXPECT_EQ(Recoded("bob: q"), "bob: й"_w);
}

TEST_F(RecodeLayoutTest, TheLabelRecodesTheInputBoxOfTheActiveTab) {
  chat.platform.desktop.active_tab = 2;
  chat.platform.desktop.at(2).msg = "ghbdtn";
  chat.platform.desktop.at(0).msg = "ghbdtn";
  perecodirovka_label(chat.client);
  EXPECT_EQ(chat.platform.desktop.at(2).msg, "привет"_w);
  EXPECT_EQ(chat.platform.desktop.at(0).msg, "ghbdtn");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 2);
}

TEST_F(RecodeLayoutTest, TheItemRecodesTheSelectionOfThePane) {
  RichTextBox& pane = chat.tab().Rich;
  pane.Text("one ghbdtn two\r\n");
  pane.ExSetSel(4, 10);
  text_perecodirovka(chat.client);
  EXPECT_EQ(pane.Text(), "one привет two\r\n"_w);
}

TEST_F(RecodeLayoutTest, TheItemWithNothingSelectedLeavesThePane) {
  RichTextBox& pane = chat.tab().Rich;
  pane.Text("one\r\n");
  pane.ExSetSel(1, 1);
  text_perecodirovka(chat.client);
  EXPECT_EQ(pane.Text(), "one\r\n");
}

}  // namespace
}  // namespace parlorwire
