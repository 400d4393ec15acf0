// Faults on purpose, for tests of clients: what the service does wrong with its answers.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace parlorwire::service {

enum class Fault {
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
  Fault fault = Fault::kNone;
  std::int64_t number = 0;  // what it means is the fault's affair, see ParseMisbehaviour
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

// What goes wrong with the answer to one request when faults come at random: often nothing. How
// often is the number of a kRandom.
Misbehaviour RandomFault(std::int64_t percent, const std::function<std::uint64_t()>& random);

}  // namespace parlorwire::service
