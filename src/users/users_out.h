// The list of users, drawn in Rich_Users: a line for each, in the order of the frame.
#pragma once

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// A user as the user frame shows him.
struct UserRecord {
  Text nick;
  Text IP;
  Text flags;   // with their brackets, as in "[+o]"; may be empty
  Text status;  // his comment; may be empty

  bool operator==(const UserRecord&) const = default;
};

// The colour in which the addresses stand.
inline constexpr PaneColour kAddressColour = 0xFF;

// Appends the line of one user: nick, flags, IP and status, each with what it has, blanks between.
// Then a highlight of a nick that has just joined may start. A fault is logged and passed over.
void UsersOut(Client& client, const UserRecord& user, int tab);

// The same with no trap of its own: a fault reaches the caller.
void UsersOutExt(Client& client, const UserRecord& user, int tab);

}  // namespace parlorwire
