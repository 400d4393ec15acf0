// The mouse in a pane.
#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QScroller>
#include <QStyleHints>
#include <QTimerEvent>
#include <QTouchEvent>
#include <algorithm>

#include "pane/qt/copy.h"
#include "pane/qt/rich_text_view.h"

namespace parlorwire {
namespace {

constexpr int kDragScrollMilliseconds = 30;

}  // namespace

// A finger's move scrolls, so its press waits: lifted without a move it was a click.
bool RichTextView::viewportEvent(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::TouchBegin || type == QEvent::TouchUpdate || type == QEvent::TouchEnd ||
      type == QEvent::TouchCancel) {
    const auto* touch = static_cast<QTouchEvent*>(event);
    QScroller* scroller = QScroller::scroller(viewport());
    if (touch->points().isEmpty()) {
      scroller->stop();
      return true;
    }
    const QPointF at = touch->points().first().position();
    const bool pressed = scroller->state() == QScroller::Pressed;
    scroller->handleInput(type == QEvent::TouchBegin    ? QScroller::InputPress
                          : type == QEvent::TouchUpdate ? QScroller::InputMove
                                                        : QScroller::InputRelease,
                          at, static_cast<qint64>(touch->timestamp()));
    if (type != QEvent::TouchEnd || !pressed) return true;
    const QPoint point = at.toPoint();
    const PanePosition character = CharFromPos(point.x(), point.y());
    emit mouseMovedOver(character);
    emit mousePressedAt(character, Qt::LeftButton);
    emit mouseReleasedAt(character, Qt::LeftButton);
    return true;
  }
  if (event->type() == QEvent::Leave) emit mouseLeft();
  return QAbstractScrollArea::viewportEvent(event);
}

// ---- selecting ----

void RichTextView::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const PanePosition character = CharFromPos(point.x(), point.y());
  if (event->button() == Qt::LeftButton) {
    const auto interval =
        static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const bool third = double_clicked_ != 0 && event->timestamp() - double_clicked_ < interval &&
                       (point - double_clicked_at_).manhattanLength() <
                           QGuiApplication::styleHints()->startDragDistance();
    double_clicked_ = 0;
    drag_.point = point;
    click_ = point;
    if (third) {
      BeginDrag(character, PaneGrain::kLine);
    } else if (OnSelection(point) && event->modifiers() == Qt::NoModifier) {
      pressed_selection_ = point;
    } else if (event->modifiers() & Qt::ShiftModifier) {
      drag_ = {true, PaneGrain::kCharacter, {selection_.anchor, selection_.anchor}, point};
      DragTo(BorderFromPos(point));
    } else {
      BeginDrag(BorderFromPos(point), PaneGrain::kCharacter);
    }
  } else if (event->button() == Qt::RightButton && !Selected().empty()) {
    GiveSelection();
  }
  emit mousePressedAt(character, event->button());
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_selection_.reset();
  const QPoint point = event->position().toPoint();
  double_clicked_ = event->timestamp();
  double_clicked_at_ = point;
  drag_.point = point;
  BeginDrag(CharFromPos(point.x(), point.y()), PaneGrain::kWord);
}

void RichTextView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (!(event->buttons() & Qt::LeftButton)) ReleaseUnseen();
  if (pressed_selection_ && (point - *pressed_selection_).manhattanLength() >=
                                QGuiApplication::styleHints()->startDragDistance())
    return DragOut();
  if (drag_.active && (event->buttons() & Qt::LeftButton)) {
    drag_.point = point;
    if (Beyond(point).isNull())
      drag_scroll_.stop();
    else if (!drag_scroll_.isActive())
      drag_scroll_.start(kDragScrollMilliseconds, this);
    DragTo(BorderFromPos(Within(point)));
  }
  if (click_ &&
      (point - *click_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
    return;
  click_.reset();
  emit mouseMovedOver(CharFromPos(point.x(), point.y()));
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (event->button() == Qt::LeftButton && pressed_selection_) {
    BeginDrag(BorderFromPos(*pressed_selection_), PaneGrain::kCharacter);
    pressed_selection_.reset();
  }
  if (event->button() == Qt::LeftButton) click_.reset();
  if (event->button() == Qt::LeftButton && drag_.active) EndDrag();
  emit mouseReleasedAt(CharFromPos(point.x(), point.y()), event->button());
}

// The further beyond the edge, the faster.
void RichTextView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != drag_scroll_.timerId()) return QAbstractScrollArea::timerEvent(event);
  const auto step = [](int beyond) { return beyond / 2 + (beyond > 0) - (beyond < 0); };
  const QPoint beyond = Beyond(drag_.point);
  if (beyond.y() != 0) ScrollBy(step(beyond.y()));
  if (beyond.x() != 0) ScrollSideways(step(beyond.x()));
  DragTo(BorderFromPos(Within(drag_.point)));
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

