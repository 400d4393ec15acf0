#include "bot/reactions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/chat.h"
#include "text/fault.h"
#include "users/users_out.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Reactions : testing::Test {
  Reactions() {
    chat.client.hooks.UpdateUsersFrame = [this](int tab) { updates.push_back(tab); };
    chat.client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
    chat.client.hooks.FindAutoKick = [this](const Text& who, const Text& channel, bool is_nick,
                                            const Text& nick) {
      asked.push_back(who + "|" + channel + "|" + (is_nick ? "nick" : "address") + "|" + nick);
      return reason;
    };
    chat.tab().ActionsArmed = true;
  }
  // A list of these users, as the user frame brings it.
  void List(std::initializer_list<std::pair<const char*, const char*>> users) {
    chat.tab().Rich_Users.Text("\r\n\r\n");
    chat.tab().UsersText.Clear();
    int operators = 0;
    for (const auto& [nick, flags] : users) {
      UsersOut(chat.client, {nick, "", flags, ""}, 0);
      chat.tab().UsersText.Append(nick, "", flags, "");
      if (Text(flags) != "") ++operators;
    }
    chat.platform.desktop.SetUsersNumCaption(
        0, "Пользователей: "_w + std::to_string(operators) + "/" + std::to_string(users.size()));
  }
  void Tell(const Text& line) { ClientAction(chat.client, line, 0); }
  Text List() { return chat.tab().Rich_Users.Text(); }
  Text Counts() { return chat.platform.desktop.UsersNumCaption(0); }
  bool Joined() { return chat.tab().JoinSlot != 0; }

  Chat chat;
  std::vector<int> updates;
  std::vector<Text> said, asked;
  Text reason;
};

// ---- coming ----

TEST_F(Reactions, WhoComesIsHighlightedNotedAndLookedUp) {
  for (const Text& phrase : {"приходит на канал"_w, "приходит к нам"_w, "Приходит На Канал"_w,
                             "приходит к нам опять и опять"_w}) {
    chat.tab().JoinLines.clear();
    chat.tab().JoinSlot = 0;
    updates.clear();
    Tell("bob " + phrase);
    EXPECT_EQ(chat.tab().JoinSlot, 1);
    EXPECT_EQ(chat.tab().JoinNick[1], "bob");
    EXPECT_TRUE(chat.tab().JoinWaitsForList[1]);
    EXPECT_EQ(chat.tab().JoinLines, "bob");
    EXPECT_THAT(updates, ElementsAre(0));
  }
}

TEST_F(Reactions, SeveralWhoComeAreNotedOnALineEach) {
  Tell("bob приходит на канал"_w);
  Tell("ann приходит на канал"_w);
  EXPECT_EQ(chat.tab().JoinLines, "bob\r\nann");
}

TEST_F(Reactions, WhatStandsBehindThePhraseDoesNotMatter) {
  Tell("bob приходит на канал (10.0.0.7)"_w);
  EXPECT_TRUE(Joined());
  Tell("ann приходит к нам (mask) (10.0.0.7))"_w);
  EXPECT_EQ(chat.tab().JoinLines, "bob\r\nann");
}

TEST_F(Reactions, UntilArmedNothingHappens) {
  chat.tab().ActionsArmed = false;
  List({{"bob", ""}});
  Tell("ann приходит на канал"_w);
  Tell("bob покидает нас"_w);
  EXPECT_FALSE(Joined());
  EXPECT_THAT(updates, IsEmpty());
  EXPECT_EQ(List(), "\r\n\r\nbob\r\n");
}

TEST_F(Reactions, AnOperatorKicksWhomTheListNames) {
  chat.client.app.AutoKick = true;
  chat.tab().IsOperator = true;
  reason = "spam";
  Tell("bob приходит на канал"_w);
  EXPECT_THAT(asked, ElementsAre("bob|lobby|nick|"));
  EXPECT_THAT(said, ElementsAre("/k bob spam"));
  EXPECT_FALSE(Joined());
  EXPECT_EQ(chat.tab().JoinLines, "");
  EXPECT_THAT(updates, IsEmpty());
  reason = "";
  Tell("bob приходит на канал"_w);
  EXPECT_TRUE(Joined());
}

TEST_F(Reactions, WithoutTheCheckOrTheRightsNobodyIsKicked) {
  reason = "spam";
  chat.tab().IsOperator = true;
  Tell("bob приходит на канал"_w);
  chat.client.app.AutoKick = true;
  chat.tab().IsOperator = false;
  Tell("ann приходит на канал"_w);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(chat.tab().JoinLines, "bob\r\nann");
}

// ---- going ----

TEST_F(Reactions, WhoLeavesIsTakenOutOfTheListAndTheCounts) {
  List({{"ann", "[+o]"}, {"bob", ""}, {"carl", "[+a]"}});
  const Text records = chat.tab().UsersText.text();
  Tell("bob покидает нас"_w);
  EXPECT_EQ(List(), "\r\n\r\nann [+o]\r\ncarl [+a]\r\n");
  EXPECT_EQ(Counts(), "Пользователей: 2/2"_w);
  Tell("CARL покидает нас (10.0.0.7)"_w);
  EXPECT_EQ(List(), "\r\n\r\nann [+o]\r\n");
  EXPECT_EQ(Counts(), "Пользователей: 1/1"_w);
  EXPECT_EQ(chat.tab().UsersText.text(), records);
  EXPECT_THAT(updates, IsEmpty());
}

