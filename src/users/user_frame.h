// The second frame of a channel: the list of its users, fetched whole over Winsock3 whenever
// something asks for it.
#pragma once

#include <cstddef>

namespace parlorwire {

struct Client;

// Starts a fetch for the user, giving up one that runs. The pane gets a note, unless a connection
// is under way.
void UpdateUsersFrame(Client& client, int tab);

// The same of the client's own accord, because a session has begun or a line of the frame wants it:
// at once, or when the tab's `Fetches` allow it.
void FetchUsersInTime(Client& client, int tab);

// The ticks of `Fetches` and `FlagRepairs`.
void Fetches_Wait(Client& client, int tab);
void FlagRepairs_Wait(Client& client, int tab);

// The events of Winsock3. There is none for an error: a fetch that fails leaves its note standing.
void Winsock3_Connect(Client& client, int tab);
void Winsock3_DataArrival(Client& client, int tab, std::size_t bytes_total);

// The answer is complete: reads it, draws the list, and fills `UsersText` and the counter label. An
// answer that can't be read is written to error.log and leaves a note in the pane.
void Winsock3_Close(Client& client, int tab);

}  // namespace parlorwire
