// The items of `nick_menu` that put its nick, `MenuNick`, on the list of kicks.
#pragma once

namespace parlorwire {

struct Client;

// The item `all_channels`: the nick's entry gets "All" for its channels; without an entry it gets
// one. An open editor of the list takes that up, the user is told what was done, and the list is
// saved.
//
// An entry is found by the first line that begins with the nick and a TAB, whatever its case; its
// wildcards mean nothing here.
void AddToAutoKickAllChannels(Client& client);

// The item `this_channel`: the same with the channel of the active tab, which is put behind the
// channels that the entry has.
void AddToAutoKickThisChannel(Client& client);

}  // namespace parlorwire
