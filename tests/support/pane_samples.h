// Text for tests of a pane's view, written the way the program writes.
#pragma once

#include <string_view>

#include "pane/rich_text_box.h"

namespace parlorwire {

// Selects the end and writes there with the format.
void Append(RichTextBox& box, std::string_view text, const PaneFormat& format);

// A line of the chat: time, nick underlined, text, CR LF.
void AppendMessage(RichTextBox& box, std::string_view time, std::string_view nick,
                   std::string_view text);
void AppendMessages(RichTextBox& box, int count);

// A notice between two bars of a thousand blanks.
void AppendNotice(RichTextBox& box, std::string_view text);

PaneFormat MainFormat(PaneColour colour);

}  // namespace parlorwire
