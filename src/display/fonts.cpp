#include "display/fonts.h"

#include "session/client.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSection = "Fonts";

// Calls visit(key, field) for every key, in the order of the file.
template <class Visitor>
void ForEachField(AppState& app, Visitor visit) {
  visit("rFontMain.Charset", app.rFontMain.Charset);
  visit("rFontMain.Name", app.rFontMain.Name);
  visit("rFontMain.Size", app.rFontMain.Size);
  visit("rFontMain.Bold", app.rFontMain.Bold);
  visit("rFontMain.TimeBold", app.rFontMain.TimeBold);
  visit("rFontMain.ColorMyNick", app.rFontMain.ColorMyNick);
  visit("rFontSystem.Charset", app.rFontSystem.Charset);
  visit("rFontSystem.Italic", app.rFontSystem.Italic);
  visit("rFontSystem.Name", app.rFontSystem.Name);
  visit("rFontSystem.Size", app.rFontSystem.Size);
  visit("rFontSystem.TextColor", app.rFontSystem.TextColor);
  visit("rFontSystem.Bold", app.rFontSystem.Bold);
  visit("rFontStatus.Charset", app.rFontStatus.Charset);
  visit("rFontStatus.Bold", app.rFontStatus.Bold);
  visit("rFontStatus.Italic", app.rFontStatus.Italic);
  visit("rFontStatus.Name", app.rFontStatus.Name);
  visit("rFontStatus.Size", app.rFontStatus.Size);
  visit("rFontStatus.BackColor", app.rFontStatus.BackColor);
  visit("rFontStatus.TextColor", app.rFontStatus.TextColor);
  visit("rFontStatus.BackColor", app.rFontStatus.BackColor);  // a second time, see docs/names.md
  visit("rRichColors.Nicks", app.rRichColors.Nicks);
  visit("rRichColors.NicksChoose", app.rRichColors.NicksChoose);
  visit("rRichColors.Symbols", app.rRichColors.Symbols);
  visit("rRichColors.TextColor", app.rRichColors.TextColor);
  visit("rRichColors.Times", app.rRichColors.Times);
}

void Take(const Text& value, std::int32_t& field) {
  field = ToLong(value);
}
void Take(const Text& value, PaneColour& field) {
  field = static_cast<PaneColour>(ToLong(value));
}
void Take(const Text& value, bool& field) {
  field = ToBoolean(value);
}
void Take(const Text& value, Text& field) {
  if (!value.empty()) field = value;
}

Text ValueText(std::int32_t field) {
  return std::to_string(field);
}
Text ValueText(PaneColour field) {
  return std::to_string(static_cast<std::int32_t>(field));
}
Text ValueText(bool field) {
  return BooleanText(field);
}
Text ValueText(const Text& field) {
  return field;
}

}  // namespace

void LoadFonts(Client& client) {
  client.app.rFontMain = {};
  client.app.rFontSystem = {};
  client.app.rFontStatus = {};
  client.app.rRichColors = {};
  ForEachField(client.app, [&](std::string_view key, auto& field) {
    PassOverFault([&] { Take(ReadIni(client, kSection, key), field); });
  });
}

void SaveFonts(Client& client) {
  ForEachField(client.app, [&](std::string_view key, const auto& field) {
    WriteIni(client, kSection, key, ValueText(field));
  });
}

ChosenFont FontOf(const AppState& app, FontCommand command) {
  switch (command) {
    case FontCommand::font_main: {
      const FontMain& font = app.rFontMain;
      return {font.Name, font.Size, false, false, font.Charset};
    }
    case FontCommand::font_system: {
      const FontSystem& font = app.rFontSystem;
      return {font.Name, font.Size, font.Bold, font.Italic, font.Charset};
    }
    case FontCommand::font_client: {
      const FontStatus& font = app.rFontStatus;
      return {font.Name, font.Size, font.Bold, font.Italic, font.Charset};
    }
  }
  return {};
}

void ChooseFont(AppState& app, FontCommand command, const ChosenFont& font) {
  const auto take_all = [&](auto& record) {
    record.Charset = font.Charset;
    record.Name = font.Name;
    record.Size = font.Size;
    record.Bold = font.Bold;
    record.Italic = font.Italic;
  };
  switch (command) {
    case FontCommand::font_main:
      app.rFontMain.Name = font.Name;
      app.rFontMain.Size = font.Size;
      app.rFontMain.Charset = font.Charset;
      break;
    case FontCommand::font_system:
      take_all(app.rFontSystem);
      break;
    case FontCommand::font_client:
      take_all(app.rFontStatus);
      break;
  }
}

void bold_nicks(AppState& app) {
  app.rFontMain.Bold = !app.rFontMain.Bold;
}

void bold_time(AppState& app) {
  app.rFontMain.TimeBold = !app.rFontMain.TimeBold;
}

PaneColour& ColourOf(AppState& app, ColourCommand command) {
  switch (command) {
    case ColourCommand::color_my_nick:
      return app.rFontMain.ColorMyNick;
    case ColourCommand::color_system:
      return app.rFontSystem.TextColor;
    case ColourCommand::color_client:
      return app.rFontStatus.TextColor;
    case ColourCommand::color_myself:
      return app.rRichColors.TextColor;
    case ColourCommand::color_nicks:
      return app.rRichColors.Nicks;
    case ColourCommand::color_choose_nicks:
      return app.rRichColors.NicksChoose;
    case ColourCommand::color_symbols:
      return app.rRichColors.Symbols;
    case ColourCommand::color_time:
      break;
  }
  return app.rRichColors.Times;
}

void Rich_Server_Change(Client& client, int tab) {
  if (tab != client.platform.desktop.ActiveTab()) return;
  const Text text = Trim(client.tab(tab).Rich_Server.Text());
  if (!StartsWithNoCase(text, W<"цвет фонта:">)) return;
  PassOverFault([&] {
    const Text digits = Right(text, 6);
    client.app.rRichColors.TextColor =
        Rgb(FromHex(Left(digits, 2)), FromHex(Mid(digits, 3, 2)), FromHex(Right(digits, 2)));
    WriteStatusTextColor(client);
  });
}

void WriteStatusTextColor(Client& client) {
  WriteIni(client, kSection, "rFontStatus.TextColor", ValueText(client.app.rFontStatus.TextColor));
}

}  // namespace parlorwire
