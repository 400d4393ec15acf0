#include "pane/qt/arrangement.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr double kMostUnits = 1e9;  // of the scroll bar

}  // namespace

PaneArrangement::PaneArrangement(const RichTextBox& box, ViewWork& work)
    : box_(box), tools_(work), finder_(box, tools_) {
  MeasureUnits();
}

void PaneArrangement::MeasureUnits() {
  const QFontMetrics metrics(ToQFont(box_.OwnFormat()));
  row_height_ = std::max(metrics.height(), 1);
  characters_in_row_ = std::max(width_ / double(std::max(metrics.averageCharWidth(), 1)), 1.0);
}

int PaneArrangement::PageHeight() const {
  return std::max(height_ - row_height_, 1);
}

void PaneArrangement::Resize(int width, int height) {
  if (width != width_) widest_ = 0;
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
  finder_.Resize(width_);
  MeasureUnits();
  stale_ = true;
  overflowing_ = 0;
}

void PaneArrangement::Forget() {
  tools_.looks.Clear();
  cache_.Clear();
  finder_.Forget();
  widest_ = 0;
  Resize(width_, height_);
}

std::shared_ptr<const FragmentLayout> PaneArrangement::LayoutOf(const Fragment& fragment) {
  return cache_.Get(box_, fragment, width_, tools_);
}

PaneRange PaneArrangement::RowAround(PanePosition position) {
  const Fragment fragment = finder_.At(position);
  const auto layout = LayoutOf(fragment);
  const int number = RowOf(*layout, static_cast<int>(position - fragment.start));
  const auto& row = layout->RowNumber(number);
  const bool last = number + 1 == static_cast<int>(layout->rows.size());
  return {fragment.start + row.start, last ? fragment.next : fragment.start + row.end};
}

void PaneArrangement::TextChanged(const PaneView::TextChange& change) {
  cache_.TextChanged(box_, change);
  finder_.TextChanged(change);
  const PanePosition removed_end = change.start + change.removed;
  ForgetWidest(change.start, removed_end);
  widest_line_.TextChanged(change);
  const PanePosition shift = change.inserted - change.removed;
  if (anchor_.position >= removed_end && anchor_.position > change.start) {
    anchor_.position += shift;
  } else if (anchor_.position > change.start) {
    anchor_.position = change.start;
    anchor_.pixels = 0;
  } else if (anchor_.whole_row && stale_ && anchor_.position == change.start) {
    // The last row grows, and nobody has seen it as it was.
    anchor_.whole_row = false;
    anchor_.pixels = 0;
  }
  if (change.start < overflowing_) overflowing_ = 0;
  const bool below = !stale_ && !seen_.empty() && change.start > seen_.back().fragment.next;
  if (!below) stale_ = true;
}

void PaneArrangement::FormatChanged(PanePosition start, PanePosition end) {
  cache_.FormatChanged(box_, start, end);
  finder_.FormatChanged(start, end);
  ForgetWidest(start, end);
  if (start < overflowing_) overflowing_ = 0;
  stale_ = true;
}

// What is in [start, end) changes, or there is new text at `start`.
void PaneArrangement::ForgetWidest(PanePosition start, PanePosition end) {
  const PaneRange line = widest_line_.range();
  if (start < line.end && end >= line.start) widest_ = 0;
}

int PaneArrangement::Widest() {
  Arrange();
  for (const PlacedFragment& placed : seen_) {
    if (placed.layout->widest <= widest_) continue;
    widest_ = placed.layout->widest;
    widest_line_ = {placed.fragment.start, placed.fragment.next};
  }
  return widest_;
}

// ---- the anchor ----

// Where the anchor lies in its fragment, in pixels from the fragment's top.
int PaneArrangement::AnchorOffset(const Fragment& fragment, const FragmentLayout& layout) const {
  const auto& row =
      layout.RowNumber(RowOf(layout, static_cast<int>(anchor_.position - fragment.start)));
  return row.top + (anchor_.whole_row ? row.height : std::min(anchor_.pixels, row.height));
}

// Holds what is `offset` pixels below the fragment's top at the edge.
void PaneArrangement::Hold(Edge edge, const Fragment& fragment, const FragmentLayout& layout,
                           int offset) {
  const auto& row = layout.RowNumber(RowAt(layout, offset));
  anchor_.position = fragment.start + row.start;
  anchor_.pixels = offset - row.top;
  anchor_.whole_row = false;
  anchor_.edge = edge;
}

