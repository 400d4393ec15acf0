#include "pane/search.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "pane/rich_text_box.h"
#include "text/letter_case.h"

namespace parlorwire {
namespace {

constexpr PanePosition kChunk = 32'768;  // characters in which occurrences begin, read at a time

// Compares from the end of the wanted text and steps on by what the last character allows; for one
// or two letters, where a step is worth less than what it costs, it looks for the last one. Works
// on text in either direction.
class Searcher {
 public:
  Searcher(std::string wanted, LetterCase letter_case) : wanted_(std::move(wanted)) {
    for (std::size_t byte = 0; byte < same_.size(); ++byte) {
      const auto c = static_cast<char>(byte);
      same_[byte] = letter_case == LetterCase::kIgnored ? LowerCase(c) : c;
    }
    for (char& c : wanted_)
      c = Same(c);
    steps_.fill(wanted_.size());
    for (std::size_t i = 0; i + 1 < wanted_.size(); ++i)
      steps_[static_cast<std::uint8_t>(wanted_[i])] = wanted_.size() - 1 - i;
    for (std::size_t byte = 0; byte < same_.size(); ++byte)
      steps_[byte] = steps_[static_cast<std::uint8_t>(same_[byte])];
    for (std::size_t byte = 0; byte < same_.size(); ++byte)
      is_last_[byte] = same_[byte] == wanted_.back();
  }

  // Where the first occurrence begins in [begin, end); `end` if there is none.
  template <class Iterator>
  Iterator Find(const Iterator& begin, const Iterator& end) const {
    if (wanted_.size() <= kFew) return FindFew(begin, end);
    const auto size = static_cast<std::ptrdiff_t>(wanted_.size());
    const char last = wanted_.back();
    for (Iterator at = begin; end - at >= size;) {
      const char behind = at[size - 1];
      if (Same(behind) == last &&
          std::equal(wanted_.begin(), wanted_.end() - 1, at,
                     [&](char wanted, char c) { return wanted == Same(c); }))
        return at;
      at += static_cast<std::ptrdiff_t>(steps_[static_cast<std::uint8_t>(behind)]);
    }
    return end;
  }

 private:
  static constexpr std::size_t kFew = 2;

  template <class Iterator>
  Iterator FindFew(const Iterator& begin, const Iterator& end) const {
    const auto ahead = static_cast<std::ptrdiff_t>(wanted_.size()) - 1;
    if (end - begin <= ahead) return end;
    for (Iterator at = begin + ahead; at != end; ++at) {
      if (!is_last_[static_cast<std::uint8_t>(*at)]) continue;
      if (ahead == 0 || Same(at[-1]) == wanted_.front()) return at - ahead;
    }
    return end;
  }

  char Same(char c) const { return same_[static_cast<std::uint8_t>(c)]; }

  std::string wanted_;
  std::array<char, 256> same_;  // one character for all that count as the same
  std::array<std::size_t, 256> steps_;
  std::array<bool, 256> is_last_;
};

}  // namespace

std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PaneRange beginnings, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher(std::string(wanted), letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  const PanePosition end = std::min(beginnings.end, pane.Length() - more);
  for (PanePosition at = std::max(beginnings.start, PanePosition{0}); at < end; at += kChunk) {
    const std::string text = pane.TextBetween(at, std::min(at + kChunk, end) + more);
    const auto found = searcher.Find(text.begin(), text.end());
    if (found != text.end()) return at + (found - text.begin());
  }
  return std::nullopt;
}

std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PaneRange beginnings, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher({wanted.rbegin(), wanted.rend()}, letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  const PanePosition first = std::max(beginnings.start, PanePosition{0});
  for (PanePosition end = std::min(beginnings.end, pane.Length() - more); end > first;
       end -= kChunk) {
    const PanePosition start = std::max(end - kChunk, first);
    const std::string text = pane.TextBetween(start, end + more);
    const auto found = searcher.Find(text.rbegin(), text.rend());
    if (found != text.rend()) return start + (text.rend() - found) - more - 1;
  }
  return std::nullopt;
}

std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PanePosition from, LetterCase letter_case) {
  return FindForwards(pane, wanted, PaneRange{from, pane.Length()}, letter_case);
}

std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PanePosition from, LetterCase letter_case) {
  return FindBackwards(pane, wanted, PaneRange{0, from + 1}, letter_case);
}

}  // namespace parlorwire
