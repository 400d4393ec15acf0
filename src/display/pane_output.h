// How text gets behind everything that a pane holds, and how the pane scrolls after it.
#pragma once

#include <string_view>

#include "pane/runs.h"
#include "pane/units.h"
#include "session/writer_selection.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// A format that is neither bold nor italic nor underlined. Set whole by RichTextBox::SelFormat, it
// is what setting name, size, colour and the three attributes one by one comes to.
PaneFormat PlainFormat(const Text& font_name, int font_size, PaneColour colour);

// Writes behind everything that the pane holds.
void WriteAtPaneEnd(Client& client, std::string_view text, const PaneFormat& format, int tab);
void WriteAtUsersPaneEnd(Client& client, std::string_view text, const PaneFormat& format, int tab);

// Where the view of Rich goes behind a chat line: to the bottom. With StopScroll ticked it stays,
// and a view at the very end goes up two lines.
void ScrollAfterLine(Client& client, int tab);

// The same behind a framed notice; it lets waiting events run, and goes up one line.
void ScrollAfterNotice(Client& client, int tab);

}  // namespace parlorwire
