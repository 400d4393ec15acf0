#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "platform/qt/text_conversion.h"

namespace parlorwire {

void QtClipboard::SetText(const Text& text) {
  QGuiApplication::clipboard()->setText(ToQString(text));
}

Text QtClipboard::GetText() const {
  return FromQString(QGuiApplication::clipboard()->text());
}

}  // namespace parlorwire
