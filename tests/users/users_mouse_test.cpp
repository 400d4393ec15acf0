#include "users/users_mouse.h"

#include "users/user_list_fixture.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr PaneColour kTint = Rgb(0x77, 0x77, 0x77);
constexpr PaneColour kPlain = Rgb(0x44, 0x44, 0x44);

struct UsersMouseTest : UserListTest {
  UsersMouseTest() {
    Draw(
        {"ann|[][10.0.0.1:]'at work'", "bob|[+o][10.0.0.2:]''", "Alice|[+A -t][]''", "cid|[][]''"});
  }
  void Move(PanePosition at, int tab = 0) { Rich_Users_MouseMove(chat.client, tab, at); }
  void Press(PanePosition at, MouseButton button = MouseButton::kLeft) {
    Move(at);
    Rich_Users_MouseDown(chat.client, 0, at, button);
  }
  void Release(PanePosition at, MouseButton button = MouseButton::kLeft) {
    Rich_Users_MouseUp(chat.client, 0, at, button);
  }
  void Click(PanePosition at, MouseButton button = MouseButton::kLeft) {
    Press(at, button);
    Release(at, button);
  }
  bool Hand() { return List().MousePointer() == PanePointer::kCustom; }
  // Whether every character of the text has the colour, and no other of its line.
  bool WholeIs(std::string_view text, PaneColour colour) {
    const PanePosition start = At(text), end = start + Len(text);
    const auto is = [&](const PaneRun& run) { return run.format.colour == colour; };
    return std::ranges::all_of(List().RunsBetween(start, end), is) &&
           std::ranges::none_of(List().RunsBetween(start - 1, start), is) &&
           std::ranges::none_of(List().RunsBetween(end, end + 1), is);
  }
  Text Msg(int tab = 0) { return chat.platform.desktop.at(tab).msg; }
};

// ---- moving ----

TEST_F(UsersMouseTest, ANickUnderThePointerIsTintedWholeAndThePointerIsAHand) {
  for (const PanePosition at : {At("bob"), At("bob") + 2}) {
    Move(at);
    EXPECT_TRUE(WholeIs("bob", kTint));
    EXPECT_EQ(app.UsersHover.Nick, "bob");
    EXPECT_TRUE(Hand());
    Move(0);
  }
}

TEST_F(UsersMouseTest, BesideANickNothingIsTinted) {
  for (const PanePosition at : {At("bob") + 3, At("[+o]"), At("at work"), At("cid") + 3,
                                PanePosition{0}, PanePosition{-1}, List().Length()}) {
    Move(at);
    EXPECT_EQ(app.UsersHover.Nick, "") << at;
    EXPECT_EQ(app.UsersHover.IP, "") << at;
    EXPECT_FALSE(Hand()) << at;
    EXPECT_FALSE(WholeIs("bob", kTint)) << at;
  }
}

TEST_F(UsersMouseTest, OneNickIsTintedAtATime) {
  Move(At("ann"));
  Move(At("bob"));
  EXPECT_EQ(ColourOf("ann"), kPlain);
  EXPECT_EQ(ColourOf("bob"), kTint);
  Move(At("[+o]"));
  EXPECT_EQ(ColourOf("bob"), 0xFFFF00U);
  EXPECT_FALSE(Hand());
}

TEST_F(UsersMouseTest, AColourIsRestoredByTheNicksRank) {
  Draw({"ann|[+o][]''", "bob|[+O][]''", "cid|[+A][]''", "dan|[+a][]''", "eve|[+v][]''",
        "Alice|[+o -t][]''", "fay|[][]''"});
  struct Case {
    const char* nick;
    PaneColour colour;
  };
  for (const Case& c :
       {Case{"ann", 0xFFFF00}, Case{"bob", 0xB39640}, Case{"cid", 0xFF}, Case{"dan", kPlain},
        Case{"eve", kPlain}, Case{"fay", kPlain}, Case{"Alice", Rgb(0x11, 0x11, 0x11)}}) {
    EXPECT_EQ(ColourOf(c.nick), c.colour) << c.nick;
    Move(At(c.nick));
    EXPECT_EQ(ColourOf(c.nick), kTint) << c.nick;
    Move(0);
    EXPECT_EQ(ColourOf(c.nick), c.colour) << c.nick;
  }
}

