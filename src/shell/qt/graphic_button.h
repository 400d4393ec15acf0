// A button that is a picture, with three looks: normal, under the mouse, and pressed.
#pragma once

#include <QAbstractButton>
#include <functional>

namespace parlorwire {

// Acts (`clicked`) when the left mouse button is let go inside, and on Enter and Space. Drawn, not
// stored, so that it is crisp at any scale. The text beside the picture may be empty.
class GraphicButton : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Picture { kConnect, kSay, kClear, kUpdate, kAccount };

  GraphicButton(Picture picture, QWidget* parent);

  // Asked at each painting: true shows the button at work.
  std::function<bool()> Busy;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  Picture picture_;
};

}  // namespace parlorwire
