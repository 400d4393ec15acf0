// A channel whose list of users has come through its frame.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/chat.h"
#include "support/pane_runs.h"
#include "users/user_frame.h"

namespace parlorwire {

struct UserListTest : testing::Test {
  UserListTest() {
    chat.client.hooks.OpenUrl = [this](const Text& url) { opened.push_back(url); };
    chat.client.hooks.PopUpNickMenu = [this] { ++nick_menus; };
    chat.client.hooks.PopUpMenuCopyUsers = [this] { ++copy_menus; };
    app.rFontMain.Name = "Main";
    app.rFontMain.ColorMyNick = Rgb(0x11, 0x11, 0x11);
    app.rRichColors.Nicks = Rgb(0x44, 0x44, 0x44);
    app.rRichColors.NicksChoose = Rgb(0x77, 0x77, 0x77);
  }

  // A new list of the tab, by the lines of its frame.
  void Draw(const std::vector<Text>& lines, int tab = 0) {
    Text page = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
    for (const Text& line : lines)
      page += line + "\n";
    UpdateUsersFrame(chat.client, tab);
    chat.Winsock3(tab).Accept();
    chat.Winsock3(tab).Deliver(Koi(page));
    chat.Winsock3(tab).PeerCloses();
  }

  RichTextBox& List(int tab = 0) { return chat.tab(tab).Rich_Users; }
  PanePosition At(std::string_view text, int tab = 0) {
    const std::size_t at = List(tab).Text().find(text);
    if (at == Text::npos) ADD_FAILURE() << text << " is not on the list";
    return static_cast<PanePosition>(at);
  }
  // The colour of the first character of a text on the list.
  PaneColour ColourOf(std::string_view text, int tab = 0) {
    const PanePosition at = At(text, tab);
    return List(tab).RunsBetween(at, at + 1).front().format.colour;
  }

  Chat chat;
  AppState& app = chat.client.app;
  std::vector<Text> opened;
  int nick_menus = 0;
  int copy_menus = 0;
};

}  // namespace parlorwire
