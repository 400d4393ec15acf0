#include "display/pane_mouse.h"

#include <algorithm>
#include <utility>

#include "display/links.h"
#include "display/notice_jump.h"
#include "display/pointed_line.h"
#include "display/whois.h"
#include "session/channel_list.h"
#include "session/client.h"
#include "session/writer_selection.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// ---- the tinted nick ----

void ColourNick(Client& client, int tab, PaneRange nick, PaneColour colour) {
  RichTextBox& pane = client.tab(tab).Rich;
  const PanePosition start = pane.SelStart();
  const PanePosition end = start + pane.SelLength();
  SelectPaneEnd(client, nick.start, nick.end, tab);
  pane.SelColor(colour);
  pane.ExSetSel(start, end);
}

Text WithoutColon(const Text& nick) {
  return nick.ends_with(':') ? nick.substr(0, nick.size() - 1) : nick;
}

bool AllHasColour(const RichTextBox& pane, PaneRange range, PaneColour colour) {
  return std::ranges::all_of(pane.RunsBetween(range.start, range.end),
                             [&](const PaneRun& run) { return run.format.colour == colour; });
}

// In a pane that was cleared since, something else stands there, or the same without the tint.
void RestoreNick(Client& client) {
  AppState& app = client.app;
  const Text nick = std::exchange(app.HoverNickSaved, {});
  if (nick.empty()) return;
  const TabSession& session = client.tab(app.HoverNickTab);
  const PaneRange place{app.HoverNickStart, app.HoverNickEnd};
  if (session.Rich.TextBetween(place.start, place.end) != nick) return;
  if (!AllHasColour(session.Rich, place, app.rRichColors.NicksChoose)) return;
  const bool own = EqualsNoCase(WithoutColon(nick), session.Login);
  ColourNick(client, app.HoverNickTab, place,
             own ? app.rFontMain.ColorMyNick : app.rRichColors.Nicks);
}

// A nick that is tinted already stays so.
void TintNick(Client& client, int tab, PaneRange place) {
  AppState& app = client.app;
  const PaneColour tint = app.rRichColors.NicksChoose;
  const bool known = app.HoverNickSaved == app.HoverNick && app.HoverNickTab == tab &&
                     app.HoverNickStart == place.start && app.HoverNickEnd == place.end;
  if (known && AllHasColour(client.tab(tab).Rich, place, tint)) return;
  if (!known) RestoreNick(client);
  ColourNick(client, tab, place, tint);
  app.HoverNickSaved = app.HoverNick;
  app.HoverNickStart = place.start;
  app.HoverNickEnd = place.end;
  app.HoverNickTab = tab;
}

// ---- what is under the pointer ----

void ClearHover(AppState& app) {
  app.HoverNick.clear();
  app.HoverTime.clear();
  app.HoverLink.clear();
  app.HoverIP.clear();
  app.HoverChannel.clear();
  app.JumpArmed = false;
  app.PersonalArmed = false;
}

bool AnythingHovered(const AppState& app) {
  return !app.HoverNick.empty() || !app.HoverTime.empty() || !app.HoverLink.empty() ||
         !app.HoverIP.empty() || !app.HoverChannel.empty() || app.JumpArmed || app.PersonalArmed;
}

// A line of the list of channels says its channel behind this; the blank can be clicked, too.
void FindChannel(Client& client, int tab, PanePosition at) {
  constexpr std::string_view kLabel = W<"Канал:">;
  RichTextBox& pane = client.tab(tab).Rich;
  const PaneLine line = pane.LineByIndex(pane.LineAt(at));
  const Text text = pane.TextBetween(line.start, line.start + line.length);
  if (!text.starts_with(Text(kLabel) + " ")) return;
  if (at < line.start + Len(kLabel) || at >= line.start + line.length) return;
  pane.MousePointer(PanePointer::kCustom);
  client.app.HoverChannel = Trim(std::string_view(text).substr(kLabel.size()));
}

bool IsIn(PanePosition at, PaneRange range) {
  return at >= range.start && at < range.end;
}

Text Cut(const Text& text, PaneRange range) {
  return text.substr(static_cast<std::size_t>(range.start),
                     static_cast<std::size_t>(range.end - range.start));
}

// Every marker of a link begins with a blank, and so does the piece that is looked through.
void FindLink(Client& client, int tab, const PointedLine& line) {
  const PaneRange word = WordUnder(line);
  if (word.empty()) return;
  WriteLinks(client, " " + Cut(line.text, word) + " ", line.start + word.start, tab, true);
}

