// The line of a message pane under the mouse, and what stands where in it.
#pragma once

#include <optional>

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

class RichTextBox;

// A line as it was written: from one CR LF to the next, so it may hold line feeds.
struct PointedLine {
  PanePosition start = 0;
  Text text;
  PanePosition at = 0;  // of the pointer, in the text; below its size
};

// The line around a position; nothing if that is the end of the line. Costs by the line's length.
std::optional<PointedLine> LineUnder(const RichTextBox& pane, PanePosition at);

// What follows is in positions of the text.

// The word under the pointer, bounded by blanks and the line's ends; empty on a blank.
PaneRange WordUnder(const PointedLine& line);

// The nick of the line with its colon: the token between the first and the second blank if it ends
// in a colon, or the one behind it if it is "###". A time that holds a blank itself is skipped.
// Empty if the line shows none, as one that begins with a blank.
PaneRange NickOf(const PointedLine& line);

// The first brackets of the line, if they begin it or only marks stand ahead of them. Empty if not.
PaneRange TimeOf(const PointedLine& line);

// Whether the line is the word of a notice that leads to its line.
bool IsJump(const PointedLine& line);

// Whether the line tells of a personal message.
bool IsPersonalNotice(const PointedLine& line);

}  // namespace parlorwire
