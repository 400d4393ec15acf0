#include "users/users_out.h"

#include <array>
#include <utility>

#include "display/pane_output.h"
#include "display/rank_colour.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PaneColour kFlags = 0xFFFF;
constexpr PaneColour kStatus = 0xFF00;

PaneColour NickColour(const Client& client, const UserRecord& user, int tab) {
  if (EqualsNoCase(user.nick, client.tab(tab).Login)) return client.app.rFontMain.ColorMyNick;
  return RankColour(client.app, user.flags);
}

// The blank between two columns. `format` is that of the column ahead, and the blank keeps its
// colour and its boldness.
void AppendUserSeparator(Client& client, PaneFormat& format, int tab) {
  format.font_name = "courier new";
  format.font_size = 10;
  format.underline = false;
  WriteAtUsersPaneEnd(client, " ", format, tab);
}

void DrawUser(Client& client, const UserRecord& user, int tab) {
  const FontMain& font = client.app.rFontMain;
  PaneFormat format = PlainFormat(font.Name, font.Size, NickColour(client, user, tab));
  format.bold = font.Bold;
  format.underline = true;
  WriteAtUsersPaneEnd(client, user.nick, format, tab);
  const std::array<std::pair<const Text&, PaneColour>, 3> columns = {
      {{user.flags, kFlags}, {user.IP, kAddressColour}, {user.status, kStatus}}};
  for (const auto& [text, colour] : columns) {
    if (text.empty()) continue;
    AppendUserSeparator(client, format, tab);
    format.font_name = font.Name;
    format.font_size = font.Size;
    format.colour = colour;
    WriteAtUsersPaneEnd(client, text, format, tab);
  }
  WriteAtUsersPaneEnd(client, "\r\n", format, tab);
}

// Keeps the last line off the lower edge while the list grows.
void ScrollAfterUser(RichTextBox& pane) {
  const PaneScrollInfo bar = pane.GetScrollInfo();
  if (bar.pos + bar.page < bar.max) return;
  pane.VScroll(PaneScroll::kLineUp);
  pane.VScroll(PaneScroll::kLineUp);
}

}  // namespace

void UsersOutExt(Client& client, const UserRecord& user, int tab) {
  DrawUser(client, user, tab);
  ScrollAfterUser(client.tab(tab).Rich_Users);
  client.hooks.StartWaitingHighlight(tab);
}

void UsersOut(Client& client, const UserRecord& user, int tab) {
  GoOnAfterFault(client, ". Function: UsersOut", [&] { UsersOutExt(client, user, tab); });
}

}  // namespace parlorwire
