#include "pane/block.h"

#include <algorithm>
#include <array>

namespace parlorwire {

namespace {

// What a sealed block grows by beyond what is needed, and how much slack it may keep.
constexpr std::size_t kSpareText = 64;
constexpr std::size_t kSpareRuns = 8;

using Difference = std::ptrdiff_t;

std::uint16_t Offset(std::size_t offset) {
  return static_cast<std::uint16_t>(offset);
}

// What a block grows by when `length` characters come in the place of [begin, end).
Difference Growth(std::size_t begin, std::size_t end, std::size_t length) {
  return static_cast<Difference>(length) - static_cast<Difference>(end - begin);
}

// Appends a run that ends at `end`, or lengthens the last one if it looks the same.
template <class Runs>
void Push(Runs& runs, PaneLookId look, std::size_t end) {
  if (!runs.empty() && runs.back().look == look && !IsPicture(look))
    runs.back().end = Offset(end);
  else
    runs.push_back({look, Offset(end)});
}

// Puts `fresh` in the place of the elements [first, last).
template <class Element>
void Splice(std::vector<Element>& all, std::size_t first, std::size_t last,
            std::span<const Element> fresh) {
  const std::size_t common = std::min(last - first, fresh.size());
  const auto at = all.begin() + static_cast<Difference>(first);
  std::copy_n(fresh.begin(), common, at);
  const auto behind = at + static_cast<Difference>(common);
  if (common < last - first)
    all.erase(behind, all.begin() + static_cast<Difference>(last));
  else if (common < fresh.size())
    all.insert(behind, fresh.begin() + static_cast<Difference>(common), fresh.end());
}

// The runs around an edit: the neighbours, what is left of the runs that are cut, and the new one.
struct RunsAround {
  std::array<PaneBlockRun, 5> runs;
  std::size_t count = 0;

  bool empty() const { return count == 0; }
  PaneBlockRun& back() { return runs[count - 1]; }
  void push_back(PaneBlockRun run) { runs[count++] = run; }
  operator std::span<const PaneBlockRun>() const { return {runs.data(), count}; }
};

// The offsets of CR and LF from `begin` to `end`, in order, then `end`.
class BreakCharacters {
 public:
  BreakCharacters(std::string_view text, std::size_t begin, std::size_t end)
      : text_(text.substr(0, end)), cr_(Find(kCr, begin)), lf_(Find(kLf, begin)) {}

  std::size_t offset() const { return std::min(cr_, lf_); }
  void Next() {
    if (cr_ < lf_)
      cr_ = Find(kCr, cr_ + 1);
    else
      lf_ = Find(kLf, lf_ + 1);
  }

 private:
  std::size_t Find(char c, std::size_t from) const {
    return std::min(text_.find(c, from), text_.size());
  }

