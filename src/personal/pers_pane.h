// The pane of a personal window: how text gets into it, and what becomes live in the text.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "display/links.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// Selects [start, end) out of the reader's sight.
void SelectUnseen(RichTextBox& pane, PanePosition start, PanePosition end);

// Writes behind everything that the pane holds.
void WriteAtEnd(RichTextBox& pane, std::string_view text, const PaneFormat& format);

// The first link whose blank stands at `from` or behind it: a word behind a blank that begins as
// kLinkMarkers say and holds a ".".
std::optional<MarkedWord> NextPersLink(std::string_view text, std::size_t from);

// Makes links and address masks red and underlined in a text that stands in Rich, its first
// character, a blank, at `base`.
void PersWriteLinks(PersonalWindow& window, std::string_view text, PanePosition base);

// Puts pictures in the place of words such as "*:)*", a name out of SmileTable between stars, in a
// text that stands in Rich, its first character at `base`. Where a picture cannot be had, that word
// and those behind it stay text.
void PersPasteSmiles(Client& client, PersonalWindow& window, std::string_view text,
                     PanePosition base);

}  // namespace parlorwire
