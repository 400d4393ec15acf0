#include "users/list_place.h"

#include <unordered_map>

#include "users/listed_user.h"

namespace parlorwire {
namespace {

constexpr std::size_t kNicksKept = 200;

}  // namespace

ListPlace PlaceInList(const RichTextBox& list, PanePosition top) {
  ListPlace place;
  std::int64_t line = list.LineAt(top);
  const auto first = NextListedUser(list, 0, ListDirection::kDown);
  if (!first || line <= list.LineAt(first->nick_start)) return place;
  while (place.size() < kNicksKept) {
    const auto user = NextListedUser(list, line, ListDirection::kDown);
    if (!user) break;
    place.push_back(user->nick);
    line = list.LineAt(user->nick_start) + 1;
  }
  return place;
}

std::optional<PanePosition> FindListPlace(const RichTextBox& list, const ListPlace& place) {
  if (place.empty()) return std::nullopt;
  if (const auto user = FindListedUser(list, place.front())) return user->nick_start;
  std::unordered_map<Text, PanePosition> lines;
  for (std::int64_t line = 0;;) {
    const auto user = NextListedUser(list, line, ListDirection::kDown);
    if (!user) break;
    lines.try_emplace(user->nick, user->nick_start);
    line = list.LineAt(user->nick_start) + 1;
  }
  for (const Text& nick : place)
    if (const auto found = lines.find(nick); found != lines.end()) return found->second;
  return std::nullopt;
}

}  // namespace parlorwire
