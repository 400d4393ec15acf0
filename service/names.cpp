#include "service/names.h"

#include <algorithm>
#include <cstddef>

#include "service/ascii.h"
#include "service/limits.h"
#include "service/skeleton.h"
#include "text/cut.h"
#include "text/wildcard.h"

namespace parlorwire::service {
namespace {

// The soft hyphen and the code page's gap show nothing.
bool IsSeen(char c) {
  return IsPrintable(c) && c != '\xAD' && c != '\x98';
}

}  // namespace

Text NickKey(std::string_view nick) {
  return LCase(nick);
}

bool IsPrintable(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte != 0x7F && byte != 0xA0;
}

bool NickIsAllowed(std::string_view nick) {
  constexpr std::string_view kSpecial = " :|()[]'\"%+*?,/=#;\\";
  return !nick.empty() && nick.size() <= kLongestNick &&
         std::all_of(nick.begin(), nick.end(), IsSeen) && IsOfOneAlphabet(nick) &&
         nick.find_first_of(kSpecial) == std::string_view::npos;
}

bool ChannelIsAllowed(std::string_view name) {
  return !TrimView(name).empty() && name.size() <= kLongestChannel &&
         std::all_of(name.begin(), name.end(), IsSeen) && name.find(':') == std::string_view::npos;
}

bool IsAddress(std::string_view text) {
  const auto groups = Split(text, ".");
  return groups.size() == 4 && std::all_of(groups.begin(), groups.end(), [](auto group) {
           const auto number = ReadNumber(group, 3);
           return number && *number <= 255;
         });
}

bool MaskMatches(std::string_view mask, std::string_view text) {
  return !text.empty() && MatchesMaskNoCase(text, mask);
}

}  // namespace parlorwire::service