TEST_F(Reactions, TheAddressOfWhoLeavesIsCutOff) {
  for (const Text& address : {" (10.0.0.7)"_w, " (mask) (10.0.0.7))"_w, " ((10.0.0.7))"_w}) {
    List({{"ann", ""}, {"bob", ""}});
    Tell("bob покидает нас"_w + address);
    EXPECT_EQ(List(), "\r\n\r\nann\r\n") << address;
  }
  List({{"bob", ""}});
  Tell("bob покидает нас (mask) (10.0.0.7)"_w);  // one bracket at the end: one group
  EXPECT_EQ(List(), "\r\n\r\nbob\r\n");
}

TEST_F(Reactions, TheFirstPlaceThatReadsLikeTheNickIsTaken) {
  List({{"bobby", ""}, {"bob", ""}});
  Tell("bob покидает нас"_w);
  EXPECT_EQ(List(), "\r\n\r\nbob\r\n");
}

TEST_F(Reactions, AnUnknownNickChangesNothing) {
  List({{"ann", ""}});
  Tell("bob покидает нас"_w);
  EXPECT_EQ(List(), "\r\n\r\nann\r\n");
  EXPECT_EQ(Counts(), "Пользователей: 0/1"_w);
}

TEST_F(Reactions, WhileANewListIsOnItsWayTheCountsStayEmpty) {
  List({{"ann", ""}});
  chat.platform.desktop.SetUsersNumCaption(0, "");
  Tell("ann покидает нас"_w);
  EXPECT_EQ(List(), "\r\n\r\n");
  EXPECT_EQ(Counts(), "");
}

TEST_F(Reactions, ANickThatReadsLikeTheNoteDeletesNothing) {
  chat.tab().Rich_Users.Text("\r\n\r\n Updating...");
  Tell("dating покидает нас"_w);
  EXPECT_EQ(List(), "\r\n\r\n Updating...");
  EXPECT_EQ(chat.ErrorLog(), "");
}

// ---- ranks ----

TEST_F(Reactions, TheOwnNewRankIsLookedUp) {
  Tell("ALICE стал оператором канала"_w);
  EXPECT_THAT(updates, ElementsAre(0));
  Tell("alice стал администратором чата"_w);
  EXPECT_THAT(updates, ElementsAre(0, 0));
  Tell("bob стал оператором канала"_w);
  EXPECT_THAT(updates, ElementsAre(0, 0));
}

TEST_F(Reactions, TheOwnRankIsLostAtOnce) {
  for (const Text& phrase : {"больше не оператор канала"_w, "больше не администратор"_w}) {
    chat.tab().IsOperator = true;
    chat.platform.desktop.SetSayUseOp(true, true);
    Tell("bob " + phrase);
    EXPECT_TRUE(chat.tab().IsOperator);
    Tell("Alice " + phrase);
    EXPECT_FALSE(chat.tab().IsOperator);
    EXPECT_FALSE(chat.platform.desktop.say_use_op);
    EXPECT_FALSE(chat.platform.desktop.say_use_op_enabled);
  }
}

TEST_F(Reactions, OnATabThatIsNotShownTheCheckBoxOfTheShownOneStays) {
  chat.tab().IsOperator = true;
  chat.platform.desktop.active_tab = 1;
  chat.platform.desktop.SetSayUseOp(true, true);
  Tell("alice больше не оператор"_w);
  EXPECT_FALSE(chat.tab().IsOperator);
  EXPECT_TRUE(chat.platform.desktop.say_use_op);
}

// ---- anything else ----

TEST_F(Reactions, OtherLinesDoNothing) {
  List({{"bob", "[+o]"}});
  chat.tab().IsOperator = true;
  for (const Text& line : {"bob лишается права голоса"_w, "bob получает право голоса"_w,
                           "bob приходит"_w, "bob покидает нас всех"_w, "bob стал"_w, "bob "_w})
    Tell(line);
  EXPECT_EQ(List(), "\r\n\r\nbob [+o]\r\n");
  EXPECT_EQ(Counts(), "Пользователей: 1/1"_w);
  EXPECT_TRUE(chat.tab().IsOperator);
  EXPECT_FALSE(Joined());
  EXPECT_THAT(updates, IsEmpty());
  EXPECT_THAT(said, IsEmpty());
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(Reactions, ALineThatCannotBeCutIsLoggedAndPassedOver) {
  Tell("приходит"_w);
  EXPECT_TRUE(chat.ErrorLog().ends_with(". Function: ClientAction. Dump: приходит\r\n"_w))
      << chat.ErrorLog();
  Tell("bob приходит к нам)"_w);
  EXPECT_TRUE(
      chat.ErrorLog().ends_with(". Function: ClientAction. Dump: bob приходит к нам)\r\n"_w));
  EXPECT_FALSE(Joined());
}

TEST_F(Reactions, AFaultInTheListOfKicksIsLoggedAndTheRestGoesOn) {
  chat.client.app.AutoKick = true;
  chat.tab().IsOperator = true;
  chat.client.hooks.FindAutoKick = [](const Text&, const Text&, bool, const Text&) -> Text {
    throw Fault(fault::kInvalidCall);
  };
  Tell("bob приходит на канал"_w);
  EXPECT_TRUE(Joined());
  EXPECT_EQ(chat.tab().JoinLines, "bob");
  EXPECT_THAT(updates, ElementsAre(0));
  EXPECT_TRUE(
      chat.ErrorLog().ends_with(". Function: ClientAction. Dump: bob приходит на канал\r\n"_w));
}

TEST_F(Reactions, TheRankThatComesBackDoesNotTickTheBoxByItself) {
  chat.tab().IsOperator = true;
  chat.tab().SayUseOpState = true;
  Tell("alice больше не оператор"_w);
  EXPECT_FALSE(chat.tab().SayUseOpState);
}

}  // namespace
}  // namespace parlorwire
