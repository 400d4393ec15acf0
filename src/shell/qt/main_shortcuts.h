// The hot keys of the main window.
#pragma once

#include <functional>

namespace parlorwire {

struct Client;
class client_main;

// Ctrl+C: the pane that was clicked last.
void CopyPane(const client_main& window, const Client& client);

// Makes the shortcuts, which work wherever in the window the focus is, also with a Russian keyboard
// layout, and once for each press. A tab that a hot key has shown gets the focus by `focus_tab`.
void MakeMainShortcuts(client_main& window, Client& client, const std::function<void()>& focus_tab);

}  // namespace parlorwire
