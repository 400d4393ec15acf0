#include "bot/moderator_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "bot/ask_reason.h"
#include "support/chat.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kOneMinute = 2;  // in the list of durations
constexpr std::size_t kForGoodEntry = 5;

struct ModeratorCommands : testing::Test {
  ModeratorCommands() {
    chat.client.hooks.SayBot = [this](const Text& text, int tab) {
      said.push_back(std::to_string(tab) + ": " + text);
    };
    chat.client.hooks.ShowTextInput = [this](const Text& prompt, const Text& title) {
      prompts.push_back(prompt);
      titles.push_back(title);
      wanted_duration.push_back(chat.client.app.PromptWantsDuration);
      if (meanwhile) meanwhile();
      if (confirms) ConfirmTextInput(chat.client, reason, duration);
    };
    chat.client.app.MenuNick = "Bob";
    chat.tab().Connected = true;
    chat.tab().IsOperator = true;
  }
  Text SaidBy(void (*command)(Client&)) {
    said.clear();
    command(chat.client);
    return said.empty() ? Text() : said.front();
  }
  Text Typed(const Text& text, MsgCommand command) {
    said.clear();
    chat.platform.desktop.SetMsgText(0, text);
    EXPECT_TRUE(SayMsgCommand(chat.client, command, 0));
    return said.empty() ? Text() : said.front();
  }

  Chat chat;
  bool confirms = true;
  Text reason = "за флуд"_w;
  std::size_t duration = kOneMinute;
  std::function<void()> meanwhile;
  std::vector<Text> said, prompts, titles;
  std::vector<bool> wanted_duration;
};

// ---- the items of the menu ----

TEST_F(ModeratorCommands, EachItemSaysItsLine) {
  EXPECT_EQ(SaidBy(kick), "0: /k Bob за флуд"_w);
  EXPECT_EQ(SaidBy(ban), "0: /mo +b Bob за флуд"_w);
  EXPECT_EQ(SaidBy(lower), "0: /l 60 Bob за флуд"_w);
  EXPECT_EQ(SaidBy(mute), "0: /mu 60 Bob за флуд"_w);
  EXPECT_EQ(SaidBy(unlower), "0: /l 0 Bob");
  EXPECT_EQ(SaidBy(unmute), "0: /mu 0 Bob");
}

TEST_F(ModeratorCommands, ForGoodThereIsNoDurationInTheLine) {
  duration = kForGoodEntry;
  EXPECT_EQ(SaidBy(lower), "0: /l Bob за флуд"_w);
  EXPECT_EQ(SaidBy(mute), "0: /mu Bob за флуд"_w);
}

TEST_F(ModeratorCommands, EachItemThatAsksHasItsPromptAndTitle) {
  for (const auto command : {kick, ban, lower, mute, unlower, unmute})
    command(chat.client);
  EXPECT_THAT(prompts, ElementsAre("Укажите причину (будет отображено в бан-листе):"_w,
                                   "Укажите причину (будет отображено в бан-листе):"_w,
                                   "Укажите причину:"_w, "Укажите причину:"_w));
  EXPECT_THAT(titles, ElementsAre("Кикнуть Bob"_w, "Забанить Bob"_w,
                                  "Запретить писать большими буквами"_w, "Лишить голоса Bob"_w));
  EXPECT_THAT(wanted_duration, ElementsAre(false, false, true, true));
}

TEST_F(ModeratorCommands, AfterADurationWasWantedAKickWantsNone) {
  mute(chat.client);
  kick(chat.client);
  EXPECT_THAT(wanted_duration, ElementsAre(true, false));
}

TEST_F(ModeratorCommands, TheyActOnTheActiveTab) {
  chat.platform.desktop.active_tab = 4;
  EXPECT_EQ(SaidBy(kick), "4: /k Bob за флуд"_w);
  EXPECT_EQ(SaidBy(unmute), "4: /mu 0 Bob");
}

TEST_F(ModeratorCommands, ACancelledPromptSaysNothing) {
  confirms = false;
  for (const auto command : {kick, ban, lower, mute})
    EXPECT_EQ(SaidBy(command), "");
  EXPECT_TRUE(chat.client.app.PromptCancelled);
}

TEST_F(ModeratorCommands, AfterACancelledPromptTheNextOneCounts) {
  confirms = false;
  kick(chat.client);
  confirms = true;
  EXPECT_EQ(SaidBy(kick), "0: /k Bob за флуд"_w);
  EXPECT_FALSE(chat.client.app.PromptCancelled);
}

TEST_F(ModeratorCommands, WithoutAReasonTheLineEndsInABlank) {
  reason = "";
  EXPECT_EQ(SaidBy(kick), "0: /k Bob ");
  EXPECT_EQ(SaidBy(mute), "0: /mu 60 Bob ");
}

TEST_F(ModeratorCommands, TheNickGoesOutAsItIs) {
  for (const Text& nick : {"*?#"_w, "[x]"_w, "/k ann"_w, "a b"_w, "b/op"_w}) {
    chat.client.app.MenuNick = nick;
    EXPECT_EQ(SaidBy(kick), "0: /k " + nick + " " + reason);
    EXPECT_EQ(SaidBy(unmute), "0: /mu 0 " + nick);
  }
}

TEST_F(ModeratorCommands, AReasonIsOneLine) {
  reason = "one\r\n/k ann\ttwo";
  EXPECT_EQ(SaidBy(kick), "0: /k Bob one  /k ann two");
}

