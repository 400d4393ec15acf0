#include "bot/join_report.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bot/ip_log.h"
#include "display/framed_notice.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// Nobody touches these, nor the user: the service's robot and two wardens.
constexpr std::array<std::string_view, 3> kExempt = {W<"операторша">, "wardenone", "wardentwo"};

// What the chat's filter of words would catch in a nick, and what goes out for it.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kMasked = {
    {{"fuck", "f*ck"}, {"xye", "x*e"}, {"e60", "e*0"}, {"CYKA", "C*KA"}}};

constexpr std::size_t kMostNamed = 10;  // nicks at an address; of more, the latest only
constexpr std::size_t kLatest = 7;
constexpr std::size_t kHead = 4;  // the length of "/op " and of " *n "

struct Whereabouts {
  Text ip;
  Text flags;
};

bool IsExempt(const TabSession& session, const Text& nick) {
  return EqualsNoCase(nick, session.Login) ||
         std::ranges::any_of(kExempt, [&](auto name) { return EqualsNoCase(nick, name); });
}

// The field behind the line feed at `feed`; moves `feed` to the one that ends it. "" without one.
Text FieldBehind(const Text& users, std::size_t& feed) {
  if (feed == Text::npos) return {};
  const std::size_t start = feed + 1;
  feed = users.find('\n', start);
  return feed == Text::npos ? Text() : users.substr(start, feed - start);
}

Whereabouts WhereaboutsAt(const Text& users, Position nick_at) {
  std::size_t feed = users.find('\n', static_cast<std::size_t>(nick_at - 1));
  Text ip = FieldBehind(users, feed);
  return {std::move(ip), FieldBehind(users, feed)};
}

// ". Совпадение IP: " and the other users whose record has the address behind the nick.
Text OthersPresent(const Text& users, const Text& ip, const Text& nick) {
  Text found;
  const std::boyer_moore_horspool_searcher searcher(ip.begin(), ip.end());
  for (auto hit = std::search(users.begin(), users.end(), searcher); hit != users.end();
       hit = std::search(hit + 1, users.end(), searcher)) {
    const auto at = static_cast<std::size_t>(hit - users.begin());
    const std::size_t record = users.rfind("\r\n", at) + 2;
    const std::size_t nick_end = users.find('\n', record);
    if (nick_end >= at) continue;  // it is the nick that reads like it
    const Text other = users.substr(record, nick_end - record);
    if (EqualsNoCase(other, nick)) continue;
    found += (found.empty() ? ". Совпадение IP: "_w : ", ") + other;
  }
  return found;
}

// What is said of the other nicks at the address; "" if there are none.
Text NoteOf(const Text& others) {
  const std::vector<std::string_view> nicks = Split(others, " ");
  if (nicks.empty()) return {};
  if (nicks.size() <= kMostNamed)
    return " *n На этом же IP записаны: "_w + Replace(others, " ", ", ");
  Text note =
      " *n На этом же IP записаны (последние 7 из "_w + std::to_string(nicks.size()) + "): ";
  for (std::size_t i = nicks.size() - kLatest; i < nicks.size(); ++i)
    note.append(nicks[i]).append(i + 1 < nicks.size() ? ", " : "");
  return note;
}

void Say(Client& client, const Text& report, const Text& note, int tab) {
  const TabSession& session = client.tab(tab);
  if (!client.app.SayIPAndFlags || !session.SayReportOnTab) return;
  if (session.SayReportInChat) {
    Text line = report + note;
    for (const auto& [word, masked] : kMasked)
      line = ReplaceNoCase(line, word, masked);
    client.hooks.SayBot(line, tab);
  } else {
    Text lines = report.substr(kHead);
    if (!note.empty()) lines += "\r\n" + note.substr(kHead);
    BotReportOut(client, lines, tab);
  }
}

void Report(Client& client, const Text& nick, const Whereabouts& user, int tab) {
  Text report = "/op " + nick + " " + Trim(user.ip + " " + user.flags);
  const SeenBefore seen = LogNickAtAddress(client, nick, user.ip);
  if (!seen.address)
    report += ". IP logged";
  else if (!seen.nick)
    report += ". Nick logged";
  report += OthersPresent(client.tab(tab).UsersText.text(), user.ip, nick);
  Say(client, report, NoteOf(seen.others), tab);
}

// Whether what has begun may go on: not if waiting events have ended the session, or if a newer
// list was treated among them.
class Run {
 public:
  explicit Run(TabSession& session)
      : session_(session), session_number_(session.SessionNumber), run_(++session.ReportRun) {}

  bool Stands() const {
    return session_.SessionNumber == session_number_ && session_.ReportRun == run_;
  }

 private:
  const TabSession& session_;
  std::uint32_t session_number_;
  std::uint32_t run_;
};

// False if none of those behind this nick is to be treated.
bool Treat(Client& client, const Text& nick, int tab, const Run& run) {
  TabSession& session = client.tab(tab);
  session.JoinLines = Replace("\r\n" + session.JoinLines, "\r\n" + nick, "");
  if (IsExempt(session, nick)) return true;
  const Position at = session.UsersText.Find(nick);
  if (at == 0) return true;
  const Whereabouts user = WhereaboutsAt(session.UsersText.text(), at);
  if (user.ip.empty()) return false;
  if (client.app.AutoKick) {
    Text reason;
    GoOnAfterFault(client, ". Function: SayBotFunction.", [&] {
      reason = client.hooks.FindAutoKick(user.ip, session.Channel, false, nick);
    });
    if (!run.Stands()) return false;
    if (!reason.empty()) {
      client.hooks.SayBot("/k " + nick + " " + reason, tab);
      return true;
    }
  }
  Report(client, nick, user, tab);
  return true;
}

}  // namespace

void SayBotFunction(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (TrimView(session.JoinLines).empty() || !session.IsOperator) return;
  const Run run(session);
  const Text joined = session.JoinLines;
  for (const std::string_view nick : Split(joined, "\r\n")) {
    client.platform.desktop.YieldToEvents();
    if (!run.Stands()) return;
    if (!nick.empty() && !Treat(client, Text(nick), tab, run)) return;
  }
}

}  // namespace parlorwire
