// The controls of the search dialog `search_form`, and how far the search has come.
#pragma once

#include <cstdint>

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

struct SearchForm {
  Text txt_to_search;
  bool compl_word = false;  // whole words: bounded by blanks, and by nothing else
  bool case_sensitive = false;

  PanePosition LastFound = 0;  // the last hit, 1-based; 0 at first. In whichever pane that was
  bool Started = false;        // it has looked where to start
  std::uint32_t Run = 0;       // grows with every search that begins or is given up
};

}  // namespace parlorwire
