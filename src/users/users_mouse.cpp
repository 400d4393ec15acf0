#include "users/users_mouse.h"

#include <algorithm>
#include <optional>

#include "display/rank_colour.h"
#include "display/whois.h"
#include "session/client.h"
#include "session/writer_selection.h"
#include "text/cut.h"
#include "users/listed_user.h"
#include "users/nick_menu.h"

namespace parlorwire {
namespace {

void Colour(Client& client, int tab, const ListedUser& user, PaneColour colour) {
  RichTextBox& list = client.tab(tab).Rich_Users;
  const PanePosition start = list.SelStart();
  const PanePosition end = start + list.SelLength();
  SelectUsersPaneEnd(client, user.nick_start, user.NickEnd(), tab);
  list.SelColor(colour);
  list.ExSetSel(start, end);
}

bool HasColour(const RichTextBox& list, const ListedUser& user, PaneColour colour) {
  return std::ranges::all_of(list.RunsBetween(user.nick_start, user.NickEnd()),
                             [&](const PaneRun& run) { return run.format.colour == colour; });
}

// Where the tinted nick is now. Lines ahead of it may have gone since, and the whole list may be
// another.
std::optional<ListedUser> TintedUser(const Client& client) {
  const ListHover& hover = client.app.UsersHover;
  const RichTextBox& list = client.tab(hover.TintedTab).Rich_Users;
  auto user = ListedUserAt(list, hover.TintedStart);
  if (user && user->nick == hover.TintedNick) return user;
  return FindListedUser(list, hover.TintedNick);
}

void RestoreTinted(Client& client) {
  ListHover& hover = client.app.UsersHover;
  if (hover.TintedNick.empty()) return;
  const int tab = hover.TintedTab;
  if (const auto user = TintedUser(client)) {
    const bool own = EqualsNoCase(user->nick, client.tab(tab).Login);
    Colour(client, tab, *user,
           own ? client.app.rFontMain.ColorMyNick : ListedRankColour(client, user->nick, tab));
  }
  hover.TintedNick.clear();
}

// A nick that is tinted already stays so, unless the list was drawn anew.
void Tint(Client& client, int tab, const ListedUser& user) {
  ListHover& hover = client.app.UsersHover;
  const PaneColour tint = client.app.rRichColors.NicksChoose;
  const bool known = hover.TintedTab == tab && hover.TintedNick == user.nick &&
                     hover.TintedStart == user.nick_start;
  if (known && HasColour(client.tab(tab).Rich_Users, user, tint)) return;
  if (!known) RestoreTinted(client);
  Colour(client, tab, user, tint);
  hover.TintedTab = tab;
  hover.TintedNick = user.nick;
  hover.TintedStart = user.nick_start;
}

}  // namespace

void Rich_Users_MouseDown(Client& client, int tab, PanePosition at, MouseButton button) {
  if (at <= 0 || button != MouseButton::kLeft) return;
  client.app.MouseSelecting = true;
  client.app.MouseDownChar = at;
  client.app.MouseDownTab = tab;
}

void Rich_Users_MouseMove(Client& client, int tab, PanePosition at) {
  ListHover& hover = client.app.UsersHover;
  RichTextBox& list = client.tab(tab).Rich_Users;
  client.app.Timer17->Enabled(false);
  std::optional<ListedUser> user;
  if (at > 0 && !client.app.MouseSelecting) user = ListedUserAt(list, at);
  hover.Nick = user && user->OnNick(at) ? user->nick : "";
  hover.IP = user && user->OnIP(at) ? user->IP : "";
  if (user && !hover.Nick.empty())
    Tint(client, tab, *user);
  else
    RestoreTinted(client);
  const bool live = !hover.Nick.empty() || !hover.IP.empty();
  list.MousePointer(live ? PanePointer::kCustom : PanePointer::kArrow);
}

void Rich_Users_MouseUp(Client& client, int tab, PanePosition at, MouseButton button) {
  const ListHover hover = client.app.UsersHover;
  client.app.MouseSelecting = false;
  if (!hover.IP.empty() && button == MouseButton::kLeft) return OpenWhois(client, hover.IP);
  if (!hover.Nick.empty()) return ClickListedNick(client, tab, hover.Nick, button);
  if (button == MouseButton::kRight) ShowMenuCopyUsers(client, tab, at);
}

void MouseLeave(Client& client) {
  client.app.Timer17->Enabled(true);
}

void Timer17_Timer(Client& client) {
  client.app.Timer17->Enabled(false);
  client.app.UsersHover.Nick.clear();
  client.app.UsersHover.IP.clear();
  RestoreTinted(client);
}

void ClickListedNick(Client& client, int tab, const Text& nick, MouseButton button) {
  if (button == MouseButton::kLeft) return PutIntoMsg(client, tab, nick);
  client.app.MenuNick = nick;
  ShowNickMenu(client, tab, nick);
}

}  // namespace parlorwire
