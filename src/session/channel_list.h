// The page of channels, which the service gives to a tab without a channel.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// Renders ChannelListPage into Rich of the tab. A page that is cut short inside a value ends with
// Fault 5 at that place, one that would fill the memory with Fault 7; what was rendered stays.
// Waiting events run behind each record. If one of them begins another session (SessionNumber), the
// rest is left.
void ShowChannelList(Client& client, int tab);

// The user has clicked on a channel of the list: the tab's saved login remembers it, and the tab
// logs in to it.
void EnterListedChannel(Client& client, int tab, const Text& channel);

}  // namespace parlorwire
