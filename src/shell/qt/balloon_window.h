// A balloon in a small window of the program's own, for desktops that have no place for one.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;

namespace parlorwire {

// In the corner of the screen, above other windows. It takes no focus; a click on it says so and
// closes it. Both texts are shown to the letter.
class BalloonWindow : public QWidget {
  Q_OBJECT

 public:
  BalloonWindow();

  void ShowText(const QString& title, const QString& text);

  std::function<void()> Clicked;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QLabel* title_;
  QLabel* text_;
};

}  // namespace parlorwire
