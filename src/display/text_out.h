// A chat line as coloured runs in a pane, with its marks, its log, its links and pictures, and what
// it calls up: kicks of spam, balloons, notices in another tab.
#pragma once

#include <string_view>

#include "display/line_kind.h"

namespace parlorwire {

struct Client;

// Writes a line behind all that the tab's Rich holds, and logs it. `time` has its brackets and may
// be empty; `nick` has its colon and is empty for a system line. A fault is logged and ends the
// line, which does not scroll then; the pane is painted all the same.
void TextOut(Client& client, std::string_view time, std::string_view nick, std::string_view text,
             LineKind kind, int tab);

}  // namespace parlorwire
