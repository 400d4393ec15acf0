#include "display/fonts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "session/ini.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct Fonts : testing::Test {
  Text& file() { return platform.files.files["config.ini"]; }
  void Key(const Text& key, const Text& value) { file() = "[Fonts]\r\n" + key + "=" + value; }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
  AppState& app = client.app;
};

constexpr std::string_view kDefaults =
    "[Fonts]\r\n"
    "rFontMain.Charset=204\r\n"
    "rFontMain.Name=Times New Roman\r\n"
    "rFontMain.Size=12\r\n"
    "rFontMain.Bold=True\r\n"
    "rFontMain.TimeBold=True\r\n"
    "rFontMain.ColorMyNick=65280\r\n"
    "rFontSystem.Charset=204\r\n"
    "rFontSystem.Italic=True\r\n"
    "rFontSystem.Name=Times New Roman\r\n"
    "rFontSystem.Size=10\r\n"
    "rFontSystem.TextColor=16777215\r\n"
    "rFontSystem.Bold=False\r\n"
    "rFontStatus.Charset=204\r\n"
    "rFontStatus.Bold=False\r\n"
    "rFontStatus.Italic=False\r\n"
    "rFontStatus.Name=Times New Roman\r\n"
    "rFontStatus.Size=10\r\n"
    "rFontStatus.BackColor=0\r\n"
    "rFontStatus.TextColor=14737632\r\n"
    "rRichColors.Nicks=16764879\r\n"
    "rRichColors.NicksChoose=65280\r\n"
    "rRichColors.Symbols=65535\r\n"
    "rRichColors.TextColor=12632256\r\n"
    "rRichColors.Times=16764879\r\n";

TEST_F(Fonts, WithNothingInTheFileTheDefaultsAreSavedInTheirOrder) {
  LoadFonts(client);
  SaveFonts(client);
  EXPECT_EQ(file(), kDefaults);
}

TEST_F(Fonts, EveryFieldComesBackFromItsKey) {
  const std::vector<Text> values = {"1",  "Arial", "14",   "False", "False", "1001",
                                    "2",  "False", "Sans", "15",    "1002",  "True",
                                    "3",  "True",  "True", "Serif", "16",    "1003",
                                    "-1", "1005",  "1006", "1007",  "1008",  "1009"};
  Text settings;
  std::size_t next = 0;
  for (const std::string_view line : Split(kDefaults, "\r\n")) {
    const Position equals = InStr(line, "=");
    if (equals == 0)
      settings += Text(line) + (line.empty() ? "" : "\r\n");
    else
      settings += Left(line, equals) + values.at(next++) + "\r\n";
  }
  ASSERT_EQ(next, values.size());
  file() = settings;
  LoadFonts(client);
  EXPECT_EQ(app.rFontMain.Charset, 1);
  EXPECT_EQ(app.rFontMain.Name, "Arial");
  EXPECT_EQ(app.rFontMain.Size, 14);
  EXPECT_FALSE(app.rFontMain.Bold);
  EXPECT_FALSE(app.rFontMain.TimeBold);
  EXPECT_EQ(app.rFontMain.ColorMyNick, 1001U);
  EXPECT_EQ(app.rFontSystem.Charset, 2);
  EXPECT_FALSE(app.rFontSystem.Italic);
  EXPECT_EQ(app.rFontSystem.Name, "Sans");
  EXPECT_EQ(app.rFontSystem.Size, 15);
  EXPECT_EQ(app.rFontSystem.TextColor, 1002U);
  EXPECT_TRUE(app.rFontSystem.Bold);
  EXPECT_EQ(app.rFontStatus.Charset, 3);
  EXPECT_TRUE(app.rFontStatus.Bold);
  EXPECT_TRUE(app.rFontStatus.Italic);
  EXPECT_EQ(app.rFontStatus.Name, "Serif");
  EXPECT_EQ(app.rFontStatus.Size, 16);
  EXPECT_EQ(app.rFontStatus.BackColor, 1003U);
  EXPECT_EQ(app.rFontStatus.TextColor, 0xFFFFFFFFU);
  EXPECT_EQ(app.rRichColors.Nicks, 1005U);
  EXPECT_EQ(app.rRichColors.NicksChoose, 1006U);
  EXPECT_EQ(app.rRichColors.Symbols, 1007U);
  EXPECT_EQ(app.rRichColors.TextColor, 1008U);
  EXPECT_EQ(app.rRichColors.Times, 1009U);

  file().clear();
  SaveFonts(client);
  EXPECT_EQ(file(), settings);
}

