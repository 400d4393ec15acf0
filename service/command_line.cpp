#include "service/command_line.h"

#include <algorithm>
#include <array>
#include <functional>

#include "service/form.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

std::optional<std::int64_t> Number(std::string_view text, std::int64_t most) {
  if (text.empty() || text.size() > 12) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  if (number > most) return std::nullopt;
  return number;
}

std::vector<Text> List(std::string_view value) {
  std::vector<Text> list;
  for (const std::string_view part : Split(value, ","))
    if (!TrimView(part).empty()) list.push_back(FromUtf8(TrimView(part)));
  return list;
}

// Sets what an option says; false if its value is none.
using Setter = bool (*)(ServerOptions&, std::string_view);

template <auto kPlace>
bool SetNumber(ServerOptions& options, std::string_view value, std::int64_t most,
               std::int64_t factor) {
  const auto number = Number(value, most);
  if (!number) return false;
  kPlace(options) =
      static_cast<std::remove_reference_t<decltype(kPlace(options))>>(*number * factor);
  return true;
}

struct Option {
  std::string_view name;
  bool has_value;
  Setter set;
};

constexpr std::array<Option, 21> kOptions = {{
    {"--port", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.port; }>(o, v, 65535, 1);
     }},
    {"--address", true,
     [](ServerOptions& o, std::string_view v) {
       o.address = v;
       return !v.empty();
     }},
    {"--quiet", false,
     [](ServerOptions& o, std::string_view) { return !(o.inhabitants.present = false); }},
    {"--no-inhabitants", false,
     [](ServerOptions& o, std::string_view) { return !(o.inhabitants.present = false); }},
    {"--talk", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.inhabitants.talk; }>(o, v, 1000000,
                                                                                      1);
     }},
    {"--talk-lines", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.inhabitants.talk_lines; }>(
           o, v, 999999999, 1);
     }},
    {"--talk-frames", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.inhabitants.talk_frames; }>(
           o, v, 100000, 1);
     }},
    {"--talk-length", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.inhabitants.talk_length; }>(
           o, v, 400, 1);
     }},
    {"--patient", false,
     [](ServerOptions& o, std::string_view) { return o.inhabitants.patient = true; }},
    {"--channels", true,
     [](ServerOptions& o, std::string_view v) {
       o.inhabitants.channels = List(v);
       return std::all_of(o.inhabitants.channels.begin(), o.inhabitants.channels.end(),
                          [](const Text& name) { return ChannelIsAllowed(name); });
     }},
    {"--keepalive", true,
     [](ServerOptions& o, std::string_view v) {
       return v != "0" && SetNumber<[](ServerOptions& s) -> auto& { return s.chat.keep_alive_ms; }>(
                              o, v, 1000000, 1000);
     }},
    {"--history", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.chat.history; }>(o, v, 200, 1);
     }},
    {"--grace", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.chat.grace_ms; }>(o, v, 1000000,
                                                                                   1000);
     }},
    {"--kick-time", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.chat.kick_ms; }>(o, v, 1000000,
                                                                                  1000);
     }},
    {"--max-frames", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.chat.most_frames; }>(o, v, 100000,
                                                                                      1);
     }},
    {"--max-connections", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.most_connections; }>(o, v, 100000,
                                                                                      1);
     }},
    {"--ban", true,
     [](ServerOptions& o, std::string_view v) {
       o.chat.banned = List(v);
       return !o.chat.banned.empty();
     }},
    {"--admin", true,
     [](ServerOptions& o, std::string_view v) {
       o.chat.admins = List(v);
       return !o.chat.admins.empty();
     }},
    {"--seed", true,
     [](ServerOptions& o, std::string_view v) {
       return SetNumber<[](ServerOptions& s) -> auto& { return s.seed; }>(o, v, 999999999999, 1);
     }},
    {"--form-b", false, [](ServerOptions& o, std::string_view) { return o.chat.form_b = true; }},
    {"--misbehave", true,
     [](ServerOptions& o, std::string_view v) {
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
    const auto option = std::find_if(kOptions.begin(), kOptions.end(),
                                     [&](const Option& each) { return each.name == argument; });
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
  --ban A,B            nicks and addresses, with * and ?, that may not log in
  --max-frames N       with N frames open, logins are turned away (800)
  --max-connections N  (1000)
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
