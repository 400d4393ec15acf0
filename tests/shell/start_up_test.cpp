#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/resource_file.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

constexpr WindowMeasures kMeasures{15000, 9600, 75.0018751};

struct StartUp : testing::Test {
  // The keys of one section, and nothing else.
  void Settings(const Text& section, const Text& lines) {
    platform.files.files["config.ini"] = "[" + section + "]\r\n" + lines;
  }
  WindowPlace Load() { return LoadStep(client, kMeasures); }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  AppState& app = client.app;
  SimulatedDesktop& desktop = platform.desktop;
};

TEST_F(StartUp, WithNoFilesAllIsAtItsDefault) {
  desktop.tabs[4].visible = true;
  desktop.shared_controls_enabled = true;
  EXPECT_EQ(Load(), (WindowPlace{500, 800, 14000, 8000}));
  EXPECT_EQ(app.ChatHost, "localhost");
  EXPECT_EQ(app.ChatPort, "80");
  EXPECT_EQ(app.Language, UiLanguage::kRussian);
  EXPECT_EQ(desktop.shown_language, UiLanguage::kRussian);
  EXPECT_FALSE(app.AutoKick);
  EXPECT_FALSE(app.SayIPAndFlags);
  EXPECT_EQ(app.SpamHost, "spam.example");
  EXPECT_EQ(app.SpamDomain, "flood.example");
  EXPECT_EQ(app.SpamDomainAllowed, "rules.flood.example");
  EXPECT_EQ(app.ActionDelayValue, 3000);
  EXPECT_EQ(app.ReconnectDelayValue, 60000);
  EXPECT_EQ(app.DisableKickChannels, "");
  EXPECT_EQ(app.rFontMain.Size, 12);
  EXPECT_EQ(app.CmIniText.text(), "");
  EXPECT_EQ(app.IpLogText, "");
  EXPECT_EQ(app.AutoKickText, "");
  for (int i = 0; i < kTabCount; ++i) {
    EXPECT_FALSE(desktop.TabVisible(i));
    EXPECT_EQ(client.tab(i).TabSplitPercent, "75.00188");
    EXPECT_EQ(client.tab(i).LoginShown, i == 0);
  }
  EXPECT_FALSE(desktop.shared_controls_enabled);
}

TEST_F(StartUp, ReadsOnlyAndLeavesAnEmptyConfigIniOnly) {
  Load();
  EXPECT_EQ(platform.files.files, (std::map<Text, Text>{{"config.ini", ""}}));
}

TEST_F(StartUp, LetsTheSplashBePaintedBeforeAnythingIsRead) {
  desktop.on_yield = [&] { EXPECT_FALSE(platform.files.Exists("config.ini")); };
  Load();
  EXPECT_EQ(desktop.yields, 1);
}

TEST_F(StartUp, TheLanguageIsEnglishOnlyForThatWord) {
  for (const auto* word : {"English", "Russian", "english", "German", ""}) {
    Settings("Main", Text("Language=") + word);
    Load();
    const UiLanguage language =
        Text(word) == "English" ? UiLanguage::kEnglish : UiLanguage::kRussian;
    EXPECT_EQ(app.Language, language) << word;
    EXPECT_EQ(desktop.shown_language, language) << word;
  }
}

TEST_F(StartUp, TheCheckMarksOfTheBotAreSetByTrueOnly) {
  for (const auto& [word, on] :
       {std::pair{"True", true}, {"False", false}, {"true", false}, {"1", false}, {"", false}}) {
    Settings("Bot", "AutoKick=" + Text(word) + "\r\nSayIPAndFlags=" + word);
    Load();
    EXPECT_EQ(app.AutoKick, on) << word;
    EXPECT_EQ(app.SayIPAndFlags, on) << word;
  }
}

TEST_F(StartUp, TheHostsOfTheSpamRulesComeFromTheFile) {
  Settings("Bot", "SpamHost=a.example\r\nSpamDomain=b.example\r\nSpamDomainAllowed=\r\n");
  Load();
  EXPECT_EQ(app.SpamHost, "a.example");
  EXPECT_EQ(app.SpamDomain, "b.example");
  EXPECT_EQ(app.SpamDomainAllowed, "rules.flood.example");
}

TEST_F(StartUp, TheWhoisGatewayComesFromTheFile) {
  Load();
  EXPECT_EQ(app.WhoisHost, "");
  Settings("Main", "WhoisHost=whois.test:81\r\n");
  Load();
  EXPECT_EQ(app.WhoisHost, "whois.test:81");
}

