#include "users/users_out.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/pane_runs.h"
#include "support/scripted_view.h"
#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

struct UsersOutTest : testing::Test {
  UsersOutTest() {
    client.app.rFontMain.Name = "Main";
    client.app.rFontMain.ColorMyNick = Rgb(0x11, 0x11, 0x11);
    client.app.rRichColors.Nicks = Rgb(0x44, 0x44, 0x44);
    client.tab(0).Login = "Me";
  }
  std::vector<std::string> Drawn(const UserRecord& user) {
    const PanePosition from = pane.Length();
    UsersOut(client, user, 0);
    return RunsOf(pane, from);
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  RichTextBox& pane = client.tab(0).Rich_Users;
};

TEST_F(UsersOutTest, AUserWithAllColumns) {
  EXPECT_THAT(
      Drawn({"bob", "10.0.0.7", "[+v]", "at work"}),
      ElementsAre("bob|Main 12 444444 b u", " |courier new 10 444444 b", "[+v]|Main 12 ffff00 b",
                  " |courier new 10 ffff00 b", "10.0.0.7|Main 12 ff0000 b",
                  " |courier new 10 ff0000 b", "at work\\r\\n|Main 12 00ff00 b"));
}

TEST_F(UsersOutTest, WithoutBoldNicksNoColumnIsBold) {
  client.app.rFontMain.Bold = false;
  EXPECT_THAT(
      Drawn({"bob", "", "[+v]", ""}),
      ElementsAre("bob|Main 12 444444 u", " |courier new 10 444444", "[+v]\\r\\n|Main 12 ffff00"));
}

TEST_F(UsersOutTest, AUserWithNothingIsTheNickAlone) {
  EXPECT_THAT(Drawn({"bob", "", "", ""}), ElementsAre("bob\\r\\n|Main 12 444444 b u"));
}

TEST_F(UsersOutTest, AMissingColumnLeavesNoSecondBlank) {
  UsersOut(client, {"bob", "", "[+v]", "at work"}, 0);
  UsersOut(client, {"ann", "1.1.1.1", "", "x"}, 0);
  EXPECT_EQ(pane.Text(), "bob [+v] at work\r\nann 1.1.1.1 x\r\n");
}

TEST_F(UsersOutTest, LinesStandInTheOrderOfTheCalls) {
  for (const char* nick : {"zed", "ann", "Bob"})
    UsersOut(client, {nick, "", "", ""}, 0);
  EXPECT_EQ(pane.Text(), "zed\r\nann\r\nBob\r\n");
}

TEST_F(UsersOutTest, RanksColourTheNick) {
  struct Case {
    const char* nick;
    const char* flags;
    const char* colour;
  };
  for (const Case& c :
       {Case{"bob", "[+o]", "00ffff"}, Case{"bob", "[+O]", "4096b3"}, Case{"bob", "[+A]", "ff0000"},
        Case{"bob", "[+oO]", "00ffff"}, Case{"bob", "[+a]", "444444"},
        Case{"bob", "[-o]", "444444"}, Case{"bob", "", "444444"}, Case{"Me", "[+o]", "111111"},
        Case{"mE", "[+A]", "111111"}, Case{"Me", "", "111111"}, Case{"Meg", "", "444444"}})
    EXPECT_THAT(Drawn({c.nick, "", c.flags, ""}).front(),
                testing::HasSubstr("Main 12 " + std::string(c.colour) + " b u"))
        << c.nick << c.flags;
}

TEST_F(UsersOutTest, AViewAtItsEndGoesUpTwoLines) {
  ScriptedView view(pane);
  view.bar = {0, 100, 10, 89};
  UsersOut(client, {"bob", "", "", ""}, 0);
  EXPECT_TRUE(view.scrolls.empty());
  view.bar.pos = 90;
  UsersOut(client, {"bob", "", "", ""}, 0);
  EXPECT_THAT(view.scrolls, ElementsAre(PaneScroll::kLineUp, PaneScroll::kLineUp));
}

TEST_F(UsersOutTest, TellsTheHighlightOfEachDrawnLine) {
  std::vector<Text> drawn;
  client.hooks.StartWaitingHighlight = [&](int tab) {
    EXPECT_EQ(tab, 0);
    drawn.push_back(pane.Text());
  };
  UsersOut(client, {"bob", "", "", ""}, 0);
  UsersOut(client, {"ann", "", "", ""}, 0);
  EXPECT_THAT(drawn, ElementsAre("bob\r\n", "bob\r\nann\r\n"));
}

TEST_F(UsersOutTest, AFaultIsLoggedAndPassedOver) {
  client.hooks.StartWaitingHighlight = [](int) { throw Fault(9); };
  UsersOut(client, {"bob", "", "", ""}, 0);
  EXPECT_EQ(platform.files.files["error.log"],
            "[21.11.2026 12:00:00] Error 9 Subscript out of range. Function: UsersOut\r\n");
}

TEST_F(UsersOutTest, AnObjectThatIsLoadedAlreadyIsNotLogged) {
  client.hooks.StartWaitingHighlight = [](int) { throw Fault(fault::kAlreadyLoaded); };
  UsersOut(client, {"bob", "", "", ""}, 0);
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

TEST_F(UsersOutTest, TheFormWithoutATrapDrawsTheSameAndFaults) {
  UsersOutExt(client, {"bob", "1.1.1.1", "[+o]", "x"}, 0);
  EXPECT_EQ(pane.Text(), "bob [+o] 1.1.1.1 x\r\n");
  client.hooks.StartWaitingHighlight = [](int) { throw Fault(9); };
  EXPECT_THROW(UsersOutExt(client, {"bob", "", "", ""}, 0), Fault);
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

}  // namespace
}  // namespace parlorwire
