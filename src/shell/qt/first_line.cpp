#include "shell/qt/first_line.h"

#include <QRegularExpression>

namespace parlorwire {

QValidator::State FirstLineOnly::validate(QString& text, int& caret) const {
  static const QRegularExpression kLineBreak(QStringLiteral("[\\r\\n]"));
  const auto line_break = static_cast<int>(text.indexOf(kLineBreak));
  if (line_break >= 0) {
    text.remove(line_break, qMax(caret, line_break + 1) - line_break);
    caret = line_break;
  }
  return text.contains(kLineBreak) ? Invalid : Acceptable;
}

}  // namespace parlorwire