TEST_F(StartUp, TheActionDelayHasSixteenBits) {
  for (const auto& [value, delay] : {std::pair{"32767", 32767},
                                     {"-5", -5},
                                     {"1.5", 2},
                                     {" 7 ", 7},
                                     {"40000", 3000},
                                     {"", 3000},
                                     {"x", 3000},
                                     {"32768", 3000}}) {
    Settings("Main", Text("ActionDelayValue=") + value);
    Load();
    EXPECT_EQ(app.ActionDelayValue, delay) << value;
  }
}

TEST_F(StartUp, TheReconnectDelayHasThirtyTwoBits) {
  for (const auto& [value, delay] : {std::pair{"40000", 40000},
                                     {"2147483647", 2147483647},
                                     {"2147483648", 60000},
                                     {"", 60000},
                                     {"x", 60000}}) {
    Settings("Main", Text("ReconnectDelayValue=") + value);
    Load();
    EXPECT_EQ(app.ReconnectDelayValue, delay) << value;
  }
}

TEST_F(StartUp, APaneIsHeldForItsReaderUnlessTheFileSaysNo) {
  Load();
  EXPECT_TRUE(app.HoldWhileReading);
  Settings("Main", "HoldWhileReading=False");
  Load();
  EXPECT_FALSE(app.HoldWhileReading);
  Settings("Main", "HoldWhileReading=maybe");
  app.HoldWhileReading = true;
  Load();
  EXPECT_TRUE(app.HoldWhileReading);
}

TEST_F(StartUp, WithoutUseDNSOrWithAnyTextTheHostIsTheOneByName) {
  for (const char* value : {"", "True", "true", "1", "-1", "yes", "garbage", "99999"}) {
    Settings("Main", Text("UseDNS=") + value);
    Load();
    EXPECT_EQ(app.ChatHost, "localhost") << value;
  }
}

TEST_F(StartUp, OnlyAValueThatIsFalseGivesTheHostByAddress) {
  for (const char* value : {"False", "FALSE", "0", "0.0"}) {
    Settings("Main", Text("UseDNS=") + value);
    Load();
    EXPECT_EQ(app.ChatHost, "127.0.0.1") << value;
  }
}

TEST_F(StartUp, TheEndpointComesFromTheFile) {
  Settings("Main", "ChatHostByName=name.example\r\nChatHostByAddress=10.0.0.1\r\nChatPort=8080");
  Load();
  EXPECT_EQ(app.ChatHost, "name.example");
  EXPECT_EQ(app.ChatPort, "8080");
  Settings("Main", "UseDNS=0\r\nChatHostByName=name.example\r\nChatHostByAddress=10.0.0.1\r\n");
  Load();
  EXPECT_EQ(app.ChatHost, "10.0.0.1");
}

TEST_F(StartUp, AnEmptyEndpointKeyLeavesTheDefault) {
  Settings("Main", "ChatHostByName=\r\nChatHostByAddress=\r\nChatPort=\r\n");
  Load();
  EXPECT_EQ(app.ChatHostByName, "localhost");
  EXPECT_EQ(app.ChatHostByAddress, "127.0.0.1");
  EXPECT_EQ(app.ChatPort, "80");
}

TEST_F(StartUp, TheChannelsWithoutKicksComeFromTheFile) {
  Settings("DisableKickChannels", "channels=one two");
  Load();
  EXPECT_EQ(app.DisableKickChannels, "one two");
}

TEST_F(StartUp, TheSplitOfATabIsTakenByStringComparison) {
  const std::vector<std::pair<Text, bool>> cases = {
      {"18", false}, {"85", false},  {"19", true},   {"84.9", true}, {"9", false},
      {"5", true},   {"100", false}, {"180", true},  {"18.1", true}, {"", false},
      {"x", false},  {"2x", true},   {"850", false}, {"-20", false}};
  for (const auto& [value, taken] : cases) {
    Settings("Main", "WMFrame3=" + value);
    Load();
    EXPECT_EQ(client.tab(3).TabSplitPercent, taken ? value : "75.00188") << value;
    EXPECT_EQ(client.tab(2).TabSplitPercent, "75.00188");
  }
}

TEST_F(StartUp, EverySlotHasItsOwnSplit) {
  Text lines;
  for (int i = 0; i < kTabCount; ++i)
    lines += "WMFrame" + std::to_string(i) + "=" + std::to_string(40 + i) + "\r\n";
  Settings("Main", lines);
  Load();
  for (int i = 0; i < kTabCount; ++i)
    EXPECT_EQ(client.tab(i).TabSplitPercent, std::to_string(40 + i));
}

