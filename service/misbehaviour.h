// Going wrong on purpose, for tests of clients: what the service does wrong with its answers, and
// all that the loop has to ask for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "service/request_reader.h"

namespace parlorwire::service {

enum class MisbehaviourKind {
  kNone,
  kStall,    // sends nothing any more, and keeps the connection
  kCut,      // closes in the middle of a line
  kReset,    // resets the connection
  kGarbage,  // sends random bytes, and goes on
  kDrip,     // sends one byte at a time
  kDrop,     // reads a request, and never answers it
  kRandom,   // one of the others, now and then
};

struct Misbehaviour {
  MisbehaviourKind kind = MisbehaviourKind::kNone;
  std::int64_t number = 0;  // what it means is the kind's affair, see ParseMisbehaviour
  std::string path;         // of the requests that it concerns; "" if it is not bound to any
};

// "stall:N", "cut:N", "reset:N": after N bytes of a frame; "garbage:N": 64 bytes each N bytes of a
// frame; "drip:N": a byte of a frame each N ms; "drop:N": each Nth request; "random:N": one of
// these with N of 100 requests, frame or not; "none". Without ":N" N is 2000, for drip 5, for drop
// and random 10. "@/path" behind it makes it concern the answers to requests of that path alone,
// frames or not. Nothing if it is none of these, or N is not 1 to 999999999, for random 1 to 100.
std::optional<Misbehaviour> ParseMisbehaviour(std::string_view text);

// The same as text again.
std::string MisbehaviourText(const Misbehaviour& misbehaviour);

// What befalls one connection.
struct Mishap {
  Misbehaviour misbehaviour;
  bool silent = false;           // nothing is ever sent again
  std::int64_t since = 0;        // bytes sent since it struck last
  std::int64_t waits_until = 0;  // ms; nothing is sent ahead of that
};

// What the whole service does wrong.
struct Mischief {
  Misbehaviour wanted;
  bool may_change = false;                // whether "/misbehave" changes it
  std::function<std::uint64_t()> random;  // any 64 bits; must be set
  std::int64_t requests = 0;              // that a kDrop has counted
};

// Whether a request, from that address, is one that changes what goes wrong: "/misbehave" from this
// machine.
bool IsControl(const Mischief& mischief, const Request& request, std::string_view address);

// Does what such a request wants, "?fault=" and a text for ParseMisbehaviour. False if it wants
// nothing that there is.
bool TakeControl(Mischief& mischief, const Request& request);

// What befalls the answer to a request; often nothing. A silent one: it is never answered.
Mishap BefallRequest(Mischief& mischief, const Request& request);

// What befalls an answer that ends: nothing, unless the misbehaviour concerns more than frames.
Mishap BefallAnswer(const Mischief& mischief, const Mishap& of_request);

// What befalls an open connection once another misbehaviour is wanted: what concerns all frames
// concerns the open ones, too.
Mishap BefallOpen(const Mischief& mischief, const Mishap& before, bool is_frame);

// How many of the `rest` bytes that wait may be sent at once.
std::size_t MaySend(const Mishap& mishap, std::size_t rest);

// What happens to a connection.
enum class Blow {
  kNone,
  kPause,    // it sends nothing up to waits_until
  kSilence,  // it sends nothing ever again
  kClose,
  kReset,
  kGarbage,  // Garbage() goes out ahead of what waits
};

// The blow that the last `count` bytes sent call down.
Blow AfterSend(Mishap& mishap, std::size_t count, std::int64_t now_ms);

// 64 random bytes.
std::string Garbage(Mischief& mischief);

}  // namespace parlorwire::service
