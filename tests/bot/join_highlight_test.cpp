#include "bot/join_highlight.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/chat.h"
#include "support/pane_runs.h"
#include "text/fault.h"
#include "users/users_out.h"

namespace parlorwire {
namespace {

struct JoinHighlight : testing::Test {
  JoinHighlight() {
    chat.client.app.rFontMain.Name = "Main";
    chat.client.app.rFontMain.ColorMyNick = Rgb(0x11, 0x11, 0x11);
    chat.client.app.rRichColors.Nicks = Rgb(0x44, 0x44, 0x44);
    chat.client.app.rRichColors.NicksChoose = Rgb(0xCC, 0xCC, 0xCC);
  }
  // A new list of these nicks, as the user frame brings it.
  void List(std::initializer_list<const char*> nicks, int tab = 0, const char* flags = "") {
    chat.tab(tab).Rich_Users.Text("\r\n\r\n");
    chat.tab(tab).UsersText.Clear();
    for (const char* nick : nicks) {
      UsersOut(chat.client, {nick, "", flags, ""}, tab);
      chat.tab(tab).UsersText.Append(nick, "", flags, "");
    }
  }
  void Ticks(int count) { chat.platform.time.Advance(150 * count); }
  // The colours of the nick's letters and of the character behind it (a line break is never cut),
  // "C" for that of the highlight, "n" for that of nicks, "m" for that of the own nick, "?" for any
  // other.
  std::string Colours(const char* nick, int tab = 0) {
    const RichTextBox& list = chat.tab(tab).Rich_Users;
    const auto at = static_cast<PanePosition>(list.Text().find("\r\n" + Text(nick))) + 2;
    std::string colours;
    for (PanePosition i = 0; i <= static_cast<PanePosition>(std::string_view(nick).size()); ++i) {
      const PaneColour colour = list.RunsBetween(at + i, at + i + 1).front().format.colour;
      const AppState& app = chat.client.app;
      colours += colour == app.rRichColors.NicksChoose ? 'C'
                 : colour == app.rRichColors.Nicks     ? 'n'
                 : colour == app.rFontMain.ColorMyNick ? 'm'
                                                       : '?';
    }
    return colours;
  }
  bool Sweeping(int slot, int tab = 0) {
    const auto& timers = chat.tab(tab).JoinTimers;
    const auto index = static_cast<std::size_t>(slot);
    return index < timers.size() && timers[index] && timers[index]->Enabled();
  }
  Chat chat;
};

TEST_F(JoinHighlight, WaitsForTheFirstUserLineOfTheNextList) {
  StartJoinHighlight(chat.client, 0, "bob");
  EXPECT_EQ(chat.tab().JoinSlot, 1);
  Ticks(10);
  EXPECT_FALSE(Sweeping(1));
  List({"ann", "bob"});
  EXPECT_TRUE(Sweeping(1));
  EXPECT_FALSE(chat.tab().JoinWaitsForList[1]);
  EXPECT_EQ(chat.tab().JoinTimers[1]->Interval(), 150);
}

TEST_F(JoinHighlight, WithTwoUsersInOneListTheTimerStartsOnceAtTheFirst) {
  StartJoinHighlight(chat.client, 0, "bob");
  UsersOut(chat.client, {"ann", "", "", ""}, 0);
  chat.platform.time.Advance(100);
  UsersOut(chat.client, {"bob", "", "", ""}, 0);
  chat.tab().Rich_Users.Text("\r\n\r\nbob\r\n");
  chat.platform.time.Advance(49);
  EXPECT_EQ(chat.tab().JoinOffset[1], 0);
  chat.platform.time.Advance(1);
  EXPECT_EQ(chat.tab().JoinOffset[1], 1);
}

TEST_F(JoinHighlight, EachTickPaintsOneMoreLetterAndASweepGivesTheColourBack) {
  StartJoinHighlight(chat.client, 0, "boris");
  List({"ann", "boris"});
  EXPECT_EQ(Colours("boris"), "nnnnnn");
  Ticks(1);
  EXPECT_EQ(Colours("boris"), "CCnnnn");
  Ticks(1);
  EXPECT_EQ(Colours("boris"), "CCCnnn");
  Ticks(2);
  EXPECT_EQ(Colours("boris"), "CCCCCn");
  Ticks(1);  // the fifth: the sweep is done
  EXPECT_EQ(Colours("boris"), "nnnnnn");
  EXPECT_EQ(chat.tab().JoinSweeps[1], 1);
  EXPECT_EQ(chat.tab().JoinOffset[1], 0);
  EXPECT_EQ(Colours("ann"), "nnnn");
}

TEST_F(JoinHighlight, EndsAfterFiveSweeps) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  Ticks(15);
  EXPECT_EQ(chat.tab().JoinSweeps[1], 5);
  EXPECT_TRUE(Sweeping(1));
  Ticks(1);
  EXPECT_FALSE(Sweeping(1));
  EXPECT_EQ(chat.tab().JoinNick[1], "");
  EXPECT_EQ(chat.tab().JoinSweeps[1], 0);
  EXPECT_EQ(chat.tab().JoinOffset[1], 0);
}

TEST_F(JoinHighlight, TheNickEndsAtTheBlankAheadOfTheNextColumn) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"}, 0, "[+v]");
  Ticks(3);
  EXPECT_EQ(chat.tab().JoinSweeps[1], 1);
  EXPECT_EQ(Colours("bob"), "nnnC");
}

