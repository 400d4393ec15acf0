// The menu of a nick, `nick_menu`, and that of a selection in the user list, `menu_copy_users`:
// what they show, and those of their items that copy text.
#pragma once

#include <array>
#include <string_view>

#include "pane/rich_text_box.h"
#include "session/app_state.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

struct NickMenuItem {
  std::string_view name;
  std::string_view parent;   // the item in whose sub-menu it stands; "" at the top
  std::string_view caption;  // the same in both languages; "" if the nick decides
  std::string_view english;  // what a Russian caption means

  bool IsLine() const { return name.starts_with("line"); }
  bool operator==(const NickMenuItem&) const = default;
};

// In the order of the menu; a sub-menu stands ahead of its items.
inline constexpr std::array<NickMenuItem, 24> kNickMenuTree = {{
    {"nickname", "", "", ""},
    {"line4", "", "", ""},
    {"user_info", "", W<"Инфо пользователя">, "About the user"},
    {"user_ip", "user_info", "", ""},
    {"user_flags", "user_info", "", ""},
    {"user_inf", "user_info", "", ""},
    {"line7", "", "", ""},
    {"oper_commands", "", W<"Комады оператора">, "Operator's commands"},
    {"lower", "oper_commands", "Lower", ""},
    {"unlower", "oper_commands", "UnLower", ""},
    {"line8", "oper_commands", "", ""},
    {"kick", "oper_commands", "Kick", ""},
    {"ban", "oper_commands", "Ban", ""},
    {"line9", "oper_commands", "", ""},
    {"mute", "oper_commands", "Mute", ""},
    {"unmute", "oper_commands", "UnMute", ""},
    {"line5", "", "", ""},
    {"add_autokick", "", W<"Добавить в автокик-лист">, "Add to the auto-kick list"},
    {"this_channel", "add_autokick", W<"Только на этом канале">, "Only on this channel"},
    {"all_channels", "add_autokick", W<"На всех каналах">, "On all channels"},
    {"line11", "", "", ""},
    {"send_pers", "", W<"Отправить перс">, "Send a personal message"},
    {"line6", "", "", ""},
    {"change_message_color", "", W<"Сменить цвет сообщений">, "Change the colour of messages"},
}};

// What the menu shows for an item, and whether it shows it.
Text CaptionOf(const NickMenu& menu, const NickMenuItem& item);
bool IsShown(const NickMenu& menu, const NickMenuItem& item);

// Fills AppState::nick_menu with what the last user frame of the tab says of exactly this nick, and
// with what the user may do on the tab, and lets the menu come up.
void ShowNickMenu(Client& client, int tab, const Text& nick);

// Puts a text and a blank ahead of what stands in `msg` of a tab, which gets the focus.
void PutIntoMsg(Client& client, int tab, const Text& text);

// The items `nickname`, `user_ip`, `user_flags` and `user_inf`: the caption goes into `msg` of the
// active tab.
void CopyIntoMsg(Client& client, const Text& caption);

// The item send_pers: Timer21 opens the personal window of the active tab, for the menu's nick.
void send_pers(Client& client);
void Timer21_Timer(Client& client);

// If the position lies in what is selected in the user list, menu_copy_users comes up for that. Its
// item text_copy_users puts it on the clipboard.
void ShowMenuCopyUsers(Client& client, int tab, PanePosition at);
void text_copy_users(Client& client);

}  // namespace parlorwire
