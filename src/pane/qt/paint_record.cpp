#include "pane/qt/paint_record.h"

#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

namespace parlorwire {

PaintRecord::AllPainted PaintRecord::Of(const std::vector<PlacedFragment>& seen) {
  AllPainted painted;
  painted.reserve(seen.size());
  for (const PlacedFragment& placed : seen)
    painted.push_back({placed.layout->serial, placed.top, placed.layout->height});
  return painted;
}

void PaintRecord::Remember(const std::vector<PlacedFragment>& seen, PaneColour ground) {
  painted_ = Of(seen);
  ground_ = ground;
  good_ = true;
}

void PaintRecord::Restyle(PaneRange range) {
  if (range.empty()) return;
  restyled_ = restyled_.empty() ? range
                                : PaneRange{std::min(restyled_.start, range.start),
                                            std::max(restyled_.end, range.end)};
}

void PaintRecord::TextChanged(PanePosition length) {
  if (!restyled_.empty()) restyled_ = {0, length};
}

void PaintRecord::MayPaint() {
  if (std::exchange(missed_, false)) good_ = false;
}

// As far as the first fragment that is seen still has moved. False if there is none, or if the move
// is no whole number of the screen's pixels.
bool PaintRecord::Move(QWidget& viewport, const AllPainted& now) {
  for (const Painted& seen : now) {
    const auto before = std::ranges::find(painted_, seen.serial, &Painted::serial);
    if (before == painted_.end()) continue;
    const int shift = seen.top - before->top;
    if (shift == 0) return true;
    const double pixels = shift * viewport.devicePixelRatioF();
    if (pixels != std::floor(pixels)) return false;
    viewport.scroll(0, shift);
    for (Painted& painted : painted_)
      painted.top += shift;
    return true;
  }
  return false;
}

void PaintRecord::Update(QWidget& viewport, const std::vector<PlacedFragment>& seen,
                         PaneColour ground) {
  const AllPainted now = Of(seen);
  const auto repaint = [&](int top, int height) {
    viewport.update(0, top, viewport.width(), height);
  };
  // What stands in one of the two and not in the other.
  const auto repaint_others = [&](const AllPainted& all, const AllPainted& others) {
    for (const Painted& painted : all)
      if (std::ranges::find(others, painted) == others.end()) repaint(painted.top, painted.height);
  };
  if (good_ && ground_ == ground && Move(viewport, now)) {
    repaint_others(now, painted_);
    repaint_others(painted_, now);
  } else {
    viewport.update();
  }
  for (const PlacedFragment& placed : seen)
    if (placed.fragment.start < restyled_.end && placed.fragment.next > restyled_.start)
      repaint(placed.top, placed.layout->height);
  restyled_ = {};
  Remember(seen, ground);
}

}  // namespace parlorwire
