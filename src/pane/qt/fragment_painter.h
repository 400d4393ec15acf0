// The painting of a fragment that is laid out.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

#include "pane/qt/layout.h"

namespace parlorwire {

// Indices of the fragment that are selected; `end` beyond the length takes the line break.
struct SelectedStretch {
  int start = 0;
  int end = 0;
};

// Paints with the top left corner at `at`, only the rows that touch `clip`. A bar of nothing but
// coloured blanks is as wide as the view, which is `ground` pixels wide.
void Paint(QPainter& painter, const FragmentLayout& layout, QPointF at, const QRectF& clip,
           int ground, SelectedStretch selected, const QPalette& palette,
           ToolkitPictures& pictures);

}  // namespace parlorwire
