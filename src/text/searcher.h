// Finding a text in another, in either direction.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace parlorwire {

enum class LetterCase { kCounts, kIgnored };

// Compares from the end of the wanted text and steps on by what the last character allows; for one
// or two letters, where a step is worth less than what it costs, it looks for the last one. Works
// on text in either direction.
class Searcher {
 public:
  // `wanted`, in the direction in which it will be searched, is not empty.
  Searcher(std::string_view wanted, LetterCase letter_case);

  std::size_t Size() const { return wanted_.size(); }

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

}  // namespace parlorwire
