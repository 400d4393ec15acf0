#include "pane/qt/layout_cache.h"

#include <algorithm>

#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr std::size_t kLayoutsKept = 1024;  // more than any view shows at once
constexpr int kCharactersKept = 256 * 1024;

}  // namespace

std::shared_ptr<const FragmentLayout> LayoutCache::Get(const RichTextBox& box,
                                                       const Fragment& fragment, int width,
                                                       LayoutTools& tools) {
  auto place = std::lower_bound(kept_.begin(), kept_.end(), fragment.start,
                                [](const Kept& kept, PanePosition s) { return kept.start < s; });
  const bool found = place != kept_.end() && place->start == fragment.start;
  if (found && place->layout->width == width && place->next == fragment.next) {
    place->used = ++clock_;
    return place->layout;
  }
  Kept made{fragment.start, fragment.next, ++clock_, LayOut(box, fragment, width, tools)};
  auto layout = made.layout;
  if (found)
    *place = std::move(made);
  else
    kept_.insert(place, std::move(made));
  Shrink();
  return layout;
}

// The lines from first_line on are laid out anew; what lies behind them moves.
void LayoutCache::TextChanged(const RichTextBox& box, const PaneView::TextChange& change) {
  if (kept_.empty() || kept_.back().next < change.start) return;
  const PanePosition first = box.LineByIndex(change.first_line).start;
  const std::int64_t behind = change.first_line + change.lines_inserted;
  const PanePosition shift = change.inserted - change.removed;
  if (behind >= box.LineCount()) {
    std::erase_if(kept_, [&](const Kept& kept) { return kept.start >= first; });
    return;
  }
  const PanePosition moved = box.LineByIndex(behind).start - shift;
  std::erase_if(kept_, [&](const Kept& kept) { return kept.start >= first && kept.start < moved; });
  for (Kept& kept : kept_) {
    if (kept.start < moved) continue;
    kept.start += shift;
    kept.next += shift;
  }
}

// A line goes as a whole: its first character decides about all of it.
void LayoutCache::FormatChanged(const RichTextBox& box, PanePosition start, PanePosition end) {
  if (kept_.empty() || kept_.back().next < start) return;
  const PanePosition first = box.LineByIndex(box.LineAt(start)).start;
  const PanePosition behind = box.LineByIndex(box.LineAt(std::max(start, end - 1))).next;
  std::erase_if(kept_, [&](const Kept& kept) { return kept.start < behind && kept.next >= first; });
}

void LayoutCache::Shrink() {
  int characters = 0;
  for (const Kept& kept : kept_)
    characters += kept.layout->length;
  if (kept_.size() <= kLayoutsKept && characters <= kCharactersKept) return;
  // Half of them go, the longest unused first, so that this comes rarely.
  std::vector<std::uint64_t> used;
  used.reserve(kept_.size());
  for (const Kept& kept : kept_)
    used.push_back(kept.used);
  const auto middle = used.begin() + static_cast<std::ptrdiff_t>(used.size() / 2);
  std::nth_element(used.begin(), middle, used.end());
  const std::uint64_t oldest = *middle;
  std::erase_if(kept_, [&](const Kept& kept) { return kept.used < oldest; });
}

}  // namespace parlorwire
