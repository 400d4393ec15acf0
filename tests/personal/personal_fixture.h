// A client with a personal window, whose sockets the test plays.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "personal/pers_frm.h"
#include "personal/pers_posting.h"
#include "personal/pers_queue.h"
#include "personal/personal_window.h"
#include "support/chat.h"
#include "support/pane_runs.h"

namespace parlorwire {

struct PersonalTest : testing::Test {
  PersonalTest() {
    chat.tab().Ticket = "T1";
    client.hooks.pers = [this](int tab) { pers_Click(client, tab); };
    client.hooks.ShowPersWindow = [this](std::int32_t handle) { shown.push_back(handle); };
  }

  // What a click on `pers` of a tab opens; it notes what it is asked for.
  PersonalWindow& Open(int tab = 0) {
    pers_Click(client, tab);
    PersonalWindow& window = *client.app.PersWindows.back();
    TakeBoxes(window);
    window.hooks.Raise = [this, handle = window.Handle] { Note("Raise", handle); };
    window.hooks.ComeUp = [this, handle = window.Handle] { Note("ComeUp", handle); };
    window.hooks.Focus = [this, handle = window.Handle](PersonalField field) {
      Note(field == PersonalField::kMsg ? "Focus msg" : "Focus send_nick", handle);
    };
    window.hooks.ShowFields = [this, handle = window.Handle] { Note("ShowFields", handle); };
    return window;
  }
  // A window whose frame is connected and has given its header and page head.
  PersonalWindow& OpenOnFrame() {
    PersonalWindow& window = Open();
    Simulated(window.W1).Accept();
    Simulated(window.W1).Deliver("HTTP/1.0 200 OK\r\n\r\n<html>\n<body>\n<br>\n");
    platform.time.Advance(10);
    asked.clear();
    return window;
  }
  // W2 and W3 have something to do.
  void QueueAndSay(PersonalWindow& window) {
    ClearPers(client, window, "http://h/a?reqnum=1&pm_msgnum=2");
    if (window.send_nick.empty()) window.send_nick = "bob";
    pers_frm_button_say_MouseUp(client, window);
  }
  void TakeBoxes(PersonalWindow& window) {
    window.hooks.MessageBox = [this](const Text& text, BoxIcon icon) {
      platform.desktop.MessageBox(text, icon);
    };
  }
  void Note(const char* what, std::int32_t handle) {
    asked.push_back(std::string(what) + " " + std::to_string(handle));
  }
  static Text BodyOf(const SimulatedSocket& socket) {
    return socket.sent.substr(socket.sent.find("\r\n\r\n") + 4);
  }
  Text& List() { return client.app.OpenPersList; }

  Chat chat;
  Client& client = chat.client;
  SimulatedPlatform& platform = chat.platform;
  std::vector<std::int32_t> shown;
  std::vector<std::string> asked;
};

}  // namespace parlorwire
