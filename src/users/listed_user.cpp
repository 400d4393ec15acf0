#include "users/listed_user.h"

#include <algorithm>
#include <vector>

#include "pane/search.h"
#include "text/cut.h"
#include "users/users_out.h"

namespace parlorwire {

std::optional<ListedUser> ListedUserAt(const RichTextBox& list, PanePosition at) {
  const PaneLine line = list.LineByIndex(list.LineAt(at));
  const PanePosition line_end = line.start + line.length;
  const std::vector<PaneRun> runs = list.RunsBetween(line.start, line_end);
  auto run = runs.begin();
  PanePosition nick_end = line.start;
  for (; run != runs.end() && run->format.underline; ++run)
    nick_end = run->start + run->length;
  const Text text = list.TextBetween(line.start, line_end);
  // A note is underlined, too, but begins with a blank.
  if (nick_end == line.start || text.starts_with(' ')) return std::nullopt;

  const auto cut = [&](PanePosition start, PanePosition end) {
    return text.substr(static_cast<std::size_t>(start - line.start),
                       static_cast<std::size_t>(end - start));
  };
  ListedUser user;
  user.nick = cut(line.start, nick_end);
  user.nick_start = line.start;
  // The blank behind the nick has the nick's colour, which may be any.
  PanePosition IP_end = 0;
  for (; run != runs.end(); ++run) {
    const PanePosition from = std::max(run->start, nick_end + 1);
    const PanePosition to = run->start + run->length;
    if (from >= to) continue;
    const bool red = run->format.colour == kAddressColour;
    if (red && IP_end == 0) user.IP_start = from;
    if (red) IP_end = to;
    if (!red && IP_end != 0) break;
  }
  if (IP_end != 0) user.IP = Trim(cut(user.IP_start, IP_end));
  return user;
}

std::optional<ListedUser> NextListedUser(const RichTextBox& list, std::int64_t line,
                                         ListDirection direction) {
  const std::int64_t step = direction == ListDirection::kDown ? 1 : -1;
  for (; line >= 0 && line < list.LineCount(); line += step)
    if (auto user = ListedUserAt(list, list.LineByIndex(line).start)) return user;
  return std::nullopt;
}

std::optional<ListedUser> FindListedUser(const RichTextBox& list, std::string_view nick) {
  const Text wanted = "\n" + Text(nick);
  auto at = FindForwards(list, wanted, 0, LetterCase::kCounts);
  for (; at; at = FindForwards(list, wanted, *at + 1, LetterCase::kCounts)) {
    auto user = ListedUserAt(list, *at + 1);
    if (user && user->nick == nick) return user;
  }
  return std::nullopt;
}

}  // namespace parlorwire
