// The layouts of the fragments seen last, a bounded number of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "pane/qt/layout.h"
#include "pane/units.h"
#include "pane/view.h"

namespace parlorwire {

class RichTextBox;

class LayoutCache {
 public:
  // The layout kept, or a new one.
  std::shared_ptr<const FragmentLayout> Get(const RichTextBox& box, const Fragment& fragment,
                                            int width, LayoutTools& tools);

  void TextChanged(const RichTextBox& box, const PaneView::TextChange& change);
  void FormatChanged(const RichTextBox& box, PanePosition start, PanePosition end);
  void Clear() { kept_.clear(); }
  std::size_t Size() const { return kept_.size(); }

 private:
  struct Kept {
    PanePosition start = 0;  // of the fragment
    PanePosition next = 0;
    std::uint64_t used = 0;
    std::shared_ptr<const FragmentLayout> layout;
  };
  void Shrink();

  std::vector<Kept> kept_;  // by start
  std::uint64_t clock_ = 0;
};

}  // namespace parlorwire
