// A stretch of a pane's text, of bounded size, with its runs and line breaks. Offsets are 0-based
// within the block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "pane/formats.h"
#include "pane/work.h"

namespace parlorwire {

inline constexpr char kCr = '\r';
inline constexpr char kLf = '\n';

// The most characters that a block may be filled up to: offsets in it are packed. What lies between
// this and what the packing can hold is for line breaks that come into a full block whole.
inline constexpr std::size_t kLargestBlock = 16'000;

// The characters from the end of the run before up to `end` have one look. A picture is a run of
// its own, of one character; no other run has the look of its neighbour.
struct PaneBlockRun {
  PaneLookId look = 0;
  std::uint16_t end = 0;
};

// A line break: CR CR LF, CR LF, a lone CR or a lone LF. Packed, as there is one a line.
class PaneBreak {
 public:
  PaneBreak(std::size_t end, std::size_t length)
      : bits_(static_cast<std::uint16_t>(end << 2U | length)) {}
  std::size_t end() const { return bits_ >> 2U; }    // the offset behind it
  std::size_t length() const { return bits_ & 3U; }  // 1 to 3

 private:
  std::uint16_t bits_;
};
static_assert(kLargestBlock < 1U << 14U);

class PaneBlock {
 public:
  // Its work is counted in `work`, which must outlive it.
  explicit PaneBlock(PaneWork& work) : work_(&work) {}

  std::size_t size() const { return text_.size(); }
  std::string_view text() const { return {text_.data(), text_.size()}; }
  const std::vector<PaneBlockRun>& runs() const { return runs_; }
  // As they are in the text of this block alone.
  const std::vector<PaneBreak>& breaks() const { return breaks_; }

  // The index of the run that holds the character at `offset`; offset < size().
  std::size_t RunAt(std::size_t offset) const;
  // How many breaks end at or before `offset`.
  std::size_t BreaksUpTo(std::size_t offset) const;
  // Whether a break ends exactly there.
  bool IsBreakEnd(std::size_t offset) const;

  // Puts `text` of one look in the place of the characters in [begin, end). A picture is one blank
  // of a look with a picture.
  void Replace(std::size_t begin, std::size_t end, std::string_view text, PaneLookId look);

  // Changes the look of the characters in [begin, end), which is not empty. Returns whether any
  // look has changed.
  bool Format(std::size_t begin, std::size_t end, const PaneLookChange& change,
              PaneFormats& formats);

  // Appends the characters [begin, end) of another block with their looks.
  void Append(const PaneBlock& other, std::size_t begin, std::size_t end);

  // Drops everything and keeps the memory.
  void Clear();
  // Nothing is written at its end any more: growth leaves no slack from here on.
  void Seal();
  // Gives back slack that is worth it, if sealed.
  void Compact();

  std::size_t MemoryUsed() const;

 private:
  void ReserveText(std::size_t size);
  void ReplaceText(std::size_t begin, std::size_t end, std::string_view text);
  void ReplaceRuns(std::size_t begin, std::size_t end, std::size_t length, PaneLookId look);
  void SpliceRuns(std::size_t first, std::size_t last, std::span<const PaneBlockRun> fresh);
  void ReplaceBreaks(std::size_t begin, std::size_t end, std::size_t length);
  bool FormatInRun(std::size_t run, std::size_t begin, std::size_t end,
                   const PaneLookChange& change, PaneFormats& formats);
  void FindBreaks(std::size_t first_end, std::size_t last_end, std::vector<PaneBreak>& found) const;

  PaneWork* work_;
  std::vector<char> text_;
  std::vector<PaneBlockRun> runs_;
  std::vector<PaneBreak> breaks_;
  bool sealed_ = false;
};

}  // namespace parlorwire
