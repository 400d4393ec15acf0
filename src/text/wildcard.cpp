#include "text/wildcard.h"

#include <cstddef>

#include "text/letter_case.h"

namespace parlorwire {
namespace {

bool FitsOne(char character, char wanted) {
  if (wanted == '?') return true;
  if (wanted == '#') return character >= '0' && character <= '9';
  return LowerCase(character) == LowerCase(wanted);
}

}  // namespace

bool MatchesMaskNoCase(std::string_view text, std::string_view mask) {
  std::size_t at = 0;
  std::size_t in_mask = 0;
  // Behind the last "*" of the mask, and where its run ends by now.
  std::size_t behind_star = std::string_view::npos;
  std::size_t run_end = 0;
  while (at < text.size()) {
    if (in_mask < mask.size() && mask[in_mask] == '*') {
      behind_star = ++in_mask;
      run_end = at;
    } else if (in_mask < mask.size() && FitsOne(text[at], mask[in_mask])) {
      ++at;
      ++in_mask;
    } else if (behind_star != std::string_view::npos) {
      at = ++run_end;  // the run takes one character more
      in_mask = behind_star;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of('*', in_mask) == std::string_view::npos;
}

}  // namespace parlorwire
