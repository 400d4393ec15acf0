// What stands for a click in a pane that can be clicked.
#pragma once

#include <QPoint>
#include <optional>

#include "display/pane_mouse.h"

class QKeyEvent;

namespace parlorwire {

class RichTextView;

// Nothing for the other buttons.
std::optional<MouseButton> ClickOf(Qt::MouseButton button);

// By keyboard Enter stands for the left button, and the menu key and Shift+F10 for the right one.
std::optional<MouseButton> ClickOf(const QKeyEvent& key);

// Where a menu comes up by keyboard: below the caret; a point of the screen.
QPoint PlaceAtCaret(const RichTextView& view);

}  // namespace parlorwire
