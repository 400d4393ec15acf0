// The list of kicks: any file, and look-ups in it, against the same said plainly. The parts of the
// input are separated by NULs: the file, the channels that are disabled, a channel, a nick, and
// then what is sought.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "bot/autokick.h"
#include "support/simulated_platform.h"
#include "text/cut.h"
#include "text/fault.h"
#include "text/wildcard.h"

using namespace parlorwire;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

bool PlainlyMatches(std::string_view text, std::string_view mask) {
  if (mask.empty()) return text.empty();
  if (mask[0] == '*') {
    for (std::size_t run = 0; run <= text.size(); ++run)
      if (PlainlyMatches(text.substr(run), mask.substr(1))) return true;
    return false;
  }
  if (text.empty()) return false;
  const bool fits = mask[0] == '?' || (mask[0] == '#' && text[0] >= '0' && text[0] <= '9') ||
                    (mask[0] != '#' && EqualsNoCase(text.substr(0, 1), mask.substr(0, 1)));
  return fits && PlainlyMatches(text.substr(1), mask.substr(1));
}

struct Answer {
  Text reason;
  int fault = 0;
  bool operator==(const Answer&) const = default;
};

bool Names(const Text& list, const Text& element) {
  return InStrNoCase(";" + list + ";", ";" + element + ";") != 0;
}

bool AddressMatches(const Text& address, const Text& mask) {
  const auto masks = Split(mask, ".");
  if (masks.size() != 4) return false;
  for (const std::string_view group : masks) {
    if (group.empty() || group.size() > 3) return false;
    for (const char c : group)
      if (!Contains("0123456789*?", std::string_view(&c, 1))) return false;
  }
  const auto groups = Split(address, ".");
  ElementAt(groups, 3);
  for (std::size_t i = 0; i < 4; ++i)
    if (!PlainlyMatches(groups[i], masks[i])) return false;
  return true;
}

Text PlainlyFind(const AppState& app, const Text& who, const Text& channel, bool by_nick,
                 const Text& nick) {
  if (app.AutoKickText.empty()) return {};
  if (InStrNoCase(" " + app.DisableKickChannels + " ", " " + channel + " ") != 0) return {};
  Text result;
  for (const std::string_view piece : Split(app.AutoKickText, "\r\n")) {
    const Text line(piece);
    if (line.empty() || Left(line, 2) == "//") continue;
    const Position p1 = InStr(line, "\t");
    const Position p2 = InStr(p1 + 1, line, "\t");
    if (p2 == 0) return result;
    const Position p3 = p2 == Len(line) ? 0 : InStr(p2 + 1, line, "\t");
    const Text mask = Left(line, p1 - 1);
    if (!(by_nick ? PlainlyMatches(who, mask) : AddressMatches(who, mask))) continue;
    const Text channels = Mid(line, p1 + 1, p2 - p1 - 1);
    if (!Names(channels, "all") && !Names(channels, channel)) continue;
    if (p2 == Len(line)) {
      result = kDefaultReason;
    } else if (p3 == Len(line)) {
      return Right(line, Len(line) - p2 - 1);
    } else {
      if (Names(Right(line, Len(line) - p3), nick)) return {};
      return Mid(line, p2 + 1, p3 - p2 - 1);
    }
  }
  return {};
}

template <class Find>
Answer AnswerOf(Find find) {
  try {
    return {find(), 0};
  } catch (const Fault& fault) {
    return {"", fault.number};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 2000) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto parts = Split(input, std::string_view("\0", 1));
  if (parts.size() < 4) return 0;
  SimulatedPlatform platform;
  Client client(platform.Ports());
  const Text file(parts[0]);
  platform.files.files["AutoKick.lst"] = file;
  LoadAutoKick(client);
  Check(file.starts_with(client.app.AutoKickText) && !client.app.AutoKickText.ends_with("\r\n"));
  client.app.DisableKickChannels = parts[1];
  const Text channel(parts[2]);
  const Text nick(parts[3]);
  for (std::size_t i = 4; i < parts.size() && i < 8; ++i) {
    const Text who(parts[i].substr(0, 24));
    for (const bool by_nick : {true, false}) {
      platform.desktop.events_waiting = i % 2 == 0;
      const Answer answer =
          AnswerOf([&] { return FindAutoKick(client, who, channel, by_nick, nick); });
      // Many stars in a mask take the plain way too long.
      if (Len(Replace(file, "*", "")) + 6 < Len(file)) continue;
      const Answer expected =
          AnswerOf([&] { return PlainlyFind(client.app, who, channel, by_nick, nick); });
      Check(answer == expected);
    }
  }
  SaveAutoKick(client);
  Check(platform.files.files["AutoKick.lst"].ends_with("modify!\r\n" + client.app.AutoKickText));
  return 0;
}
