// What the unload step of `client_main` decides. The process ends behind it, without a logoff.
#pragma once

#include <optional>

#include "shell/start_up.h"

namespace parlorwire {

struct Client;

// Closes the frame sockets, saves the settings, takes the tray icon away, closes the personal
// windows, and stops all timers.
// `place` is the window's place, or nothing when it is minimized: then the saved place stays. Every
// failure is skipped. Waiting events run at each write.
void UnloadStep(Client& client, const std::optional<WindowPlace>& place);

// Switches off the timers of all slots. The timers of the window itself are its own to stop.
void StopAllTimers(Client& client);

}  // namespace parlorwire
