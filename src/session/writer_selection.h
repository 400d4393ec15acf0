// The selection by which all output of the logic is made.
#pragma once

#include "pane/rich_text_box.h"

namespace parlorwire {

struct Client;

// Selects [start, end) anywhere in a pane, 0-based, out of the user's sight unless he is selecting
// in that tab with the mouse. The end is only where most callers write.
void SelectPaneEnd(Client& client, PanePosition start, PanePosition end, int tab);  // Rich
void SelectUsersPaneEnd(Client& client, PanePosition start, PanePosition end,
                        int tab);  // Rich_Users

// Whether the view of a pane stands at the end of the text; also where there is nothing to scroll.
// To be asked before anything is written: what is written lies below the view.
bool StandsAtEnd(const RichTextBox& pane);

// While it lives, changes of the pane are not painted; then they are, as one.
struct PaintOnce {
  explicit PaintOnce(RichTextBox& changing) : pane(changing) { pane.SetRedraw(false); }
  ~PaintOnce() {
    pane.SetRedraw(true);
    pane.Refresh();
  }
  PaintOnce(const PaintOnce&) = delete;
  PaintOnce& operator=(const PaintOnce&) = delete;
  RichTextBox& pane;
};

}  // namespace parlorwire
