// The clipboard of the desktop.
#pragma once

#include "platform/clipboard.h"

namespace parlorwire {

// Needs a QGuiApplication by the first call.
class QtClipboard : public Clipboard {
 public:
  void SetText(const Text& text) override;
  Text GetText() const override;
};

}  // namespace parlorwire
