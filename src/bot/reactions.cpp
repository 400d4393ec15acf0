#include "bot/reactions.h"

#include <cstdint>
#include <string>
#include <vector>

#include "bot/join_highlight.h"
#include "display/rank_colour.h"
#include "pane/search.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr std::string_view kUserEnd = "\r\n";

// What a line says of a nick, in lower case and without the address in brackets behind it. With two
// brackets at the end, what stands ahead of the last two groups.
Text WithoutAddress(const Text& rest) {
  if (!rest.ends_with(")")) return rest;
  Position bracket = InStrRev(rest, "(");
  if (rest.ends_with("))")) bracket = InStrRev(rest, "(", bracket - 1);
  return Trim(Left(rest, bracket - 2));
}

// The first three words; "" if there are fewer.
Text PhraseOf(std::string_view rest) {
  const std::vector<std::string_view> words = Split(rest, " ");
  if (words.size() < 3) return {};
  return Text(words[0]) + " " + Text(words[1]) + " " + Text(words[2]);
}

// A line that the client reacts to.
struct Reaction {
  Client& client;
  const Text& line;
  int tab;

  TabSession& session() const { return client.tab(tab); }
  // One of the statements that may fault. After a fault, which is logged, the next one runs.
  template <class Statement>
  void GoOn(Statement&& statement) const {
    GoOnAfterFault(client, ". Function: ClientAction. Dump: " + DumpText(line), statement);
  }
};

void GreetUser(const Reaction& reaction, const Text& nick) {
  Client& client = reaction.client;
  TabSession& session = reaction.session();
  if (client.app.AutoKick && session.IsOperator) {
    const std::uint32_t session_number = session.SessionNumber;
    Text reason;
    reaction.GoOn([&] { reason = client.hooks.FindAutoKick(nick, session.Channel, true, ""); });
    if (session.SessionNumber != session_number) return;
    if (!reason.empty()) {
      client.hooks.SayBot("/k " + nick + " " + reason, reaction.tab);
      return;
    }
  }
  reaction.GoOn([&] { StartJoinHighlight(client, reaction.tab, nick); });
  session.JoinLines += session.JoinLines.empty() ? nick : "\r\n" + nick;
  client.hooks.UpdateUsersFrame(reaction.tab);
}

void LoseRank(Client& client, int tab) {
  client.tab(tab).IsOperator = false;
  client.tab(tab).SayUseOpState = false;
  Desktop& desktop = client.platform.desktop;
  if (desktop.ActiveTab() == tab) desktop.SetSayUseOp(false, false);
}

void ActOn(const Reaction& reaction, const Text& nick, std::string_view phrase) {
  const bool own = EqualsNoCase(nick, reaction.session().Login);
  if (phrase == W<"приходит на канал"> || phrase == W<"приходит к нам">)
    GreetUser(reaction, nick);
  else if (phrase == W<"стал оператором канала"> || phrase == W<"стал администратором чата">) {
    if (own)
      reaction.client.hooks.UpdateUsersFrame(reaction.tab);  // the new flag comes with the list
  } else if (phrase == W<"больше не оператор"> || phrase == W<"больше не администратор">) {
    if (own) LoseRank(reaction.client, reaction.tab);
  }
}

}  // namespace

void ClientAction(Client& client, const Text& line, int tab) {
  if (!client.tab(tab).ActionsArmed) return;
  const Reaction reaction{client, line, tab};
  const Position blank = InStr(line, " ");
  Text nick;
  reaction.GoOn([&] { nick = Left(line, blank - 1); });
  Text rest = LCase(Mid(line, blank + 1));
  reaction.GoOn([&] { rest = WithoutAddress(rest); });
  if (rest == W<"покидает нас">)
    reaction.GoOn([&] { RemoveUser(client, nick, tab); });
  else
    ActOn(reaction, nick, PhraseOf(rest));
}

void RemoveUser(Client& client, std::string_view nick, int tab) {
  if (nick.empty()) return;
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  RichTextBox& list = session.Rich_Users;
  const auto hit = FindForwards(list, nick, 0, LetterCase::kIgnored);
  if (!hit) return;
  const auto line_end = FindForwards(list, kUserEnd, *hit, LetterCase::kCounts);
  if (!line_end) return;  // not a user but the note behind the list
  list.HideSelection(true);
  list.ExSetSel(*hit, *line_end + Len(kUserEnd));
  list.ReplaceSel("");

  const Text caption = desktop.UsersNumCaption(tab);
  if (caption.empty()) return;  // a new list is on its way
  const Position blank = InStr(caption, " ");
  const Position slash = InStr(caption, "/");
  std::int32_t operators = ToLong(Mid(caption, blank + 1, slash - blank - 1));
  const std::int32_t users = ToLong(Mid(caption, slash + 1)) - 1;
  const Position record = session.UsersText.Find("\r\n" + Text(nick) + "\n");
  if (record != 0) {
    if (HasOperatorFlag(session.UsersText.FlagsOfRecord(record + 2))) --operators;
  }
  desktop.SetUsersNumCaption(
      tab, "Пользователей: "_w + std::to_string(operators) + "/" + std::to_string(users));
}

}  // namespace parlorwire
