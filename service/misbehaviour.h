// Faults on purpose, for tests of clients: what the service does wrong with its frames.
#pragma once

#include <cstdint>
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
};

struct Misbehaviour {
  Fault fault = Fault::kNone;
  std::int64_t number = 0;  // what it means is the fault's affair, see ParseMisbehaviour
};

// "stall:N", "cut:N", "reset:N": after N bytes of a frame; "garbage:N": 64 bytes each N bytes of a
// frame; "drip:N": a byte of a frame each N ms; "drop:N": each Nth request; "none". Without ":N" N
// is 2000, for drip 5, for drop 10. Nothing if it is none of these, or N is not 1 to 999999999.
std::optional<Misbehaviour> ParseMisbehaviour(std::string_view text);

// The same as text again.
std::string MisbehaviourText(const Misbehaviour& misbehaviour);

}  // namespace parlorwire::service
