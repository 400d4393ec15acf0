#include "display/notice_jump.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "pane/search.h"
#include "session/client.h"

namespace parlorwire {
namespace {

// What the first line of a notice says.
struct Noticed {
  Text channel;
  Text login;
  PanePosition id = 0;  // where the line begins in its pane
};

std::optional<PanePosition> ReadId(std::string_view digits) {
  PanePosition id = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), id);
  if (read.ec != std::errc() || id < 0) return std::nullopt;
  return id;
}

// "Канал " channel " [" login "] id#" id.
std::optional<Noticed> ReadNotice(const RichTextBox& pane, PanePosition jump) {
  constexpr std::string_view kBegin = W<"\r\nКанал">;
  constexpr std::string_view kId = " id#";
  const auto begin = FindBackwards(pane, kBegin, jump, LetterCase::kIgnored);
  if (!begin) return std::nullopt;
  const PanePosition start = *begin + static_cast<PanePosition>(kBegin.size()) + 1;
  const auto end = FindForwards(pane, "\r\n", start, LetterCase::kCounts);
  const Text header = pane.TextBetween(start, end.value_or(pane.Length()));
  const std::size_t bracket = header.rfind(" [");
  const std::size_t id = header.rfind(kId);
  if (bracket == Text::npos || id == Text::npos) return std::nullopt;
  const std::size_t closing = header.find(']', bracket);
  const auto number = ReadId(std::string_view(header).substr(id + kId.size()));
  if (closing == Text::npos || !number) return std::nullopt;
  return Noticed{header.substr(0, bracket), header.substr(bracket + 2, closing - bracket - 2),
                 *number};
}

std::optional<int> TabOf(const Client& client, const Noticed& noticed) {
  for (int tab = 0; tab < kTabCount; ++tab) {
    const TabSession& session = client.tab(tab);
    if (client.platform.desktop.TabVisible(tab) && session.Channel == noticed.channel &&
        session.Login == noticed.login)
      return tab;
  }
  return std::nullopt;
}

}  // namespace

void JumpToNoticed(Client& client, int tab, PanePosition jump) {
  Desktop& desktop = client.platform.desktop;
  const auto noticed = ReadNotice(client.tab(tab).Rich, jump);
  if (!noticed) return;
  const auto wanted = TabOf(client, *noticed);
  if (!wanted) {
    desktop.MessageBox(
        "Невозможно перейти на канал "_w + noticed->channel + ", он не открыт в клиенте!"_w,
        BoxIcon::kExclamation);
    return;
  }
  RichTextBox& pane = client.tab(*wanted).Rich;
  if (noticed->id > pane.Length()) {
    desktop.MessageBox("Не могу найти данное сообщение!"_w, BoxIcon::kExclamation);
    return;
  }
  // What is selected while it is hidden becomes the reader's when it is shown.
  pane.HideSelection(true);
  pane.SelStart(noticed->id);
  pane.HideSelection(false);
  if (*wanted != desktop.ActiveTab()) desktop.SetActiveTab(*wanted);
}

}  // namespace parlorwire
