#include "pane/qt/rich_text_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <algorithm>

#include "pane/qt/accessible.h"
#include "pane/qt/copy.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

RichTextView::RichTextView(RichTextBox& box, QWidget* parent)
    : QAbstractScrollArea(parent),
      box_(box),
      arrangement_(box, work_),
      announcer_(box, this),
      mouse_(box),
      caret_keys_(box, arrangement_) {
  InstallPaneAccessibility();
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::ArrowCursor);
  verticalScrollBar()->installEventFilter(this);
  connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, &RichTextView::BarActed);
  connect(verticalScrollBar(), &QScrollBar::sliderReleased, this, &RichTextView::NoteChange);
  box_.Attach(this);
  redraw_ = box_.Redraw();
  PointerChanged(box_.MousePointer());
  if (!box_.Visible()) hide();
}

RichTextView::~RichTextView() {
  box_.Attach(nullptr);
}

// What comes to the view itself, not to what it shows.
bool RichTextView::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      // A window may use these keys too; here they are the pane's.
      if (auto* key = static_cast<QKeyEvent*>(event);
          key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
        key->accept();
        return true;
      }
      break;
    case QEvent::Paint: {
      const bool handled = QAbstractScrollArea::event(event);
      if (edge_) PaintEdge();
      return handled;
    }
    case QEvent::ScrollPrepare:
      PrepareTouch(static_cast<QScrollPrepareEvent*>(event));
      return true;
    case QEvent::Scroll:
      TouchScroll(static_cast<QScrollEvent*>(event));
      return true;
    default:
      break;
  }
  return QAbstractScrollArea::event(event);
}

// ---- what the pane tells ----

void RichTextView::TextChanged(const TextChange& change) {
  arrangement_.TextChanged(change);
  selection_.TextChanged(change);
  mouse_.TextChanged(change);
  painted_.TextChanged(box_.Length());
  if (isVisible())
    announcer_.TextChanged(change);
  else
    announcer_.Drop();
  NoteWriting();
  if (box_.Length() == 0) emit scrolled();
}

void RichTextView::FormatChanged(PanePosition start, PanePosition end) {
  arrangement_.FormatChanged(start, end);
  NoteWriting();
}

void RichTextView::SelectionChanged() {
  if (giving_selection_ || mouse_.Holds() || box_.HideSelection()) return;
  const PanePosition start = box_.SelStart();
  ShowSelection({start, start + box_.SelLength()});
  show_caret_ = start < box_.Length();
  NoteChange();
}

void RichTextView::RedrawChanged(bool on) {
  redraw_ = on;
  if (on) painted_.MayPaint();
  NoteWriting();
}

void RichTextView::VisibleChanged(bool visible) {
  setVisible(visible);
}

void RichTextView::RightMarginChanged(int) {
  ResizeText();
}

void RichTextView::PointerChanged(PanePointer pointer) {
  viewport()->setCursor(pointer == PanePointer::kCustom ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void RichTextView::Refresh() {
  NoteWriting();
}

// ---- what lies where ----

PanePosition RichTextView::CharFromPos(int x, int y) const {
  const PlacedFragment& placed = arrangement_.SeenAt(y);
  if (y >= placed.top + placed.layout->height) return box_.Length();
  return placed.fragment.start + CharacterAt(*placed.layout, x - TextLeft(), y - placed.top);
}

PanePosition RichTextView::BorderFromPos(QPoint point) const {
  const PlacedFragment& placed = arrangement_.SeenAt(point.y());
  if (point.y() >= placed.top + placed.layout->height) return box_.Length();
  return placed.fragment.start +
         BorderAt(*placed.layout, point.x() - TextLeft(), point.y() - placed.top);
}

// Where the lines begin, in pixels from the view's left edge.
int RichTextView::TextLeft() const {
  return kMargin - horizontalScrollBar()->value();
}

QRect RichTextView::CharacterRect(PanePosition position) const {
  for (const PlacedFragment& placed : arrangement_.Seen()) {
    if (position < placed.fragment.start || position >= placed.fragment.next) continue;
    const int index = static_cast<int>(position - placed.fragment.start);
    return BoxOf(*placed.layout, index, index + 1)
        .translated(TextLeft(), placed.top)
        .toAlignedRect();
  }
  return {};
}

// ---- what the reader has selected ----

void RichTextView::ShowSelection(ReaderSelection selection) {
  const PaneRange before = Selected();
  selection_ = selection;
  caret_keys_.SetColumn(std::nullopt);
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