TEST_F(JoinHighlight, TheOwnNickAndTheRanksGetTheirColoursBack) {
  StartJoinHighlight(chat.client, 0, "Alice");
  List({"Alice"}, 0, "[+A]");
  Ticks(5);
  EXPECT_EQ(Colours("Alice"), "mmmmmC");  // the blank keeps it
  chat.tab().Login = "other";
  Ticks(5);
  EXPECT_EQ(RunsOf(chat.tab().Rich_Users, 4).front(), "Alice|Main 12 ff0000 b u");
}

TEST_F(JoinHighlight, ANickWithoutARecordKeepsTheColour) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  chat.tab().UsersText.Clear();
  Ticks(3);
  EXPECT_EQ(chat.tab().JoinSweeps[1], 1);
  EXPECT_EQ(Colours("bob"), "CCCn");
}

TEST_F(JoinHighlight, ANickIsFoundWithoutRegardToCaseAndInsideALongerOne) {
  StartJoinHighlight(chat.client, 0, "BOB");
  List({"bobby"});
  Ticks(1);
  EXPECT_EQ(Colours("bobby"), "CCnnnn");
}

TEST_F(JoinHighlight, ANickThatHasLeftEndsItOnTheFirstTick) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"ann"});
  Ticks(1);
  EXPECT_EQ(chat.tab().JoinSweeps[1], 5);
  Ticks(1);
  EXPECT_FALSE(Sweeping(1));
}

TEST_F(JoinHighlight, ANickThatJoinsWhileAnotherIsSweptGetsSlot2AndBothSweepSideBySide) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"ann", "bob"});
  Ticks(1);
  StartJoinHighlight(chat.client, 0, "carl");
  EXPECT_EQ(chat.tab().JoinSlot, 2);
  List({"ann", "bob", "carl"});
  Ticks(1);
  EXPECT_EQ(Colours("bob"), "CCCn");
  EXPECT_EQ(Colours("carl"), "CCnnn");
  Ticks(40);
  EXPECT_FALSE(Sweeping(1));
  EXPECT_FALSE(Sweeping(2));
  StartJoinHighlight(chat.client, 0, "dan");
  EXPECT_EQ(chat.tab().JoinSlot, 1);
}

TEST_F(JoinHighlight, OneThatStillWaitsIsReplaced) {
  StartJoinHighlight(chat.client, 0, "bob");
  StartJoinHighlight(chat.client, 0, "carl");
  EXPECT_EQ(chat.tab().JoinSlot, 1);
  List({"bob", "carl"});
  Ticks(1);
  EXPECT_EQ(Colours("bob"), "nnnn");
  EXPECT_EQ(Colours("carl"), "CCnnn");
}

