// The table of nicks: how one is found, comes in, and is forgotten for others.
#pragma once

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// What the limits count by: the address behind a trusted proxy, else that of the connection.
const Text& PlaceOf(const Origin& origin);

// What is known of an address. Of those of which nothing is worth knowing any more some are
// forgotten now and then.
Place& PlaceAt(Chat& chat, const Text& address, const Moment& now);

// The account of a nick, or of one that looks like it; none if there is none.
Account* FindNick(Chat& chat, const Text& nick);

// A new account, made from a place; "" is the service itself.
Account& AddAccount(Chat& chat, const Text& nick, const Text& place);

// Whether there is room for a new account from a place. A place that has made as many as it may
// loses one of its own, a full table the one that has been idle longest; nobody who is there, who
// has a frame open, or who has just been. First go those that never came back with their password.
bool MakeRoom(Chat& chat, const Text& place, const Moment& now);

// Void tickets open nothing, and nothing is left of them.
void VoidTickets(Chat& chat, Account& account);

// Whether one more frame may be opened: of the account, of its address, of the service. Only the
// last lets in who has one on that channel already, since that one goes.
bool HasRoomForFrame(const Chat& chat, const Account& account, const Text& channel,
                     const Origin& origin);

}  // namespace parlorwire::service
