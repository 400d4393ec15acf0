// The splitter `line_razdel` between the message pane and the user list.
#pragma once

#include <QWidget>
#include <functional>

namespace parlorwire {

// Dragged with the left button, or moved by Left and Right once it has the focus.
class LineRazdel : public QWidget {
  Q_OBJECT

 public:
  explicit LineRazdel(QWidget* parent);

  // The splitter is to stand at `left`, in pixels of the parent.
  std::function<void(int left)> Moved;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool dragging_ = false;
  int grip_ = 0;  // from the splitter's left edge to the pointer, in pixels
};

}  // namespace parlorwire
