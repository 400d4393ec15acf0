// Leaving on purpose: logoff ends the nick's presence on the service, leave only goes from the
// channel to the list of channels.
#pragma once

#include <cstddef>

namespace parlorwire {

struct Client;

// The actions `logoff` and `logout` on a tab.
void LogoffChat(Client& client, int tab);
void LeaveChannel(Client& client, int tab);

// The events of Winsock5. A failure has no handler: logoff or leave is then not confirmed.
void Winsock5_Connect(Client& client, int tab);
void Winsock5_DataArrival(Client& client, int tab, std::size_t bytes_total);
void Winsock5_Close(Client& client, int tab);

}  // namespace parlorwire
