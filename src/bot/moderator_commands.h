// What an operator does to a nick: the items of `nick_menu`, and the keys in `msg`. Each is a line
// for SayBot; the service decides whether he may.
#pragma once

namespace parlorwire {

struct Client;

// ---- the items of `nick_menu`, for `MenuNick` on the active tab ----

// These ask for a reason first, `lower` and `mute` for a duration too. Nothing is said if the
// prompt is cancelled, or if the tab has been connected anew, closed or disconnected meanwhile.
void kick(Client& client);
void ban(Client& client);
void lower(Client& client);
void mute(Client& client);

// These ask for nothing.
void unlower(Client& client);
void unmute(Client& client);

// ---- the keys in `msg` ----

// Ctrl with the letter K, B, M or L, or with the letter that stands on the same key of the Russian
// layout.
enum class MsgCommand { kKick, kBan, kMute, kLower };

// The key was pressed in `msg` of a tab. False if the user is no operator there: the key is not one
// of these then. True: the box must not see it. What the box holds, "nick: rest", is said as the
// command, and the box is emptied; a blank box says nothing.
bool SayMsgCommand(Client& client, MsgCommand command, int tab);

}  // namespace parlorwire
