// How a pane's formats look on this desktop.
#pragma once

#include <QColor>
#include <QFont>
#include <QTextCharFormat>
#include <map>
#include <string>
#include <tuple>

#include "platform/rich_text_box.h"

namespace parlorwire {

QColor ToQColor(PaneColour colour);

// The font of a format. A family that is not installed is replaced by one of its kind: serif, sans
// serif or of fixed pitch.
QFont ToQFont(const PaneFormat& format);

// The formats in use, as the toolkit's. The number kept is bounded.
class ToolkitFormats {
 public:
  // Font and text colour; back colour and alignment are not in it.
  const QTextCharFormat& For(const PaneFormat& format);
  void Clear() { formats_.clear(); }

 private:
  using Key = std::tuple<std::string, int, PaneColour, bool, bool, bool>;
  std::map<Key, QTextCharFormat> formats_;
};

}  // namespace parlorwire
