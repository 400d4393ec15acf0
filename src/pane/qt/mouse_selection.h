// What the reader selects with the left button of the mouse: from where it goes down to where it is
// dragged, by characters, words or lines. If it goes down on the selection, a move takes the text
// elsewhere.
//
// It decides; the view tells it of the mouse, and shows what comes of it.
#pragma once

#include <QBasicTimer>
#include <QPoint>
#include <optional>

#include "pane/qt/reader_selection.h"
#include "pane/units.h"
#include "pane/view.h"

class QMouseEvent;
class QObject;
class QTimerEvent;

namespace parlorwire {

class RichTextBox;

// All points are in pixels of the view.
class MouseSelection {
 public:
  explicit MouseSelection(const RichTextBox& box) : box_(box) {}

  // What the button goes down on.
  struct Place {
    QPoint point;
    PanePosition character = 0;  // under it
    PanePosition border = 0;     // of two characters, the nearest
    bool selected = false;       // it is on a character that is selected
  };
  // Returns what is selected now, unless that is left open until the button goes up. `before` is
  // what was selected.
  std::optional<ReaderSelection> Press(const QMouseEvent& event, const Place& place,
                                       const ReaderSelection& before);
  // For the second time in a row.
  ReaderSelection PressAgain(const QMouseEvent& event, const Place& place);

  bool Dragging() const { return doing_ == Doing::kDragging; }
  // The mouse drags: it is at `point`, that far beyond the view's edges. As long as it stays
  // beyond, `view` gets ticks to scroll at.
  void Drag(QPoint point, QPoint beyond, QObject* view);
  bool IsTick(const QTimerEvent& event) const;
  // How far to scroll at a tick: the further beyond the edge, the faster.
  static QPoint ScrollStep(QPoint beyond);
  // What is selected by a drag to that border of two characters.
  ReaderSelection DraggedTo(PanePosition border) const;

  // The button is down on the selection, and the mouse has not moved.
  bool Pressing() const { return doing_ == Doing::kPressing; }
  // Whether the mouse, at `point` now, has moved so that it takes the selection elsewhere.
  bool TakesOut(QPoint point) const;
  void TakeOut() { doing_ = Doing::kTakingOut; }

  // The button goes up. Returns whether the reader has selected with it.
  bool Release();
  // It went up where nobody saw it, or the text has been taken elsewhere.
  void Lose();

  // While the mouse has the selection in hand, nothing that the program does takes it away.
  bool Holds() const { return doing_ != Doing::kNothing; }

  // Where the button went down, or the mouse is dragged to.
  QPoint point() const { return point_; }
  // Whether the mouse at `point` is still where it clicks: a hand that trembles is no move.
  bool Clicks(QPoint point);

  void TextChanged(const PaneView::TextChange& change) { origin_.TextChanged(change); }

 private:
  enum class Doing { kNothing, kDragging, kPressing, kTakingOut };
  struct DoubleClick {
    quint64 time = 0;  // milliseconds of the events' clock
    QPoint point;
  };

  bool IsThird(const QMouseEvent& event, QPoint point);
  ReaderSelection Begin(PanePosition position, SelectionGrain grain);

  const RichTextBox& box_;
  Doing doing_ = Doing::kNothing;
  SelectionGrain grain_ = SelectionGrain::kCharacter;
  ReaderSelection origin_;  // what the press selected
  QPoint point_;
  QBasicTimer ticks_;
  std::optional<QPoint> click_;
  std::optional<DoubleClick> double_click_;
};

}  // namespace parlorwire
