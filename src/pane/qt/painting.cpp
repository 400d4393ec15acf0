// The painting of a pane: when, and what of it.
#include <QEvent>
#include <QMetaObject>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>

#include "pane/qt/fragment_painter.h"
#include "pane/qt/rich_text_view.h"
#include "pane/rich_text_box.h"
#include "pane/twips.h"

namespace parlorwire {
namespace {

constexpr QRgb kFocusColour = 0xFF5A9BD5;

// The part of the fragment that is selected, its line break included.
SelectedStretch SelectedIn(const Fragment& fragment, PaneRange selected) {
  const PanePosition breaks = fragment.next > fragment.start + fragment.length ? 1 : 0;
  const auto within = [&](PanePosition position) {
    return static_cast<int>(
        std::clamp(position - fragment.start, PanePosition{0}, fragment.length + breaks));
  };
  return {within(selected.start), within(selected.end)};
}

}  // namespace

// Whatever changes until the event loop turns is settled at once.
void RichTextView::NoteChange() {
  if (settle_posted_ || !redraw_ || !isVisible()) return;
  settle_posted_ = true;
  frame_.stop();
  QMetaObject::invokeMethod(this, &RichTextView::Settle, Qt::QueuedConnection);
}

// What the program writes: the first of it at once, and what comes close behind it together, since
// a stream of lines would have the whole pane moved for each of them.
void RichTextView::NoteWriting() {
  if (settle_posted_ || frame_.isActive() || !redraw_ || !isVisible()) return;
  const qint64 passed = since_settled_.isValid() ? since_settled_.elapsed() : kFrame;
  if (passed >= kFrame) return NoteChange();
  frame_.start(static_cast<int>(kFrame - passed), Qt::PreciseTimer, this);
}

void RichTextView::Settle() {
  settle_posted_ = false;
  if (!redraw_ || !isVisible()) return;
  since_settled_.start();
  if (show_caret_) {
    show_caret_ = false;
    Reveal(selection_.range().start);
    emit scrolled();
  }
  painted_.Update(*viewport(), arrangement_.Seen(), box_.BackColor());
  UpdateScrollBar(BarUpdate::kIfSeen);
  UpdateSidewaysBar();
  announcer_.Flush();
}

// The characters look different though their layout is the same.
void RichTextView::Restyle(PaneRange range) {
  if (range.empty()) return;
  painted_.Restyle(range);
  NoteChange();
}

void RichTextView::paintEvent(QPaintEvent* event) {
  if (!redraw_ && painted_.good()) return painted_.Miss();
  ++work_.paints;
  QPainter painter(viewport());
  // Where a pixel of the view is not a whole number of the screen's, the edge of what is painted
  // takes in a part of a pixel more.
  const int more = devicePixelRatioF() == std::floor(devicePixelRatioF()) ? 0 : 1;
  const QRect clip = event->rect().adjusted(-more, -more, more, more);
  painter.fillRect(clip, ToQColor(box_.BackColor()));
  const auto& seen = arrangement_.Seen();
  for (const PlacedFragment& placed : seen) {
    const QRect place(0, placed.top, viewport()->width(), placed.layout->height);
    if (!event->region().intersects(place.adjusted(0, -more, 0, more))) continue;
    ++work_.painted;
    Paint(painter, *placed.layout, {qreal(TextLeft()), qreal(placed.top)}, clip,
          viewport()->width(), SelectedIn(placed.fragment, selection_.range()), palette(),
          arrangement_.Tools().pictures);
  }
  // What is settled after this must know whether all that is seen is up to date.
  if (event->region().contains(viewport()->rect()))
    painted_.Remember(seen, box_.BackColor());
  else if (settle_posted_ || frame_.isActive())
    painted_.Forget();
}

void RichTextView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  ResizeText();
}

void RichTextView::ResizeText() {
  const int wraps_at = box_.RightMargin() / kTwipsPerPixel;
  arrangement_.Resize(wraps_at > 0 ? wraps_at : viewport()->width() - 2 * kMargin,
                      viewport()->height());
  painted_.Forget();
  NoteChange();
}

void RichTextView::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  painted_.Forget();
  NoteChange();
}

void RichTextView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::FontChange || type == QEvent::StyleChange) arrangement_.Forget();
  if (type == QEvent::ActivationChange) {
    if (!isActiveWindow()) ReleaseUnseen();
    return Restyle(selection_.range());
  }
  painted_.Forget();
  NoteChange();
}

void RichTextView::hideEvent(QHideEvent* event) {
  ReleaseUnseen();
  QAbstractScrollArea::hideEvent(event);
}

void RichTextView::ShowFocusAtEdge() {
  edge_ = true;
  setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
  setLineWidth(kEdge);
}

void RichTextView::FocusChanged() {
  Restyle(selection_.range());
  if (edge_) update(QRegion(rect()) - contentsRect());
}

void RichTextView::PaintEdge() {
  QPainter painter(this);
  painter.setClipRegion(QRegion(rect()) - contentsRect());
  painter.fillRect(rect(), hasFocus() ? QColor(kFocusColour) : ToQColor(box_.BackColor()));
}

void RichTextView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  FocusChanged();
}

void RichTextView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  FocusChanged();
}

}  // namespace parlorwire
