#include "service/line.h"

#include <algorithm>

namespace parlorwire::service {

Text ToneOfAction(std::string_view action) {
  const auto tone = std::find_if(kTones.begin(), kTones.end(),
                                 [&](const Tone& each) { return each.action == action; });
  return tone == kTones.end() ? Text() : Text(tone->name);
}

}  // namespace parlorwire::service
