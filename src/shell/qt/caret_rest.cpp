#include "shell/qt/caret_rest.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace parlorwire {

CaretRest::CaretRest(QObject* owner) : QObject(owner) {
  timer_.setSingleShot(true);
  timer_.setInterval(kMilliseconds);
  connect(&timer_, &QTimer::timeout, this, &CaretRest::Rest);
}

void CaretRest::Watch(QWidget* box) {
  box->installEventFilter(this);
}

bool CaretRest::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
      Wake();
      if (event->type() == QEvent::FocusIn || static_cast<QWidget*>(watched)->hasFocus())
        timer_.start();
      break;
    case QEvent::FocusOut:
      timer_.stop();
      Wake();
      break;
    default:
      break;
  }
  return false;
}

void CaretRest::Rest() {
  blinking_ = QApplication::cursorFlashTime();
  resting_ = true;
  QApplication::setCursorFlashTime(0);
}

void CaretRest::Wake() {
  if (!resting_) return;
  resting_ = false;
  QApplication::setCursorFlashTime(blinking_);
}

}  // namespace parlorwire
