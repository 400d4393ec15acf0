#include "shell/qt/msg_box.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <optional>

#include "platform/qt/text_conversion.h"
#include "shell/qt/russian_keys.h"
#include "users/input_history.h"

namespace parlorwire {
namespace {

std::optional<PaneStep> StepOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool control = modifiers == Qt::ControlModifier;
  if (modifiers != Qt::NoModifier && !control) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_PageUp:
      return control ? std::nullopt : std::optional(PaneStep::kPageUp);
    case Qt::Key_PageDown:
      return control ? std::nullopt : std::optional(PaneStep::kPageDown);
    case Qt::Key_Home:
      return control ? std::optional(PaneStep::kStart) : std::nullopt;
    case Qt::Key_End:
      return control ? std::optional(PaneStep::kEnd) : std::nullopt;
    default:
      return std::nullopt;
  }
}

std::optional<MsgCommand> CommandOf(const QKeyEvent& event) {
  if (event.modifiers() != Qt::ControlModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_K:
      return MsgCommand::kKick;
    case Qt::Key_B:
      return MsgCommand::kBan;
    case Qt::Key_M:
      return MsgCommand::kMute;
    case Qt::Key_L:
      return MsgCommand::kLower;
    default:
      return std::nullopt;
  }
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
    undo();  // so that what is taken back next is the paste itself
    Replace(line);
  });
}

bool MsgBox::event(QEvent* event) {
  const bool asked_first = event->type() == QEvent::ShortcutOverride;
  if (!asked_first && event->type() != QEvent::KeyPress) return QLineEdit::event(event);
  const auto* key = static_cast<QKeyEvent*>(event);
  // The toolkit's keys to edit with are Latin letters.
  const Qt::Key latin = LatinKey(key->key());
  if (key->modifiers() == Qt::ControlModifier && latin != key->key()) {
    QKeyEvent same(event->type(), latin, key->modifiers());
    same.setAccepted(event->isAccepted());
    const bool known = MsgBox::event(&same);
    event->setAccepted(same.isAccepted());
    return known;
  }
  // With nothing selected here, the window copies from the pane that was clicked.
  if (asked_first && key->matches(QKeySequence::Copy) && !hasSelectedText()) {
    event->ignore();
    return true;
  }
  return QLineEdit::event(event);
}

void MsgBox::keyPressEvent(QKeyEvent* event) {
  if (const auto step = StepOf(*event)) {
    if (ScrollPane) ScrollPane(*step);
    return;
  }
  // Held down, a key says one command.
  if (const auto command = CommandOf(*event); command && !isReadOnly() && Command)
    if (event->isAutoRepeat() || Command(*command)) return;
  switch (event->key()) {
    case Qt::Key_Up:
      if (Browse) Browse(true);
      return;
    case Qt::Key_Down:
      if (Browse) Browse(false);
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!isReadOnly() && Send) Send();
      return;
    case Qt::Key_Backspace:
      if (event->modifiers() != Qt::ControlModifier) break;
      if (!isReadOnly()) DeleteWord();
      return;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void MsgBox::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (QMenu* further = FurtherMenu ? FurtherMenu() : nullptr) {
    menu->addSeparator();
    menu->addMenu(further);
  }
  menu->popup(event->globalPos());
}

void MsgBox::Replace(const QString& replacement) {
  if (replacement == text()) return end(false);
  selectAll();
  insert(replacement);
}

void MsgBox::InsertBehindCaret(const QString& text) {
  if (isReadOnly()) return;
  const int caret = hasSelectedText() ? selectionStart() : cursorPosition();
  deselect();
  setCursorPosition(caret);
  insert(text);
  setCursorPosition(caret);
}

void MsgBox::DeleteWord() {
  const int caret = hasSelectedText() ? selectionStart() : cursorPosition();
  const QString ahead = text().left(caret);
  const Text characters = FromQString(ahead);  // one for each, also where the toolkit takes two
  const auto kept = static_cast<qsizetype>(DeleteWordAhead({characters, characters.size()}).caret);
  const auto start = QString::fromUcs4(ahead.toStdU32String().data(), kept).size();
  setSelection(static_cast<int>(start), static_cast<int>(caret - start));
  if (hasSelectedText()) insert(QString());
}

}  // namespace parlorwire
