// Twips and device-independent pixels.
#pragma once

#include <QRect>
#include <QWidget>

#include "pane/twips.h"
#include "shell/client_main_layout.h"

namespace parlorwire {

inline int Pixels(int twips) {
  return twips / kTwipsPerPixel;
}
inline int Twips(int pixels) {
  return pixels * kTwipsPerPixel;
}

// Edges that two places share stay shared.
inline QRect PixelsOf(const Place& place) {
  const int left = Pixels(place.left);
  const int top = Pixels(place.top);
  return {left, top, Pixels(place.Right()) - left, Pixels(place.Bottom()) - top};
}

// Puts a control at its place. One whose size would be negative stays where it is.
inline void PutAt(QWidget* control, const Place& place) {
  if (place.width < 0 || place.height < 0) return;
  control->setGeometry(PixelsOf(place));
}

}  // namespace parlorwire
