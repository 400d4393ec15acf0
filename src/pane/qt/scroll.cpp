// Scrolling a pane: the wheel, the bars, and what the program and the keys ask for.
#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "pane/qt/rich_text_view.h"
#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr int kEighthsPerNotch = 120;

}  // namespace

// ---- the wheel ----

// By pixels: a touch pad tells them, a wheel's notch is some rows.
int RichTextView::WheelPixels(int pixels, int angle, int& rest) const {
  if (pixels != 0) return pixels;
  rest += angle * QApplication::wheelScrollLines() * arrangement_.RowHeight();
  const int whole = rest / kEighthsPerNotch;
  rest %= kEighthsPerNotch;
  return whole;
}

void RichTextView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) return event->ignore();
  QPoint pixels = event->pixelDelta();
  QPoint angle = event->angleDelta();
  const bool sideways = horizontalScrollBar()->maximum() > 0;
  if (sideways && (event->modifiers() & Qt::ShiftModifier)) {
    pixels = pixels.transposed();
    angle = angle.transposed();
  }
  if (sideways) ScrollSideways(-WheelPixels(pixels.x(), angle.x(), wheel_rest_.rx()));
  const int down = -WheelPixels(pixels.y(), angle.y(), wheel_rest_.ry());
  if (down != 0) ScrollBy(down);
  event->accept();
}

// ---- the bars ----

// In a long pane a line more moves the bar by nothing that can be seen: then it is left alone.
void RichTextView::UpdateScrollBar(BarUpdate update) {
  QScrollBar* bar = verticalScrollBar();
  if (bar->isSliderDown()) return;
  const PaneScrollInfo info = arrangement_.ScrollInfo();
  const int maximum = info.max - info.page;
  if (update == BarUpdate::kIfSeen && info.max > 0 && bar->maximum() > 0 &&
      (info.pos == maximum) == (bar->value() == bar->maximum())) {
    const double length = bar->height();
    const double shown = bar->maximum() + bar->pageStep();
    const double top = length * (info.pos / double(info.max) - bar->value() / shown);
    const double thumb = length * (info.page / double(info.max) - bar->pageStep() / shown);
    if (std::abs(top) < 0.5 && std::abs(thumb) < 0.5) return;
  }
  updating_bar_ = true;
  bar->setPageStep(info.page);
  bar->setSingleStep(arrangement_.RowHeight());
  bar->setRange(0, maximum);
  bar->setValue(info.pos);
  updating_bar_ = false;
}

// Lines that do not wrap at the view's width may be wider than it.
void RichTextView::UpdateSidewaysBar() {
  QScrollBar* bar = horizontalScrollBar();
  const int width = viewport()->width();
  const int wanted = box_.RightMargin() > 0 ? arrangement_.Widest() + 2 * kMargin : 0;
  if (bar->maximum() == std::max(wanted - width, 0) && bar->pageStep() == width) return;
  bar->setPageStep(width);
  bar->setSingleStep(arrangement_.RowHeight());
  bar->setRange(0, std::max(wanted - width, 0));
}

// The reader has moved a bar.
void RichTextView::scrollContentsBy(int dx, int) {
  if (dx != 0) {
    painted_.Forget();
    NoteChange();
    return;
  }
  if (updating_bar_) return;
  const QScrollBar* bar = verticalScrollBar();
  if (bar->value() >= bar->maximum()) {
    arrangement_.ScrollToEnd();
  } else if (bar->value() <= 0) {
    arrangement_.ScrollToStart();
  } else {
    // By its share: the bar may still have the range of a shorter pane.
    const PaneScrollInfo info = arrangement_.ScrollInfo();
    const double share = bar->value() / double(bar->maximum());
    arrangement_.ScrollToUnit(static_cast<int>(share * (info.max - info.page)));
  }
  NoteChange();
  emit scrolled();
}

// The wheel scrolls by true pixels over the bar, too.
bool RichTextView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != verticalScrollBar() || event->type() != QEvent::Wheel)
    return QAbstractScrollArea::eventFilter(watched, event);
  wheelEvent(static_cast<QWheelEvent*>(event));
  return true;
}

// Rows and pages are steps of true pixels, not of the bar's estimated ones.
void RichTextView::BarActed(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
      return ScrollBy(arrangement_.RowHeight());
    case QAbstractSlider::SliderSingleStepSub:
      return ScrollBy(-arrangement_.RowHeight());
    case QAbstractSlider::SliderPageStepAdd:
      return ScrollPages(1);
    case QAbstractSlider::SliderPageStepSub:
      return ScrollPages(-1);
    default:
      return;
  }
}

// ---- by the program and by keys ----

void RichTextView::Scroll(PaneScroll command) {
  show_caret_ = false;
  if (command == PaneScroll::kBottom)
    arrangement_.ScrollToEnd();
  else
    arrangement_.ScrollBy(-arrangement_.RowHeight());
  NoteWriting();
}

PaneScrollInfo RichTextView::GetScrollInfo() const {
  return arrangement_.ScrollInfo();
}

void RichTextView::ScrollBy(int pixels) {
  show_caret_ = false;
  arrangement_.ScrollBy(pixels);
  UpdateScrollBar(BarUpdate::kExact);
  NoteChange();
  emit scrolled();
}

void RichTextView::ScrollSideways(int pixels) {
  QScrollBar* bar = horizontalScrollBar();
  bar->setValue(bar->value() + pixels);
}

void RichTextView::ScrollPages(double pages) {
  ScrollBy(static_cast<int>(pages * arrangement_.PageHeight()));
}

void RichTextView::ScrollToStart() {
  show_caret_ = false;
  arrangement_.ScrollToStart();
  NoteChange();
  emit scrolled();
}

void RichTextView::ScrollToEnd() {
  show_caret_ = false;
  arrangement_.ScrollToEnd();
  NoteChange();
  emit scrolled();
}

void RichTextView::ShowPosition(PanePosition position) {
  Reveal(std::clamp(position, PanePosition{0}, box_.Length()));
  NoteChange();
  emit scrolled();
}

RichTextView::Top RichTextView::TopOfView() const {
  const PlacedFragment& first = arrangement_.Seen().front();
  const auto& row = first.layout->RowNumber(RowAt(*first.layout, -first.top));
  return {first.fragment.start + row.start, -first.top - row.top};
}

void RichTextView::PutAtTop(const Top& top) {
  show_caret_ = false;
  arrangement_.PutAtTop(std::clamp(top.position, PanePosition{0}, box_.Length()), top.pixels);
  NoteWriting();
}

void RichTextView::Reveal(PanePosition position) {
  arrangement_.Show(position);
  if (box_.RightMargin() > 0) RevealSideways(position);
}

void RichTextView::RevealSideways(PanePosition position) {
  UpdateSidewaysBar();
  const Fragment fragment = arrangement_.Fragments().At(position);
  const int index = static_cast<int>(position - fragment.start);
  const QRectF place = BoxOf(*arrangement_.LayoutOf(fragment), index, index + 1);
  const int left = static_cast<int>(std::floor(place.left()));
  const int right = static_cast<int>(std::ceil(place.right())) + 2 * kMargin;
  QScrollBar* bar = horizontalScrollBar();
  if (left < bar->value())
    bar->setValue(left);
  else if (right > bar->value() + viewport()->width())
    bar->setValue(right - viewport()->width());
}

}  // namespace parlorwire