TEST_F(UsersMouseTest, ANickWithoutARecordGetsTheColourOfNicks) {
  Move(At("bob"));
  chat.tab().UsersText.Clear();
  Move(0);
  EXPECT_EQ(ColourOf("bob"), kPlain);
}

TEST_F(UsersMouseTest, ANickThatIsAPartOfOneAheadOfItGetsThatOnesColour) {
  Draw({"joann|[+o][]''", "ann|[][]''"});
  const PanePosition ann = At("\nann") + 1;
  const auto colour = [&] { return List().RunsBetween(ann, ann + 1).front().format.colour; };
  EXPECT_EQ(colour(), kPlain);
  Move(ann);
  Move(0);
  EXPECT_EQ(colour(), 0xFFFF00U);
}

TEST_F(UsersMouseTest, TheColoursOfTodayAreRestored) {
  Move(At("ann"));
  app.rRichColors.Nicks = Rgb(1, 2, 3);
  Move(0);
  EXPECT_EQ(ColourOf("ann"), Rgb(1, 2, 3));
}

TEST_F(UsersMouseTest, OnlyTheColourOfANickChanges) {
  const auto before = RunsOf(List());
  Move(At("ann"));
  Move(At("Alice"));
  Move(0);
  EXPECT_EQ(RunsOf(List()), before);
}

TEST_F(UsersMouseTest, AnAddressUnderThePointerIsKnownFromItsFirstToItsLastCharacter) {
  const PanePosition ip = At("10.0.0.1");
  for (const PanePosition at : {ip, ip + 7}) {
    Move(at);
    EXPECT_EQ(app.UsersHover.IP, "10.0.0.1");
    EXPECT_EQ(app.UsersHover.Nick, "");
    EXPECT_TRUE(Hand());
  }
  for (const PanePosition at : {ip - 1, ip + 8}) {
    Move(at);
    EXPECT_EQ(app.UsersHover.IP, "");
    EXPECT_FALSE(Hand());
  }
}

TEST_F(UsersMouseTest, WhatLooksLikeAnAddressInAStatusIsNone) {
  Draw({"ann|[][]'10.0.0.9'"});
  Move(At("10.0.0.9"));
  EXPECT_EQ(app.UsersHover.IP, "");
}

TEST_F(UsersMouseTest, ThePanesSelectionSurvivesTheTint) {
  List().ExSetSel(At("10.0.0.2"), At("10.0.0.2") + 8);
  Move(At("ann"));
  EXPECT_EQ(List().SelText(), "10.0.0.2");
  Move(0);
  EXPECT_EQ(List().SelText(), "10.0.0.2");
}

TEST_F(UsersMouseTest, TheTintIsNotShownAsASelection) {
  List().HideSelection(false);
  Move(At("ann"));
  EXPECT_TRUE(List().HideSelection());
}

TEST_F(UsersMouseTest, WhileTheUserSelectsNothingIsUnderThePointer) {
  Press(At("ann"));
  EXPECT_TRUE(app.MouseSelecting);
  EXPECT_EQ(app.MouseDownChar, At("ann"));
  EXPECT_EQ(app.MouseDownTab, 0);
  Move(At("bob"));
  EXPECT_EQ(ColourOf("ann"), kPlain);
  EXPECT_EQ(ColourOf("bob"), 0xFFFF00U);
  EXPECT_FALSE(Hand());
  Release(At("bob"));
  EXPECT_FALSE(app.MouseSelecting);
  EXPECT_EQ(Msg(), "");
}

TEST_F(UsersMouseTest, SelectingBeginsWithTheLeftButtonAndNotAtTheVeryStart) {
  Press(At("ann"), MouseButton::kRight);
  EXPECT_FALSE(app.MouseSelecting);
  Press(0);
  EXPECT_FALSE(app.MouseSelecting);
}

// ---- leaving ----

TEST_F(UsersMouseTest, Timer17RestoresTheColourBehindALeavingPointerAndStops) {
  Move(At("bob"));
  MouseLeave(chat.client);
  EXPECT_EQ(ColourOf("bob"), kTint);
  EXPECT_TRUE(app.Timer17->Enabled());
  chat.platform.time.Advance(10);
  EXPECT_EQ(ColourOf("bob"), 0xFFFF00U);
  EXPECT_FALSE(app.Timer17->Enabled());
  EXPECT_EQ(app.UsersHover.Nick, "");
}

