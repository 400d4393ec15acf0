#include "shell/qt/pane_click.h"

#include <QKeyEvent>

#include "pane/qt/rich_text_view.h"

namespace parlorwire {

std::optional<MouseButton> ClickOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MouseButton::kLeft;
  if (button == Qt::RightButton) return MouseButton::kRight;
  return std::nullopt;
}

std::optional<MouseButton> ClickOf(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (enter && modifiers == Qt::NoModifier) return MouseButton::kLeft;
  const bool shifted_f10 = key.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier;
  if (key.key() == Qt::Key_Menu || shifted_f10) return MouseButton::kRight;
  return std::nullopt;
}

QPoint PlaceAtCaret(const RichTextView& view) {
  QRect at = view.CharacterRect(view.Caret());
  if (at.isEmpty()) at = view.CharacterRect(view.Caret() - 1);
  const QPoint below = at.isEmpty() ? view.viewport()->rect().center() : at.bottomLeft();
  return view.viewport()->mapToGlobal(below);
}

}  // namespace parlorwire
