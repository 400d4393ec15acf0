// The names of the smiles, so that a word is looked up and not compared with each of them.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "pane/runs.h"
#include "text/text.h"

namespace parlorwire {

struct SmileName {
  int line = 0;   // of the table, 1-based
  int order = 0;  // among all names, in the order of the table
  // As it stands in panes, made when it is first needed. The code is "*" and the name.
  mutable std::shared_ptr<const PanePicture> picture;
};

class SmileNames {
 public:
  // The name that is exactly `word`, null if there is none. `table` is SmileTable; the names are
  // made of it when it is another than at the last call. Of two equal names the first counts.
  const SmileName* Find(std::string_view table, std::string_view word);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const noexcept {
      return std::hash<std::string_view>()(name);
    }
  };

  Text table_;
  std::unordered_map<Text, SmileName, Hash, std::equal_to<>> names_;
  std::size_t longest_ = 0;
};

}  // namespace parlorwire
