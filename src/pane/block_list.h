// The blocks of a pane in order, found by a position or by a line break.
//
// The blocks lie in groups. A group keeps the running totals of its blocks, and the list those of
// its groups, both in plain arrays that are searched by halving:
//
//   groups          totals 1,052,000   2,101,000   2,140,000
//   blocks of one   totals 4,090   8,180   12,275   ...   1,052,000
//
// A change of a block's size adds to the totals behind it: at most 256 in its group and one for
// each group behind, and nothing at all behind the last block, where a pane is written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "pane/block.h"
#include "pane/units.h"
#include "pane/work.h"

namespace parlorwire {

// How large blocks get, in characters, and groups, in blocks. A block is filled up to the target by
// writing at its end, and up to the limit by writing inside. The target is at least 4, the limit
// not below it and not above kLargestBlock, a group at least 2.
struct PaneBlockSizes {
  std::size_t target = 2048;
  std::size_t limit = 4096;
  std::size_t group = 256;
};

// A block's place. Adding and removing blocks makes places invalid, but for those handed in.
struct PaneBlockPlace {
  std::size_t group = 0;
  std::size_t index = 0;  // in the group
  PaneBlock* block = nullptr;

  bool operator==(const PaneBlockPlace&) const = default;
};

class PaneBlockList {
 public:
  // There is always a block; the new list has an empty one, which counts its work in `work`.
  PaneBlockList(PaneBlockSizes sizes, PaneWork& work);

  const PaneBlockSizes& sizes() const { return sizes_; }

  PanePosition Length() const { return groups_totals_.back().characters; }
  std::int64_t Breaks() const { return groups_totals_.back().breaks; }

  // The block of the character at `position`; the last one for the text's end.
  PaneBlockPlace Holding(PanePosition position) const {
    return position >= last_ahead_.characters ? last_ : Search(position);
  }
  // The block of the break with the 0-based number `number` < Breaks().
  PaneBlockPlace HoldingBreak(std::int64_t number) const;
  PaneBlockPlace First() const { return PlaceAt(0, 0); }
  PaneBlockPlace Last() const { return last_; }
  bool IsFirst(const PaneBlockPlace& place) const { return place.group == 0 && place.index == 0; }
  bool IsLast(const PaneBlockPlace& place) const { return place.block == last_.block; }
  // The neighbours; there must be one.
  PaneBlockPlace Next(const PaneBlockPlace& place) const;
  PaneBlockPlace Previous(const PaneBlockPlace& place) const;

  // The position of the block's first character, and the number of breaks ahead of the block.
  PanePosition Start(const PaneBlockPlace& place) const { return Ahead(place).characters; }
  std::int64_t FirstBreak(const PaneBlockPlace& place) const { return Ahead(place).breaks; }

  // To be called after the block's content has changed.
  void Update(const PaneBlockPlace& place);
  // Puts a block behind `place`, which may move and is set anew. Returns the new block's place.
  PaneBlockPlace InsertBehind(PaneBlockPlace& place, std::unique_ptr<PaneBlock> block);
  // Removes a block that is not the only one.
  void Erase(const PaneBlockPlace& place);

  std::size_t MemoryUsed() const;

 private:
  // Of a block and all ahead of it in its group, or of a group and all ahead of it.
  template <class Count>
  struct Totals {
    Count characters = 0;
    Count breaks = 0;
  };
  struct Group {
    std::vector<std::unique_ptr<PaneBlock>> blocks;
    std::vector<Totals<std::uint32_t>> totals;
  };

  PaneBlockPlace PlaceAt(std::size_t group, std::size_t index) const;
  PaneBlockPlace Search(PanePosition position) const;
  Totals<std::int64_t> Ahead(const PaneBlockPlace& place) const {
    return IsLast(place) ? last_ahead_ : AheadOfInner(place);
  }
  Totals<std::int64_t> AheadOfInner(const PaneBlockPlace& place) const;
  void FindLast();
  void Add(const PaneBlockPlace& place, std::int64_t characters, std::int64_t breaks);
  void SplitGroup(std::size_t group);

  PaneBlockSizes sizes_;
  std::vector<Group> groups_;
  std::vector<Totals<std::int64_t>> groups_totals_;
  // The last block, where nearly all is written, and what is ahead of it.
  PaneBlockPlace last_;
  Totals<std::int64_t> last_ahead_;
};

}  // namespace parlorwire
