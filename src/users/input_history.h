// The message box `msg`: the memory of the last three lines sent, and deleting a word.
#pragma once

#include <cstddef>
#include <optional>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct TabSession;

enum class HistoryDirection { kUp, kDown };

// `text` becomes the newest line.
void RememberInput(TabSession& session, const Text& text);

// Walks one step through the lines and gives the one that is reached, which may be "". The walk
// stops at both ends. A `HistoryPos` behind the lines: Fault 9.
Text InputHistoryStep(TabSession& session, HistoryDirection direction);

// Up or Down in `msg`: a step through the lines. The line that is reached becomes the text of the
// box, with the caret at its end; a blank one leaves the box as it is.
void BrowseInputHistory(Client& client, HistoryDirection direction, int tab);

// The text of a box and its caret, a 0-based position between characters.
struct BoxText {
  Text text;
  std::size_t caret = 0;

  bool operator==(const BoxText&) const = default;
};

// The box without what stands between the last blank ahead of the caret and the caret; the blank
// stays. With no blank ahead, all that is ahead of the caret goes.
BoxText DeleteWordAhead(const BoxText& box);

}  // namespace parlorwire