  std::string_view text_;
  std::size_t cr_;
  std::size_t lf_;
};

template <class Element>
void GiveBackSlack(std::vector<Element>& all, std::size_t allowed) {
  if (all.capacity() - all.size() > allowed) all.shrink_to_fit();
}

template <class Element>
std::size_t BytesOf(const std::vector<Element>& all) {
  constexpr std::size_t kAllocation = 16;  // what the heap adds
  return all.capacity() == 0 ? 0 : all.capacity() * sizeof(Element) + kAllocation;
}

}  // namespace

std::size_t PaneBlock::RunAt(std::size_t offset) const {
  // Mostly it is one of the last.
  std::size_t last = runs_.size() - 1;
  for (int tries = 0; tries < 4; ++tries, --last)
    if (last == 0 || runs_[last - 1].end <= offset) return last;
  const auto run = std::ranges::upper_bound(runs_, offset, {}, &PaneBlockRun::end);
  return static_cast<std::size_t>(run - runs_.begin());
}

std::size_t PaneBlock::BreaksUpTo(std::size_t offset) const {
  if (breaks_.empty() || breaks_.back().end() <= offset) return breaks_.size();
  const auto behind = std::ranges::upper_bound(breaks_, offset, {}, &PaneBreak::end);
  return static_cast<std::size_t>(behind - breaks_.begin());
}

bool PaneBlock::IsBreakEnd(std::size_t offset) const {
  const std::size_t count = BreaksUpTo(offset);
  return count > 0 && breaks_[count - 1].end() == offset;
}

void PaneBlock::ReserveText(std::size_t size) {
  if (sealed_ && size > text_.capacity()) text_.reserve(size + kSpareText);
}

// Puts `fresh` in the place of the runs [first, last).
void PaneBlock::SpliceRuns(std::size_t first, std::size_t last,
                           std::span<const PaneBlockRun> fresh) {
  const std::size_t size = runs_.size() - (last - first) + fresh.size();
  if (sealed_ && size > runs_.capacity()) runs_.reserve(size + kSpareRuns);
  const std::size_t shifted = fresh.size() == last - first ? 0 : runs_.size() - last;
  Splice(runs_, first, last, fresh);
  work_->runs_moved += (last - first) + fresh.size() + shifted;
}

// The breaks that end at first_end to last_end. Whether a break ends somewhere depends on the
// character before and the two behind, its length on the three before.
void PaneBlock::FindBreaks(std::size_t first_end, std::size_t last_end,
                           std::vector<PaneBreak>& found) const {
  const std::size_t first = first_end == 0 ? 0 : first_end - 1;
  for (BreakCharacters at(text(), first, last_end); at.offset() < last_end; at.Next()) {
    const std::size_t end = at.offset() + 1;
    if (text_[end - 1] == kLf) {
      const bool after_cr = end >= 2 && text_[end - 2] == kCr;
      const bool after_two = after_cr && end >= 3 && text_[end - 3] == kCr;
      found.emplace_back(end, after_two ? 3U : after_cr ? 2U : 1U);
    } else {
      const bool before_lf = end < size() && text_[end] == kLf;
      const bool before_cr_lf = end + 1 < size() && text_[end] == kCr && text_[end + 1] == kLf;
      if (!before_lf && !before_cr_lf) found.emplace_back(end, 1U);
    }
  }
}

void PaneBlock::Replace(std::size_t begin, std::size_t end, std::string_view text,
                        PaneLookId look) {
  ReplaceRuns(begin, end, text.size(), look);
  ReplaceText(begin, end, text);
  ReplaceBreaks(begin, end, text.size());
}

// Comes ahead of the text. All from the neighbour before to the neighbour behind is made anew, as
// either may become one with the new run.
void PaneBlock::ReplaceRuns(std::size_t begin, std::size_t end, std::size_t length,
                            PaneLookId look) {
  const auto growth = Growth(begin, end, length);
  std::size_t first = begin == size() ? runs_.size() : RunAt(begin);
  const std::size_t behind = end == size() ? runs_.size() : RunAt(end);
  const std::size_t first_start = first == 0 ? 0 : runs_[first - 1].end;
  RunsAround fresh;
  if (first > 0) Push(fresh, runs_[first - 1].look, first_start);
  if (first_start < begin) Push(fresh, runs_[first].look, begin);
  if (length > 0) Push(fresh, look, begin + length);
  for (std::size_t i = behind; i < runs_.size(); ++i)
    runs_[i].end = Offset(static_cast<std::size_t>(runs_[i].end + growth));
  if (behind < runs_.size()) Push(fresh, runs_[behind].look, runs_[behind].end);
  if (first > 0) --first;
  const std::size_t last = std::min(behind + 1, runs_.size());
  if (growth != 0) work_->runs_moved += runs_.size() - last;
  SpliceRuns(first, last, fresh);
}

void PaneBlock::ReplaceText(std::size_t begin, std::size_t end, std::string_view text) {
  const auto at = text_.begin() + static_cast<Difference>(begin);
  const std::size_t common = std::min(end - begin, text.size());
  std::copy_n(text.begin(), common, at);
  if (common < end - begin) {
    text_.erase(at + static_cast<Difference>(common), text_.begin() + static_cast<Difference>(end));
  } else if (common < text.size()) {
    ReserveText(size() + text.size() - common);
    text_.insert(text_.begin() + static_cast<Difference>(begin + common),
                 text.begin() + static_cast<Difference>(common), text.end());
  }
}

// Comes behind the text. The breaks that end from one before the new text to two behind it may be
// others now.
void PaneBlock::ReplaceBreaks(std::size_t begin, std::size_t end, std::size_t length) {
  const auto growth = Growth(begin, end, length);
  const std::size_t first_end = begin == 0 ? 0 : begin - 1;
  const std::size_t last_end = std::min(begin + length + 2, size());
  const std::size_t first = first_end == 0 ? 0 : BreaksUpTo(first_end - 1);
  const std::size_t last = BreaksUpTo(end + 2);
  for (std::size_t i = last; i < breaks_.size(); ++i) {
    const auto shifted = static_cast<Difference>(breaks_[i].end()) + growth;
    breaks_[i] = PaneBreak(static_cast<std::size_t>(shifted), breaks_[i].length());
  }
  if (last == breaks_.size()) {
    breaks_.erase(breaks_.begin() + static_cast<Difference>(first), breaks_.end());
    FindBreaks(first_end, last_end, breaks_);
  } else {
    std::vector<PaneBreak> fresh;
    FindBreaks(first_end, last_end, fresh);
    Splice<PaneBreak>(breaks_, first, last, fresh);
  }
}

// Format within one run, which is the usual case.
bool PaneBlock::FormatInRun(std::size_t run, std::size_t begin, std::size_t end,
                            const PaneLookChange& change, PaneFormats& formats) {
  const PaneBlockRun old_run = runs_[run];
  const std::size_t start = run == 0 ? 0 : runs_[run - 1].end;
  const PaneLook& old_look = formats.Look(old_run.look);
  const PaneLook new_look = change.AppliedTo(old_look);
  if (new_look == old_look) return false;
  const PaneLookId look = formats.Intern(new_look);
  RunsAround fresh;
  if (run > 0) Push(fresh, runs_[run - 1].look, start);
  if (start < begin) Push(fresh, old_run.look, begin);
  Push(fresh, look, end);
  if (end < old_run.end) Push(fresh, old_run.look, old_run.end);
  if (run + 1 < runs_.size()) Push(fresh, runs_[run + 1].look, runs_[run + 1].end);
  SpliceRuns(run == 0 ? 0 : run - 1, std::min(run + 2, runs_.size()), fresh);
  return true;
}

bool PaneBlock::Format(std::size_t begin, std::size_t end, const PaneLookChange& change,
                       PaneFormats& formats) {
  std::size_t first = RunAt(begin);
  std::size_t last = first;  // the run that holds the last character
  const std::size_t first_start = first == 0 ? 0 : runs_[first - 1].end;
  if (runs_[first].end >= end) return FormatInRun(first, begin, end, change, formats);
  std::vector<PaneBlockRun> fresh;
  if (first > 0) Push(fresh, runs_[first - 1].look, first_start);
  if (first_start < begin) Push(fresh, runs_[first].look, begin);
  bool changed = false;
  for (;; ++last) {
    const PaneLookId old_look = runs_[last].look;
    const PaneLookId look = formats.Intern(change.AppliedTo(formats.Look(old_look)));
    changed = changed || look != old_look;
    Push(fresh, look, std::min<std::size_t>(runs_[last].end, end));
    if (runs_[last].end >= end) break;
  }
  if (!changed) return false;
  if (runs_[last].end > end) Push(fresh, runs_[last].look, runs_[last].end);
  if (last + 1 < runs_.size()) {
    ++last;
    Push(fresh, runs_[last].look, runs_[last].end);
  }
  if (first > 0) --first;
  SpliceRuns(first, last + 1, fresh);
  return true;
}

void PaneBlock::Append(const PaneBlock& other, std::size_t begin, std::size_t end) {
  if (begin == end) return;
  const std::size_t old_size = size();
  const std::string_view text = other.text().substr(begin, end - begin);
  text_.insert(text_.end(), text.begin(), text.end());
  const std::size_t first_run = other.RunAt(begin);
  std::size_t run = first_run;
  for (;; ++run) {
    const std::size_t run_end = std::min<std::size_t>(other.runs_[run].end, end);
    Push(runs_, other.runs_[run].look, old_size + run_end - begin);
    if (run_end == end) break;
  }
  const std::size_t first_end = old_size == 0 ? 0 : old_size - 1;
  while (!breaks_.empty() && breaks_.back().end() >= first_end)
    breaks_.pop_back();
  FindBreaks(first_end, size(), breaks_);
  work_->runs_moved += run + 1 - first_run;
}

void PaneBlock::Clear() {
  text_.clear();
  runs_.clear();
  breaks_.clear();
}

void PaneBlock::Seal() {
  sealed_ = true;
  Compact();
}

void PaneBlock::Compact() {
  if (!sealed_) return;
  GiveBackSlack(text_, kSpareText + size() / 8);
  GiveBackSlack(runs_, kSpareRuns + runs_.size() / 8);
  GiveBackSlack(breaks_, kSpareRuns + breaks_.size() / 8);
}

std::size_t PaneBlock::MemoryUsed() const {
  return sizeof(PaneBlock) + 16 + BytesOf(text_) + BytesOf(runs_) + BytesOf(breaks_);
}

}  // namespace parlorwire
