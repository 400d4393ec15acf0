// What is said in a personal window: one message, one post, one connection of W2. The message comes
// back on the frame.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// The left button let go over `button_say`, or Enter in `msg`: posts what `msg` holds, even if that
// is nothing, to the nick in `send_nick`, and empties the box. Without a nick the user is told, and
// nothing else happens. A post that is still on its way is dropped.
void pers_frm_button_say_MouseUp(Client& client, PersonalWindow& window);

void pers_frm_button_clear_MouseUp(PersonalWindow& window);

// The events of W2. There is none for an error: a post that fails leaves no trace.
void W2_Connect(Client& client, PersonalWindow& window);
void W2_DataArrival(Client& client, PersonalWindow& window, std::size_t bytes_total);
void W2_Close(Client& client, PersonalWindow& window);

// Without `browse`, `text` becomes the newest entry of the history. With it, the entry that a step
// reaches, "up" or "down"; it may be "". One "down" behind another stays where it is.
Text PersHistoryStep(PersonalWindow& window, const Text& text, std::string_view direction,
                     bool browse);

// Up or Down in `msg`. A blank entry leaves the box as it is.
void BrowsePersHistory(PersonalWindow& window, std::string_view direction);

}  // namespace parlorwire
