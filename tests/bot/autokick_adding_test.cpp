#include "bot/autokick_adding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "bot/autokick.h"
#include "bot/autokick_editor.h"
#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using Box = SimulatedDesktop::Box;

struct AutoKickAdding : testing::Test {
  AutoKickAdding() {
    client.app.MenuNick = "Bob";
    client.tab(0).Channel = "Lobby";
    client.tab(3).Channel = "Attic";
  }
  void ExpectToldAndSaved(const Text& message, const Text& new_list) {
    EXPECT_THAT(desktop.boxes, ElementsAre(Box{message, BoxIcon::kInformation, false}));
    EXPECT_EQ(list(), new_list);
    EXPECT_TRUE(file().ends_with("do not modify!\r\n" + new_list)) << file();
    EXPECT_TRUE(file().starts_with("// Сгенерировано Parlorwire, не редактировать!\r\n// "_w));
  }
  void ExpectRefused(const Text& message, const Text& old_list) {
    EXPECT_THAT(desktop.boxes, ElementsAre(Box{message, BoxIcon::kExclamation, false}));
    EXPECT_EQ(list(), old_list);
    EXPECT_EQ(platform.files.writes, 0);
  }
  Text& list() { return client.app.AutoKickText; }
  Text& file() { return platform.files.files["AutoKick.lst"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  SimulatedDesktop& desktop = platform.desktop;
};

// ---- all channels ----

TEST_F(AutoKickAdding, ANewNickGetsAnEntryForAllChannels) {
  AddToAutoKickAllChannels(client);
  ExpectToldAndSaved("Bob успешно добавлен в автокик-лист"_w, "Bob\tAll\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, ALineEndStandsAheadOfItUnlessTheListIsEmpty) {
  list() = "Ann\tAll\tGo\t";
  AddToAutoKickAllChannels(client);
  ExpectToldAndSaved("Bob успешно добавлен в автокик-лист"_w,
                     "Ann\tAll\tGo\t\r\nBob\tAll\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, AnEntryWithOtherChannelsGetsAllInTheirPlace) {
  list() = "Ann\tx\tGo\t\r\nbob\thall;attic\tOut\tfriend\r\nCarl\tx\tGo\t";
  AddToAutoKickAllChannels(client);
  ExpectToldAndSaved("Bob уже находился в автокик-листе; список каналов заменен на All"_w,
                     "Ann\tx\tGo\t\r\nbob\tAll\tOut\tfriend\r\nCarl\tx\tGo\t");
}

TEST_F(AutoKickAdding, AnEntryForAllChannelsStaysAsItIs) {
  list() = "bob\thall;ALL\tOut\tfriend";
  AddToAutoKickAllChannels(client);
  ExpectRefused("Bob уже находится в автокик-листе с пометкой All (кикать со всех каналов)"_w,
                "bob\thall;ALL\tOut\tfriend");
}

// ---- this channel ----

TEST_F(AutoKickAdding, ANewNickGetsAnEntryForThisChannel) {
  desktop.active_tab = 3;
  AddToAutoKickThisChannel(client);
  ExpectToldAndSaved("Bob успешно добавлен в автокик-лист на канале Attic"_w,
                     "Bob\tAttic\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, AnEntryWithOtherChannelsGetsThisOneBehindThem) {
  list() = "bob\thall;attic\tOut\tfriend\r\nCarl\tx\tGo\t";
  AddToAutoKickThisChannel(client);
  ExpectToldAndSaved(
      "Bob уже находился в автокик-листе; канал Lobby успешно добавлен в черный список"_w,
      "bob\thall;attic;Lobby\tOut\tfriend\r\nCarl\tx\tGo\t");
}

TEST_F(AutoKickAdding, AnEntryForThisChannelStaysAsItIs) {
  list() = "bob\thall;LOBBY\tOut\tfriend";
  AddToAutoKickThisChannel(client);
  ExpectRefused("Bob уже находится в автокик-листе на этом канале (Lobby)"_w,
                "bob\thall;LOBBY\tOut\tfriend");
}

TEST_F(AutoKickAdding, AnEntryForAllChannelsNeedsNoOther) {
  list() = "bob\tall\tOut\tfriend";
  AddToAutoKickThisChannel(client);
  ExpectRefused("Bob уже находится в автокик-листе с пометкой All (кикать со всех каналов)"_w,
                "bob\tall\tOut\tfriend");
}

TEST_F(AutoKickAdding, AChannelThatIsPartOfAnotherIsAddedNevertheless) {
  list() = "bob\tLobby2\tOut\tfriend";
  AddToAutoKickThisChannel(client);
  EXPECT_EQ(list(), "bob\tLobby2;Lobby\tOut\tfriend");
}

// ---- what counts as the nick's entry ----

TEST_F(AutoKickAdding, OnlyALineThatBeginsWithTheWholeNickIsItsEntry) {
  const Text others = "Bobby\tx\tGo\t\r\nBigBob\tx\tGo\t\r\nB*\tx\tGo\tBob\t";
  list() = others;
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), others + "\r\nBob\tAll\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, TheWildcardsOfANickMeanNothing) {
  list() = "Bob\tx\tGo\t";
  client.app.MenuNick = "B*";
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), "Bob\tx\tGo\t\r\nB*\tAll\t" + Text(kDefaultReason));
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), "Bob\tx\tGo\t\r\nB*\tAll\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, AnEntryWithoutASecondTabEndsAtItsLine) {
  list() = "Bob\thall\r\nAnn\tattic\tGo\t";
  AddToAutoKickThisChannel(client);
  EXPECT_EQ(list(), "Bob\thall;Lobby\r\nAnn\tattic\tGo\t");
  list() = "Ann\tattic\tGo\t\r\nBob\thall";
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), "Ann\tattic\tGo\t\r\nBob\tAll");
  list() = "Ann\tattic\tGo\t\r\nBob\thall";
  AddToAutoKickThisChannel(client);
  EXPECT_EQ(list(), "Ann\tattic\tGo\t\r\nBob\thall;Lobby");
}

