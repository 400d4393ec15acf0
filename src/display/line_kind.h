// The four forms of a chat line.
#pragma once

namespace parlorwire {

enum class LineKind {
  kAction = 1,   // the nick acts: " *** text"
  kEcho = 2,     // "### nick: text"
  kSystem = 3,   // the service speaks: " text"
  kMessage = 4,  // "nick: text"
};

}  // namespace parlorwire
