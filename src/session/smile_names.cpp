#include "session/smile_names.h"

#include <algorithm>

#include "text/cut.h"

namespace parlorwire {

void SmileNames::Take(std::string_view table) {
  if (table == table_) return;
  table_ = table;
  names_.clear();
  longest_ = 0;
  int number = 0;
  for (const std::string_view line : Split(table, "\r\n")) {
    for (const std::string_view name : Split(line, " ")) {
      if (name.empty()) continue;
      names_.try_emplace(Text(name), SmileName{number, nullptr});
      longest_ = std::max(longest_, name.size());
    }
    ++number;
  }
}

const SmileName* SmileNames::Find(std::string_view word) const {
  if (word.size() > longest_) return nullptr;
  const auto found = names_.find(word);
  return found == names_.end() ? nullptr : &found->second;
}

}  // namespace parlorwire
