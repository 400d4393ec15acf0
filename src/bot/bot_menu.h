// The items of `menu_bot` that switch what the bot does.
#pragma once

#include <array>

#include "session/client.h"
#include "text/text.h"

namespace parlorwire {

// The item `channel_1` .. `channel_10` of a tab.
struct ChannelItem {
  Text caption;  // that of the tab
  bool visible = false;
  bool checked = false;  // reports are made for the tab
};

// What the menu shows; to be asked for whenever it opens.
struct BotMenu {
  bool akick_enabled = false;
  bool say_ip_and_flags = false;
  // The two exclusive items, by the active tab; they are enabled with say_ip_and_flags.
  bool say_in_enabled = false;
  bool say_in_chat = false;
  bool say_in_client = false;
  std::array<ChannelItem, kTabCount> channels;  // channel_1 first
};

BotMenu StateOfBotMenu(const Client& client);

// The items. The first two change sides; say_in_chat and say_in_client set where the reports of the
// active tab go; channel_Click changes sides for a tab.
void akick_enabled(Client& client);
void say_ip_and_flags(Client& client);
void say_in_chat(Client& client);
void say_in_client(Client& client);
void channel_Click(Client& client, int tab);

}  // namespace parlorwire
