#include "shell/qt/one_line_only.h"

#include "platform/qt/text_conversion.h"
#include "text/one_line.h"

namespace parlorwire {
namespace {

QString AsOneLine(const QString& text) {
  return ToQString(OneLine(FromQString(text)));
}

}  // namespace

QValidator::State OneLineOnly::validate(QString& text, int& caret) const {
  caret = static_cast<int>(AsOneLine(text.left(caret)).size());
  text = AsOneLine(text);
  return Acceptable;
}

}  // namespace parlorwire
