#include "personal/open_pers_list.h"

#include <cstddef>

#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {

bool IsListed(std::string_view list, std::string_view login) {
  return ContainsNoCase(list, login);
}

std::int32_t ListedHandle(std::string_view list, std::string_view login) {
  const auto place = static_cast<std::size_t>(InStrNoCase(list, login) - 1);
  const std::size_t start = list.rfind(' ', place) + 1;  // npos + 1 is 0
  std::size_t underscore = list.find('_', start);
  if (underscore >= place) underscore = list.find('_', place + login.size());
  if (underscore == list.npos) return ToLong("");
  const std::string_view behind = list.substr(underscore + 1);
  return ToLong(behind.substr(0, behind.find(' ')));
}

Text WithEntry(std::string_view list, std::string_view entry) {
  return Trim(Text(list) + " " + Text(entry));
}

Text WithoutEntry(std::string_view list, std::string_view entry) {
  return Trim(ReplaceNoCase(" " + Text(list) + " ", " " + Text(entry) + " ", ""));
}

}  // namespace parlorwire
