#include "shell/shut_down.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/ini.h"
#include "support/resource_file.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct ShutDown : testing::Test {
  Text& file() { return platform.files.files["config.ini"]; }
  Text Main(const Text& key) { return ReadIni(client, "Main", key); }

  // The keys in the order in which they were written.
  std::vector<Text> KeysWritten(const std::optional<WindowPlace>& place) {
    platform.files.files.clear();
    std::vector<Text> keys;
    Text before;
    const auto note = [&] {
      if (file().size() > before.size()) {
        std::size_t at = 0;
        while (at < before.size() && before[at] == file()[at])
          ++at;
        const std::size_t line = at == 0 ? 0 : file().rfind('\n', at - 1) + 1;
        const Text added = file().substr(line, file().find('=', line) - line);
        keys.push_back(added.substr(added.rfind('\n') + 1));
      }
      before = file();
    };
    platform.desktop.on_yield = note;
    UnloadStep(client, place);
    note();
    platform.desktop.on_yield = nullptr;
    return keys;
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  AppState& app = client.app;
};

TEST_F(ShutDown, SavesTheSplitOfEverySlot) {
  for (int i = 0; i < kTabCount; ++i)
    client.tab(i).TabSplitPercent = std::to_string(20 + i) + ".5";
  UnloadStep(client, std::nullopt);
  for (int i = 0; i < kTabCount; ++i)
    EXPECT_EQ(Main("WMFrame" + std::to_string(i)), std::to_string(20 + i) + ".5");
}

TEST_F(ShutDown, SavesThePlaceAsDecimalText) {
  UnloadStep(client, WindowPlace{-15, 300.25, 14000, 8000});
  EXPECT_EQ(Main("Height"), "8000");
  EXPECT_EQ(Main("Width"), "14000");
  EXPECT_EQ(Main("Top"), "300.25");
  EXPECT_EQ(Main("Left"), "-15");
}

TEST_F(ShutDown, APlaceOfManyDigitsKeepsSevenOfThem) {
  UnloadStep(client, WindowPlace{1.0 / 3, 123456.789, 1, 1});
  EXPECT_EQ(Main("Left"), "0.3333333");
  EXPECT_EQ(Main("Top"), "123456.8");
}

TEST_F(ShutDown, ClosingWhileMinimizedLeavesTheStoredPlace) {
  file() = "[Main]\r\nHeight=1\r\nWidth=2\r\nTop=3\r\nLeft=4\r\n";
  UnloadStep(client, std::nullopt);
  EXPECT_TRUE(file().starts_with("[Main]\r\nHeight=1\r\nWidth=2\r\nTop=3\r\nLeft=4\r\n"));
}

TEST_F(ShutDown, SavesTheCheckMarksOfTheBot) {
  app.AutoKick = true;
  UnloadStep(client, std::nullopt);
  EXPECT_EQ(ReadIni(client, "Bot", "AutoKick"), "True");
  EXPECT_EQ(ReadIni(client, "Bot", "SayIPAndFlags"), "False");
}

TEST_F(ShutDown, SavesTheFonts) {
  app.rFontMain.Size = 33;
  UnloadStep(client, std::nullopt);
  EXPECT_EQ(ReadIni(client, "Fonts", "rFontMain.Size"), "33");
}

TEST_F(ShutDown, SavesTheLoginNumbersOnlyIfThereAreLogins) {
  app.LastLoginIndex = 2;
  UnloadStep(client, std::nullopt);
  EXPECT_EQ(Main("lastIndex"), "");
  EXPECT_EQ(Main("Logins"), "");
  app.LoginCount = 3;
  UnloadStep(client, std::nullopt);
  EXPECT_EQ(Main("lastIndex"), "2");
  EXPECT_EQ(Main("Logins"), "3");
}

TEST_F(ShutDown, SavesTheNickColours) {
  app.CmIniText.Assign("bob=5");
  UnloadStep(client, std::nullopt);
  EXPECT_EQ(platform.files.files["CM.ini"], "bob=5");
}

TEST_F(ShutDown, TakesTheTrayIconAwayAheadOfTheNickColours) {
  SimulatedTray& tray = platform.tray;
  tray.Add(TrayIcon::kWindow, "x");
  app.LoginCount = 1;
  app.CmIniText.Assign("bob=5");
  bool there_at_the_writes = true;
  platform.desktop.on_yield = [&] { there_at_the_writes &= tray.added; };
  UnloadStep(client, std::nullopt);
  EXPECT_TRUE(there_at_the_writes);
  EXPECT_FALSE(tray.added);
}

