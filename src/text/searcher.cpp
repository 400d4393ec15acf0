#include "text/searcher.h"

#include "text/letter_case.h"

namespace parlorwire {

Searcher::Searcher(std::string_view wanted, LetterCase letter_case) : wanted_(wanted) {
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

}  // namespace parlorwire
