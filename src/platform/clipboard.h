// The port to the clipboard.
#pragma once

#include "text/text.h"

namespace parlorwire {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void SetText(const Text& text) = 0;
  // The text on the clipboard, "" if it holds none. Characters that Windows-1251 lacks come as "?".
  virtual Text GetText() const = 0;
};

}  // namespace parlorwire
