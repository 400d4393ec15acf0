// The client area of the main window.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <functional>

namespace parlorwire {

// Paints the background, the edge of the page under the tab strip, and, while no tab is visible, a
// hint how to begin.
class Ground : public QWidget {
  Q_OBJECT

 public:
  explicit Ground(QWidget* owner);

  void Hint(const QString& hint);
  void ShowHint(bool show);
  void PageAt(const QRect& page);
  // What is seen of the page; without a colour its own.
  void PageColour(const QColor& colour = QColor());

  std::function<void()> Resized;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString hint_;
  bool show_hint_ = true;
  QRect page_;
  QColor page_colour_;
};

}  // namespace parlorwire
