// The message boxes of all windows.
#pragma once

#include "platform/desktop.h"

class QWidget;

namespace parlorwire {

// A box with the caption "Parlorwire" and one button, that waits for the user.
void ShowMessageBox(QWidget* owner, const Text& text, BoxIcon icon);

// The same with the buttons yes and no; Enter presses the preselected one, and Escape means no.
// True on yes.
bool AskInMessageBox(QWidget* owner, const Text& text, BoxIcon icon, BoxAnswer preselected);

}  // namespace parlorwire
