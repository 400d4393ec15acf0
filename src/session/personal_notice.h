// The sign that a personal message waits on the server.
#pragma once

#include "session/both_languages.h"

namespace parlorwire {

struct Client;

// The underscore joins the words that a click is looked for on.
inline constexpr BothLanguages kPersonalNotice{W<"Вам пришло персональное_сообщение!">,
                                               "You have a personal_message!"};

// Starts pers blinking, and says so in the pane unless it blinks already.
void NoticePersonalMessage(Client& client, int tab);

// Ends the blinking; pers is back in its normal colour.
void StopPersonalNotice(Client& client, int tab);

}  // namespace parlorwire
