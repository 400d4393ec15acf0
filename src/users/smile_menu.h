// The popup menu of smiles, MenuSmilesItem, and the table to look at, MenuSmilesShow: what stands
// in them.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/picture.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// A line of SmileTable: the codes of one picture, with blanks between.
struct SmileItem {
  Text caption;
  std::shared_ptr<const Picture> picture;
};

// Those whose picture can be had, in the order of the table.
std::vector<SmileItem> SmileItems(Client& client);

// What a click on an item puts into `msg` at the caret: the first of its codes, between blanks.
Text SmileToInsert(std::string_view caption);

}  // namespace parlorwire
