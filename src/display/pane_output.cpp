#include "display/pane_output.h"

#include "session/client.h"

namespace parlorwire {
namespace {

constexpr int kNudge = 10;  // twips

bool HoldsStill(const Client& client, const PaneScrollInfo& bar, int tab) {
  return client.platform.desktop.StopScroll(tab) && bar.max != 0;
}

}  // namespace

PaneFormat PlainFormat(const Text& font_name, int font_size, PaneColour colour) {
  PaneFormat format;
  format.font_name = font_name;
  format.font_size = font_size;
  format.colour = colour;
  return format;
}

void WriteAtPaneEnd(Client& client, std::string_view text, const PaneFormat& format, int tab) {
  RichTextBox& pane = client.tab(tab).Rich;
  SelectPaneEnd(client, pane.Length(), pane.Length(), tab);
  pane.SelFormat(format);
  pane.ReplaceSel(text);
}

void WriteAtUsersPaneEnd(Client& client, std::string_view text, const PaneFormat& format, int tab) {
  RichTextBox& pane = client.tab(tab).Rich_Users;
  SelectUsersPaneEnd(client, pane.Length(), pane.Length(), tab);
  pane.SelFormat(format);
  pane.ReplaceSel(text);
}

void ScrollAfterLine(Client& client, int tab) {
  RichTextBox& pane = client.tab(tab).Rich;
  const PaneScrollInfo bar = pane.GetScrollInfo();
  if (!HoldsStill(client, bar, tab)) {
    pane.VScroll(PaneScroll::kBottom);
    return;
  }
  pane.Width(pane.Width() - kNudge);  // the layout is worked out anew
  pane.Width(pane.Width() + kNudge);
  if (bar.pos + bar.page < bar.max) return;
  pane.VScroll(PaneScroll::kLineUp);
  pane.VScroll(PaneScroll::kLineUp);
}

void ScrollAfterNotice(Client& client, int tab) {
  RichTextBox& pane = client.tab(tab).Rich;
  const PaneScrollInfo bar = pane.GetScrollInfo();
  client.platform.desktop.YieldToEvents();
  if (!HoldsStill(client, bar, tab)) {
    pane.VScroll(PaneScroll::kBottom);
    return;
  }
  const int end = bar.pos + bar.page;
  if (end == bar.max - 1 || end >= bar.max) pane.VScroll(PaneScroll::kLineUp);
}

}  // namespace parlorwire
