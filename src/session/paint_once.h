// A mass change of a pane that is one change for who looks at it.
#pragma once

#include "platform/rich_text_box.h"

namespace parlorwire {

// While it lives the pane is not painted; then it is painted once, also when a fault ended the
// change.
class PaintOnce {
 public:
  explicit PaintOnce(RichTextBox& pane) : pane_(pane) { pane_.SetRedraw(false); }
  ~PaintOnce() {
    pane_.SetRedraw(true);
    pane_.Refresh();
  }
  PaintOnce(const PaintOnce&) = delete;
  PaintOnce& operator=(const PaintOnce&) = delete;

 private:
  RichTextBox& pane_;
};

}  // namespace parlorwire
