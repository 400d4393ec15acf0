// What the buttons and labels have in common that are drawn by the program.
#pragma once

#include <QAbstractButton>

namespace parlorwire {

// Acts (`clicked`) when the left mouse button is let go inside, and on Enter and Space. Reached by
// Tab. As large as its sizeHint.
class DrawnButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit DrawnButton(QWidget* parent);

  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  // Whether it is to be drawn as under the mouse: the mouse has moved over it since it came, and
  // since one of its buttons was last let go there.
  bool Hovered() const { return hovered_; }

  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void SetHovered(bool hovered);

  bool hovered_ = false;
};

}  // namespace parlorwire
