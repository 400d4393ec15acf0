#include "service/skeleton.h"

#include <algorithm>
#include <array>

#include "service/ascii.h"
#include "text/cut.h"
#include "text/windows1251.h"

namespace parlorwire::service {
namespace {

// Each character of the first is taken for that of the second in the same place.
constexpr std::string_view kLikeness = W<"авекмнорстухіїјѕзб10i–—“”„‘’·•">;
constexpr std::string_view kTakenFor = "abekmhopctyxlljs36lol--\"\"\"``..";
static_assert(kLikeness.size() == kTakenFor.size());

bool IsCyrillic(char c) {
  const char16_t character = ToUnicode(c);
  return character >= 0x0400 && character <= 0x04FF;
}

}  // namespace

Text Skeleton(std::string_view nick) {
  Text skeleton = LCase(nick);
  for (char& c : skeleton)
    if (const auto at = kLikeness.find(c); at != kLikeness.npos) c = kTakenFor[at];
  return skeleton;
}

bool IsOfOneAlphabet(std::string_view nick) {
  const bool latin = std::any_of(nick.begin(), nick.end(),
                                 [](char c) { return IsAlphanumeric(c) && !IsDigit(c); });
  return !latin || std::none_of(nick.begin(), nick.end(), IsCyrillic);
}

}  // namespace parlorwire::service