QPoint RichTextView::Beyond(QPoint point) const {
  return point - Within(point);
}

// Whether the point lies on a character that is selected.
bool RichTextView::OnSelection(QPoint point) const {
  const PanePosition at = CharFromPos(point.x(), point.y());
  const PaneRange selected = Selected();
  return at >= selected.start && at < selected.end && CharacterRect(at).contains(point);
}

// Takes the selected text elsewhere; here it stays.
void RichTextView::DragOut() {
  pressed_selection_.reset();
  dragging_out_ = true;
  auto* drag = new QDrag(this);
  drag->setMimeData(Copied(box_, Selected()).release());
  const QPointer<RichTextView> self(this);
  drag->exec(Qt::CopyAction);
  if (self == nullptr) return;
  ReleaseUnseen();
}

// While the mouse has the selection in hand, nothing that the program does takes it away.
bool RichTextView::ReaderHoldsSelection() const {
  return drag_.active || pressed_selection_ || dragging_out_;
}

// The button went up where the view could not see it. Whoever heard of the press hears that it is
// over; it was no click on anything.
void RichTextView::ReleaseUnseen() {
  if (!ReaderHoldsSelection()) return;
  if (drag_.active) EndDrag();
  emit mouseMovedOver(0);
  emit mouseReleasedAt(0, Qt::LeftButton);
  click_.reset();
  pressed_selection_.reset();
  dragging_out_ = false;
}

void RichTextView::BeginDrag(PanePosition position, PaneGrain grain) {
  const PaneRange around = RangeAround(box_, position, grain);
  drag_.active = true;
  drag_.grain = grain;
  drag_.origin = {around.start, around.end};
  ShowSelection(drag_.origin);
}

void RichTextView::DragTo(PanePosition position) {
  const PaneRange around = RangeAround(box_, position, drag_.grain);
  const PaneRange origin = drag_.origin.range();
  if (position < origin.start)
    ShowSelection({origin.end, around.start});
  else
    ShowSelection({origin.start, std::max(around.end, origin.end)});
}

void RichTextView::EndDrag() {
  drag_.active = false;
  drag_scroll_.stop();
  GiveSelection();
  QClipboard* clipboard = QGuiApplication::clipboard();
  if (Selected().empty() || !clipboard->supportsSelection()) return;
  clipboard->setMimeData(Copied(box_, Selected()).release(), QClipboard::Selection);
}

// ---- the selection ----

void RichTextView::ShowSelection(PaneSelection selection) {
  const PaneRange before = Selected();
  selection_ = selection;
  goal_x_ = -1;
  announcer_.SelectionChanged(selection_);
  const PaneRange now = Selected();
  if (before.empty() || now.empty() || now.start >= before.end || before.start >= now.end) {
    Restyle(before);
    Restyle(now);
  } else {
    Restyle({std::min(before.start, now.start), std::max(before.start, now.start)});
    Restyle({std::min(before.end, now.end), std::max(before.end, now.end)});
  }
}

void RichTextView::Select(PanePosition anchor, PanePosition caret) {
  const auto within = [&](PanePosition p) { return std::clamp(p, PanePosition{0}, box_.Length()); };
  ShowSelection({within(anchor), within(caret)});
  GiveSelection();
}

void RichTextView::SelectAll() {
  Select(0, box_.Length());
}

void RichTextView::GiveSelection() {
  giving_selection_ = true;
  box_.ExSetSel(Selected().start, Selected().end);
  box_.HideSelection(false);
  giving_selection_ = false;
}

void RichTextView::Copy() {
  if (Selected().empty()) return;
  QGuiApplication::clipboard()->setMimeData(Copied(box_, Selected()).release());
}

}  // namespace parlorwire
