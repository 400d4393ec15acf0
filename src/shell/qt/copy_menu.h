// menu_copy: what can be done with the link in a pane that was clicked, and with what is selected.
#pragma once

#include <functional>

#include "session/both_languages.h"

class QAction;
class QMenu;

namespace parlorwire {

struct Client;
struct CopyMenu;
class RichTextView;

// It belongs to the view, and goes when it is closed.
QMenu* NewMenuCopy(Client& client, RichTextView* view, const CopyMenu& shown);

// Behind the other items.
void AddSelectAll(Client& client, QMenu* menu, RichTextView* view);

QAction* AddMenuItem(Client& client, QMenu* menu, const char* name, const BothLanguages& words,
                     std::function<void()> action);

}  // namespace parlorwire