TEST_F(Fonts, LoadingSetsTheDefaultsFirst) {
  app.rFontMain.Size = 30;
  app.rFontSystem.Italic = false;
  app.rFontStatus.Name = "Arial";
  app.rRichColors.Times = 0;
  LoadFonts(client);
  EXPECT_EQ(app.rFontMain.Size, 12);
  EXPECT_TRUE(app.rFontSystem.Italic);
  EXPECT_EQ(app.rFontStatus.Name, "Times New Roman");
  EXPECT_EQ(app.rRichColors.Times, Rgb(207, 207, 255));
}

TEST_F(Fonts, AValueThatDoesNotConvertLeavesTheDefault) {
  for (const char* value : {"", "x", "99999999999", "12x", "0x10"}) {
    Key("rFontMain.Size", value);
    LoadFonts(client);
    EXPECT_EQ(app.rFontMain.Size, 12) << value;
    Key("rRichColors.Nicks", value);
    LoadFonts(client);
    EXPECT_EQ(app.rRichColors.Nicks, Rgb(207, 207, 255)) << value;
  }
  for (const char* value : {"", "x", "yes", "Truee"}) {
    Key("rFontMain.Bold", value);
    LoadFonts(client);
    EXPECT_TRUE(app.rFontMain.Bold) << value;
  }
  Key("rFontMain.Name", "");
  LoadFonts(client);
  EXPECT_EQ(app.rFontMain.Name, "Times New Roman");
}

TEST_F(Fonts, TruthValuesInAnyCaseAndNumbers) {
  for (const auto& [value, bold] :
       {std::pair{"true", true}, {"TRUE", true}, {"-1", true}, {"FALSE", false}, {"0", false}}) {
    Key("rFontSystem.Bold", value);
    LoadFonts(client);
    EXPECT_EQ(app.rFontSystem.Bold, bold) << value;
  }
}

TEST_F(Fonts, TheBackColourOfTheStatusFontIsWrittenTwice) {
  LoadFonts(client);
  app.rFontStatus.BackColor = 5;
  std::vector<Text> back_colours;
  platform.desktop.on_yield = [&] {
    back_colours.push_back(ReadIni(client, "Fonts", "rFontStatus.BackColor"));
    if (back_colours.size() == 19) app.rFontStatus.BackColor = 6;
  };
  SaveFonts(client);
  ASSERT_EQ(back_colours.size(), 25U);
  EXPECT_EQ(back_colours[17], "");
  EXPECT_EQ(back_colours[18], "5");
  EXPECT_EQ(back_colours[20], "6");
}

TEST_F(Fonts, TheFontOfChatLinesIsShownPlainAndTakesNoStyle) {
  app.rFontMain.Name = "Arial";
  app.rFontMain.Size = 20;
  app.rFontMain.Charset = 0;
  EXPECT_EQ(FontOf(app, FontCommand::font_main), (ChosenFont{"Arial", 20, false, false, 0}));
  ChooseFont(app, FontCommand::font_main, {"Sans", 9, false, true, 204});
  EXPECT_EQ(app.rFontMain.Name, "Sans");
  EXPECT_EQ(app.rFontMain.Size, 9);
  EXPECT_EQ(app.rFontMain.Charset, 204);
  EXPECT_TRUE(app.rFontMain.Bold);
  EXPECT_TRUE(app.rFontMain.TimeBold);
}

TEST_F(Fonts, TheSystemFontTakesAllThatTheDialogGives) {
  EXPECT_EQ(FontOf(app, FontCommand::font_system),
            (ChosenFont{"Times New Roman", 10, false, true, 204}));
  const ChosenFont chosen{"Sans", 9, true, false, 1};
  ChooseFont(app, FontCommand::font_system, chosen);
  EXPECT_EQ(FontOf(app, FontCommand::font_system), chosen);
  EXPECT_EQ(app.rFontSystem.TextColor, 0xFFFFFFU);
  EXPECT_EQ(app.rFontStatus.Name, "Times New Roman");
}