TEST_F(ShutDown, ClosesTheFrameSocketsWithoutALogoff) {
  for (TabSession& tab : client.tabs) {
    tab.Winsock1->Connect("chat.example", "80");
    Simulated(tab.Winsock1).Accept();
    tab.Winsock5->Connect("chat.example", "80");
  }
  UnloadStep(client, std::nullopt);
  for (TabSession& tab : client.tabs) {
    EXPECT_EQ(tab.Winsock1->State(), SocketState::kClosed);
    EXPECT_EQ(Simulated(tab.Winsock1).sent, "");
    EXPECT_EQ(tab.Winsock5->State(), SocketState::kConnecting);
  }
}

TEST_F(ShutDown, StopsTheTimersOfAllSlotsAtItsEnd) {
  client.tab(9).Timer26->Enabled(true);
  bool running_at_the_writes = true;
  platform.desktop.on_yield = [&] { running_at_the_writes &= client.tab(9).Timer26->Enabled(); };
  UnloadStep(client, std::nullopt);
  EXPECT_TRUE(running_at_the_writes);
  EXPECT_FALSE(client.tab(9).Timer26->Enabled());
}

TEST_F(ShutDown, StopAllTimersStopsEveryTimerOfEverySlot) {
  std::vector<Timer*> timers = {app.Timer17.get(), app.Timer20.get(), app.Timer21.get(),
                                app.Timer23.get(), app.Timer24.get(), app.Timer25.get()};
  for (TabSession& tab : client.tabs) {
    for (auto* timer : {&tab.Timer1, &tab.Timer2, &tab.Timer3, &tab.Timer6, &tab.Timer26})
      timers.push_back(timer->get());
    // Two nicks are being highlighted; the first slot never has a timer.
    tab.JoinTimers.resize(3);
    for (std::size_t slot = 1; slot <= 2; ++slot) {
      tab.JoinTimers[slot] = client.platform.NewTimer();
      timers.push_back(tab.JoinTimers[slot].get());
    }
  }
  for (Timer* timer : timers)
    timer->Enabled(true);
  StopAllTimers(client);
  for (const Timer* timer : timers)
    EXPECT_FALSE(timer->Enabled());
}

TEST_F(ShutDown, WritesInItsOrder) {
  app.LoginCount = 1;
  app.CmIniText.Assign("bob=5");
  for (int i = 0; i < kTabCount; ++i)
    client.tab(i).TabSplitPercent = "5" + std::to_string(i);
  const std::vector<Text> keys = KeysWritten(WindowPlace{1, 2, 3, 4});
  ASSERT_EQ(keys.size(), 10U + 24U + 4U + 2U + 2U);
  for (int i = 0; i < kTabCount; ++i)
    EXPECT_EQ(keys[static_cast<std::size_t>(i)], "WMFrame" + std::to_string(i));
  EXPECT_EQ(keys[10], "rFontMain.Charset");
  EXPECT_EQ(keys[33], "rRichColors.Times");
  EXPECT_EQ(std::vector<Text>(keys.begin() + 34, keys.end()),
            (std::vector<Text>{"Height", "Width", "Top", "Left", "AutoKick", "SayIPAndFlags",
                               "lastIndex", "Logins"}));
}

TEST_F(ShutDown, LetsEventsRunOnceForEveryWrite) {
  app.LoginCount = 1;
  UnloadStep(client, WindowPlace{1, 2, 3, 4});
  EXPECT_EQ(platform.desktop.yields, 10 + 25 + 4 + 2 + 2);
}

TEST_F(ShutDown, EveryFailureIsSkipped) {
  client.tab(0).Timer1->Enabled(true);
  platform.files.write_fault = 61;
  UnloadStep(client, WindowPlace{1, 2, 3, 4});
  EXPECT_TRUE(platform.files.files.empty());
  EXPECT_FALSE(client.tab(0).Timer1->Enabled());
}

TEST_F(ShutDown, WhatWasSavedIsFoundAtTheNextStart) {
  app.CmIniText.Assign("bob=5");
  app.AutoKick = true;
  app.rFontSystem.Name = "Arial";
  for (TabSession& tab : client.tabs)
    tab.TabSplitPercent = "61.5";
  const WindowPlace place{15, 30, 9000, 6000};
  UnloadStep(client, place);

  Client next(platform.Ports());
  EXPECT_EQ(LoadStep(next, {15000, 9600, 75}), place);
  EXPECT_EQ(next.app.CmIniText.text(), "bob=5");
  EXPECT_TRUE(next.app.AutoKick);
  EXPECT_EQ(next.app.rFontSystem.Name, "Arial");
  EXPECT_EQ(next.tab(9).TabSplitPercent, "61.5");
}

TEST_F(ShutDown, ReleasesTheSmiles) {
  ResourceFile library;
  platform.files.files["smiles.dll"] = library.Bytes();
  LoadResourceLibrary(app.resources, platform.Ports(), "smiles.dll");
  ASSERT_TRUE(app.resources.library);
  UnloadStep(client, std::nullopt);
  EXPECT_FALSE(app.resources.library);
}

}  // namespace
}  // namespace parlorwire
