#include "pane/qt/rich_text_view.h"

#include <QEvent>
#include <QMetaObject>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr int kTwipsPerPixel = 15;

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

RichTextView::RichTextView(RichTextBox& box, QWidget* parent)
    : QAbstractScrollArea(parent), box_(box), arrangement_(box), announcer_(box, this) {
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

RichTextView::Counters RichTextView::counters() const {
  const LayoutTools& tools = arrangement_.Tools();
  return {tools.laid_out, tools.wrapped, paints_, fragments_painted_};
}

// ---- what the pane tells ----

void RichTextView::TextChanged(const TextChange& change) {
  arrangement_.TextChanged(change);
  selection_.TextChanged(change);
  drag_.origin.TextChanged(change);
  if (!restyled_.empty()) restyled_ = {0, box_.Length()};
  if (isVisible())
    announcer_.TextChanged(change);
  else
    announcer_.Drop();
  NoteChange();
}

void RichTextView::FormatChanged(PanePosition start, PanePosition end) {
  arrangement_.FormatChanged(start, end);
  NoteChange();
}

void RichTextView::SelectionChanged() {
  if (giving_selection_ || ReaderHoldsSelection() || box_.HideSelection()) return;
  const PanePosition start = box_.SelStart();
  ShowSelection({start, start + box_.SelLength()});
  show_caret_ = start < box_.Length();
  NoteChange();
}

void RichTextView::RedrawChanged(bool on) {
  redraw_ = on;
  if (on && missed_paint_) painted_valid_ = false;
  missed_paint_ = false;
  NoteChange();
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
  NoteChange();
}

// ---- repainting ----

// Whatever changes until the event loop turns is settled at once.
void RichTextView::NoteChange() {
  if (settle_posted_ || !redraw_ || !isVisible()) return;
  settle_posted_ = true;
  QMetaObject::invokeMethod(this, &RichTextView::Settle, Qt::QueuedConnection);
}

void RichTextView::Settle() {
  settle_posted_ = false;
  if (!redraw_ || !isVisible()) return;
  if (show_caret_) Reveal(selection_.range().start);
  show_caret_ = false;
  RepaintDifferences(arrangement_.Seen());
  for (const PlacedFragment& placed : arrangement_.Seen())
    if (placed.fragment.start < restyled_.end && placed.fragment.next > restyled_.start)
      viewport()->update(0, placed.top, viewport()->width(), placed.layout->height);
  restyled_ = {};
  UpdateScrollBar(BarUpdate::kIfSeen);
  UpdateSidewaysBar();
  announcer_.Flush();
}

// Moves what only moved, and repaints what is new.
void RichTextView::RepaintDifferences(const std::vector<PlacedFragment>& seen) {
  const auto place_of = [&](std::uint64_t serial) {
    return std::find_if(painted_.begin(), painted_.end(),
                        [&](const PaintedFragment& p) { return p.serial == serial; });
  };
  const auto known = std::find_if(seen.begin(), seen.end(), [&](const PlacedFragment& placed) {
    return place_of(placed.layout->serial) != painted_.end();
  });
  if (!painted_valid_ || known == seen.end() || painted_back_ != box_.BackColor()) {
    RememberPainted(seen);
    viewport()->update();
    return;
  }
  const int shift = known->top - place_of(known->layout->serial)->top;
  if (shift != 0) {
    const double pixels = shift * devicePixelRatioF();
    if (pixels != std::floor(pixels)) {
      RememberPainted(seen);
      viewport()->update();
      return;
    }
    viewport()->scroll(0, shift);
    for (PaintedFragment& painted : painted_)
      painted.top += shift;
  }
  const int width = viewport()->width();
  for (const PlacedFragment& placed : seen) {
    const auto painted = place_of(placed.layout->serial);
    if (painted != painted_.end() && painted->top == placed.top)
      painted->height = 0;  // still right where it is
    else
      viewport()->update(0, placed.top, width, placed.layout->height);
  }
  for (const PaintedFragment& painted : painted_)
    if (painted.height > 0) viewport()->update(0, painted.top, width, painted.height);
  RememberPainted(seen);
}

void RichTextView::RememberPainted(const std::vector<PlacedFragment>& seen) {
  painted_.clear();
  for (const PlacedFragment& placed : seen)
    painted_.push_back({placed.layout->serial, placed.top, placed.layout->height});
  painted_back_ = box_.BackColor();
  painted_valid_ = true;
}

// The characters look different though their layout is the same.
void RichTextView::Restyle(PaneRange range) {
  if (range.empty()) return;
  restyled_ = restyled_.empty() ? range
                                : PaneRange{std::min(restyled_.start, range.start),
                                            std::max(restyled_.end, range.end)};
  NoteChange();
}

void RichTextView::paintEvent(QPaintEvent* event) {
  if (!redraw_ && painted_valid_) {
    missed_paint_ = true;
    return;
  }
  ++paints_;
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
    ++fragments_painted_;
    Paint(painter, *placed.layout, {qreal(TextLeft()), qreal(placed.top)}, clip,
          viewport()->width(), SelectedIn(placed.fragment, selection_.range()), palette(),
          arrangement_.Tools().pictures);
  }
  // What is settled after this must know whether all that is seen is up to date.
  if (event->region().contains(viewport()->rect()))
    RememberPainted(seen);
  else if (settle_posted_)
    painted_valid_ = false;
}

