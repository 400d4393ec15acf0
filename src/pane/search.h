// Finding a text in a pane without reading the whole pane at once.
#pragma once

#include <optional>
#include <string_view>

#include "pane/units.h"
#include "text/searcher.h"

namespace parlorwire {

class RichTextBox;

// Where the first occurrence begins that begins at `from` or behind it; where the last one begins
// that begins at `from` or ahead of it. With a range: that begins at one of its characters. Line
// breaks and pictures are characters as in Text. Nothing contains the empty text.
std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PanePosition from, LetterCase letter_case);
std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PanePosition from, LetterCase letter_case);
std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PaneRange beginnings, LetterCase letter_case);
std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PaneRange beginnings, LetterCase letter_case);

}  // namespace parlorwire
