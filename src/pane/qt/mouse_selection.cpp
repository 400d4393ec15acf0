#include "pane/qt/mouse_selection.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr int kTickMilliseconds = 30;

bool IsNear(QPoint a, QPoint b) {
  return (a - b).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
}

}  // namespace

// Whether the press comes soon behind a double click, at the same place.
bool MouseSelection::IsThird(const QMouseEvent& event, QPoint point) {
  const auto clicked = std::exchange(double_click_, std::nullopt);
  const auto interval =
      static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
  return clicked && event.timestamp() - clicked->time < interval && IsNear(point, clicked->point);
}

ReaderSelection MouseSelection::Begin(PanePosition position, SelectionGrain grain) {
  const PaneRange around = RangeAround(box_, position, grain);
  doing_ = Doing::kDragging;
  grain_ = grain;
  origin_ = {around.start, around.end};
  return origin_;
}

std::optional<ReaderSelection> MouseSelection::Press(const QMouseEvent& event, const Place& place,
                                                     const ReaderSelection& before) {
  point_ = place.point;
  click_ = place.point;
  if (IsThird(event, place.point)) return Begin(place.character, SelectionGrain::kLine);
  if (place.selected && event.modifiers() == Qt::NoModifier) {
    doing_ = Doing::kPressing;
    return std::nullopt;
  }
  if (!(event.modifiers() & Qt::ShiftModifier))
    return Begin(place.border, SelectionGrain::kCharacter);
  Begin(before.anchor, SelectionGrain::kCharacter);
  return DraggedTo(place.border);
}

ReaderSelection MouseSelection::PressAgain(const QMouseEvent& event, const Place& place) {
  point_ = place.point;
  double_click_ = {event.timestamp(), place.point};
  return Begin(place.character, SelectionGrain::kWord);
}

void MouseSelection::Drag(QPoint point, QPoint beyond, QObject* view) {
  point_ = point;
  if (beyond.isNull())
    ticks_.stop();
  else if (!ticks_.isActive())
    ticks_.start(kTickMilliseconds, view);
}

bool MouseSelection::IsTick(const QTimerEvent& event) const {
  return event.timerId() == ticks_.timerId();
}

QPoint MouseSelection::ScrollStep(QPoint beyond) {
  const auto step = [](int pixels) { return pixels / 2 + (pixels > 0) - (pixels < 0); };
  return {step(beyond.x()), step(beyond.y())};
}

ReaderSelection MouseSelection::DraggedTo(PanePosition border) const {
  const PaneRange around = RangeAround(box_, border, grain_);
  const PaneRange origin = origin_.range();
  if (border < origin.start) return {origin.end, around.start};
  return {origin.start, std::max(around.end, origin.end)};
}

bool MouseSelection::TakesOut(QPoint point) const {
  return Pressing() && !IsNear(point, point_);
}

bool MouseSelection::Release() {
  click_.reset();
  if (doing_ != Doing::kDragging && doing_ != Doing::kPressing) return false;
  Lose();
  return true;
}

void MouseSelection::Lose() {
  doing_ = Doing::kNothing;
  ticks_.stop();
  click_.reset();
}

bool MouseSelection::Clicks(QPoint point) {
  if (click_ && !IsNear(point, *click_)) click_.reset();
  return click_.has_value();
}

}  // namespace parlorwire
