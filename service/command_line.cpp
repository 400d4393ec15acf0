#include "service/command_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "service/ascii.h"
#include "service/form.h"
#include "service/names.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kMostOptionDigits = 12;
constexpr std::int64_t kHour = 3600 * 1000;  // in ms
constexpr std::int64_t kKilobyte = 1024;
constexpr std::int64_t kMostRate = 1'000'000;

// The entries of "A, B", in UTF-8; empty ones are passed over.
std::vector<Text> List(std::string_view value) {
  std::vector<Text> list;
  for (const std::string_view part : Split(value, ","))
    if (!TrimView(part).empty()) list.push_back(FromUtf8(TrimView(part)));
  return list;
}

// A number from 0 to `most`, times `factor`. False if the value is none.
template <class Number>
bool SetNumber(Number& place, std::string_view value, std::int64_t most, std::int64_t factor = 1) {
  const auto number = ReadNumber(value, kMostOptionDigits);
  if (!number || *number > most) return false;
  place = static_cast<Number>(*number * factor);
  return true;
}

struct KnownOption {
  std::string_view name;
  bool has_value;
  bool (*set)(ServerOptions&, std::string_view);  // false if its value is none
};

using Options = ServerOptions;
using Value = std::string_view;

constexpr std::array<KnownOption, 38> kOptions = {{
    {"--port", true, [](Options& o, Value v) { return SetNumber(o.port, v, 65535); }},
    {"--address", true,
     [](Options& o, Value v) {
       o.address = v;
       return !v.empty();
     }},
    {"--quiet", false, [](Options& o, Value) { return !(o.inhabitants.present = false); }},
    {"--no-inhabitants", false, [](Options& o, Value) { return !(o.inhabitants.present = false); }},
    {"--visits", true,
     [](Options& o, Value v) { return SetNumber(o.inhabitants.visit_ms, v, 1000000, 1000); }},
    {"--talk", true, [](Options& o, Value v) { return SetNumber(o.inhabitants.talk, v, 1000000); }},
    {"--talk-lines", true,
     [](Options& o, Value v) { return SetNumber(o.inhabitants.talk_lines, v, 999999999); }},
    {"--talk-frames", true,
     [](Options& o, Value v) { return SetNumber(o.inhabitants.talk_frames, v, 100000); }},
    {"--talk-length", true,
     [](Options& o, Value v) { return SetNumber(o.inhabitants.talk_length, v, 400); }},
    {"--patient", false, [](Options& o, Value) { return o.inhabitants.patient = true; }},
    {"--channels", true,
     [](Options& o, Value v) {
       o.inhabitants.channels = List(v);
       return std::all_of(o.inhabitants.channels.begin(), o.inhabitants.channels.end(),
                          ChannelIsAllowed);
     }},
    {"--keepalive", true,
     [](Options& o, Value v) {
       return v != "0" && SetNumber(o.chat.keep_alive_ms, v, 1000000, 1000);
     }},
    {"--history", true, [](Options& o, Value v) { return SetNumber(o.chat.history, v, 200); }},
    {"--grace", true,
     [](Options& o, Value v) { return SetNumber(o.chat.grace_ms, v, 1000000, 1000); }},
    {"--kick-time", true,
     [](Options& o, Value v) { return SetNumber(o.chat.kick_ms, v, 1000000, 1000); }},
    {"--max-frames", true,
     [](Options& o, Value v) { return SetNumber(o.chat.most_frames, v, 100000); }},
    {"--max-connections", true,
     [](Options& o, Value v) { return SetNumber(o.most_connections, v, 100000); }},
    {"--ban", true,
     [](Options& o, Value v) {
       o.chat.banned = List(v);
       return !o.chat.banned.empty();
     }},
    {"--admin", true,
     [](Options& o, Value v) {
       o.chat.admins = List(v);
       return !o.chat.admins.empty();
     }},
    {"--trusted-proxy", true,
     [](Options& o, Value v) {
       o.chat.trusted_proxies = List(v);
       return !o.chat.trusted_proxies.empty();
     }},
    {"--max-accounts", true,
     [](Options& o, Value v) { return SetNumber(o.chat.most_accounts, v, 10000000); }},
    {"--accounts-per-address", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.accounts_of_address, v, 10000000); }},
    {"--account-idle", true,
     [](Options& o, Value v) {
       return SetNumber(o.chat.limits.account_idle_ms, v, 100000, kHour);
     }},
    {"--frames-per-nick", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.frames_of_account, v, 100000); }},
    {"--frames-per-address", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.frames_of_address, v, 100000); }},
    {"--connections-per-address", true,
     [](Options& o, Value v) { return SetNumber(o.connections_of_address, v, 100000); }},
    {"--history-kilobytes", true,
     [](Options& o, Value v) {
       return SetNumber(o.chat.limits.history_bytes, v, 100000, kKilobyte);
     }},
    {"--personal-kilobytes", true,
     [](Options& o, Value v) {
       return SetNumber(o.chat.limits.personal_bytes, v, 100000, kKilobyte);
     }},
    {"--turn-kilobytes", true,
     [](Options& o, Value v) {
       return v != "0" && SetNumber(o.bytes_a_turn, v, 1000000, kKilobyte);
     }},
    {"--login-rate", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.logins, v, kMostRate); }},
    {"--post-rate", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.posts, v, kMostRate); }},
    {"--personal-rate", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.personal, v, kMostRate); }},
    {"--post-rate-per-address", true,
     [](Options& o, Value v) { return SetNumber(o.chat.limits.posts_of_address, v, kMostRate); }},
    {"--waiting-megabytes", true,
     [](Options& o, Value v) {
       return SetNumber(o.most_waiting_of_all, v, 100000, kKilobyte * kKilobyte);
     }},
    {"--guess-wait", true,
     [](Options& o, Value v) {
       return SetNumber(o.chat.limits.longest_guess_wait_ms, v, 1000000, 1000);
     }},
    {"--seed", true, [](Options& o, Value v) { return SetNumber(o.seed, v, 999999999999); }},
    {"--form-b", false, [](Options& o, Value) { return o.chat.form_b = true; }},
    {"--misbehave", true,
     [](Options& o, Value v) {
       const auto misbehaviour = ParseMisbehaviour(v);
       if (misbehaviour) o.misbehaviour = *misbehaviour;
       o.control = true;
       return misbehaviour.has_value();
     }},
}};

}  // namespace

