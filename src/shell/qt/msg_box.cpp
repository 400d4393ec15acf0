#include "shell/qt/msg_box.h"

#include <QKeyEvent>
#include <optional>

#include "platform/qt/text_conversion.h"
#include "users/input_history.h"

namespace parlorwire {
namespace {

// The classic numbers of the keys that the box cares for.
MsgKey Meaning(const QKeyEvent& event) {
  const bool control = event.modifiers() == Qt::ControlModifier;
  switch (event.key()) {
    case Qt::Key_Up:
      return msg_KeyDown(38, 0);
    case Qt::Key_Down:
      return msg_KeyDown(40, 0);
    case Qt::Key_Backspace:
      return msg_KeyDown(8, control ? 2 : 0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return msg_KeyPress(13);
    case Qt::Key_A:
      return control ? msg_KeyPress(1) : MsgKey::kOther;
    case Qt::Key_T:
      return control ? msg_KeyPress(20) : MsgKey::kOther;
    default:
      return MsgKey::kOther;
  }
}

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
  // The box's own keys come before those of the window.
  if (event->type() == QEvent::ShortcutOverride) {
    // With nothing selected here, the window copies from the pane that was clicked.
    if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) && !hasSelectedText()) {
      event->ignore();
      return true;
    }
    const MsgKey meaning = Meaning(*static_cast<QKeyEvent*>(event));
    if (meaning == MsgKey::kSelectAll || meaning == MsgKey::kDeleteWord) {
      event->accept();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void MsgBox::keyPressEvent(QKeyEvent* event) {
  if (const auto step = StepOf(*event)) {
    if (ScrollPane) ScrollPane(*step);
    return;
  }
  switch (Meaning(*event)) {
    case MsgKey::kSend:
      if (!isReadOnly() && Send) Send();
      break;
    case MsgKey::kUp:
      if (Browse) Browse(true);
      break;
    case MsgKey::kDown:
      if (Browse) Browse(false);
      break;
    case MsgKey::kDeleteWord:
      if (!isReadOnly()) DeleteWord();
      break;
    case MsgKey::kSelectAll:
      selectAll();
      break;
    case MsgKey::kSwallow:
      break;
    case MsgKey::kOther:
      QLineEdit::keyPressEvent(event);
      break;
  }
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
