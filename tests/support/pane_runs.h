// A pane told in text, for tests: what stands in it, and how it looks.
#pragma once

#include <string>
#include <vector>

#include "pane/rich_text_box.h"
#include "text/utf8.h"

namespace parlorwire {

// The runs from a position on, each as `text|font size rrggbb flags`: CR is "\r" and LF is "\n",
// spelled out, the colour is red, green, blue, and the flags are "b", "i", "u" and "back=rrggbb".
// A picture reads as "<code>".
std::vector<std::string> RunsOf(const RichTextBox& pane, PanePosition from = 0);

}  // namespace parlorwire
