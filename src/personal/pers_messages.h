// The frame of personal messages: from its bytes to coloured lines.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// A line of the frame. Its fields stand one blank apart: a mark, the time, a link, a nick, the
// text. What is missing is empty.
struct PersLine {
  bool received = false;  // by its mark, "&gt;"
  std::string_view time;  // one word, or two if the first does not end in "]"
  std::string_view link;  // empty if nothing stands behind it, either
  std::string_view nick;  // the sender of a received message; else the first word of what was said
  std::string_view text;  // HTML
};

// The views are views of `line`.
PersLine CutPersLine(std::string_view line);

// Shows the whole lines of a chunk, each with its link put into PersQueue, and keeps the rest for
// the next one. `data` is a chunk in the memory's character set. A header of a success, and a page
// head behind it in the same chunk, are dropped. A fault ends the chunk, with an entry in
// error.log.
void Personal_messages(Client& client, PersonalWindow& window, Text data);

}  // namespace parlorwire
