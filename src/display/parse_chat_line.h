// A line of the frame: cut into time, nick and text, told of, and shown.
#pragma once

#include <string_view>

#include "display/line_kind.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

struct ChatLine {
  std::string_view time;  // with its brackets; may be empty
  std::string_view nick;  // with its colon; empty in a system line
  Text text;
  LineKind kind = LineKind::kMessage;
};

// Cuts a line; its first two characters are never looked at. The views are views of `line`. A "["
// at the third place that no "]" closes: Fault 5.
ChatLine CutChatLine(std::string_view line);

// Cuts a line, tells ClientAction of it if it is a system line, and shows it, unless the tab's
// session has ended meanwhile. `line` holds no LF; its entities are decoded. Faults as CutChatLine
// does.
void ParseChatLine(Client& client, std::string_view line, int tab);

}  // namespace parlorwire
