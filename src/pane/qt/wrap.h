// Where a pane's lines break into rows. Widths are added up character by character, from tables; no
// text is shaped here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "pane/qt/fonts.h"
#include "pane/qt/pictures.h"
#include "pane/qt/work.h"
#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

// No row has more characters, so that a line of nothing but blanks or of signs of no width has a
// bounded price too.
inline constexpr int kRowLimit = 4096;

// A stretch of a line as it is shown: its bytes, and the looks that cover them.
struct ShownText {
  struct Stretch {
    int start = 0;
    int end = 0;
    std::shared_ptr<const ToolkitLook> look;
  };
  std::string bytes;
  std::vector<Stretch> stretches;

  // The number of the stretch that holds the index; the last one for the end.
  std::size_t StretchAt(int index) const;
};

// What a text is read with.
struct LayoutTools {
  explicit LayoutTools(ViewWork& counted) : work(counted) {}

  ToolkitLooks looks;
  ToolkitPictures pictures;
  ViewWork& work;
  std::uint64_t last_serial = 0;  // of the layouts made so far
};

// The characters in [start, end), which lie in one line.
ShownText ReadShown(const RichTextBox& box, PanePosition start, PanePosition end,
                    LayoutTools& tools);

// A row, from its first index. Lengths are in device-independent pixels.
struct WrappedRow {
  int end = 0;        // one behind its last index
  float natural = 0;  // where its last character ends that is no blank
  float right = 0;    // where its last character ends
};

// The row that begins at `start` < the text's size, not wider than `width` but for blanks at its
// end and a first character that is wider. It breaks behind blanks and hyphens and beside pictures,
// and in a word only where the word alone fills the row. `edges`, if not null, has a place for each
// index of the text, and gets the left edge of each of the row's characters.
WrappedRow WrapRow(const ShownText& text, int start, float width, float* edges);

}  // namespace parlorwire
