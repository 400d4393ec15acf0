#include "pane/text.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace parlorwire {

PaneBlockPlace PaneText::Touch(PaneBlockPlace place) const {
  ++work_.blocks_touched;
  return place;
}

std::size_t PaneText::OffsetIn(const PaneBlockPlace& place, PanePosition position) const {
  return static_cast<std::size_t>(position - blocks_.Start(place));
}

// ---- reading ----

std::int64_t PaneText::LineAt(PanePosition position) const {
  const PaneBlockPlace place = Touch(blocks_.Holding(position));
  const std::size_t in_block = place.block->BreaksUpTo(OffsetIn(place, position));
  return blocks_.FirstBreak(place) + static_cast<std::int64_t>(in_block);
}

bool PaneText::IsLineStart(PanePosition position) const {
  if (position == 0) return true;
  const PaneBlockPlace place = Touch(blocks_.Holding(position - 1));
  return place.block->IsBreakEnd(OffsetIn(place, position));
}

bool PaneText::PartsCrLf(PanePosition position) const {
  if (position == 0 || position == Length()) return false;
  const PaneBlockPlace place = Touch(blocks_.Holding(position));
  const std::size_t offset = OffsetIn(place, position);
  const std::string_view text = place.block->text();
  return offset > 0 && text[offset] == kLf && text[offset - 1] == kCr;
}

PaneLine PaneText::Line(std::int64_t index) const {
  // Where the break of that number, which lies in that block, ends, and its length.
  const auto break_in = [this](const PaneBlockPlace& place, std::int64_t number) {
    const auto in_block = static_cast<std::size_t>(number - blocks_.FirstBreak(place));
    const PaneBreak& found = place.block->breaks()[in_block];
    return std::pair(blocks_.Start(place) + static_cast<PanePosition>(found.end()),
                     static_cast<PanePosition>(found.length()));
  };
  PanePosition start = 0;
  PanePosition end = Length();
  PanePosition next = end;
  PaneBlockPlace place;
  if (index < blocks_.Breaks()) {
    place = Touch(blocks_.HoldingBreak(index));
    const auto [behind, length] = break_in(place, index);
    next = behind;
    end = behind - length;
  }
  if (index > 0) {
    if (place.block == nullptr || index - 1 < blocks_.FirstBreak(place))
      place = Touch(blocks_.HoldingBreak(index - 1));
    start = break_in(place, index - 1).first;
  }
  return {start, end - start, next};
}

PaneLookId PaneText::LookAt(PanePosition position) const {
  const PaneBlockPlace place = Touch(blocks_.Holding(position));
  const PaneBlock& block = *place.block;
  return block.runs()[block.RunAt(OffsetIn(place, position))].look;
}

std::string PaneText::Read(PanePosition start, PanePosition end) const {
  std::string text;
  text.reserve(static_cast<std::size_t>(end - start));
  if (start == end) return text;
  PaneBlockPlace place = Touch(blocks_.Holding(start));
  std::size_t offset = OffsetIn(place, start);
  for (;;) {
    const auto wanted = static_cast<std::size_t>(end - start) - text.size();
    text += place.block->text().substr(offset, wanted);
    if (text.size() == static_cast<std::size_t>(end - start)) return text;
    place = Touch(blocks_.Next(place));
    offset = 0;
  }
}

std::vector<PaneStretch> PaneText::Looks(PanePosition start, PanePosition end) const {
  std::vector<PaneStretch> stretches;
  if (start == end) return stretches;
  PaneBlockPlace place = Touch(blocks_.Holding(start));
  for (PanePosition at = start;;) {
    const PanePosition block_start = blocks_.Start(place);
    const auto& runs = place.block->runs();
    for (std::size_t i = place.block->RunAt(static_cast<std::size_t>(at - block_start));
         i < runs.size() && at < end; ++i) {
      const PanePosition length = std::min(block_start + PanePosition{runs[i].end}, end) - at;
      const PaneLookId look = runs[i].look;
      if (!stretches.empty() && stretches.back().look == look && !IsPicture(look))
        stretches.back().length += length;
      else
        stretches.push_back({at, length, look});
      at += length;
    }
    if (at == end) return stretches;
    place = Touch(blocks_.Next(place));
  }
}

