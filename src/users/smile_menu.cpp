#include "users/smile_menu.h"

#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr int kFirstSmileBitmap = 101;  // that of element 0 of the table, which there is none of

}  // namespace

std::vector<SmileItem> SmileItems(Client& client) {
  std::vector<SmileItem> items;
  int id = kFirstSmileBitmap;
  for (const std::string_view names : Split(client.app.SmileTable, "\r\n")) {
    const int bitmap = id++;
    if (names.empty()) continue;
    auto picture = LoadResourceBitmap(client.app.resources, bitmap);
    if (picture) items.push_back({"*" + Replace(names, " ", " *"), std::move(picture)});
  }
  return items;
}

Text SmileToInsert(std::string_view caption) {
  return " " + Text(caption.substr(0, caption.find(' '))) + " ";
}

}  // namespace parlorwire
