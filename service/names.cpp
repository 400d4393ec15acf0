#include "service/names.h"

#include <algorithm>
#include <cstddef>

#include "service/ascii.h"
#include "text/cut.h"
#include "text/wildcard.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kLongestNick = 30;
constexpr std::size_t kLongestChannel = 60;

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
         std::all_of(nick.begin(), nick.end(), IsPrintable) &&
         nick.find_first_of(kSpecial) == std::string_view::npos;
}

bool ChannelIsAllowed(std::string_view name) {
  return !TrimView(name).empty() && name.size() <= kLongestChannel &&
         std::all_of(name.begin(), name.end(), IsPrintable) &&
         name.find(':') == std::string_view::npos;
}

bool IsAddress(std::string_view text) {
  const auto groups = Split(text, ".");
  return groups.size() == 4 && std::all_of(groups.begin(), groups.end(), [](auto group) {
           return ReadNumber(group, 3).has_value();
         });
}

bool MaskMatches(std::string_view mask, std::string_view text) {
  return !text.empty() && MatchesMaskNoCase(text, mask);
}

}  // namespace parlorwire::service
