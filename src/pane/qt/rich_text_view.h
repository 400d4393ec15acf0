// Paints a pane: the view of one RichTextBox.
//
// Only what is seen is laid out; the rest of the pane costs nothing, however long it is. Changes of
// the pane are gathered: all that come within one turn of the event loop are one repaint, of what
// looks different; and what is written while lines stream in is shown at most 15 times a second:
// the first line behind a pause at once, as all that the reader does. A hidden view does nothing
// but note that something changed. There is no timer except for these: until the next such repaint,
// while the mouse drags a selection beyond an edge, and while a finger's push runs out.
//
// The reader's selection belongs to the view: lines that come do not move it, and the writer's, the
// pane's own, does not touch it while HideSelection is on. When the reader has selected, the pane
// gets the selection too (ExSetSel, and HideSelection off), so that SelText is what is seen
// selected. A selection that the program makes with HideSelection off becomes the one that is
// shown, and is scrolled into view.
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPoint>
#include <QRect>

#include "pane/qt/announcer.h"
#include "pane/qt/arrangement.h"
#include "pane/qt/caret_keys.h"
#include "pane/qt/mouse_selection.h"
#include "pane/qt/paint_record.h"
#include "pane/qt/reader_selection.h"
#include "pane/qt/work.h"
#include "pane/units.h"
#include "pane/view.h"

class QScrollEvent;
class QScrollPrepareEvent;
class QTouchEvent;

namespace parlorwire {

class RichTextBox;

class RichTextView : public QAbstractScrollArea, public PaneView {
  Q_OBJECT

 public:
  // Attaches itself to the pane, which must live longer than the view.
  explicit RichTextView(RichTextBox& box, QWidget* parent = nullptr);
  ~RichTextView() override;

  RichTextBox& box() const { return box_; }

  // The language of the context menu; Russian at first. The menu is that of the widget's default
  // context menu policy: a window with a menu of its own sets another policy.
  void SetRussian(bool russian) { russian_ = russian; }

  // Instead of a frame the view has an edge that says whether it has the focus; without, it looks
  // as the pane's ground.
  void ShowFocusAtEdge();

  // What the reader has selected.
  PaneRange Selected() const { return selection_.range(); }
  PanePosition Caret() const { return selection_.caret; }
  // As the reader would: the pane gets the selection too.
  void Select(PanePosition anchor, PanePosition caret);
  void SelectAll();
  // The selection to the clipboard as text and HTML; nothing selected leaves the clipboard alone.
  void Copy();
  // Gives the reader's selection to the pane once more, if the program's writing has changed it.
  void GiveSelection();

  // For keys that are pressed elsewhere, such as Page Up in the input box.
  void ScrollPages(double pages);
  void ScrollToStart();
  void ScrollToEnd();
  // Brings the character into the view.
  void ShowPosition(PanePosition position);

  // The first character in view, and how much of its row is beyond the upper edge.
  struct Top {
    PanePosition position = 0;
    int pixels = 0;
  };
  Top TopOfView() const;
  // The same for another text, as the program puts it.
  void PutAtTop(const Top& top);

  // Where the character is painted, in the view's pixels; empty if it is not in the view.
  QRect CharacterRect(PanePosition position) const;

  // The characters of the row in which the position lies.
  PaneRange RowAround(PanePosition position) const { return arrangement_.RowAround(position); }

  // What it has done so far.
  const ViewWork& work() const { return work_; }

  // ---- PaneView ----
  void TextChanged(const TextChange& change) override;
  void FormatChanged(PanePosition start, PanePosition end) override;
  void SelectionChanged() override;
  void RedrawChanged(bool on) override;
  void VisibleChanged(bool visible) override;
  void WidthChanged(int) override {}  // lines wrap at the width of the widget
  void RightMarginChanged(int twips) override;
  void PointerChanged(PanePointer pointer) override;
  void Refresh() override;
  void Scroll(PaneScroll command) override;
  PaneScrollInfo GetScrollInfo() const override;
  PanePosition CharFromPos(int x, int y) const override;

  QSize sizeHint() const override { return {480, 320}; }

 signals:
  // `position` is that of CharFromPos. Sent after the view has done its own part.
  // A hand that trembles in a click is no move.
  void mouseMovedOver(parlorwire::PanePosition position);
  void mousePressedAt(parlorwire::PanePosition position, Qt::MouseButton button);
  void mouseReleasedAt(parlorwire::PanePosition position, Qt::MouseButton button);
  void mouseLeft();
  // The reader has scrolled, or was led to what the program selected for him, or all text is gone.
  void scrolled();
  // The mouse has changed what the reader selects.
  void selecting();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  static constexpr int kMargin = 3;  // pixels beside the text
  static constexpr int kEdge = 2;    // pixels around a view that shows its focus so
  static constexpr int kFrame = 66;  // ms from one repaint of what is written to the next

  // ---- what is seen ----
  void NoteChange();
  void NoteWriting();
  void Settle();
  void Restyle(PaneRange range);
  void FocusChanged();
  void PaintEdge();
  void ResizeText();
  enum class BarUpdate { kIfSeen, kExact };
  void UpdateScrollBar(BarUpdate update);
  void UpdateSidewaysBar();
  void BarActed(int action);
  int WheelPixels(int pixels, int angle, int& rest) const;
  void ScrollBy(int pixels);
  void ScrollSideways(int pixels);
  void Reveal(PanePosition position);
  void RevealSideways(PanePosition position);
  void Touched(const QTouchEvent& event);
  void PrepareTouch(QScrollPrepareEvent* event);
  void TouchScroll(QScrollEvent* event);

  // ---- what the reader does ----
  int TextLeft() const;
  PanePosition BorderFromPos(QPoint point) const;
  MouseSelection::Place PlaceOf(QPoint point) const;
  QPoint Within(QPoint point) const;
  void ShowSelection(ReaderSelection selection);
  void SelectByMouse(ReaderSelection selection);
  void DragTo(QPoint point);
  void DragOut();
  void FinishSelecting();
  void ReleaseUnseen();
  bool ScrollKey(QKeyEvent* event);
  bool SidewaysKey(int pixels);
  bool SelectKey(QKeyEvent* event);

  RichTextBox& box_;
  bool russian_ = true;
  ViewWork work_;
  mutable PaneArrangement arrangement_;

  bool settle_posted_ = false;
  QBasicTimer frame_;  // until what was written is settled
  QElapsedTimer since_settled_;
  bool redraw_ = true;
  bool edge_ = false;
  bool updating_bar_ = false;
  PaintRecord painted_;

  ReaderSelection selection_;
  PaneAnnouncer announcer_;
  MouseSelection mouse_;
  CaretKeys caret_keys_;
  bool giving_selection_ = false;
  bool show_caret_ = false;  // at the next repaint

  double touch_y_ = 0;  // of the last step of a finger's scrolling
  QPoint wheel_rest_;   // eighths of a degree times pixels that have not moved a pixel yet
};

}  // namespace parlorwire
