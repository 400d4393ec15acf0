#include "pane/block_list.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace parlorwire {

namespace {

using Difference = std::ptrdiff_t;

template <class Element>
auto IteratorAt(std::vector<Element>& all, std::size_t index) {
  return all.begin() + static_cast<Difference>(index);
}

// The first element whose member is above `value`, or the last one.
template <class Totals, class Value, class Member>
std::size_t FirstAbove(const std::vector<Totals>& all, Value value, Member member) {
  const auto above = std::ranges::upper_bound(all, value, {}, member);
  const auto index = static_cast<std::size_t>(above - all.begin());
  return std::min(index, all.size() - 1);
}

}  // namespace

PaneBlockList::PaneBlockList(PaneBlockSizes sizes, PaneWork& work)
    : sizes_(sizes), groups_(1), groups_totals_(1) {
  assert(sizes.target >= 4 && sizes.target <= sizes.limit);
  assert(sizes.limit <= kLargestBlock);
  assert(sizes.group >= 2);
  groups_[0].blocks.push_back(std::make_unique<PaneBlock>(work));
  groups_[0].totals.emplace_back();
  FindLast();
}

PaneBlockPlace PaneBlockList::PlaceAt(std::size_t group, std::size_t index) const {
  return {group, index, groups_[group].blocks[index].get()};
}

void PaneBlockList::FindLast() {
  last_ = PlaceAt(groups_.size() - 1, groups_.back().blocks.size() - 1);
  last_ahead_ = AheadOfInner(last_);
}

PaneBlockPlace PaneBlockList::Next(const PaneBlockPlace& place) const {
  if (place.index + 1 < groups_[place.group].blocks.size())
    return PlaceAt(place.group, place.index + 1);
  return PlaceAt(place.group + 1, 0);
}

PaneBlockPlace PaneBlockList::Previous(const PaneBlockPlace& place) const {
  if (place.index > 0) return PlaceAt(place.group, place.index - 1);
  return PlaceAt(place.group - 1, groups_[place.group - 1].blocks.size() - 1);
}

PaneBlockPlace PaneBlockList::Search(PanePosition position) const {
  using OfGroup = Totals<std::int64_t>;
  using OfBlock = Totals<std::uint32_t>;
  const std::size_t group = FirstAbove(groups_totals_, position, &OfGroup::characters);
  const PanePosition ahead = group == 0 ? 0 : groups_totals_[group - 1].characters;
  return PlaceAt(group,
                 FirstAbove(groups_[group].totals, static_cast<std::uint32_t>(position - ahead),
                            &OfBlock::characters));
}

PaneBlockPlace PaneBlockList::HoldingBreak(std::int64_t number) const {
  if (number >= last_ahead_.breaks) return last_;
  using OfGroup = Totals<std::int64_t>;
  using OfBlock = Totals<std::uint32_t>;
  const std::size_t group = FirstAbove(groups_totals_, number, &OfGroup::breaks);
  const std::int64_t ahead = group == 0 ? 0 : groups_totals_[group - 1].breaks;
  return PlaceAt(group, FirstAbove(groups_[group].totals,
                                   static_cast<std::uint32_t>(number - ahead), &OfBlock::breaks));
}

PaneBlockList::Totals<std::int64_t> PaneBlockList::AheadOfInner(const PaneBlockPlace& place) const {
  Totals<std::int64_t> ahead;
  if (place.group > 0) ahead = groups_totals_[place.group - 1];
  if (place.index > 0) {
    const auto& in_group = groups_[place.group].totals[place.index - 1];
    ahead.characters += in_group.characters;
    ahead.breaks += in_group.breaks;
  }
  return ahead;
}

void PaneBlockList::Add(const PaneBlockPlace& place, std::int64_t characters, std::int64_t breaks) {
  auto& totals = groups_[place.group].totals;
  // Modular arithmetic: a negative amount is taken away.
  const auto few_characters = static_cast<std::uint32_t>(characters);
  const auto few_breaks = static_cast<std::uint32_t>(breaks);
  for (std::size_t i = place.index; i < totals.size(); ++i) {
    totals[i].characters += few_characters;
    totals[i].breaks += few_breaks;
  }
  for (std::size_t i = place.group; i < groups_totals_.size(); ++i) {
    groups_totals_[i].characters += characters;
    groups_totals_[i].breaks += breaks;
  }
  last_ahead_.characters += characters;
  last_ahead_.breaks += breaks;
}

