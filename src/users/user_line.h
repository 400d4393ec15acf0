// A line of the user frame, in either of the two forms that the service has.
#pragma once

#include <string_view>

#include "text/text.h"
#include "users/users_out.h"

namespace parlorwire {

enum class UserFrameForm {
  kA,  // Nick|[+o][10.0.0.7:]'at work'
  kB,  // 10.0.0.7:[+o]Nick rest; a frame that begins with "<tr>"
};

// Cuts a line whose entities are decoded. A line of form A without its "|" or one of its two "]",
// and one of form B without its "]": Fault 5.
UserRecord CutUserLine(std::string_view line, UserFrameForm form);

}  // namespace parlorwire
