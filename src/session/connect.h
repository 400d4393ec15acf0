// The start of a session, and the conversation that takes a tab from nothing to a read frame.
#pragma once

#include <cstddef>

#include "text/text.h"

namespace parlorwire {

struct Client;

// The one reset and start of a tab, for the user. Logs in with the tab's identity, password and
// all.
void ConnectToChat(Client& client, int tab);

// The same of the client's own accord: at once, or when the tab's `Reconnects` allow it.
void ReconnectToChat(Client& client, int tab);

// The events of Winsock1. It carries two connections in turn: the login and its answer, then the
// frame that never ends. What a close means is read off the tab's flags.
void Winsock1_Connect(Client& client, int tab);
void Winsock1_DataArrival(Client& client, int tab, std::size_t bytes_total);
void Winsock1_Close(Client& client, int tab);
void Winsock1_Error(Client& client, int tab, int number, const Text& description);

// The tick of Timer1, and that of `Reconnects`: try again.
void Timer1_Timer(Client& client, int tab);
void Reconnects_Wait(Client& client, int tab);

}  // namespace parlorwire
