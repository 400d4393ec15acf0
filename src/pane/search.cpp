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

// Compares from the end of the wanted text and steps on by what the last character allows. Works on
// text in either direction.
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
  }

  // Where the first occurrence begins in [begin, end); `end` if there is none.
  template <class Iterator>
  Iterator Find(const Iterator& begin, const Iterator& end) const {
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
  char Same(char c) const { return same_[static_cast<std::uint8_t>(c)]; }

  std::string wanted_;
  std::array<char, 256> same_;  // one character for all that count as the same
  std::array<std::size_t, 256> steps_;
};

}  // namespace

std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PanePosition from, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher(std::string(wanted), letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  const PanePosition length = pane.Length();
  for (PanePosition at = std::max(from, PanePosition{0}); at + more < length; at += kChunk) {
    const std::string text = pane.TextBetween(at, at + kChunk + more);
    const auto found = searcher.Find(text.begin(), text.end());
    if (found != text.end()) return at + (found - text.begin());
  }
  return std::nullopt;
}

std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PanePosition from, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher({wanted.rbegin(), wanted.rend()}, letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  // Where an occurrence may end.
  for (PanePosition end = std::min(from, pane.Length()) + more + 1; end > more; end -= kChunk) {
    const PanePosition start = std::max(end - kChunk - more, PanePosition{0});
    const std::string text = pane.TextBetween(start, end);
    const auto found = searcher.Find(text.rbegin(), text.rend());
    if (found != text.rend()) return start + (text.rend() - found) - more - 1;
  }
  return std::nullopt;
}

}  // namespace parlorwire
