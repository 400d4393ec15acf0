// The text of a pane with its looks and lines, edited and read by position. It knows no selection.
//
// The text lies in blocks, and no line break lies across the border of two: so every block finds
// its own breaks. An edit may bring a CR before a border together with an LF behind it; then the LF
// moves to the CR.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pane/block_list.h"
#include "pane/formats.h"
#include "pane/runs.h"
#include "pane/units.h"
#include "pane/work.h"

namespace parlorwire {

class PaneText {
 public:
  // Its work is counted in `work`, which must outlive it.
  explicit PaneText(PaneWork& work, PaneBlockSizes sizes = {})
      : work_(work), blocks_(sizes, work) {}

  PanePosition Length() const { return blocks_.Length(); }
  std::int64_t LineCount() const { return blocks_.Breaks() + 1; }

  // Positions from 0 to Length().
  std::int64_t LineAt(PanePosition position) const;
  bool IsLineStart(PanePosition position) const;
  // Whether it lies between CR and LF.
  bool PartsCrLf(PanePosition position) const;
  // 0 <= index < LineCount().
  PaneLine Line(std::int64_t index) const;

  // The look of the character behind `position`, which is below Length().
  PaneLookId LookAt(PanePosition position) const;
  // 0 <= start <= end <= Length() here and below.
  std::string Read(PanePosition start, PanePosition end) const;
  // In order, cut at both ends, neighbours of equal look as one; each picture by itself.
  std::vector<PaneStretch> Looks(PanePosition start, PanePosition end) const;

  // Puts `text` of one look in the place of [start, end). A picture is one blank.
  void Replace(PanePosition start, PanePosition end, std::string_view text, PaneLookId look);
  // Changes the look of [start, end). Returns whether any look has changed.
  bool Format(PanePosition start, PanePosition end, const PaneLookChange& change,
              PaneFormats& formats);
  void Clear();

  std::size_t MemoryUsed() const { return blocks_.MemoryUsed(); }

 private:
  PaneBlockPlace Touch(PaneBlockPlace place) const;
  std::size_t OffsetIn(const PaneBlockPlace& place, PanePosition position) const;
  void ReplaceIn(const PaneBlockPlace& place, std::size_t begin, std::size_t end,
                 std::string_view text, PaneLookId look);
  void Remove(PanePosition start, PanePosition end);
  void Insert(PanePosition position, std::string_view text, PaneLookId look);
  PaneBlockPlace AddBlock(PaneBlockPlace& place);
  void MendBorders(PanePosition start, PanePosition end);
  void MendBorder(const PaneBlockPlace& place);
  void JoinSmall(const PaneBlockPlace& place);

  PaneWork& work_;
  PaneBlockList blocks_;
};

}  // namespace parlorwire