bool PaneArrangement::HeldAtEnd() {
  if (anchor_.edge != Edge::kBottom) return false;
  const Fragment fragment = finder_.At(anchor_.position);
  if (!fragment.LastOf(box_)) return false;
  return fragment.EmptyEndOf(box_) ||
         (anchor_.whole_row && anchor_.position == fragment.start + fragment.length);
}

// ---- what is seen ----

const std::vector<PlacedFragment>& PaneArrangement::Seen() {
  Arrange();
  return seen_;
}

const PlacedFragment& PaneArrangement::SeenAt(int y) {
  Arrange();
  const auto behind =
      std::upper_bound(seen_.begin(), seen_.end(), y,
                       [](int value, const PlacedFragment& placed) { return value < placed.top; });
  return behind == seen_.begin() ? seen_.front() : *(behind - 1);
}

void PaneArrangement::Arrange() {
  if (!stale_) return;
  stale_ = false;
  if (anchor_.edge == Edge::kTop) {
    ArrangeDownwards();
    const PlacedFragment& last = seen_.back();
    if (last.top + last.layout->height > height_ || !last.fragment.LastOf(box_)) return;
    ScrollToEnd();
    stale_ = false;
  }
  if (ArrangeUpwards()) return;
  anchor_ = {};
  ArrangeDownwards();
}

void PaneArrangement::ArrangeDownwards() {
  seen_.clear();
  Fragment fragment = finder_.At(anchor_.position);
  auto layout = LayoutOf(fragment);
  int top = -AnchorOffset(fragment, *layout);
  for (;;) {
    seen_.push_back({fragment, layout, top});
    top += layout->height;
    if (top > height_ || fragment.LastOf(box_)) return;
    const Fragment next = finder_.After(fragment);
    if (top == height_ && !next.EmptyEndOf(box_)) return;
    fragment = next;
    layout = LayoutOf(fragment);
  }
}

// False if the text ends before the view is filled.
bool PaneArrangement::ArrangeUpwards() {
  seen_.clear();
  Fragment fragment = finder_.At(anchor_.position);
  auto layout = LayoutOf(fragment);
  int top = height_ - AnchorOffset(fragment, *layout);
  for (;;) {
    seen_.push_back({fragment, layout, top});
    if (top <= 0) break;
    if (fragment.start == 0) return false;
    fragment = finder_.Before(fragment);
    layout = LayoutOf(fragment);
    top -= layout->height;
  }
  std::reverse(seen_.begin(), seen_.end());
  return true;
}

bool PaneArrangement::AtEnd() {
  if (HeldAtEnd()) return true;
  Arrange();
  const PlacedFragment& last = seen_.back();
  return last.fragment.LastOf(box_) && last.top + last.layout->height <= height_;
}

// Whether the text is higher than the view. A line is a pixel high at least.
bool PaneArrangement::Overflows() {
  if (overflowing_ > 0 || box_.LineCount() - 1 > height_) return true;
  int height = 0;
  for (Fragment fragment = finder_.At(0);; fragment = finder_.After(fragment)) {
    height += LayoutOf(fragment)->height;
    if (height > height_) {
      overflowing_ = fragment.next;
      return true;
    }
    if (fragment.LastOf(box_)) return false;
  }
}

// ---- scrolling ----

void PaneArrangement::ScrollBy(int pixels) {
  Arrange();
  Fragment fragment = seen_.front().fragment;
  auto layout = seen_.front().layout;
  int offset = pixels - seen_.front().top;
  while (offset < 0 && fragment.start > 0) {
    fragment = finder_.Before(fragment);
    layout = LayoutOf(fragment);
    offset += layout->height;
  }
  while (offset >= layout->height && !fragment.LastOf(box_)) {
    offset -= layout->height;
    fragment = finder_.After(fragment);
    layout = LayoutOf(fragment);
  }
  Hold(Edge::kTop, fragment, *layout, std::clamp(offset, 0, layout->height));
  stale_ = true;
}

void PaneArrangement::ScrollToStart() {
  anchor_ = {};
  stale_ = true;
}

void PaneArrangement::ScrollToEnd() {
  if (HeldAtEnd()) return;
  const PanePosition end = box_.Length();
  anchor_ = {end, 0, !finder_.At(end).EmptyEndOf(box_), Edge::kBottom};
  stale_ = true;
}

