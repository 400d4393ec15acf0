// A client on the simulated platform, and the server that a test plays towards it.
#pragma once

#include <string>
#include <string_view>

#include "session/client.h"
#include "session/connect.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "text/charset.h"

namespace parlorwire {

// The bytes of a text on the wire.
inline Text Koi(std::string_view text) {
  return ConvertCharset(Text(text), Charset::kWindows1251, Charset::kKoi);
}

inline constexpr std::string_view kGoodHeader =
    "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n";

// One assembled client with the identity alice / secret / lobby in tab 0.
struct Chat {
  Chat() {
    Assemble(client);
    client.app.ChatHost = "chat.example";
    TabSession& session = tab();
    session.Login = "alice";
    session.Password = "secret";
    session.Channel = "lobby";
    platform.desktop.SetTabVisible(0, true);
  }

  TabSession& tab(int index = 0) { return client.tab(index); }
  SimulatedSocket& Winsock1(int index = 0) { return Simulated(tab(index).Winsock1); }
  SimulatedSocket& Winsock2(int index = 0) { return Simulated(tab(index).Winsock2); }
  SimulatedSocket& Winsock3(int index = 0) { return Simulated(tab(index).Winsock3); }
  SimulatedSocket& Winsock4(int index = 0) { return Simulated(tab(index).Winsock4); }
  SimulatedSocket& Winsock5(int index = 0) { return Simulated(tab(index).Winsock5); }

  // Connects, and answers the login with this page.
  void AnswerLogin(std::string_view page, int index = 0) {
    ConnectToChat(client, index);
    Winsock1(index).Accept();
    Winsock1(index).Deliver(page);
    Winsock1(index).PeerCloses();
  }

  // Logs in with the ticket T1 and opens the frame; nothing of it has come yet.
  void OpenFrame(int index = 0) {
    AnswerLogin("<a href='/frame?a=1&ticket=T1'>", index);
    Winsock1(index).Accept();
  }

  // Logs in and enters the channel: the tab is Connected.
  void EnterChannel(int index = 0) {
    OpenFrame(index);
    Deliver(Text(kGoodHeader) + "<pre>\n", index);
  }

  // A chunk of the frame, given as the client shall read it.
  void Deliver(std::string_view text, int index = 0) { Winsock1(index).Deliver(Koi(text)); }

  Text Pane(int index = 0) { return tab(index).Rich.Text(); }
  Text ErrorLog() { return platform.files.files["error.log"]; }
  Text DayLog() { return platform.files.files["Logs\\lobby\\21.11.2026.log"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

}  // namespace parlorwire