void PaneBlockList::Update(const PaneBlockPlace& place) {
  if (IsLast(place)) {
    const auto characters = static_cast<PanePosition>(place.block->size());
    const auto breaks = static_cast<std::int64_t>(place.block->breaks().size());
    const auto in_group =
        place.index == 0 ? Totals<std::uint32_t>{} : groups_[place.group].totals[place.index - 1];
    groups_[place.group].totals[place.index] = {
        in_group.characters + static_cast<std::uint32_t>(characters),
        in_group.breaks + static_cast<std::uint32_t>(breaks)};
    groups_totals_.back() = {last_ahead_.characters + characters, last_ahead_.breaks + breaks};
    return;
  }
  const auto& totals = groups_[place.group].totals;
  const auto ahead = place.index == 0 ? Totals<std::uint32_t>{} : totals[place.index - 1];
  const auto& known = totals[place.index];
  const auto characters = static_cast<std::int64_t>(place.block->size()) -
                          (std::int64_t{known.characters} - ahead.characters);
  const auto breaks = static_cast<std::int64_t>(place.block->breaks().size()) -
                      (std::int64_t{known.breaks} - ahead.breaks);
  if (characters != 0 || breaks != 0) Add(place, characters, breaks);
}

void PaneBlockList::SplitGroup(std::size_t group) {
  groups_.emplace(IteratorAt(groups_, group + 1));
  Group& full = groups_[group];
  Group& fresh = groups_[group + 1];
  const std::size_t half = full.blocks.size() / 2;
  const auto ahead = full.totals[half - 1];
  std::move(IteratorAt(full.blocks, half), full.blocks.end(), std::back_inserter(fresh.blocks));
  for (std::size_t i = half; i < full.totals.size(); ++i)
    fresh.totals.push_back(
        {full.totals[i].characters - ahead.characters, full.totals[i].breaks - ahead.breaks});
  full.blocks.resize(half);
  full.totals.resize(half);
  const auto whole = groups_totals_[group];
  groups_totals_.insert(IteratorAt(groups_totals_, group + 1), whole);
  const auto before = group == 0 ? Totals<std::int64_t>{} : groups_totals_[group - 1];
  groups_totals_[group] = {before.characters + ahead.characters, before.breaks + ahead.breaks};
}

PaneBlockPlace PaneBlockList::InsertBehind(PaneBlockPlace& place,
                                           std::unique_ptr<PaneBlock> block) {
  PaneBlockPlace fresh{place.group, place.index + 1, block.get()};
  if (groups_[place.group].blocks.size() == sizes_.group) {
    if (IsLast(place)) {
      groups_.emplace_back();
      groups_totals_.push_back(groups_totals_.back());
      fresh = {place.group + 1, 0, block.get()};
    } else {
      SplitGroup(place.group);
      const std::size_t half = groups_[place.group].blocks.size();
      if (place.index >= half) place = PlaceAt(place.group + 1, place.index - half);
      fresh = {place.group, place.index + 1, block.get()};
    }
  }
  Group& group = groups_[fresh.group];
  const auto ahead = fresh.index == 0 ? Totals<std::uint32_t>{} : group.totals[fresh.index - 1];
  group.blocks.insert(IteratorAt(group.blocks, fresh.index), std::move(block));
  group.totals.insert(IteratorAt(group.totals, fresh.index), ahead);
  FindLast();
  Update(fresh);
  return fresh;
}

void PaneBlockList::Erase(const PaneBlockPlace& place) {
  place.block->Clear();
  Update(place);
  Group& group = groups_[place.group];
  group.blocks.erase(IteratorAt(group.blocks, place.index));
  group.totals.erase(IteratorAt(group.totals, place.index));
  if (group.blocks.empty()) {
    groups_.erase(IteratorAt(groups_, place.group));
    groups_totals_.erase(IteratorAt(groups_totals_, place.group));
  }
  FindLast();
}

std::size_t PaneBlockList::MemoryUsed() const {
  std::size_t bytes =
      groups_.capacity() * sizeof(Group) + groups_totals_.capacity() * sizeof(groups_totals_[0]);
  for (const Group& group : groups_) {
    bytes += group.blocks.capacity() * sizeof(group.blocks[0]) +
             group.totals.capacity() * sizeof(group.totals[0]);
    for (const auto& block : group.blocks)
      bytes += block->MemoryUsed();
  }
  return bytes;
}

}  // namespace parlorwire
