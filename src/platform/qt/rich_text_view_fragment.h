// What a pane is laid out by: a line, or a stretch of a very long one.
//
// A line of a megabyte must cost no more to show than what of it is seen. So a line longer than
// kFragmentLimit is cut into stretches of about that length, behind a blank where there is one.
// Where the cuts lie follows from the text near them alone, so any of them is found without the
// others.
#pragma once

#include "platform/rich_text_box.h"

namespace parlorwire {

inline constexpr PanePosition kFragmentLimit = 4096;

struct Fragment {
  PanePosition start = 0;
  PanePosition length = 0;  // without the line's break
  PanePosition next = 0;    // the start of the next fragment; the text's end for the last one
  PanePosition line_start = 0;
  PanePosition line_next = 0;
  std::int64_t line = 0;  // 0-based

  bool LastOfLine() const { return next == line_next; }
  bool LastOf(const RichTextBox& box) const { return LastOfLine() && line + 1 == box.LineCount(); }
  // Behind the break that ends the text there is one more line, with nothing in it.
  bool EmptyEndOf(const RichTextBox& box) const { return length == 0 && line > 0 && LastOf(box); }
};

// The fragment in which the position lies; the one behind it at a border of two.
Fragment FragmentAt(const RichTextBox& box, PanePosition position);
Fragment FirstFragmentOfLine(const RichTextBox& box, std::int64_t line);

// Must not be called on the last and on the first one.
Fragment FragmentAfter(const RichTextBox& box, const Fragment& fragment);
Fragment FragmentBefore(const RichTextBox& box, const Fragment& fragment);

}  // namespace parlorwire
