#include "bot/ip_log.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr const char* kIpLog = "IPlog.log";
constexpr std::string_view kLineEnd = "\r\n";

// The largest file, in bytes, that is taken for a log: more than a million addresses.
constexpr std::int64_t kLargestLog = std::int64_t{64} * 1024 * 1024;

// As find(), for a text of megabytes.
std::size_t Find(const Text& log, const Text& address) {
  const auto at = std::search(log.begin(), log.end(),
                              std::boyer_moore_horspool_searcher(address.begin(), address.end()));
  return at == log.end() ? Text::npos : static_cast<std::size_t>(at - log.begin());
}

// The file has the log but for what was put to its end, at `at`, just now. After a write that
// failed it is too short for that.
bool OnlyLacksTheEnd(Client& client, std::size_t at, std::size_t added) {
  const Files& files = client.platform.files;
  return at + added == client.app.IpLogText.size() && files.Exists(kIpLog) &&
         files.Size(kIpLog) == static_cast<std::int64_t>(at);
}

void Insert(Client& client, std::size_t at, const Text& addition) {
  AppState& app = client.app;
  app.IpLogText.insert(at, addition);
  if (app.IpLogUnknown) return;
  GoOnAfterFault(client, ". Function: SayBotFunction.", [&] {
    if (OnlyLacksTheEnd(client, at, addition.size()))
      client.platform.files.Append(kIpLog, addition);
    else
      client.platform.files.ReplaceUnflushed(kIpLog, app.IpLogText);
  });
}

}  // namespace

void LoadIpLog(Client& client) {
  const Files& files = client.platform.files;
  client.app.IpLogText.clear();
  client.app.IpLogUnknown = !PassOverFault([&] {
    if (!files.Exists(kIpLog)) return;
    if (files.Size(kIpLog) > kLargestLog) throw Fault(fault::kPathFileAccess);
    client.app.IpLogText = files.Read(kIpLog);
  });
}

SeenBefore LogNickAtAddress(Client& client, const Text& nick, const Text& address) {
  const Text& log = client.app.IpLogText;
  const std::size_t at = Find(log, address);
  if (at == Text::npos) {
    Insert(client, log.size(), Text(kLineEnd) + address + " " + nick);
    return {};
  }
  const std::size_t end = std::min(log.find(kLineEnd, at), log.size());
  const std::size_t blank = std::min(log.find(' ', at), end);
  const Text names = blank == end ? Text() : log.substr(blank + 1, end - blank - 1);
  SeenBefore seen{true, ContainsNoCase(" " + names + " ", " " + nick + " "), names};
  if (seen.nick)
    seen.others = Trim(ReplaceNoCase(" " + names + " ", " " + nick + " ", " "));
  else
    Insert(client, end, " " + nick);
  return seen;
}

}  // namespace parlorwire