void PaneArrangement::Show(PanePosition position) {
  Arrange();
  const Fragment fragment = finder_.At(position);
  const auto layout = LayoutOf(fragment);
  const auto& row = layout->RowNumber(RowOf(*layout, static_cast<int>(position - fragment.start)));
  const auto placed = std::find_if(seen_.begin(), seen_.end(), [&](const PlacedFragment& p) {
    return p.fragment.start == fragment.start;
  });
  const bool above = position < seen_.front().fragment.start;
  if (placed != seen_.end()) {
    const int top = placed->top + row.top;
    if (top >= 0 && top + row.height <= height_) return;
    Hold(top < 0 ? Edge::kTop : Edge::kBottom, fragment, *layout, row.top);
  } else {
    Hold(above ? Edge::kTop : Edge::kBottom, fragment, *layout, row.top);
  }
  anchor_.whole_row = anchor_.edge == Edge::kBottom;
  stale_ = true;
}

void PaneArrangement::PutAtTop(PanePosition position, int pixels) {
  const Fragment fragment = finder_.At(position);
  const auto layout = LayoutOf(fragment);
  const auto& row = layout->RowNumber(RowOf(*layout, static_cast<int>(position - fragment.start)));
  Hold(Edge::kTop, fragment, *layout, row.top + std::clamp(pixels, 0, row.height - 1));
  stale_ = true;
}

// ---- the scroll bar ----

double PaneArrangement::UnitsAt(std::int64_t line, PanePosition position) const {
  return row_height_ *
         (static_cast<double>(line) / 2 + static_cast<double>(position) / characters_in_row_);
}

PaneArrangement::Units PaneArrangement::UnitsOf(const Fragment& fragment) const {
  const std::int64_t line_behind = fragment.line + (fragment.LastOfLine() ? 1 : 0);
  return {UnitsAt(fragment.line, fragment.start), UnitsAt(line_behind, fragment.next)};
}

double PaneArrangement::UnitsAt(const PlacedFragment& placed, int y) const {
  const auto [start, end] = UnitsOf(placed.fragment);
  const int height = std::max(placed.layout->height, 1);
  return start + (end - start) * std::clamp((y - placed.top) / double(height), 0.0, 1.0);
}

double PaneArrangement::Total() const {
  return UnitsAt(box_.LineCount(), box_.Length());
}

PaneScrollInfo PaneArrangement::Info(double pos, double page, bool at_end) const {
  const double total = Total();
  const double scale = std::min(1.0, kMostUnits / total);
  PaneScrollInfo info;
  // A little beyond the text, so that a unit ahead of the end is told from the end.
  info.max = static_cast<int>(total * scale) + 4;
  info.page = std::clamp(static_cast<int>(page * scale), 1, info.max - 3);
  info.pos = at_end ? info.max - info.page
                    : std::clamp(static_cast<int>(pos * scale), 0, info.max - 2 - info.page);
  return info;
}

PaneScrollInfo PaneArrangement::ScrollInfo() {
  if (!Overflows()) return {};
  const bool told_without = stale_ && anchor_.edge == Edge::kBottom;
  if (told_without) {
    const double end = UnitsAt(box_.LineAt(anchor_.position), anchor_.position);
    const double page = std::min(double(height_), end);
    return Info(end - page, page, HeldAtEnd());
  }
  Arrange();
  const double top = UnitsAt(seen_.front(), 0);
  const double bottom = UnitsAt(seen_.back(), height_);
  return Info(top, bottom - top, AtEnd());
}

void PaneArrangement::ScrollToUnit(int unit) {
  const double scale = std::min(1.0, kMostUnits / Total());
  const double wanted = unit / scale;
  std::int64_t line = 0;
  for (std::int64_t end = box_.LineCount(); end - line > 1;) {
    const std::int64_t middle = line + (end - line) / 2;
    (UnitsAt(middle, box_.LineByIndex(middle).start) <= wanted ? line : end) = middle;
  }
  const PaneLine found = box_.LineByIndex(line);
  const double beyond = wanted - UnitsAt(line, found.start);
  const auto character = static_cast<PanePosition>(beyond * characters_in_row_ / row_height_);
  const PanePosition position =
      found.start +
      std::clamp(character, PanePosition{0}, std::max(found.length - 1, PanePosition{0}));
  PlacedFragment placed{finder_.At(position), nullptr, 0};
  placed.layout = LayoutOf(placed.fragment);
  const auto [start, end] = UnitsOf(placed.fragment);
  const double share = end > start ? std::clamp((wanted - start) / (end - start), 0.0, 1.0) : 0.0;
  Hold(Edge::kTop, placed.fragment, *placed.layout,
       static_cast<int>(share * placed.layout->height));
  stale_ = true;
}

}  // namespace parlorwire
