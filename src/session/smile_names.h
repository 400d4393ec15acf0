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
  int line = 0;  // of the table, 1-based
  // As it stands in panes, made when it is first needed. The code is "*" and the name.
  mutable std::shared_ptr<const PanePicture> picture;
};

class SmileNames {
 public:
  // The names are those of `table` from now on, which is SmileTable; nothing is done if it is the
  // same as before. Of two equal names the first counts.
  void Take(std::string_view table);
  // The name that is exactly `word`, null if there is none.
  const SmileName* Find(std::string_view word) const;

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
