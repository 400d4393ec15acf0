// Text at the toolkit's edge: Windows-1251 inside, UTF-16 in the toolkit.
#pragma once

#include <QString>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// One QChar a byte, so that positions are the same on both sides. Every byte has a character; 0x98,
// which the code page leaves undefined, is U+0098.
QString ToQString(std::string_view text);

// One byte a character. A character that Windows-1251 lacks becomes "?": one, also where it takes
// two QChars.
Text FromQString(const QString& text);

}  // namespace parlorwire
