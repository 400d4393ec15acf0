// The splitter `line_razdel` between the message pane and the user list.
#pragma once

#include <QWidget>
#include <functional>

#include "shell/client_main_layout.h"

namespace parlorwire {

// Dragged with the left button, or moved by Left, Right, Home and End once it has the focus.
//
// A drag takes no focus. It ends when the button is let go, with Escape, and when nobody could end
// it any more: the button was let go unseen, the splitter is hidden, another window becomes active.
class LineRazdel : public QWidget {
  Q_OBJECT

 public:
  explicit LineRazdel(QWidget* parent);

  std::function<void()> Down;
  // The splitter is to stand at `left`, in pixels of the parent. Between Down and Up only.
  std::function<void(int left)> Drag;
  // The drag is over. `keep` is false when it was taken back.
  std::function<void(bool keep)> Up;
  std::function<void(SplitKey key)> Key;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void End(bool keep);

  bool dragging_ = false;
  int grip_ = 0;  // from the splitter's left edge to the pointer, in pixels
};

}  // namespace parlorwire
