#include "session/writer_selection.h"

#include "session/client.h"

namespace parlorwire {
namespace {

// The reader who selects in a tab keeps sight of it there; what he selected in others stays his.
void SelectUnseen(const AppState& app, RichTextBox& pane, PanePosition start, PanePosition end,
                  int tab) {
  const bool selecting = app.MouseSelecting && app.MouseDownTab == tab;
  if (!selecting) pane.HideSelection(true);
  pane.ExSetSel(start, end);
}

}  // namespace

void SelectPaneEnd(Client& client, PanePosition start, PanePosition end, int tab) {
  SelectUnseen(client.app, client.tab(tab).Rich, start, end, tab);
}

void SelectUsersPaneEnd(Client& client, PanePosition start, PanePosition end, int tab) {
  SelectUnseen(client.app, client.tab(tab).Rich_Users, start, end, tab);
}

bool StandsAtEnd(const RichTextBox& pane) {
  const PaneScrollInfo bar = pane.GetScrollInfo();
  return bar.pos + bar.page >= bar.max;
}

}  // namespace parlorwire
