#include "shell/qt/line_razdel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "shell/qt/control_names.h"

namespace parlorwire {

LineRazdel::LineRazdel(QWidget* parent) : QWidget(parent) {
  setCursor(Qt::SplitHCursor);
  setFocusPolicy(Qt::TabFocus);
}

void LineRazdel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  End(true);
  dragging_ = true;
  grip_ = event->position().toPoint().x();
  QCoreApplication::instance()->installEventFilter(this);
  if (Down) Down();
}

void LineRazdel::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_ && Drag) Drag(mapToParent(event->position().toPoint()).x() - grip_);
}

void LineRazdel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) End(true);
}

void LineRazdel::hideEvent(QHideEvent* event) {
  End(true);
  QWidget::hideEvent(event);
}

void LineRazdel::End(bool keep) {
  if (!dragging_) return;
  dragging_ = false;
  QCoreApplication::instance()->removeEventFilter(this);
  if (Up) Up(keep);
}

// During a drag, all events of the program pass here.
bool LineRazdel::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) break;
      event->accept();
      if (event->type() == QEvent::KeyPress) End(false);
      return true;
    case QEvent::MouseMove:
      if (static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)) break;
      End(true);
      break;
    case QEvent::WindowDeactivate:
      if (watched == window()) End(true);
      break;
    case QEvent::UngrabMouse:
      if (watched == this) End(true);
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void LineRazdel::keyPressEvent(QKeyEvent* event) {
  SplitKey key = SplitKey::kLeft;
  switch (event->key()) {
    case Qt::Key_Left:
      break;
    case Qt::Key_Right:
      key = SplitKey::kRight;
      break;
    case Qt::Key_Home:
      key = SplitKey::kHome;
      break;
    case Qt::Key_End:
      key = SplitKey::kEnd;
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  if (Key && !dragging_) Key(key);
}

void LineRazdel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(hasFocus() ? 0x4A7AA6 : 0xC3C8C0));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(hasFocus() ? 0xFFFFFF : 0x7C857A));
  const qreal middle = height() / 2.0;
  for (const qreal y : {middle - 8, middle, middle + 8})
    painter.drawEllipse(QPointF(width() / 2.0, y), 1, 1);
}

}  // namespace parlorwire
