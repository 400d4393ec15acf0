// A button that is a picture, with three looks: normal, under the mouse, and pressed.
#pragma once

#include <functional>

#include "shell/qt/drawn_button.h"

namespace parlorwire {

// Drawn, not stored, so that it is crisp at any scale. The text beside the picture may be empty.
class GraphicButton : public DrawnButton {
  Q_OBJECT

 public:
  enum class Picture { kConnect, kSay, kClear, kUpdate, kAccount, kFind, kSmiles };

  GraphicButton(Picture picture, QWidget* parent);

  // Asked at each painting: true shows the button at work.
  std::function<bool()> Busy;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Picture picture_;
};

}  // namespace parlorwire
