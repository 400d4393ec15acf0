#include "shell/qt/msg_box.h"

#include <QKeyEvent>

namespace parlorwire {
namespace {

bool IsControlKey(const QKeyEvent& event, int key) {
  return event.modifiers() == Qt::ControlModifier && event.key() == key;
}

}  // namespace

MsgBox::MsgBox(QWidget* parent) : QLineEdit(parent) {
  // The box has one line, so a pasted text gets blanks for its line ends.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'))) return;
    QString line = text;
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    line.replace(QLatin1Char('\r'), QLatin1Char(' '));
    setText(line);
  });
}

bool MsgBox::event(QEvent* event) {
  // The keys of the box come before those of the window.
  if (event->type() == QEvent::ShortcutOverride) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (IsControlKey(*key, Qt::Key_A) || IsControlKey(*key, Qt::Key_Backspace)) {
      key->accept();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void MsgBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (!isReadOnly() && Enter) Enter();
  } else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    if (Step) Step(event->key() == Qt::Key_Up);
  } else if (IsControlKey(*event, Qt::Key_Backspace)) {
    if (!isReadOnly()) DeleteLastWord();
  } else if (IsControlKey(*event, Qt::Key_A)) {
    selectAll();
  } else if (IsControlKey(*event, Qt::Key_T)) {
    event->ignore();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

// From the last blank ahead of the caret, which stays, up to the caret.
void MsgBox::DeleteLastWord() {
  const int caret = hasSelectedText() ? selectionStart() : cursorPosition();
  const auto blank = static_cast<int>(text().left(caret).lastIndexOf(QLatin1Char(' ')));
  setSelection(blank + 1, caret - blank - 1);
  if (hasSelectedText()) insert(QString());
}

}  // namespace parlorwire
