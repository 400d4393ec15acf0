#include "session/writer_selection.h"

namespace parlorwire {
namespace {

void SelectHidden(const Client& client, RichTextBox& pane, PanePosition start, PanePosition end) {
  if (!client.app.MouseSelecting) pane.HideSelection(true);
  pane.ExSetSel(start, end);
}

}  // namespace

void SelectPaneEnd(Client& client, PanePosition start, PanePosition end, int tab) {
  SelectHidden(client, client.tab(tab).Rich, start, end);
}

void SelectUsersPaneEnd(Client& client, PanePosition start, PanePosition end, int tab) {
  SelectHidden(client, client.tab(tab).Rich_Users, start, end);
}

bool StandsAtEnd(const RichTextBox& pane) {
  const PaneScrollInfo bar = pane.GetScrollInfo();
  return bar.pos + bar.page >= bar.max;
}

}  // namespace parlorwire
