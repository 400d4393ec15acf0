// A pane told in text, for tests: what stands in it, and how it looks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pane/rich_text_box.h"

namespace parlorwire {

// Windows-1251 as UTF-8, so that expectations can be written as they read.
std::string ToUtf8(std::string_view text);

// The runs from a position on, each as `text|font size rrggbb flags`: CR is "\r" and LF is "\n",
// spelled out, the colour is red, green, blue, and the flags are "b", "i", "u" and "back=rrggbb".
// A picture reads as "<code>".
std::vector<std::string> RunsOf(const RichTextBox& pane, PanePosition from = 0);

}  // namespace parlorwire
