// What the session says about itself, in the tab's message pane and day log.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

enum class StatusMode {
  kLine = 0,    // a new line with the time in front
  kOk = 1,      // finishes the last line with " Ok."; the text is ignored
  kFailed = 2,  // finishes the last line with " Ошибка: " or " Failed: " and the text
};

// Writes to Rich of the tab. A line that ends in ".." stays open in the day log: a verdict is
// expected to follow it.
void StatusOut(Client& client, const Text& text, StatusMode mode, int tab);

inline void StatusOut(Client& client, const Text& text, int tab) {
  StatusOut(client, text, StatusMode::kLine, tab);
}
inline void StatusOk(Client& client, int tab) {
  StatusOut(client, {}, StatusMode::kOk, tab);
}

// The two lines that say a caption of a tab: on the strip, and in the window if the tab is active.
void ShowTabCaption(Client& client, int tab, const Text& caption);

// The window's caption, `caption` + " - Parlorwire", and the tip of the tray icon.
void ShowWindowCaption(Client& client, const Text& caption);

}  // namespace parlorwire
