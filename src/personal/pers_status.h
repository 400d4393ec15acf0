// What a personal window says about itself.
#pragma once

#include <string_view>

#include "session/status.h"
#include "text/text.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// Writes to Rich of the window, and nowhere else, and scrolls to the end.
void PersStatusOut(Client& client, PersonalWindow& window, const Text& text, StatusMode kind);

}  // namespace parlorwire
