#include "platform/qt/text_conversion.h"

#include <QChar>
#include <algorithm>
#include <cstddef>
#include <memory>

namespace parlorwire {
namespace {

// The byte of each UTF-16 unit, "?" for what the code page lacks.
class Encoding {
 public:
  Encoding() : bytes_(new char[0x10000]) {
    std::fill_n(bytes_.get(), 0x10000, '?');
    for (int byte = 0; byte < 256; ++byte) {
      const auto character = static_cast<char>(byte);
      bytes_[ToUnicode(character)] = character;
    }
  }
  char operator[](char16_t unit) const { return bytes_[unit]; }

 private:
  std::unique_ptr<char[]> bytes_;
};

}  // namespace

QString ToQString(std::string_view text) {
  QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
  std::transform(text.begin(), text.end(), result.begin(),
                 [](char byte) { return QChar(ToUnicode(byte)); });
  return result;
}

Text FromQString(const QString& text) {
  static const Encoding encoding;
  Text result;
  result.reserve(static_cast<std::size_t>(text.size()));
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar unit = text[i];
    if (unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
    result += encoding[unit.unicode()];
  }
  return result;
}

}  // namespace parlorwire
