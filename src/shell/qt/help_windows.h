// What the menu "Help" shows.
#pragma once

#include "platform/desktop.h"

class QWidget;

namespace parlorwire {

// All keys of the main window. The call ends when the window is closed.
void ShowKeys(UiLanguage language, QWidget* owner);

// What the program is, its version and its licence.
void ShowAbout(UiLanguage language, QWidget* owner);

}  // namespace parlorwire
