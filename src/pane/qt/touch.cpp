// A finger on a pane: its moves scroll, its tap is a click.
#include <QPointF>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>
#include <QTouchEvent>
#include <cmath>

#include "pane/qt/rich_text_view.h"

namespace parlorwire {
namespace {

constexpr double kTouchRange = 1e6;  // pixels; more than one fling goes

}  // namespace

// A press waits for what comes: lifted without a move it was a click.
void RichTextView::Touched(const QTouchEvent& event) {
  QScroller* scroller = QScroller::scroller(viewport());
  if (event.points().isEmpty()) return scroller->stop();
  const QPointF at = event.points().first().position();
  const bool pressed = scroller->state() == QScroller::Pressed;
  scroller->handleInput(event.type() == QEvent::TouchBegin    ? QScroller::InputPress
                        : event.type() == QEvent::TouchUpdate ? QScroller::InputMove
                                                              : QScroller::InputRelease,
                        at, static_cast<qint64>(event.timestamp()));
  if (event.type() != QEvent::TouchEnd || !pressed) return;
  const QPoint point = at.toPoint();
  const PanePosition character = CharFromPos(point.x(), point.y());
  emit mouseMovedOver(character);
  emit mousePressedAt(character, Qt::LeftButton);
  emit mouseReleasedAt(character, Qt::LeftButton);
}

// By true pixels, not by the bar's estimated ones; where the text ends is seen when it is reached.
void RichTextView::PrepareTouch(QScrollPrepareEvent* event) {
  touch_y_ = kTouchRange / 2;
  event->setViewportSize(viewport()->size());
  event->setContentPosRange(QRectF(0, 0, horizontalScrollBar()->maximum(),
                                   arrangement_.ScrollInfo().max > 0 ? kTouchRange : 0));
  event->setContentPos(QPointF(horizontalScrollBar()->value(), touch_y_));
  event->accept();
}

void RichTextView::TouchScroll(QScrollEvent* event) {
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(event->contentPos().x())));
  const int pixels = static_cast<int>(std::lround(event->contentPos().y() - touch_y_));
  touch_y_ += pixels;
  if (pixels != 0) ScrollBy(pixels);
  const PaneScrollInfo info = arrangement_.ScrollInfo();
  const bool ended = pixels > 0 ? arrangement_.AtEnd() : pixels < 0 && info.pos == 0;
  if (ended && QScroller::scroller(viewport())->state() == QScroller::Scrolling)
    QScroller::scroller(viewport())->stop();
  event->accept();
}

}  // namespace parlorwire
