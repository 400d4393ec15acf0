#include "pane/qt/fragment.h"

#include <algorithm>

namespace parlorwire {
namespace {

constexpr std::size_t kCutLinesKept = 16;

}  // namespace

void FragmentFinder::Resize(int width) {
  if (width == width_) return;
  width_ = width;
  Forget();
}

// ---- where the rows of a long line begin ----

void FragmentFinder::ForgetFrom(CutLine& line, PanePosition position) {
  line.complete = false;
  while (line.cuts.size() > 1 && line.cuts.back() > position - line.start)
    line.cuts.pop_back();
  // What changes in a row may move that row's start.
  if (line.cuts.size() > 1) line.cuts.pop_back();
}

void FragmentFinder::TextChanged(const PaneView::TextChange& change) {
  const PanePosition removed_end = change.start + change.removed;
  const PanePosition shift = change.inserted - change.removed;
  std::erase_if(cut_lines_, [&](const CutLine& line) {
    return change.start <= line.start && removed_end >= line.start &&
           !(removed_end == line.start && change.start < line.start);
  });
  for (CutLine& line : cut_lines_) {
    if (removed_end <= line.start) {
      line.start += shift;
      line.next += shift;
    } else if (change.start <= line.next) {
      ForgetFrom(line, change.start);
    }
  }
}

void FragmentFinder::FormatChanged(PanePosition start, PanePosition end) {
  for (CutLine& line : cut_lines_)
    if (start < line.next && end > line.start) ForgetFrom(line, start);
}

FragmentFinder::CutLine& FragmentFinder::CutLineAt(PanePosition start, PanePosition end) {
  const auto known = std::find_if(cut_lines_.begin(), cut_lines_.end(),
                                  [&](const CutLine& line) { return line.start == start; });
  if (known != cut_lines_.end()) {
    if (known->next != end) ForgetFrom(*known, std::min(known->next, end));
    known->next = end;
    return *known;
  }
  if (cut_lines_.size() >= kCutLinesKept) cut_lines_.erase(cut_lines_.begin());
  cut_lines_.push_back({start, end, {0}, false});
  return cut_lines_.back();
}

// Finds the end of the last fragment that has none yet: as many rows as there are in the limit.
void FragmentFinder::CutOn(CutLine& line, PanePosition end) {
  const PanePosition start = line.start + line.cuts.back();
  const ShownText text =
      ReadShown(box_, start, std::min(start + kFragmentLimit + kRowLimit, end), tools_);
  int at = 0;
  for (;;) {
    const int row_end = WrapRow(text, at, static_cast<float>(width_), nullptr).end;
    tools_.work.wrapped += static_cast<std::uint64_t>(row_end - at);
    if (row_end > kFragmentLimit) break;
    at = row_end;
    if (start + at == end) {
      line.complete = true;
      return;
    }
  }
  line.cuts.push_back(line.cuts.back() + at);
}

// ---- the fragments ----

Fragment FragmentFinder::InLine(std::int64_t index, const PaneLine& line, PanePosition position) {
  Fragment fragment{line.start, line.length, line.next, line.start, line.next, index};
  if (line.length <= kFragmentLimit) return fragment;
  const PanePosition line_end = line.start + line.length;
  const PanePosition last = (line.length - 1) / kMeasuredLimit;
  const PanePosition measured =
      std::clamp((position - line.start) / kMeasuredLimit, PanePosition{0}, last);
  const PanePosition start = line.start + measured * kMeasuredLimit;
  const PanePosition end = std::min(start + kMeasuredLimit, line_end);
  CutLine& known = CutLineAt(start, end);
  while (!known.complete && known.cuts.back() <= position - start)
    CutOn(known, end);
  const auto behind = std::upper_bound(known.cuts.begin(), known.cuts.end(), position - start);
  fragment.start = start + *(behind - 1);
  const PanePosition fragment_end = behind == known.cuts.end() ? end : start + *behind;
  fragment.length = fragment_end - fragment.start;
  fragment.next = fragment_end == line_end ? line.next : fragment_end;
  return fragment;
}

Fragment FragmentFinder::At(PanePosition position) {
  const std::int64_t index = box_.LineAt(position);
  return InLine(index, box_.LineByIndex(index), position);
}

Fragment FragmentFinder::After(const Fragment& fragment) {
  if (!fragment.LastOfLine())
    return InLine(fragment.line, box_.LineByIndex(fragment.line), fragment.next);
  const PaneLine line = box_.LineByIndex(fragment.line + 1);
  return InLine(fragment.line + 1, line, line.start);
}

Fragment FragmentFinder::Before(const Fragment& fragment) {
  if (fragment.start != fragment.line_start)
    return InLine(fragment.line, box_.LineByIndex(fragment.line), fragment.start - 1);
  const PaneLine line = box_.LineByIndex(fragment.line - 1);
  return InLine(fragment.line - 1, line, line.start + std::max<PanePosition>(line.length, 1) - 1);
}

}  // namespace parlorwire
