#include "display/rank_colour.h"

#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PaneColour kOperator = 0xFFFF00;
constexpr PaneColour kChiefOperator = 0xB39640;
constexpr PaneColour kAdministrator = 0xFF;

}  // namespace

PaneColour RankColour(const AppState& app, std::string_view flags) {
  if (Contains(flags, "+o")) return kOperator;
  if (Contains(flags, "+O")) return kChiefOperator;
  if (Contains(flags, "+A")) return kAdministrator;
  return app.rRichColors.Nicks;
}

bool HasOperatorFlag(std::string_view flags) {
  return ContainsNoCase(flags, "+a") || ContainsNoCase(flags, "+o");
}

PaneColour ListedRankColour(const Client& client, std::string_view nick, int tab) {
  const UserRecords& users = client.tab(tab).UsersText;
  const Position at = users.Find(nick);
  if (at == 0) return client.app.rRichColors.Nicks;
  return RankColour(client.app, users.FlagsBehind(at, Len(nick)));
}

}  // namespace parlorwire
