#include "users/nick_menu.h"

#include <vector>

#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// The part of the menu that tells what the list of users says of the nick.
void FillUserInfo(NickMenu& menu, std::string_view users, std::string_view nick) {
  for (const std::string_view record : Split(users, "\r\n")) {
    if (record.empty()) continue;
    std::vector<std::string_view> fields = Split(record, "\n");
    if (fields.empty() || fields[0] != nick) continue;
    fields.resize(4);
    menu.user_ip = fields[1];
    menu.user_flags = fields[2];
    menu.user_inf = fields[3];
    break;
  }
  menu.user_info = !menu.user_ip.empty() || !menu.user_flags.empty() || !menu.user_inf.empty();
}

}  // namespace

Text CaptionOf(const NickMenu& menu, const NickMenuItem& item) {
  if (item.name == "nickname") return menu.nickname;
  if (item.name == "user_ip") return menu.user_ip;
  if (item.name == "user_flags") return menu.user_flags;
  if (item.name == "user_inf") return menu.user_inf;
  return Text(item.caption);
}

bool IsShown(const NickMenu& menu, const NickMenuItem& item) {
  if (item.name == "user_info" || item.name == "line4") return menu.user_info;
  if (item.name == "oper_commands" || item.name == "line7") return menu.oper_commands;
  return item.IsLine() || !CaptionOf(menu, item).empty();
}

void ShowNickMenu(Client& client, int tab, const Text& nick) {
  NickMenu& menu = client.app.nick_menu;
  menu = {};
  menu.tab = tab;
  menu.nickname = nick;
  FillUserInfo(menu, client.tab(tab).UsersText.text(), nick);
  menu.oper_commands = client.tab(tab).IsOperator;
  client.hooks.PopUpNickMenu();
}

void PutIntoMsg(Client& client, int tab, const Text& text) {
  Desktop& desktop = client.platform.desktop;
  desktop.SetMsgText(tab, text + " " + desktop.MsgText(tab));
  desktop.FocusMsg(tab);
}

void CopyIntoMsg(Client& client, const Text& caption) {
  PutIntoMsg(client, client.platform.desktop.ActiveTab(), caption);
}

void send_pers(Client& client) {
  client.app.PersTargetNick = client.app.MenuNick;
  client.app.Timer21->Enabled(true);
}

void Timer21_Timer(Client& client) {
  client.app.Timer21->Enabled(false);
  client.hooks.pers(client.platform.desktop.ActiveTab());
}

void ShowMenuCopyUsers(Client& client, int tab, PanePosition at) {
  const RichTextBox& list = client.tab(tab).Rich_Users;
  if (at < list.SelStart() || at >= list.SelStart() + list.SelLength()) return;
  client.app.MenuCopyText = list.SelText();
  client.hooks.PopUpMenuCopyUsers();
}

void text_copy_users(Client& client) {
  client.platform.clipboard.SetText(client.app.MenuCopyText);
}

}  // namespace parlorwire