TEST_F(StartUp, ThePanesAreEmptyLockedAndColoured) {
  Settings("Fonts", "rFontStatus.BackColor=255");
  for (TabSession& tab : client.tabs)
    for (RichTextBox* pane : {&tab.Rich, &tab.Rich_Users, &tab.Rich_Server}) {
      pane->Text("old");
      pane->Locked(false);
    }
  Load();
  for (TabSession& tab : client.tabs) {
    for (RichTextBox* pane : {&tab.Rich, &tab.Rich_Users, &tab.Rich_Server}) {
      EXPECT_EQ(pane->Text(), "");
      EXPECT_TRUE(pane->Locked());
    }
    EXPECT_EQ(tab.Rich.BackColor(), 255U);
    EXPECT_EQ(tab.Rich_Users.BackColor(), 255U);
    EXPECT_EQ(tab.Rich_Server.BackColor(), Rgb(60, 60, 60));
  }
}

TEST_F(StartUp, EverySlotIsReadyToReportAndDisabled) {
  for (int i = 0; i < kTabCount; ++i) {
    client.tab(i).SayReportOnTab = client.tab(i).SayReportInChat = false;
    desktop.at(i).controls_enabled = true;
    desktop.at(i).users_num = "5";
  }
  Load();
  for (int i = 0; i < kTabCount; ++i) {
    EXPECT_TRUE(client.tab(i).SayReportOnTab);
    EXPECT_TRUE(client.tab(i).SayReportInChat);
    EXPECT_FALSE(desktop.at(i).controls_enabled);
    EXPECT_EQ(desktop.at(i).users_num, "");
    EXPECT_EQ(desktop.at(i).intonacia_selected, 0);
  }
}

TEST_F(StartUp, TheSavedPlaceReplacesTheDefaultOne) {
  Settings("Main", "Height=5000\r\nWidth=6000.5\r\nTop=-10\r\nLeft=99999\r\n");
  EXPECT_EQ(Load(), (WindowPlace{99999, -10, 6000.5, 5000}));
}

TEST_F(StartUp, APlaceThatIsNoNumberIsSkippedByItself) {
  Settings("Main", "Height=x\r\nWidth=6000\r\nTop=\r\nLeft=1e300\r\n");
  EXPECT_EQ(Load(), (WindowPlace{500, 800, 6000, 8000}));
}

TEST_F(StartUp, TheCaptionsSayNotConnectedInBothLanguages) {
  Text tray_tip;
  client.hooks.SetTabTitle = [&](const Text& caption) { tray_tip = caption; };
  Load();
  EXPECT_EQ(desktop.TabCaption(0), "Неподключен"_w);
  EXPECT_EQ(desktop.window_caption, "Неподключен - Parlorwire"_w);
  EXPECT_EQ(tray_tip, "Неподключен - Parlorwire"_w);
  Settings("Main", "Language=English");
  Load();
  EXPECT_EQ(desktop.TabCaption(0), "Not connected");
  EXPECT_EQ(desktop.window_caption, "Not connected - Parlorwire");
  EXPECT_EQ(tray_tip, "Not connected - Parlorwire");
}

TEST_F(StartUp, TheTextsOfTheBotAreReadWhole) {
  platform.files.files["IPlog.log"] = "1.2.3.4 bob\r\n";
  platform.files.files["AutoKick.lst"] = "a\tb\tc";
  Load();
  EXPECT_EQ(app.IpLogText, "1.2.3.4 bob\r\n");
  EXPECT_EQ(app.AutoKickText, "a\tb\tc");
  EXPECT_EQ(desktop.yields, 1);
}

TEST_F(StartUp, LineEndsBehindTheAutoKickListGoAndEventsRunBetween) {
  platform.files.files["AutoKick.lst"] = "\r\na\r\n\r\nb\n\r\n\r\n\r\n";
  Load();
  EXPECT_EQ(app.AutoKickText, "\r\na\r\n\r\nb\n");
  EXPECT_EQ(desktop.yields, 1);
  desktop.events_waiting = true;
  Load();
  EXPECT_EQ(app.AutoKickText, "\r\na\r\n\r\nb\n");
  EXPECT_EQ(desktop.yields, 1 + 4);
}

TEST_F(StartUp, AnAutoKickListOfLineEndsOnlyIsEmpty) {
  platform.files.files["AutoKick.lst"] = "\r\n\r\n";
  Load();
  EXPECT_EQ(app.AutoKickText, "");
}