void RichTextView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  ResizeText();
}

void RichTextView::ResizeText() {
  const int wraps_at = box_.RightMargin() / kTwipsPerPixel;
  arrangement_.Resize(wraps_at > 0 ? wraps_at : viewport()->width() - 2 * kMargin,
                      viewport()->height());
  painted_valid_ = false;
  NoteChange();
}

void RichTextView::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  painted_valid_ = false;
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
  painted_valid_ = false;
  NoteChange();
}

void RichTextView::hideEvent(QHideEvent* event) {
  ReleaseUnseen();
  QAbstractScrollArea::hideEvent(event);
}

void RichTextView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  Restyle(selection_.range());
}

void RichTextView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  Restyle(selection_.range());
}

// ---- what lies where ----

const PlacedFragment& RichTextView::PlacedAt(int y) const {
  const auto& seen = arrangement_.Seen();
  const auto behind =
      std::upper_bound(seen.begin(), seen.end(), y,
                       [](int value, const PlacedFragment& placed) { return value < placed.top; });
  return behind == seen.begin() ? seen.front() : *(behind - 1);
}

PanePosition RichTextView::CharFromPos(int x, int y) const {
  const PlacedFragment& placed = PlacedAt(y);
  if (y >= placed.top + placed.layout->height) return box_.Length();
  return placed.fragment.start + CharacterAt(*placed.layout, x - TextLeft(), y - placed.top);
}

PanePosition RichTextView::BorderFromPos(QPoint point) const {
  const PlacedFragment& placed = PlacedAt(point.y());
  if (point.y() >= placed.top + placed.layout->height) return box_.Length();
  return placed.fragment.start +
         BorderAt(*placed.layout, point.x() - TextLeft(), point.y() - placed.top);
}

// Where the lines begin, in pixels from the view's left edge.
int RichTextView::TextLeft() const {
  return kMargin - horizontalScrollBar()->value();
}

PaneRange RichTextView::RowAround(PanePosition position) const {
  const Fragment fragment = arrangement_.Fragments().At(position);
  const auto layout = arrangement_.LayoutOf(fragment);
  const int number = RowOf(*layout, static_cast<int>(position - fragment.start));
  const auto& row = layout->rows[static_cast<std::size_t>(number)];
  const bool last = number + 1 == static_cast<int>(layout->rows.size());
  return {fragment.start + row.start, last ? fragment.next : fragment.start + row.end};
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

}  // namespace parlorwire
