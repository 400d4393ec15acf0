// A private word goes to the nick that stood in send_nick when it was said, and to nobody else.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <string>

#include "conversation/evening.h"
#include "personal/pers_frm.h"
#include "personal/pers_posting.h"
#include "personal/personal_window.h"
#include "text/cut.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

constexpr std::array<std::string_view, 3> kNicks = {"bob", "eve", "dan"};

struct PrivateWords : testing::Test {
  PrivateWords() {
    for (const std::string_view nick : kNicks) {
      Guest& guest = evening.Come(Text(nick), "hall");
      others[Text(nick)] = &guest;
      pers_Click(guest.client, 0);
    }
    pers_Click(alice.client, 0);
    evening.Settle();
  }

  static PersonalWindow& Window(Guest& guest) { return *guest.client.app.PersWindows.back(); }
  void Begin(const Text& to, const Text& word) {
    Window(alice).send_nick = to;
    Window(alice).msg = word;
    pers_frm_button_say_MouseUp(alice.client, Window(alice));
  }
  // Whose personal window holds the word, but for the one who said it; then whose channel.
  Text Readers(const Text& word) {
    Text readers;
    for (const auto& [nick, guest] : others)
      if (Contains(Window(*guest).Rich.Text(), word)) readers += nick + " ";
    for (Guest* guest : {&alice, others["bob"], others["eve"], others["dan"]})
      if (Contains(guest->Pane(), word)) readers += "channel ";
    return Trim(readers);
  }

  Evening evening;
  Guest& alice = evening.Come("alice", "hall");
  std::map<Text, Guest*> others;
};

TEST_F(PrivateWords, TheNickIsThatOfTheMomentInWhichItIsSaid) {
  Begin("bob", "word1");
  Window(alice).send_nick = "eve";  // before the connection stands
  evening.Settle();
  EXPECT_EQ(Readers("word1"), "bob");
  Begin("eve", "word2");
  evening.Settle();
  EXPECT_EQ(Readers("word2"), "eve");
}

TEST_F(PrivateWords, AWordThatIsOvertakenIsLostAndTheNextGoesToItsOwnNick) {
  Begin("bob", "word1");
  Begin("eve", "word2");
  evening.Settle();
  EXPECT_EQ(Readers("word1"), "");
  EXPECT_EQ(Readers("word2"), "eve");
}

TEST_F(PrivateWords, WhatIsSaidOnTheChannelMeanwhileStaysApart) {
  Begin("bob", "word1");
  alice.platform.desktop.SetMsgText(0, "open1");
  button_say_MouseUp(alice.client, 0);
  evening.Settle();
  EXPECT_EQ(Readers("word1"), "bob");
  EXPECT_EQ(Readers("open1"), "channel channel channel channel");
}

// Whatever is said, typed, overtaken and answered, in whatever order.
TEST_F(PrivateWords, InAnyOrderNoneGoesAstray) {
  std::mt19937 dice(11);  // the same every time
  const auto throw_of = [&dice](unsigned sides) { return dice() % sides; };
  std::map<Text, Text> said;  // each word and its nick
  int number = 0;
  for (int step = 0; step < 300; ++step) {
    const Text nick(kNicks.at(throw_of(kNicks.size())));
    switch (throw_of(5)) {
      case 0:
      case 1: {
        const Text word = "private" + std::to_string(++number) + ".";
        said[word] = nick;
        Begin(throw_of(2) == 0 ? nick : nick + ": ", word);
        break;
      }
      case 2:
        Window(alice).send_nick = nick;
        break;
      case 3:
        alice.platform.desktop.SetMsgText(0, "open" + std::to_string(++number) + ".");
        button_say_MouseUp(alice.client, 0);
        break;
      default:
        evening.Settle();
        break;
    }
  }
  evening.Settle();
  int arrived = 0;
  for (const auto& [word, nick] : said) {
    const Text readers = Readers(word);
    if (readers.empty()) continue;
    EXPECT_EQ(readers, nick) << word;
    ++arrived;
  }
  EXPECT_GT(arrived, 20);
  EXPECT_EQ(alice.ErrorLog(), "");
}

}  // namespace
}  // namespace parlorwire