TEST_F(Fonts, TheClientsFontTakesAllThatTheDialogGives) {
  EXPECT_EQ(FontOf(app, FontCommand::font_client),
            (ChosenFont{"Times New Roman", 10, false, false, 204}));
  const ChosenFont chosen{"Sans", 9, true, true, 1};
  ChooseFont(app, FontCommand::font_client, chosen);
  EXPECT_EQ(FontOf(app, FontCommand::font_client), chosen);
  EXPECT_EQ(app.rFontStatus.TextColor, 0xE0E0E0U);
  EXPECT_EQ(app.rFontSystem.Name, "Times New Roman");
}

TEST_F(Fonts, BoldNicksAndBoldTimeToggle) {
  bold_nicks(app);
  EXPECT_FALSE(app.rFontMain.Bold);
  EXPECT_TRUE(app.rFontMain.TimeBold);
  bold_nicks(app);
  bold_time(app);
  EXPECT_TRUE(app.rFontMain.Bold);
  EXPECT_FALSE(app.rFontMain.TimeBold);
}

TEST_F(Fonts, EveryColourCommandEditsItsOwnField) {
  const std::vector<std::pair<ColourCommand, PaneColour*>> fields = {
      {ColourCommand::color_my_nick, &app.rFontMain.ColorMyNick},
      {ColourCommand::color_system, &app.rFontSystem.TextColor},
      {ColourCommand::color_client, &app.rFontStatus.TextColor},
      {ColourCommand::color_myself, &app.rRichColors.TextColor},
      {ColourCommand::color_nicks, &app.rRichColors.Nicks},
      {ColourCommand::color_choose_nicks, &app.rRichColors.NicksChoose},
      {ColourCommand::color_symbols, &app.rRichColors.Symbols},
      {ColourCommand::color_time, &app.rRichColors.Times}};
  for (const auto& [command, field] : fields)
    EXPECT_EQ(&ColourOf(app, command), field);
}

struct StatusBoxCommand : Fonts {
  void Show(const Text& text, int tab = 0) {
    client.tab(tab).Rich_Server.Text(text);
    Rich_Server_Change(client, tab);
  }
};

TEST_F(StatusBoxCommand, SetsTheTextColourFromItsLastSixCharacters) {
  Show("цвет фонта: 123456"_w);
  EXPECT_EQ(app.rRichColors.TextColor, Rgb(0x12, 0x34, 0x56));
}

TEST_F(StatusBoxCommand, InAnyCaseAndWithBlanksAround) {
  Show("  ЦВЕТ фонта:aBcDeF  "_w);
  EXPECT_EQ(app.rRichColors.TextColor, Rgb(0xAB, 0xCD, 0xEF));
}

TEST_F(StatusBoxCommand, WritesTheColourOfTheStatusFontAndNotTheNewOne) {
  app.rFontStatus.TextColor = 77;
  Show("цвет фонта: 0000FF"_w);
  EXPECT_EQ(file(), "[Fonts]\r\nrFontStatus.TextColor=77\r\n");
  EXPECT_EQ(app.rFontStatus.TextColor, 77U);
}

TEST_F(StatusBoxCommand, WhatIsNoColourChangesNothing) {
  for (const Text& text : {"цвет фонта:"_w, "цвет фонта: 12345"_w, "цвет фонта: 12345G"_w,
                           "цвет фонта: 123456\r\n"_w, "цвет фонта: -1-1-1"_w}) {
    Show(text);
    EXPECT_EQ(app.rRichColors.TextColor, 0xC0C0C0U);
  }
  EXPECT_EQ(platform.files.writes, 0);
  EXPECT_EQ(platform.files.files.count("error.log"), 0U);
}

TEST_F(StatusBoxCommand, AnotherTextChangesNothing) {
  Show("x цвет фонта: 123456"_w);
  Show("цвет: 123456"_w);
  Show("");
  EXPECT_EQ(app.rRichColors.TextColor, 0xC0C0C0U);
}

TEST_F(StatusBoxCommand, OnlyTheActiveTabCounts) {
  Show("цвет фонта: 123456"_w, 3);
  EXPECT_EQ(app.rRichColors.TextColor, 0xC0C0C0U);
  platform.desktop.active_tab = 3;
  Show("цвет фонта: 123456"_w, 3);
  EXPECT_EQ(app.rRichColors.TextColor, Rgb(0x12, 0x34, 0x56));
}

}  // namespace
}  // namespace parlorwire
