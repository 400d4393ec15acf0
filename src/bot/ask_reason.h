// The prompt for a reason, and for some commands for a duration: what the dialog `text_input`
// decides.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// What is asked; the second for what the service's list of bans will show.
inline constexpr std::string_view kReason = W<"Укажите причину:">;
inline constexpr std::string_view kReasonForTheList =
    W<"Укажите причину (будет отображено в бан-листе):">;

inline constexpr std::string_view kForGood = W<"Надолго">;

// The list of durations, in seconds, in its order. The first entry is preselected. `text_input`
// shows it, with its label, while `PromptWantsDuration` is set.
inline constexpr std::array<std::string_view, 6> kDurations = {"240", "120", "60",
                                                               "10",  "1",   kForGood};
inline constexpr std::string_view kDurationLabel = W<"Введите время в секундах:">;

// Shows `text_input`, which is modal, and comes back when it is closed. The event loop runs
// meanwhile: the caller has to see whether its session still stands. The result is the reason;
// unless ConfirmTextInput was called it is "", and `PromptCancelled` is set.
Text AskReason(Client& client, const Text& prompt, const Text& title);

// The button `button_ok` of `text_input`, with what stands in its box and the entry of kDurations
// that is selected, 0-based; the window closes. Any other way to close it calls nothing.
void ConfirmTextInput(Client& client, const Text& reason, std::size_t duration);

}  // namespace parlorwire
