#include "display/mention_notice.h"

#include <optional>
#include <string>
#include <utility>

#include "display/framed_notice.h"
#include "session/both_languages.h"
#include "session/client.h"

namespace parlorwire {
namespace {

constexpr int kMostMentions = 20;  // in a second, of one tab

std::optional<int> TabForMentions(const Client& client, int tab) {
  const Desktop& desktop = client.platform.desktop;
  const int shown_tab = desktop.ActiveTab();
  const TabSession& shown = client.tab(shown_tab);
  if (tab == shown_tab || !desktop.IsActiveWindow()) return std::nullopt;
  if (!shown.Connected || shown.IsChannelList) return std::nullopt;
  return shown_tab;
}

void ShowMention(Client& client, std::string_view text, int tab, PanePosition start) {
  const auto shown_tab = TabForMentions(client, tab);
  if (!shown_tab) return;
  const TabSession& session = client.tab(tab);
  MentionBox(client, text, session.Login, session.Channel, *shown_tab, start);
}

}  // namespace

void TellMention(Client& client, std::string_view text, int tab, PanePosition start) {
  if (!TabForMentions(client, tab)) return;
  TabSession& session = client.tab(tab);
  session.MentionSecond->Enabled(true);
  if (++session.MentionsThisSecond <= kMostMentions)
    ShowMention(client, text, tab, start);
  else if (++session.MentionsHeld == 1)
    session.FirstMentionHeld = start;
}

void MentionSecond_Timer(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.MentionSecond->Enabled(false);
  session.MentionsThisSecond = 0;
  const int held = std::exchange(session.MentionsHeld, 0);
  if (held == 0) return;
  const Text text =
      InLanguage(client, {W<">>Ещё упоминаний за секунду: ">, ">>More mentions in this second: "}) +
      std::to_string(held);
  ShowMention(client, text, tab, session.FirstMentionHeld);
}

}  // namespace parlorwire
