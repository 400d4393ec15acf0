// A client whose settings all differ, so that a run shows where its look comes from.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/text_out.h"
#include "support/pane_runs.h"
#include "support/simulated_platform.h"

namespace parlorwire {

inline constexpr LineKind kAction = LineKind::kAction;
inline constexpr LineKind kEcho = LineKind::kEcho;
inline constexpr LineKind kSystem = LineKind::kSystem;
inline constexpr LineKind kMessage = LineKind::kMessage;

struct TextOutTest : testing::Test {
  TextOutTest() {
    AppState& app = client.app;
    app.rFontMain.Name = "Main";
    app.rFontMain.Size = 12;
    app.rFontMain.ColorMyNick = Rgb(0x11, 0x11, 0x11);
    app.rFontSystem.Name = "System";
    app.rFontSystem.Size = 9;
    app.rFontSystem.TextColor = Rgb(0x22, 0x22, 0x22);
    app.rFontSystem.Italic = true;
    app.rFontSystem.Bold = false;
    app.rFontStatus.Name = "Status";
    app.rFontStatus.TextColor = Rgb(0x33, 0x33, 0x33);
    app.rRichColors.Nicks = Rgb(0x44, 0x44, 0x44);
    app.rRichColors.Symbols = Rgb(0x55, 0x55, 0x55);
    app.rRichColors.TextColor = Rgb(0x66, 0x66, 0x66);
    app.rRichColors.Times = Rgb(0x77, 0x77, 0x77);
    app.CmIniText.Assign("alice=8947848 bob=10066329");  // 888888 and 999999
    session.Login = "Me";
    session.Channel = "";
    client.hooks.SayBot = [this](const Text& text, int tab) {
      said.push_back(std::to_string(tab) + " " + text);
    };
    client.hooks.ShowBalloon = [this](const Text& title, const Text& text, int flags,
                                      const BalloonAbout& about) {
      balloons.push_back(title + "|" + text + "|" + std::to_string(flags));
      balloons_about.push_back(about);
    };
    client.hooks.SetTrayBlink = [this](int mode) { blinks.push_back(mode); };
  }

  void Out(const Text& nick, const Text& text, LineKind kind, const Text& time = "[1]") {
    from = session.Rich.Length();
    TextOut(client, time, nick, text, kind, 0);
  }
  std::vector<std::string> Runs() const { return RunsOf(session.Rich, from); }
  Text ErrorLog() { return platform.files.files["error.log"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  TabSession& session = client.tab(0);
  PanePosition from = 0;
  std::vector<Text> said;
  std::vector<Text> balloons;
  std::vector<BalloonAbout> balloons_about;
  std::vector<int> blinks;
};

}  // namespace parlorwire
