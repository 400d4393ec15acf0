#include "personal/pers_mouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/pers_pane.h"
#include "personal/personal_fixture.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PersMouse : PersonalTest {
  PersMouse() {
    client.hooks.OpenUrl = [this](const Text& url) { opened.push_back(url); };
    window.hooks.PopUpMenuCopy = [this](const CopyMenu& menu) {
      menus.push_back(menu.Link + (menu.Copies ? " copies" : " only"));
    };
    WriteAtEnd(window.Rich, ">[12:00] bob: see www.a.ru, or 10.0.*.* http://x\r\nnext\r\n", {});
  }
  PanePosition At(std::string_view text) const {
    return static_cast<PanePosition>(window.Rich.Text().find(text));
  }
  void Move(PanePosition at) { pers_frm_Rich_MouseMove(window, at); }
  void Down(PanePosition at, MouseButton button = MouseButton::kLeft) {
    pers_frm_Rich_MouseDown(window, at, button);
  }
  void Up(PanePosition at, MouseButton button = MouseButton::kLeft) {
    pers_frm_Rich_MouseUp(client, window, at, button);
  }
  void Click(PanePosition at, MouseButton button = MouseButton::kLeft) {
    Move(at);
    Down(at, button);
    Up(at, button);
  }
  void Key(PaneRange selected, PanePosition caret, MouseButton button = MouseButton::kLeft) {
    ClickAtPersCaret(client, window, selected, caret, button);
  }

  PersonalWindow window;
  std::vector<Text> opened;
  std::vector<Text> menus;
};

TEST_F(PersMouse, ALinkIsUnderThePointerFromItsFirstCharacterToItsLast) {
  const PanePosition start = At("www");
  Move(start - 1);
  EXPECT_EQ(window.HoverLink, "");
  EXPECT_EQ(window.Rich.MousePointer(), PanePointer::kArrow);
  for (const PanePosition at : {start, start + 7}) {
    Move(at);
    EXPECT_EQ(window.HoverLink, "www.a.ru");
    EXPECT_EQ(window.Rich.MousePointer(), PanePointer::kCustom);
  }
  Move(At(" or"));
  EXPECT_EQ(window.HoverLink, "");
  EXPECT_EQ(window.Rich.MousePointer(), PanePointer::kArrow);
}

TEST_F(PersMouse, WhatThePaneDoesNotMarkIsNoLink) {
  Click(At("http://x"));
  EXPECT_EQ(window.HoverLink, "");
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PersMouse, AnAddressMaskIsNoLink) {
  Move(At("10.0"));
  EXPECT_EQ(window.HoverLink, "");
  EXPECT_EQ(window.HoverIP, "10.0.*.*");
  EXPECT_EQ(window.Rich.MousePointer(), PanePointer::kCustom);
  Move(0);
  EXPECT_EQ(window.HoverIP, "");
}

TEST_F(PersMouse, AtTheEndOfALineThereIsNothing) {
  WriteAtEnd(window.Rich, "see www.b.ru\r\n", {});
  Move(At("www.b.ru") + 8);
  EXPECT_EQ(window.HoverLink, "");
}

TEST_F(PersMouse, AClickOpens) {
  client.app.WhoisHost = "whois.test";
  Click(At("www"));
  Click(At("10.0"));
  EXPECT_THAT(opened, ElementsAre("www.a.ru",
                                  "http://whois.test/serv/wwwwhois/nph-wwwtr.cgi?server=10.0.*.*"
                                  "&resolve=ripe&submit=++OK++"));
}

TEST_F(PersMouse, AReleaseNeedsAPressAndOnePressIsOneClick) {
  Move(At("www"));
  Up(At("www"));
  EXPECT_THAT(opened, IsEmpty());
  Click(At("www"));
  Up(At("www"));
  EXPECT_THAT(opened, ElementsAre("www.a.ru"));
}

TEST_F(PersMouse, WhileTheUserSelectsNothingIsUnderThePointer) {
  Move(At("www"));
  Down(At("www"));
  Move(At("10.0"));
  EXPECT_EQ(window.HoverIP, "");
  Up(At("10.0"));
  EXPECT_THAT(opened, IsEmpty());
  Move(At("10.0"));
  EXPECT_EQ(window.HoverIP, "10.0.*.*");
}

TEST_F(PersMouse, ThePressOnNoCharacterSelectsNothing) {
  Down(0);
  EXPECT_FALSE(window.MouseSelecting);
  Down(5, MouseButton::kRight);
  EXPECT_FALSE(window.MouseSelecting);
  Down(1);
  EXPECT_TRUE(window.MouseSelecting);
}

TEST_F(PersMouse, TheRightButtonOpensTheMenuOnALinkAndInTheSelection) {
  const PanePosition see = At("see");
  window.Rich.ExSetSel(see, see + 3);
  Click(At("www"), MouseButton::kRight);
  Click(see, MouseButton::kRight);
  Click(see + 2, MouseButton::kRight);
  Click(see + 3, MouseButton::kRight);
  Click(see - 1, MouseButton::kRight);
  Click(At("10.0"), MouseButton::kRight);
  EXPECT_THAT(menus, ElementsAre("www.a.ru only", " copies", " copies"));
  window.Rich.ExSetSel(0, -1);
  Click(At("www"), MouseButton::kRight);
  EXPECT_EQ(menus.back(), "www.a.ru copies");
  Click(0, MouseButton::kRight);
  EXPECT_EQ(menus.size(), 4U);
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PersMouse, ByKeyboardItIsWhatStandsAtTheCaretOrElseWhereTheSelectionEnds) {
  const PanePosition start = At("www");
  Key({start, start}, start);
  Key({start - 4, start + 8}, start + 8);
  EXPECT_THAT(opened, ElementsAre("www.a.ru", "www.a.ru"));
  Key({start + 8, start + 8}, start + 8);  // the comma behind it belongs to the word
  EXPECT_EQ(opened.size(), 3U);
  Key({start + 9, start + 9}, start + 9);
  EXPECT_EQ(opened.size(), 3U);
  EXPECT_EQ(window.HoverLink, "");
  EXPECT_FALSE(window.MouseSelecting);
  window.Rich.ExSetSel(start, start + 8);
  Key({start, start + 8}, start + 8, MouseButton::kRight);
  EXPECT_THAT(menus, ElementsAre("www.a.ru copies"));
}

}  // namespace
}  // namespace parlorwire
