// What the client does by itself when the service tells of somebody who comes, goes, or changes
// rank.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// A system line, "nick rest", is about to be shown. Nothing happens until `ActionsArmed` is set, so
// the old lines at the start of a frame start nothing.
void ClientAction(Client& client, const Text& line, int tab);

// Takes a user who has left out of the shown list, and out of the counts above it. The first place
// in the list that reads like the nick is taken, even inside another word. `UsersText` keeps the
// record until the next list. See docs/names.md.
void RemoveUser(Client& client, std::string_view nick, int tab);

}  // namespace parlorwire
