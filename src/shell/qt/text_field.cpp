#include "shell/qt/text_field.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QTimer>

#include "platform/qt/text_conversion.h"
#include "shell/qt/control_names.h"
#include "shell/qt/first_line.h"

namespace parlorwire {
namespace {

// The focus goes to another window or to a menu, or comes back from there.
bool IsForAWhile(const QFocusEvent& event) {
  const Qt::FocusReason reason = event.reason();
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
         reason == Qt::MenuBarFocusReason;
}

}  // namespace

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
  setFont(LabelFont());
  setValidator(new FirstLineOnly(this));
}

void TextField::SetLocked(bool locked) {
  setReadOnly(locked);
  QPalette look;
  if (locked) look.setColor(QPalette::Base, QColor(0xD3D7CF));
  if (locked) look.setColor(QPalette::Text, QColor(0x555A52));
  setPalette(look);
}

void TextField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (Enter) Enter();
    return;
  }
  const QString typed = event->text();
  if (TakesTyped && !typed.isEmpty() && typed[0].isPrint() && !TakesTyped(FromQString(typed)[0]))
    return;
  QLineEdit::keyPressEvent(event);
}

void TextField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (left_for_a_while_ && IsForAWhile(*event)) return;
  // A press of the mouse puts the caret into the field after this event.
  if (event->reason() == Qt::MouseFocusReason) {
    QTimer::singleShot(0, this, &QLineEdit::selectAll);
  } else {
    selectAll();
  }
}

void TextField::focusOutEvent(QFocusEvent* event) {
  left_for_a_while_ = IsForAWhile(*event);
  QLineEdit::focusOutEvent(event);
}

}  // namespace parlorwire