// ---- writing ----

void PaneText::ReplaceIn(const PaneBlockPlace& place, std::size_t begin, std::size_t end,
                         std::string_view text, PaneLookId look) {
  place.block->Replace(begin, end, text, look);
  blocks_.Update(place);
}

void PaneText::Replace(PanePosition start, PanePosition end, std::string_view text,
                       PaneLookId look) {
  const PaneBlockPlace place = Touch(blocks_.Holding(start));
  const std::size_t begin = OffsetIn(place, start);
  const std::size_t stop = begin + static_cast<std::size_t>(end - start);
  const std::size_t old_size = place.block->size();
  const bool last = blocks_.IsLast(place);
  const std::size_t room =
      last && stop == old_size ? blocks_.sizes().target : blocks_.sizes().limit;
  const bool fits = stop <= old_size && old_size - (stop - begin) + text.size() <= room;
  // The usual case: the edit stays in one block, away from the borders.
  if (fits && begin >= 2 && (last || stop < old_size)) {
    ReplaceIn(place, begin, stop, text, look);
    if (last) return;
    place.block->Compact();
    JoinSmall(place);
    return;
  }
  if (fits && !text.empty()) {
    ReplaceIn(place, begin, stop, text, look);
    if (!last) place.block->Compact();
  } else {
    if (start != end) Remove(start, end);
    if (!text.empty()) Insert(start, text, look);
  }
  MendBorders(start, start + static_cast<PanePosition>(text.size()));
  const PaneBlockPlace at_start = blocks_.Holding(start);
  if (!blocks_.IsFirst(at_start)) JoinSmall(blocks_.Previous(at_start));
  JoinSmall(blocks_.Holding(start));
}

void PaneText::Remove(PanePosition start, PanePosition end) {
  if (start == 0 && end == Length()) return Clear();
  PaneBlockPlace first = Touch(blocks_.Holding(start));
  const std::size_t begin = OffsetIn(first, start);
  auto left = static_cast<std::size_t>(end - start);
  // Whole blocks in the middle go first, then the end of the first block and the beginning of the
  // last; none of them is left empty but the pane's last.
  const std::size_t in_first = std::min(left, first.block->size() - begin);
  left -= in_first;
  while (left > 0) {
    const PaneBlockPlace next = Touch(blocks_.Next(first));
    const std::size_t size = next.block->size();
    if (size <= left && !blocks_.IsLast(next)) {
      blocks_.Erase(next);
      left -= size;
    } else {
      ReplaceIn(next, 0, std::min(left, size), {}, 0);
      next.block->Compact();
      left = 0;
    }
  }
  ReplaceIn(first, begin, begin + in_first, {}, 0);
  if (first.block->size() == 0 && !blocks_.IsLast(first))
    blocks_.Erase(first);
  else
    first.block->Compact();
}

// A new block behind `place`. If that one was the last, it is written at its end no more, and the
// new one takes over its memory.
PaneBlockPlace PaneText::AddBlock(PaneBlockPlace& place) {
  auto fresh = std::make_unique<PaneBlock>(work_);
  if (blocks_.IsLast(place)) {
    *fresh = std::move(*place.block);
    *place.block = PaneBlock(*fresh);
    place.block->Seal();
    fresh->Clear();
  } else {
    fresh->Seal();
  }
  return Touch(blocks_.InsertBehind(place, std::move(fresh)));
}