TEST_F(UsersMouseTest, APointerThatIsBackAtOnceKeepsItsTint) {
  Move(At("bob"));
  MouseLeave(chat.client);
  Move(At("bob") + 1);
  chat.platform.time.Advance(100);
  EXPECT_EQ(ColourOf("bob"), kTint);
}

TEST_F(UsersMouseTest, ThePointerGoesToTheListOfAnotherTab) {
  Draw({"bob|[][]''"}, 3);
  Move(At("bob"));
  Move(At("bob", 3), 3);
  EXPECT_EQ(ColourOf("bob"), 0xFFFF00U);
  EXPECT_EQ(ColourOf("bob", 3), kTint);
  MouseLeave(chat.client);
  chat.platform.time.Advance(10);
  EXPECT_EQ(ColourOf("bob", 3), kPlain);
}

// ---- a list that changes under the pointer ----

TEST_F(UsersMouseTest, ATintedNickIsFoundWhereItWentWhenALineAheadOfItLeft) {
  chat.tab().ActionsArmed = true;
  Move(At("Alice"));
  chat.client.hooks.ClientAction("bob покидает нас"_w, 0);
  EXPECT_EQ(List().Text().find("bob"), Text::npos);
  EXPECT_EQ(ColourOf("Alice"), kTint);
  Move(At("cid"));
  EXPECT_EQ(ColourOf("Alice"), Rgb(0x11, 0x11, 0x11));
  EXPECT_EQ(ColourOf("cid"), kTint);
}

TEST_F(UsersMouseTest, ATintedNickThatLeftIsForgotten) {
  chat.tab().ActionsArmed = true;
  Move(At("bob"));
  chat.client.hooks.ClientAction("bob покидает нас"_w, 0);
  const auto before = RunsOf(List());
  Move(0);
  EXPECT_EQ(RunsOf(List()), before);
}

TEST_F(UsersMouseTest, ANewListIsNotColouredAtTheOldPlace) {
  Move(At("bob"));
  Draw({"ann|[][10.0.0.1:]'at work'", "eve|[+o][10.0.0.2:]''", "fay|[][]''"});
  List().ExSetSel(At("eve"), At("eve") + 3);
  List().SelColor(Rgb(9, 9, 9));  // a highlight has begun
  const auto before = RunsOf(List());
  Move(0);
  EXPECT_EQ(RunsOf(List()), before);
}

TEST_F(UsersMouseTest, TheSameNickInTheSamePlaceOfANewListIsTintedAgain) {
  Move(At("bob"));
  Draw({"ann|[][10.0.0.1:]'at work'", "bob|[][]''"});
  EXPECT_EQ(ColourOf("bob"), kPlain);
  Move(At("bob"));
  EXPECT_EQ(ColourOf("bob"), kTint);
}

TEST_F(UsersMouseTest, MovesInTheMiddleOfANewListFindNothing) {
  Move(At("bob"));
  chat.platform.desktop.on_yield = [this] {
    Move(20);
    Click(2);
  };
  Draw({"dan|[][]''"});
  EXPECT_EQ(Msg(), "");
  EXPECT_EQ(ColourOf("dan"), kPlain);
}

TEST_F(UsersMouseTest, AClickIsForTheNickThatWasPressedEvenIfTheListIsNewBeforeTheRelease) {
  Press(At("bob"), MouseButton::kRight);
  Draw({"dan|[][]''", "eve|[][]''", "fay|[][]''"});
  Release(At("eve"), MouseButton::kRight);
  EXPECT_EQ(app.MenuNick, "bob");
}

TEST_F(UsersMouseTest, AnEmptiedListLeavesNothingBehind) {
  Move(At("bob"));
  List().Text("");
  Move(0);
  Move(5);
  EXPECT_EQ(List().Text(), "");
  EXPECT_EQ(app.UsersHover.Nick, "");
}

// ---- clicks ----