TEST_F(StartUp, NickColoursAndFontsAreLoaded) {
  platform.files.files["CM.ini"] = "bob=5";
  Settings("Fonts", "rFontMain.Size=20");
  Load();
  EXPECT_EQ(app.CmIniText.text(), "bob=5");
  EXPECT_EQ(app.rFontMain.Size, 20);
}

TEST_F(StartUp, UnreadableFilesGiveTheDefaults) {
  for (const char* name : {"config.ini", "CM.ini", "IPlog.log", "AutoKick.lst"}) {
    platform.files.files[name] = "[Main]\r\nLanguage=English\r\n";
    platform.files.unreadable.insert(name);
  }
  EXPECT_EQ(Load(), (WindowPlace{500, 800, 14000, 8000}));
  EXPECT_EQ(app.Language, UiLanguage::kRussian);
  EXPECT_EQ(app.CmIniText.text(), "");
  EXPECT_EQ(app.IpLogText, "");
  EXPECT_EQ(app.AutoKickText, "");
  EXPECT_EQ(platform.files.files.count("error.log"), 0U);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(StartUp, OnADiskThatCannotBeWrittenTheDefaultsHold) {
  platform.files.write_fault = 70;
  EXPECT_EQ(Load(), (WindowPlace{500, 800, 14000, 8000}));
  EXPECT_TRUE(platform.files.files.empty());
}

TEST_F(StartUp, GarbageAndHugeFilesGiveTheDefaults) {
  Text garbage;
  for (int i = 0; i < 100000; ++i)
    garbage += static_cast<char>(i * 31 + i / 251);
  for (const Text& content : {garbage, Text(20'000'000, '[')}) {
    platform.files.files["config.ini"] = content;
    platform.files.files["CM.ini"] = content;
    EXPECT_EQ(Load(), (WindowPlace{500, 800, 14000, 8000}));
    EXPECT_EQ(app.ChatHost, "localhost");
    EXPECT_EQ(app.rFontMain.Name, "Times New Roman");
  }
}

TEST_F(StartUp, SetLanguageShowsIt) {
  for (const UiLanguage language : {UiLanguage::kEnglish, UiLanguage::kRussian}) {
    SetLanguage(client, language);
    EXPECT_EQ(app.Language, language);
    EXPECT_EQ(desktop.shown_language, language);
  }
}

TEST_F(StartUp, TheMenuWritesTheLanguageAtOnce) {
  eng(client);
  EXPECT_EQ(app.Language, UiLanguage::kEnglish);
  EXPECT_EQ(desktop.shown_language, UiLanguage::kEnglish);
  EXPECT_EQ(platform.files.files["config.ini"], "[Main]\r\nLanguage=English\r\n");
  rus(client);
  EXPECT_EQ(app.Language, UiLanguage::kRussian);
  EXPECT_EQ(desktop.shown_language, UiLanguage::kRussian);
  EXPECT_EQ(platform.files.files["config.ini"], "[Main]\r\nLanguage=Russian\r\n");
}

TEST(MainWindowTexts, StandInBothLanguages) {
  EXPECT_EQ(kStopScrollText.In(UiLanguage::kRussian), "Остановить прокрутку"_w);
  EXPECT_EQ(kStopScrollText.In(UiLanguage::kEnglish), "Stop scrolling");
  EXPECT_EQ(kPersText.In(UiLanguage::kRussian), "Перс"_w);
  EXPECT_EQ(kPersText.In(UiLanguage::kEnglish), "Personal messages");
}

TEST_F(StartUp, ReadsTheSmiles) {
  ResourceFile library;
  library.String(101, u"1");
  library.String(102, u":) :-)");
  platform.program_files.files["smiles.dll"] = library.Bytes();
  Load();
  EXPECT_EQ(app.SmileTable, "\r\n:) :-)");
  EXPECT_FALSE(platform.files.files.contains("error.log"));
}

TEST_F(StartUp, WithBrokenSmilesAllElseIsRead) {
  Settings("Main", "Language=English\r\n");
  platform.files.files["smiles.dll"] = "broken";
  EXPECT_EQ(Load(), (WindowPlace{500, 800, 14000, 8000}));
  EXPECT_EQ(app.SmileTable, "");
  EXPECT_EQ(app.Language, UiLanguage::kEnglish);
  EXPECT_TRUE(desktop.boxes.empty());
}

}  // namespace
}  // namespace parlorwire
