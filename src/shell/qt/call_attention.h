// A window calls for the user.
#pragma once

class QWidget;

namespace parlorwire {

// The window's button in the task bar is marked, at once, until the window is the active one. Does
// nothing on the active window, on one that is marked already, and on one that is hidden.
void CallAttention(QWidget* window);

}  // namespace parlorwire
