#include "bot/bot_menu.h"

namespace parlorwire {
namespace {

void ReportInChat(Client& client, bool in_chat) {
  client.tab(client.platform.desktop.ActiveTab()).SayReportInChat = in_chat;
}

}  // namespace

BotMenu StateOfBotMenu(const Client& client) {
  const Desktop& desktop = client.platform.desktop;
  BotMenu menu;
  menu.akick_enabled = client.app.AutoKick;
  menu.say_ip_and_flags = client.app.SayIPAndFlags;
  menu.say_in_enabled = menu.say_ip_and_flags;
  menu.say_in_chat = client.tab(desktop.ActiveTab()).SayReportInChat;
  menu.say_in_client = !menu.say_in_chat;
  for (int tab = 0; tab < kTabCount; ++tab)
    menu.channels[static_cast<std::size_t>(tab)] = {
        desktop.TabCaption(tab), desktop.TabVisible(tab), client.tab(tab).SayReportOnTab};
  return menu;
}

void akick_enabled(Client& client) {
  client.app.AutoKick = !client.app.AutoKick;
}

void say_ip_and_flags(Client& client) {
  client.app.SayIPAndFlags = !client.app.SayIPAndFlags;
}

void say_in_chat(Client& client) {
  ReportInChat(client, true);
}

void say_in_client(Client& client) {
  ReportInChat(client, false);
}

void channel_Click(Client& client, int tab) {
  client.tab(tab).SayReportOnTab = !client.tab(tab).SayReportOnTab;
}

}  // namespace parlorwire