TEST_F(JoinHighlight, ATabThatFallsBackToSlot1CutsTheSlotsOfTheOthers) {
  for (const char* nick : {"bob", "carl"}) {
    StartJoinHighlight(chat.client, 0, nick);
    List({"bob", "carl"});
  }
  Ticks(1);
  EXPECT_TRUE(Sweeping(2));
  StartJoinHighlight(chat.client, 1, "dan");
  EXPECT_EQ(chat.tab(0).JoinNick.size(), 2u);
  EXPECT_EQ(chat.tab(1).JoinNick.size(), 2u);
  Ticks(1);
  EXPECT_FALSE(Sweeping(2));
  EXPECT_TRUE(Sweeping(1));
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(JoinHighlight, ASlotThatWasCutStaysEndedWhenTheListsGrowAgain) {
  for (const char* nick : {"bob", "carl"}) {
    StartJoinHighlight(chat.client, 0, nick);
    List({"bob", "carl"});
  }
  StartJoinHighlight(chat.client, 1, "dan");
  List({"dan"}, 1);
  StartJoinHighlight(chat.client, 1, "eve");  // slot 2 of all tabs again
  EXPECT_TRUE(Sweeping(2));
  Ticks(1);
  EXPECT_FALSE(Sweeping(2));
}

TEST_F(JoinHighlight, TheReadersSelectionStaysHisOwn) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  chat.tab().Rich_Users.HideSelection(false);
  Ticks(1);
  EXPECT_TRUE(chat.tab().Rich_Users.HideSelection());
}

TEST_F(JoinHighlight, EndsWhenTheListIsEmptied) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  Ticks(2);
  ConnectToChat(chat.client, 0);
  Ticks(2);
  EXPECT_FALSE(Sweeping(1));
}

TEST_F(JoinHighlight, TimersAreKeptOnlyWhileTheySweep) {
  for (int i = 0; i < 50; ++i) {
    StartJoinHighlight(chat.client, 0, "bob");
    List({"bob"});
    Ticks(20);
  }
  StartJoinHighlight(chat.client, 0, "bob");
  EXPECT_LE(chat.tab().JoinTimers.size(), 2u);
  EXPECT_EQ(chat.tab().JoinTimers[1], nullptr);
}

TEST_F(JoinHighlight, OfSeveralThatWaitOnlyTheLatestStarts) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  StartJoinHighlight(chat.client, 0, "carl");
  StartJoinHighlight(chat.client, 0, "dave");
  EXPECT_EQ(chat.tab().JoinSlot, 3);
  List({"bob", "carl", "dave"});
  EXPECT_TRUE(Sweeping(1));
  EXPECT_FALSE(Sweeping(2));
  EXPECT_TRUE(Sweeping(3));
}

TEST_F(JoinHighlight, ALongerNickAheadOfItIsSweptAndGetsItsOwnRankBack) {
  chat.tab().Rich_Users.Text("\r\n\r\n");
  UsersOut(chat.client, {"bobby", "1.2.3.4", "[+o]", ""}, 0);
  chat.tab().UsersText.Append("bobby", "1.2.3.4", "[+o]", "");
  StartJoinHighlight(chat.client, 0, "bob");
  UsersOut(chat.client, {"bob", "", "", ""}, 0);
  chat.tab().UsersText.Append("bob", "", "", "");
  Ticks(5);
  EXPECT_EQ(RunsOf(chat.tab().Rich_Users, 4).front(), "bobby|Main 12 00ffff b u");
}

TEST_F(JoinHighlight, ALongerNickThatGoesInTheMiddleOfASweepDoesNotMakeItEndless) {
  StartJoinHighlight(chat.client, 0, "bo");
  List({"bobby", "bo"});
  Ticks(4);
  chat.tab().Rich_Users.Text("\r\n\r\nbo\r\n");
  Ticks(1);
  EXPECT_EQ(chat.tab().JoinSweeps[1], 1);
  Ticks(12);
  EXPECT_FALSE(Sweeping(1));
}

TEST_F(JoinHighlight, BeyondTheLastSlotItIsAnOverflow) {
  StartJoinHighlight(chat.client, 0, "bob");
  List({"bob"});
  chat.tab().JoinSlot = 32767;
  EXPECT_THROW(StartJoinHighlight(chat.client, 0, "carl"), Fault);
  EXPECT_EQ(chat.tab().JoinSlot, 32767);
}

}  // namespace
}  // namespace parlorwire
