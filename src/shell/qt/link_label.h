// A label that acts when it is clicked: underlined words with the hand pointer.
#pragma once

#include <QAbstractButton>
#include <functional>

namespace parlorwire {

// Reached by Tab, acts on the left mouse button, on Enter and on Space.
//
// It can be used only while it is enabled and has an action, so that a label whose action doesn't
// exist is never shown as if it had one.
class LinkLabel : public QAbstractButton {
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
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void Enable();

  std::function<void()> action_;
  bool wanted_ = true;
  bool red_ = false;
};

}  // namespace parlorwire
