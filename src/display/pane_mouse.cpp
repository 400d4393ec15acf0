#include "display/pane_mouse.h"

#include "session/channel_list.h"
#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

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

}  // namespace

void Rich_MouseDown(Client& client, int tab, PanePosition at, MouseButton button) {
  if (at <= 0 || button != MouseButton::kLeft) return;
  client.app.MouseSelecting = true;
  client.app.MouseDownChar = at;
  client.app.MouseDownTab = tab;
}

void Rich_MouseMove(Client& client, int tab, PanePosition at) {
  TabSession& session = client.tab(tab);
  client.app.HoverChannel.clear();
  session.Rich.MousePointer(PanePointer::kArrow);
  if (at <= 0 || client.app.MouseSelecting) return;
  if (session.IsChannelList && !session.Connected) FindChannel(client, tab, at);
}

void Rich_MouseUp(Client& client, int tab, MouseButton button) {
  const Text channel = client.app.HoverChannel;
  if (!channel.empty() && button == MouseButton::kLeft && client.tab(tab).IsChannelList)
    EnterListedChannel(client, tab, channel);
  client.app.MouseSelecting = false;
}

}  // namespace parlorwire
