// What the load step of `client_main` decides, and the choice of language.
#pragma once

#include "session/both_languages.h"

namespace parlorwire {

struct Client;

// In twips, on the screen.
struct WindowPlace {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;

  bool operator==(const WindowPlace&) const = default;
};

// What the load step has to know of the screen, in twips, and of the window before anything is
// read.
struct WindowMeasures {
  double Screen_Width = 0;
  double Screen_Height = 0;
  double TabSplitPercent = 0;  // where line_razdel stands as designed, in percent of SSTab
};

// The load step: reads config.ini, CM.ini, IPlog.log, AutoKick.lst and smiles.dll, and leaves all
// ten slots unconnected, locked and invisible. The splash is up and stays up. Of the window it
// sets, through the Desktop port, language, tabs, captions and enabled controls; the check marks of
// the menu follow `Language`, `AutoKick`, `SayIPAndFlags`, `rFontMain.Bold` and
// `rFontMain.TimeBold`. Returns the place that the window takes, which nobody has checked against
// the screen. Never fails.
WindowPlace LoadStep(Client& client, const WindowMeasures& measures);

// The fixed texts follow by Desktop::ShowLanguage, which also moves the check mark between `rus`
// and `eng`.
void SetLanguage(Client& client, UiLanguage language);

// The menu items `rus` and `eng`: sets the language and writes it to config.ini at once.
void rus(Client& client);
void eng(Client& client);

// The texts of the main window that change with the language, for each tab.
inline constexpr BothLanguages kStopScrollText{W<"Остановить прокрутку">, "Stop scrolling"};
inline constexpr BothLanguages kPersText{W<"Перс">, "Personal messages"};
inline constexpr BothLanguages kNotConnectedText{W<"Неподключен">, "Not connected"};

}  // namespace parlorwire
