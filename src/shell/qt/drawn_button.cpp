#include "shell/qt/drawn_button.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace parlorwire {

DrawnButton::DrawnButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void DrawnButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (!event->isAutoRepeat()) click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

// While a mouse button is held, the pointer belongs to the control even outside.
void DrawnButton::mouseMoveEvent(QMouseEvent* event) {
  SetHovered(event->buttons() == Qt::NoButton);
  QAbstractButton::mouseMoveEvent(event);
}

void DrawnButton::mouseReleaseEvent(QMouseEvent* event) {
  SetHovered(false);
  QAbstractButton::mouseReleaseEvent(event);
}

void DrawnButton::leaveEvent(QEvent* event) {
  SetHovered(false);
  QAbstractButton::leaveEvent(event);
}

void DrawnButton::SetHovered(bool hovered) {
  if (hovered == hovered_) return;
  hovered_ = hovered;
  update();
}

}  // namespace parlorwire
