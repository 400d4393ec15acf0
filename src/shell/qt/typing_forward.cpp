#include "shell/qt/typing_forward.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>

#include "shell/qt/msg_box.h"

namespace parlorwire {
namespace {

// A character with Ctrl and Alt together is one of the third level of a keyboard.
bool IsTyped(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers =
      key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const bool third_level = modifiers == (Qt::ControlModifier | Qt::AltModifier);
  if (modifiers != Qt::NoModifier && !third_level) return false;
  const QString text = key.text();
  return !text.isEmpty() && text[0] != QLatin1Char(' ') &&
         (text[0].isPrint() || text[0].isSurrogate());
}

}  // namespace

TypingForward::TypingForward(QObject* owner, std::function<MsgBox*()> box)
    : QObject(owner), box_(std::move(box)) {}

void TypingForward::Watch(QWidget* control) {
  control->installEventFilter(this);
}

bool TypingForward::eventFilter(QObject*, QEvent* event) {
  return event->type() == QEvent::KeyPress && Forward(*static_cast<QKeyEvent*>(event));
}

bool TypingForward::Forward(QKeyEvent& key) {
  if (!IsTyped(key)) return false;
  MsgBox* box = box_();
  if (!box->isVisible() || !box->isEnabled() || box->isReadOnly()) return false;
  // The text behind the caret stays: no focus that comes by Tab, which would select it.
  box->setFocus(Qt::OtherFocusReason);
  QCoreApplication::sendEvent(box, &key);
  return true;
}

}  // namespace parlorwire
