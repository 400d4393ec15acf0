// What an operator's client does about those who have joined, once the list of users tells their
// addresses and flags: kicks, logs, reports.
#pragma once

namespace parlorwire {

struct Client;

// The list of users is new. Nothing happens unless the user is an operator of the tab. Each nick of
// `JoinLines` is taken out of it and, with what the list has of it, kicked by its address or else
// logged in IPlog.log and reported: to the operators of the channel, or into the tab's pane. The
// first nick whose address the list doesn't tell ends all of it.
//
// The nick is sought in the list as a plain text, so a longer one ahead of it that holds it is
// taken for it. See docs/names.md. Waiting events run ahead of each nick; it ends when the tab's
// session is over then, or when a newer list was treated meanwhile. A fault in a look-up for a kick
// is logged; any other reaches the caller.
void SayBotFunction(Client& client, int tab);

}  // namespace parlorwire