void FindInLine(Client& client, int tab, const PointedLine& line) {
  AppState& app = client.app;
  RichTextBox& pane = client.tab(tab).Rich;
  if (IsJump(line)) {
    app.JumpArmed = true;
    app.JumpChar = line.start + line.at;
    pane.MousePointer(PanePointer::kCustom);
    return;
  }
  FindLink(client, tab, line);
  app.PersonalArmed = IsPersonalNotice(line);
  const PaneRange nick = NickOf(line);
  if (IsIn(line.at, nick)) {
    app.HoverNick = Cut(line.text, nick);
    TintNick(client, tab, {line.start + nick.start, line.start + nick.end});
  }
  if (IsIn(line.at, TimeOf(line))) app.HoverTime = line.text;
  if (AnythingHovered(app)) pane.MousePointer(PanePointer::kCustom);
}

// ---- what a click does ----

void SetMsg(Client& client, int tab, const Text& text) {
  client.platform.desktop.SetMsgText(tab, text);
  client.platform.desktop.FocusMsg(tab);
}

void ClickTime(Client& client, int tab, const Text& line, MouseButton button) {
  const Text before = client.platform.desktop.MsgText(tab) + " ";
  if (button == MouseButton::kRight)
    return SetMsg(client, tab, before + Trim(Replace(line, "\n\t", "*n")));
  const std::size_t open = line.find('[');
  SetMsg(client, tab, before + line.substr(open, line.find(']', open) - open + 1));
}

void ClickNick(Client& client, int tab, const Text& nick, MouseButton button) {
  if (button == MouseButton::kLeft)
    return SetMsg(client, tab, nick + " " + client.platform.desktop.MsgText(tab));
  client.app.MenuNick = WithoutColon(nick);
  client.hooks.ShowNickMenu(tab, client.app.MenuNick);
}

void ShowMenuCopy(Client& client, int tab, PanePosition at) {
  if (at <= 0) return;
  const RichTextBox& pane = client.tab(tab).Rich;
  CopyMenu& menu = client.app.menu_copy;
  menu.Link = client.app.HoverLink;
  menu.Copies = IsIn(at, {pane.SelStart(), pane.SelStart() + pane.SelLength()});
  if (menu.Copies || !menu.Link.empty()) client.hooks.PopUpMenuCopy(tab);
}

void ClickAddress(Client& client, int tab) {
  const AppState& app = client.app;
  if (!app.HoverLink.empty()) return client.hooks.OpenUrl(Text(app.HoverLink));
  if (app.PersonalArmed) return client.hooks.pers(client.platform.desktop.ActiveTab());
  if (!app.HoverIP.empty()) return OpenWhois(client, Text(app.HoverIP));
  if (!app.HoverChannel.empty() && client.tab(tab).IsChannelList)
    EnterListedChannel(client, tab, Text(app.HoverChannel));
}

}  // namespace

void Rich_MouseDown(Client& client, int tab, PanePosition at, MouseButton button) {
  if (at <= 0 || button != MouseButton::kLeft) return;
  client.app.MouseSelecting = true;
  client.app.MouseDownChar = at;
  client.app.MouseDownTab = tab;
}

void Rich_MouseMove(Client& client, int tab, PanePosition at) {
  TabSession& session = client.tab(tab);
  ClearHover(client.app);
  if (at > 0 && !client.app.MouseSelecting) {
    if (session.IsChannelList && !session.Connected) {
      FindChannel(client, tab, at);
    } else if (session.Connected) {
      if (const auto line = LineUnder(session.Rich, at)) FindInLine(client, tab, *line);
    }
  }
  if (client.app.HoverNick.empty()) RestoreNick(client);
  if (!AnythingHovered(client.app)) session.Rich.MousePointer(PanePointer::kArrow);
}

void Rich_MouseUp(Client& client, int tab, PanePosition at, MouseButton button) {
  const AppState& app = client.app;
  const bool pressed = std::exchange(client.app.MouseSelecting, false);
  const bool left = button == MouseButton::kLeft;
  if (left && !pressed) return;
  if (app.JumpArmed && left) return JumpToNoticed(client, tab, app.JumpChar);
  if (!app.HoverTime.empty()) return ClickTime(client, tab, Text(app.HoverTime), button);
  if (!app.HoverNick.empty()) return ClickNick(client, tab, Text(app.HoverNick), button);
  if (left) return ClickAddress(client, tab);
  ShowMenuCopy(client, tab, at);
}

void Rich_MouseLeave(Client& client, int tab) {
  Rich_MouseMove(client, tab, 0);
}

void ClickAtCaret(Client& client, int tab, PaneRange selected, PanePosition caret,
                  MouseButton button) {
  // A caret at the end of the selection belongs to it.
  const PanePosition at = !selected.empty() && caret == selected.end ? caret - 1 : caret;
  Rich_MouseMove(client, tab, caret);
  if (!AnythingHovered(client.app) && at != caret) Rich_MouseMove(client, tab, at);
  Rich_MouseDown(client, tab, at, button);
  Rich_MouseUp(client, tab, at, button);
  Rich_MouseLeave(client, tab);
}

}  // namespace parlorwire
