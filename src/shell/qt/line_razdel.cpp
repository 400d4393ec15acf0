#include "shell/qt/line_razdel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kKeyStep = 16;

}  // namespace

LineRazdel::LineRazdel(QWidget* parent) : QWidget(parent) {
  setCursor(Qt::SplitHCursor);
  setFocusPolicy(Qt::TabFocus);
}

void LineRazdel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragging_ = true;
  grip_ = event->position().toPoint().x();
}

void LineRazdel::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_ && Moved) Moved(mapToParent(event->position().toPoint()).x() - grip_);
}

void LineRazdel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) dragging_ = false;
}

void LineRazdel::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) {
    QWidget::keyPressEvent(event);
    return;
  }
  const int step = event->key() == Qt::Key_Left ? -kKeyStep : kKeyStep;
  if (Moved) Moved(x() + step);
}

void LineRazdel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(hasFocus() ? 0x4A7AA6 : 0xC3C8C0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(hasFocus() ? 0xFFFFFF : 0x7C857A));
  const int middle = height() / 2;
  for (const int y : {middle - 8, middle, middle + 8})
    painter.drawEllipse(QRectF(width() / 2.0 - 1, y - 1, 2, 2));
}

}  // namespace parlorwire
