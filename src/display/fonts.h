// Fonts and colours: loading and saving them, and the menu commands that change them. What stands
// in a pane is never recoloured: a change shows in later lines.
#pragma once

#include <cstdint>

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

struct AppState;
struct Client;

// The four records take their defaults and then what section `Fonts` of config.ini has. A key that
// is absent, empty or doesn't convert leaves the default.
void LoadFonts(Client& client);

// Writes all keys of section `Fonts`, in a fixed order; rFontStatus.BackColor twice.
void SaveFonts(Client& client);

// What the font dialog opens with and gives back.
struct ChosenFont {
  Text Name;
  std::int32_t Size = 10;  // points
  bool Bold = false;
  bool Italic = false;
  std::int32_t Charset = 204;

  bool operator==(const ChosenFont&) const = default;
};

// The font commands, by the names of their menu items.
enum class FontCommand { font_main, font_system, font_client };

// The font that the command's dialog opens with; that of font_main has bold and italic off.
ChosenFont FontOf(const AppState& app, FontCommand command);

// The dialog's OK. font_main takes name, size and charset only.
void ChooseFont(AppState& app, FontCommand command, const ChosenFont& font);

// The check marks of these two items are rFontMain.Bold and rFontMain.TimeBold.
void bold_nicks(AppState& app);
void bold_time(AppState& app);

// The colour commands, by the names of their menu items.
enum class ColourCommand {
  color_my_nick,
  color_system,
  color_client,
  color_myself,
  color_nicks,
  color_choose_nicks,
  color_symbols,
  color_time,
};

// The field that the command edits: the colour that its dialog opens with, and that OK replaces.
PaneColour& ColourOf(AppState& app, ColourCommand command);

// To be called when the text of `Rich_Server` of a tab has changed. If the tab is the active one
// and the text, trimmed, begins with "цвет фонта:" in any case, its last six characters become
// rRichColors.TextColor, as RRGGBB. If they are no such number, nothing happens.
void Rich_Server_Change(Client& client, int tab);

// Writes rFontStatus.TextColor to its key. That is what follows a change of rRichColors.TextColor,
// whose own key is written by SaveFonts only.
void WriteStatusTextColor(Client& client);

}  // namespace parlorwire