TEST_F(AutoKickAdding, ATabInANickDoesNotNameSomebodyElse) {
  client.app.MenuNick = "ann\tAll\r\ncarl";
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), "ann All  carl\tAll\t" + Text(kDefaultReason));
}

// ---- files ----

TEST_F(AutoKickAdding, TheUserIsToldBeforeTheFileIsWritten) {
  struct Telling : SimulatedDesktop {
    void MessageBox(const Text&, BoxIcon) override { writes_then = files->writes; }
    SimulatedFiles* files = nullptr;
    int writes_then = -1;
  } telling;
  telling.files = &platform.files;
  Client other(platform.Ports(telling));
  other.app.MenuNick = "Bob";
  AddToAutoKickAllChannels(other);
  EXPECT_EQ(telling.writes_then, 0);
  EXPECT_EQ(platform.files.writes, 1);
}

TEST_F(AutoKickAdding, OnADiskThatCannotBeWrittenTheEntryHoldsInMemory) {
  platform.files.write_fault = 61;
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(list(), "Bob\tAll\t" + Text(kDefaultReason));
  EXPECT_FALSE(platform.files.files.contains("AutoKick.lst"));
  EXPECT_EQ(desktop.boxes.size(), 1U);
}

TEST_F(AutoKickAdding, AFileThatCouldNotBeReadIsNotRewritten) {
  file() = "precious";
  platform.files.unreadable.insert("AutoKick.lst");
  LoadAutoKick(client);
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(file(), "precious");
  EXPECT_EQ(list(), "Bob\tAll\t" + Text(kDefaultReason));
}

TEST_F(AutoKickAdding, AnEntryOfTheMenuWorksOnceTheEditorHasRewrittenIt) {
  AddToAutoKickAllChannels(client);
  EXPECT_THROW(FindAutoKick(client, "bob", "lobby", true, ""), Fault);
  ApplyAutoKickEditor(client, OpenAutoKickEditor(client));
  EXPECT_EQ(FindAutoKick(client, "bob", "lobby", true, ""), Text(kDefaultReason).substr(1) + "\t");
}

// ---- an open editor ----

TEST_F(AutoKickAdding, AnOpenEditorIsToldOfWhatIsNewBeforeTheUserIs) {
  std::vector<Text> told;
  client.hooks.AutoKickAdded = [&](const Text& nick, const Text& channel) {
    EXPECT_EQ(desktop.boxes.size(), told.size());
    told.push_back(nick + " on " + channel);
  };
  AddToAutoKickThisChannel(client);
  desktop.active_tab = 3;
  AddToAutoKickThisChannel(client);
  AddToAutoKickAllChannels(client);
  client.app.MenuNick = "Ann";
  AddToAutoKickAllChannels(client);
  EXPECT_THAT(told, ElementsAre("Bob on Lobby", "Bob on Attic", "Bob on All", "Ann on All"));
}

TEST_F(AutoKickAdding, AnOpenEditorIsNotToldOfWhatIsThereAlready) {
  list() = "Bob\tlobby\tGo\t\r\nAnn\tall\tGo\t";
  client.hooks.AutoKickAdded = [&](const Text&, const Text&) { FAIL(); };
  AddToAutoKickThisChannel(client);
  client.app.MenuNick = "Ann";
  AddToAutoKickThisChannel(client);
  AddToAutoKickAllChannels(client);
  EXPECT_EQ(desktop.boxes.size(), 3U);
}

}  // namespace
}  // namespace parlorwire
