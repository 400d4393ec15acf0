// A label that acts when it is clicked: underlined words with the hand pointer.
#pragma once

#include <functional>

#include "shell/qt/drawn_button.h"

namespace parlorwire {

// It can be used only while it is enabled and has an action, so that a label whose action doesn't
// exist is never shown as if it had one.
class LinkLabel : public DrawnButton {
  Q_OBJECT

 public:
  explicit LinkLabel(QWidget* parent);

  void SetAction(std::function<void()> action);
  // Whether the program wants it enabled.
  void SetWanted(bool wanted);
  // The words in red, else in the colour of a link.
  void SetRed(bool red);
  bool Red() const { return red_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Enable();

  std::function<void()> action_;
  bool wanted_ = true;
  bool red_ = false;
};

}  // namespace parlorwire