TEST_F(ModeratorCommands, TheNickAndTheTabAreThoseOfTheClick) {
  meanwhile = [&] {
    chat.client.app.MenuNick = "Ann";
    chat.platform.desktop.active_tab = 2;
  };
  for (const auto command : {kick, ban, lower, mute}) {
    chat.client.app.MenuNick = "Bob";
    chat.platform.desktop.active_tab = 0;
    EXPECT_THAT(SaidBy(command), testing::HasSubstr("Bob"));
    EXPECT_THAT(said.front(), testing::StartsWith("0: "));
  }
}

TEST_F(ModeratorCommands, WhenTheTabConnectsAnewMeanwhileNothingIsSaid) {
  meanwhile = [&] {
    ConnectToChat(chat.client, 0);
    chat.tab().Connected = true;
  };
  for (const auto command : {kick, ban, lower, mute})
    EXPECT_EQ(SaidBy(command), "");
}

TEST_F(ModeratorCommands, WhenTheTabLosesItsConnectionMeanwhileNothingIsSaid) {
  meanwhile = [&] { chat.tab().Connected = false; };
  EXPECT_EQ(SaidBy(kick), "");
}

TEST_F(ModeratorCommands, WithoutAWindowToAskNothingIsSaid) {
  Client& client = chat.client;
  client.hooks.ShowTextInput = Hook<void(const Text&, const Text&)>();
  EXPECT_EQ(SaidBy(kick), "");
  EXPECT_TRUE(client.app.PromptCancelled);
}

// ---- the prompt ----

TEST_F(ModeratorCommands, ThePromptTellsWhatWasTypedAndChosen) {
  EXPECT_EQ(AskReason(chat.client, "prompt", "title"), reason);
  EXPECT_EQ(chat.client.app.PromptText, reason);
  EXPECT_EQ(chat.client.app.PromptDuration, "60");
  EXPECT_FALSE(chat.client.app.PromptCancelled);
}

TEST_F(ModeratorCommands, ThePromptBeginsEmptyWithTheFirstDuration) {
  AskReason(chat.client, "prompt", "title");
  confirms = false;
  meanwhile = [&] {
    EXPECT_EQ(chat.client.app.PromptText, "");
    EXPECT_EQ(chat.client.app.PromptDuration, "240");
  };
  EXPECT_EQ(AskReason(chat.client, "prompt", "title"), "");
  EXPECT_EQ(prompts.size(), 2U);
}

TEST(Durations, StandInTheirOrder) {
  EXPECT_THAT(kDurations, ElementsAre("240", "120", "60", "10", "1", "Надолго"_w));
  EXPECT_EQ(kDurationLabel, "Введите время в секундах:"_w);
}

// ---- the keys ----

TEST_F(ModeratorCommands, AKeySaysTheBoxAsItsCommand) {
  EXPECT_EQ(Typed("Nick: go away", MsgCommand::kKick), "0: /k Nick go away");
  EXPECT_EQ(Typed("Nick", MsgCommand::kLower), "0: /l Nick");
  EXPECT_EQ(Typed("Nick: go away", MsgCommand::kBan), "0: /mo +b Nick go away");
  EXPECT_EQ(Typed("Nick: go away", MsgCommand::kMute), "0: /mu Nick go away");
}

TEST_F(ModeratorCommands, AKeyEmptiesTheBox) {
  Typed("Nick: go away", MsgCommand::kKick);
  EXPECT_EQ(chat.platform.desktop.MsgText(0), "");
}

TEST_F(ModeratorCommands, OnlyTheNickLosesItsColons) {
  EXPECT_EQ(Typed("N:i:ck:: see: this", MsgCommand::kKick), "0: /k Nick see: this");
  EXPECT_EQ(Typed("Nick:", MsgCommand::kKick), "0: /k Nick");
}

TEST_F(ModeratorCommands, BlanksAroundTheTextGoAndThoseInItStay) {
  EXPECT_EQ(Typed("  Nick   go  away ", MsgCommand::kKick), "0: /k Nick   go  away");
}

TEST_F(ModeratorCommands, ABlankBoxSaysNothing) {
  for (const char* text : {"", "   "}) {
    EXPECT_EQ(Typed(text, MsgCommand::kKick), "");
    EXPECT_EQ(chat.platform.desktop.MsgText(0), text);
  }
}

TEST_F(ModeratorCommands, WithoutTheRightsTheKeysAreNotTheirs) {
  chat.tab().IsOperator = false;
  chat.platform.desktop.SetMsgText(0, "Nick: go away");
  for (const auto command :
       {MsgCommand::kKick, MsgCommand::kBan, MsgCommand::kMute, MsgCommand::kLower})
    EXPECT_FALSE(SayMsgCommand(chat.client, command, 0));
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(chat.platform.desktop.MsgText(0), "Nick: go away");
}

TEST_F(ModeratorCommands, TheRightsAreThoseOfTheTab) {
  chat.platform.desktop.SetMsgText(1, "Nick");
  EXPECT_FALSE(SayMsgCommand(chat.client, MsgCommand::kKick, 1));
  chat.tab(1).IsOperator = true;
  EXPECT_TRUE(SayMsgCommand(chat.client, MsgCommand::kKick, 1));
  EXPECT_THAT(said, ElementsAre("1: /k Nick"));
}

}  // namespace
}  // namespace parlorwire
