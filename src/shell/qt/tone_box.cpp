#include "shell/qt/tone_box.h"

#include <QWheelEvent>

namespace parlorwire {

ToneBox::ToneBox(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::activated, this, [this] {
    if (!in_key_ && Chosen) Chosen();
  });
}

void ToneBox::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) return event->ignore();
  QComboBox::wheelEvent(event);
}

// Who goes through the tones by keys stays in the box.
void ToneBox::keyPressEvent(QKeyEvent* event) {
  in_key_ = true;
  QComboBox::keyPressEvent(event);
  in_key_ = false;
}

}  // namespace parlorwire
