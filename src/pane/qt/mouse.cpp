// The mouse in a pane.
#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTimerEvent>
#include <QTouchEvent>
#include <algorithm>

#include "pane/qt/copy.h"
#include "pane/qt/rich_text_view.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

bool RichTextView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      Touched(*static_cast<QTouchEvent*>(event));
      return true;
    case QEvent::Leave:
      emit mouseLeft();
      break;
    default:
      break;
  }
  const bool handled = QAbstractScrollArea::viewportEvent(event);
  if (frame_.isActive() && event->isInputEvent()) NoteChange();  // the answer to it is not put off
  return handled;
}

// ---- selecting ----

void RichTextView::SelectByMouse(ReaderSelection selection) {
  ShowSelection(selection);
  emit selecting();
}

void RichTextView::mousePressEvent(QMouseEvent* event) {
  const MouseSelection::Place place = PlaceOf(event->position().toPoint());
  if (event->button() == Qt::LeftButton) {
    if (const auto selected = mouse_.Press(*event, place, selection_)) SelectByMouse(*selected);
  } else if (event->button() == Qt::RightButton && !Selected().empty()) {
    GiveSelection();
  }
  emit mousePressedAt(place.character, event->button());
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  SelectByMouse(mouse_.PressAgain(*event, PlaceOf(event->position().toPoint())));
}

void RichTextView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (!(event->buttons() & Qt::LeftButton)) ReleaseUnseen();
  if (mouse_.TakesOut(point)) return DragOut();
  if (mouse_.Dragging()) DragTo(point);
  if (!mouse_.Clicks(point)) emit mouseMovedOver(CharFromPos(point.x(), point.y()));
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (event->button() == Qt::LeftButton) {
    if (mouse_.Pressing()) {
      const PanePosition clicked = BorderFromPos(mouse_.point());
      SelectByMouse({clicked, clicked});
    }
    if (mouse_.Release()) FinishSelecting();
  }
  emit mouseReleasedAt(CharFromPos(point.x(), point.y()), event->button());
}

void RichTextView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == frame_.timerId()) {
    frame_.stop();
    return NoteChange();
  }
  if (!mouse_.IsTick(*event)) return QAbstractScrollArea::timerEvent(event);
  const QPoint point = mouse_.point();
  const QPoint step = MouseSelection::ScrollStep(point - Within(point));
  if (step.y() != 0) ScrollBy(step.y());
  if (step.x() != 0) ScrollSideways(step.x());
  SelectByMouse(mouse_.DraggedTo(BorderFromPos(Within(point))));
}

// The nearest point of the view; to a side only if the text goes on there.
QPoint RichTextView::Within(QPoint point) const {
  const QRect seen = viewport()->rect();
  const QScrollBar* bar = horizontalScrollBar();
  if (bar->value() > 0) point.setX(std::max(point.x(), 0));
  if (bar->value() < bar->maximum()) point.setX(std::min(point.x(), seen.right()));
  point.setY(std::clamp(point.y(), 0, std::max(seen.bottom(), 0)));
  return point;
}

MouseSelection::Place RichTextView::PlaceOf(QPoint point) const {
  const PanePosition at = CharFromPos(point.x(), point.y());
  const PaneRange selected = Selected();
  const bool on_selection =
      at >= selected.start && at < selected.end && CharacterRect(at).contains(point);
  return {point, at, BorderFromPos(point), on_selection};
}

void RichTextView::DragTo(QPoint point) {
  const QPoint within = Within(point);
  mouse_.Drag(point, point - within, this);
  SelectByMouse(mouse_.DraggedTo(BorderFromPos(within)));
}

// Takes the selected text elsewhere; here it stays.
void RichTextView::DragOut() {
  mouse_.TakeOut();
  auto* drag = new QDrag(this);
  drag->setMimeData(Copied(box_, Selected()).release());
  const QPointer<RichTextView> self(this);
  drag->exec(Qt::CopyAction);
  if (self == nullptr) return;
  ReleaseUnseen();
}

// The button went up where the view could not see it. Whoever heard of the press hears that it is
// over; it was no click on anything.
void RichTextView::ReleaseUnseen() {
  if (!mouse_.Holds()) return;
  const bool dragged = mouse_.Dragging();
  mouse_.Lose();
  if (dragged) FinishSelecting();
  emit mouseMovedOver(0);
  emit mouseReleasedAt(0, Qt::LeftButton);
}

void RichTextView::FinishSelecting() {
  GiveSelection();
  QClipboard* clipboard = QGuiApplication::clipboard();
  if (Selected().empty() || !clipboard->supportsSelection()) return;
  clipboard->setMimeData(Copied(box_, Selected()).release(), QClipboard::Selection);
}

}  // namespace parlorwire