void PaneText::Insert(PanePosition position, std::string_view text, PaneLookId look) {
  PaneBlockPlace place = Touch(blocks_.Holding(position));
  std::size_t begin = OffsetIn(place, position);
  const bool at_end = position == Length();
  if (!at_end && place.block->size() + text.size() <= blocks_.sizes().limit) {
    ReplaceIn(place, begin, begin, text, look);
    place.block->Compact();
    return;
  }
  if (begin < place.block->size()) {
    const PaneBlock whole = *place.block;
    PaneBlockPlace behind = AddBlock(place);
    ReplaceIn(place, begin, whole.size(), {}, 0);
    behind.block->Append(whole, begin, whole.size());
    blocks_.Update(behind);
    place = blocks_.Previous(behind);
  }
  // From here on the text is written at the end of `place`. A short one is not cut.
  while (!text.empty()) {
    const std::size_t size = place.block->size();
    std::size_t room = size < blocks_.sizes().target ? blocks_.sizes().target - size : 0;
    if (text.size() > room && text.size() <= blocks_.sizes().target && size > 0) room = 0;
    const std::size_t cut = std::min(text.size(), room);
    if (cut > 0) {
      ReplaceIn(place, size, size, text.substr(0, cut), look);
      text.remove_prefix(cut);
    }
    if (!text.empty()) place = AddBlock(place);
  }
  if (!blocks_.IsLast(place)) place.block->Compact();
}

// Sees to the borders of the blocks from `start` to `end`, from the last to the first.
void PaneText::MendBorders(PanePosition start, PanePosition end) {
  PaneBlockPlace place = Touch(blocks_.Holding(std::min(end, Length())));
  for (;;) {
    if (!blocks_.IsLast(place)) MendBorder(place);
    if (blocks_.IsFirst(place)) return;
    place = Touch(blocks_.Previous(place));
    if (blocks_.Start(place) + static_cast<PanePosition>(place.block->size()) + 1 < start) return;
  }
}

void PaneText::MendBorder(const PaneBlockPlace& place) {
  if (place.block->size() == 0 || place.block->text().back() != kCr) return;
  const PaneBlockPlace next = blocks_.Next(place);
  const std::string_view text = next.block->text();
  const std::size_t moving = text.starts_with("\n") ? 1 : text.starts_with("\r\n") ? 2 : 0;
  if (moving == 0) return;
  place.block->Append(*next.block, 0, moving);
  blocks_.Update(place);
  ReplaceIn(next, 0, moving, {}, 0);
  if (next.block->size() == 0 && !blocks_.IsLast(next)) blocks_.Erase(next);
}

// A block that has become small is joined with the one behind it, unless that is the last.
void PaneText::JoinSmall(const PaneBlockPlace& place) {
  if (blocks_.IsLast(place)) return;
  if (place.block->size() >= blocks_.sizes().target / 4) return;
  const PaneBlockPlace next = Touch(blocks_.Next(place));
  if (blocks_.IsLast(next) || place.block->size() + next.block->size() > blocks_.sizes().target)
    return;
  place.block->Append(*next.block, 0, next.block->size());
  place.block->Compact();
  blocks_.Erase(next);
  blocks_.Update(place);
}

bool PaneText::Format(PanePosition start, PanePosition end, const PaneLookChange& change,
                      PaneFormats& formats) {
  if (start == end) return false;
  bool changed = false;
  PaneBlockPlace place = Touch(blocks_.Holding(start));
  for (PanePosition at = start;;) {
    const std::size_t begin = OffsetIn(place, at);
    const std::size_t stop =
        std::min(place.block->size(), begin + static_cast<std::size_t>(end - at));
    if (stop > begin) changed = place.block->Format(begin, stop, change, formats) || changed;
    if (!blocks_.IsLast(place)) place.block->Compact();
    at += static_cast<PanePosition>(stop - begin);
    if (at == end) return changed;
    place = Touch(blocks_.Next(place));
  }
}

void PaneText::Clear() {
  blocks_ = PaneBlockList(blocks_.sizes(), work_);
}

}  // namespace parlorwire
