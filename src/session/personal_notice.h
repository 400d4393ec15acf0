// The sign that a personal message waits on the server.
#pragma once

#include <string_view>

#include "session/client.h"
#include "text/text.h"

namespace parlorwire {

// The underscore joins the words that a click is looked for on.
inline constexpr std::string_view kPersonalNoticeRussian = W<"Вам пришло персональное_сообщение!">;
inline constexpr std::string_view kPersonalNoticeEnglish = "You have a personal_message!";

// The flag of a balloon that carries text (NIF_INFO of the tray's notify record).
inline constexpr int kInfoBalloon = 16;

// Starts pers blinking, and says so in the pane unless it blinks already.
void NoticePersonalMessage(Client& client, int tab);

// Ends the blinking; pers is back in its normal colour.
void StopPersonalNotice(Client& client, int tab);

}  // namespace parlorwire
