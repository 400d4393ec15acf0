#include "users/list_walk.h"

namespace parlorwire {

std::optional<ListedUser> StepInList(const RichTextBox& list, PanePosition caret,
                                     std::string_view reached, ListStep step) {
  if (step == ListStep::kFirst) return NextListedUser(list, 0, ListDirection::kDown);
  if (step == ListStep::kLast)
    return NextListedUser(list, list.LineCount() - 1, ListDirection::kUp);
  const auto from = UserInHand(list, caret, reached);
  const std::int64_t line = list.LineAt(from ? from->nick_start : caret);
  if (step == ListStep::kUp) return NextListedUser(list, line - 1, ListDirection::kUp);
  // Whoever stands at the caret in place of one who left comes next.
  return NextListedUser(list, from ? line + 1 : line, ListDirection::kDown);
}

std::optional<ListedUser> UserInHand(const RichTextBox& list, PanePosition caret,
                                     std::string_view reached) {
  return reached.empty() ? ListedUserAt(list, caret) : FindListedUser(list, reached);
}

}  // namespace parlorwire