TEST_F(UsersMouseTest, ALeftClickOnANickPutsItAheadInMsgOfItsTab) {
  chat.platform.desktop.at(0).msg = "hello";
  chat.platform.desktop.active_tab = 4;
  Click(At("bob"));
  EXPECT_EQ(Msg(), "bob hello");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 0);
  Click(At("ann"));
  EXPECT_EQ(Msg(), "ann bob hello");
  EXPECT_EQ(Msg(4), "");
  EXPECT_EQ(nick_menus, 0);
}

TEST_F(UsersMouseTest, ARightClickOnANickOpensItsMenu) {
  Click(At("bob"), MouseButton::kRight);
  EXPECT_EQ(app.MenuNick, "bob");
  EXPECT_EQ(app.nick_menu.nickname, "bob");
  EXPECT_EQ(nick_menus, 1);
  EXPECT_EQ(Msg(), "");
  EXPECT_EQ(chat.platform.desktop.focused_msg, -1);
}

TEST_F(UsersMouseTest, ANickWithABlankIsOneNick) {
  Draw({"big bob|[][]''", "bob|[+o][]''"});
  Click(At("big bob") + 5, MouseButton::kRight);
  EXPECT_EQ(app.MenuNick, "big bob");
}

TEST_F(UsersMouseTest, MenuNickStaysWhateverTheMouseAndTheListDoAfterwards) {
  Click(At("bob"), MouseButton::kRight);
  Move(At("ann"));
  Draw({"dan|[][]''", "eve|[][]''"});
  Move(At("eve"));
  EXPECT_EQ(app.MenuNick, "bob");
}

TEST_F(UsersMouseTest, ALeftClickOnAnAddressOpensTheWhoisPage) {
  Click(At("10.0.0.1"));
  EXPECT_THAT(opened, ElementsAre("http://chat.example/serv/wwwwhois/nph-wwwtr.cgi?server="
                                  "10.0.0.1&resolve=ripe&submit=++OK++"));
  app.ChatPort = "8080";
  Click(At("10.0.0.1"));
  EXPECT_THAT(opened.back(), StartsWith("http://chat.example:8080/serv/"));
  app.WhoisHost = "example.org:81";
  Draw({"ann|[][10.0.*.*:]''"});
  Click(At("10.0"));
  EXPECT_EQ(opened.back(),
            "http://example.org:81/serv/wwwwhois/nph-wwwtr.cgi?server="
            "10.0.*.*&resolve=ripe&submit=++OK++");
  EXPECT_EQ(Msg(), "");
}

TEST_F(UsersMouseTest, ARightClickOnAnAddressOpensNothing) {
  Click(At("10.0.0.1"), MouseButton::kRight);
  EXPECT_THAT(opened, IsEmpty());
  EXPECT_EQ(nick_menus + copy_menus, 0);
}

TEST_F(UsersMouseTest, AClickBesideEverythingDoesNothing) {
  for (const MouseButton button : {MouseButton::kLeft, MouseButton::kRight})
    Click(At("at work"), button);
  EXPECT_EQ(Msg(), "");
  EXPECT_EQ(nick_menus + copy_menus, 0);
  EXPECT_THAT(opened, IsEmpty());
}

// ---- copying what is selected ----

TEST_F(UsersMouseTest, ARightClickInTheSelectionOpensTheMenuThatCopiesIt) {
  const PanePosition start = At("10.0.0.1 at");
  List().ExSetSel(start, start + 11);
  Click(start, MouseButton::kRight);
  EXPECT_EQ(copy_menus, 1);
  Click(start + 10, MouseButton::kRight);
  EXPECT_EQ(copy_menus, 2);
  for (const PanePosition at : {start - 1, start + 11})
    Click(at, MouseButton::kRight);
  Click(start + 9, MouseButton::kLeft);
  EXPECT_EQ(copy_menus, 2);
}

TEST_F(UsersMouseTest, OnANickInTheSelectionTheMenuIsTheNicks) {
  List().ExSetSel(At("ann"), At("bob"));
  Click(At("ann"), MouseButton::kRight);
  EXPECT_EQ(nick_menus, 1);
  EXPECT_EQ(copy_menus, 0);
}

TEST_F(UsersMouseTest, WithNothingSelectedThereIsNothingToCopy) {
  List().ExSetSel(At("at work"), At("at work"));
  Click(At("at work"), MouseButton::kRight);
  EXPECT_EQ(copy_menus, 0);
}

}  // namespace
}  // namespace parlorwire
