// Everything that one client owns. Every procedure takes it first; two clients can live in one
// process.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

#include "platform/platform.h"
#include "session/app_state.h"
#include "session/hooks.h"
#include "session/tab_session.h"

namespace parlorwire {

struct Client {
  // Creates the sockets and timers of all tabs; nothing is connected to anything yet.
  explicit Client(const Platform& ports);

  // A slot 0..9. Any other index is a programming error.
  TabSession& tab(int index) { return tabs[SlotIndex(index)]; }
  const TabSession& tab(int index) const { return tabs[SlotIndex(index)]; }

  AppState app;
  std::array<TabSession, kTabCount> tabs;
  Platform platform;
  Hooks hooks;

 private:
  static std::size_t SlotIndex(int index) {
    assert(index >= 0 && index < kTabCount);
    return static_cast<std::size_t>(index);
  }
};

}  // namespace parlorwire
