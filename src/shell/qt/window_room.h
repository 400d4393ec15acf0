// The main window lies on the desktop, whatever becomes of its screens.
#pragma once

#include <QObject>
#include <QRect>
#include <functional>
#include <vector>

class QScreen;
class QWidget;

namespace parlorwire {

// Fits a window into the room that the screens leave: not larger than that, its title reachable.
// The window also has a least size, of which a small screen takes away. All this is done again when
// a screen comes, goes or changes, and once the desktop has framed the window. A maximized or
// minimized window is the desktop's affair.
class WindowRoom : public QObject {
  Q_OBJECT

 public:
  // Belongs to the window. `rooms` tells what the screens leave free, in pixels.
  explicit WindowRoom(QWidget* window);
  WindowRoom(QWidget* window, std::function<std::vector<QRect>()> rooms);

  void Fit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Watch(QScreen* screen);
  void FitSoon();

  QWidget* window_;
  std::function<std::vector<QRect>()> rooms_;
  bool soon_ = false;
};

}  // namespace parlorwire
