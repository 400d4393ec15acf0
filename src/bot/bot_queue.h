// What the program itself says to a channel: commands that wait in a tab's BotQueue and go out one
// by one over Winsock4, each when the service has closed the connection of the one ahead.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// Queues a command, and connects unless a command is under way. Faults are logged and passed over.
// - "/set s 9", "/mo -R" and "/mo -t", by which the client repairs style and flags, are not queued
//   while they wait already, and connect when the tab's `BotRepairs` allow it.
// - Of more than 1000 that wait the latest are dropped; error.log is told once.
void SayBot(Client& client, const Text& text, int tab);

// The tick of `BotRepairs`.
void BotRepairs_Wait(Client& client, int tab);

// The events of Winsock4. The answer to a command is never read.
void Winsock4_Connect(Client& client, int tab);

// The command at the head is done. Behind "/set s 9" the session is started anew.
void Winsock4_Close(Client& client, int tab);

// A time-out (10060) tries the command again; any other failure drops all that wait.
void Winsock4_Error(Client& client, int tab, int number);

}  // namespace parlorwire