std::variant<CommandLine, std::string> ReadCommandLine(std::span<const char* const> arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string_view argument = arguments[i];
    if (argument == "--help" || argument == "-h") {
      line.help = true;
      continue;
    }
    std::optional<std::string_view> value;
    if (const auto equals = argument.find('='); equals != std::string_view::npos) {
      value = argument.substr(equals + 1);
      argument = argument.substr(0, equals);
    }
    const auto option =
        std::find_if(kOptions.begin(), kOptions.end(),
                     [&](const KnownOption& each) { return each.name == argument; });
    if (option == kOptions.end()) return "unknown option: " + std::string(argument);
    if (option->has_value && !value) {
      if (i + 1 == arguments.size()) return std::string(argument) + " needs a value";
      value = arguments[++i];
    }
    if (!option->has_value && value) return std::string(argument) + " takes no value";
    if (!option->set(line.options, value.value_or("")))
      return "bad value for " + std::string(argument) + ": " + std::string(value.value_or(""));
  }
  return line;
}

std::string_view HelpText() {
  return R"(chat_service: a chat for browsers and robots over HTTP/1.0

Prints "listening on ADDRESS:PORT" when it is ready, and ends on SIGTERM or SIGINT.

  --address A          listen on this IPv4 address (127.0.0.1)
  --port N             listen on this port; 0 takes a free one (0)
  --channels A,B       channels that are always there
  --quiet, --no-inhabitants
                       no inhabitants who talk, greet, come and go
  --visits S           one of the inhabitants comes or goes each S seconds; 0: now and then (0)
  --talk N             inhabitants say N lines a second on each channel that is read
  --talk-lines N       they fall silent after N lines on a channel
  --talk-frames N      they begin when N frames are open
  --talk-length N      their lines say N characters or somewhat more
  --patient            they wait for readers that have much to take yet
  --keepalive S        a line that carries nothing after S seconds of silence (30)
  --history N          lines that a newcomer is given, 0 to 200 (20)
  --grace S            a nick stays S seconds after its connection broke (3)
  --kick-time S        a kicked nick is kept out for S seconds (60)
  --form-b             the older form of the list of users
  --admin A,B          nicks that are administrators on every channel
  --ban A,B            nicks and addresses, with *, ? and #, that may not log in
  --trusted-proxy A,B  addresses, with *, ? and #, whose X-Forwarded-For is believed
  --max-frames N       with N frames open, logins and further frames are turned away (800)
  --frames-per-nick N  (32)
  --frames-per-address N
                       (400)
  --max-connections N  (1000)
  --connections-per-address N
                       (500)
  --max-accounts N     nicks that are known at a time (20000)
  --accounts-per-address N
                       that an address has made (500)
  --account-idle H     unused for H hours, a nick may be forgotten for a new one (24)
  --login-rate N       logins a second from an address, 10 N at once; 0: without a limit (50)
  --post-rate N        the same of what a nick says (20)
  --personal-rate N    the same of its personal messages (5)
  --post-rate-per-address N
                       of all of that by all nicks of an address (100)
  --guess-wait S       the longest wait behind a wrong password (60)
  --history-kilobytes N
                       what a channel keeps of what was said, and a newcomer is given (128)
  --personal-kilobytes N
                       what waits for a nick (64)
  --waiting-megabytes N
                       what may wait for all readers together (64)
  --turn-kilobytes N   what is made of answers before others have their turn (1024)
  --seed N             repeatable tickets and talk
  --misbehave KIND[:N][@PATH]
                       go wrong on purpose, for tests of clients: none, stall, cut, reset,
                       garbage, drip, drop, or any of them at random with N of 100 requests;
                       with @PATH in the answers to requests of that path alone; also allows
                       /misbehave?fault=KIND:N
  --help
)";
}

}  // namespace parlorwire::service
