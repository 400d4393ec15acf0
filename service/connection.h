// One connection of the service, from its acceptance to its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "service/channel.h"
#include "service/frame.h"
#include "service/misbehaviour.h"
#include "service/request_reader.h"

namespace parlorwire::service {

// How far a connection has come.
enum class Phase {
  kReading,    // the request
  kQueued,     // the request is whole, and waits for a turn in which there is room for its answer
  kAnswering,  // with an answer that ends, or with a frame
  kEjecting,   // all of the frame is sent; its last mark goes out by itself after a pause
  kEjected,    // the mark is sent; the connection closes after a pause
  kLingering,  // our side is closed; the peer may still be sending
};

struct Connection {
  int fd = -1;
  std::uint64_t id = 0;
  Phase phase = Phase::kReading;
  RequestReader reader;
  std::string address;               // of the peer, in digits
  std::string out;                   // bytes of the answer
  std::size_t sent = 0;              // bytes of `out` that are gone
  std::size_t counted = 0;           // bytes that it counts for in what waits for all
  FrameId frame = 0;                 // 0: an answer that ends
  FrameEnd end = FrameEnd::kNone;    // what comes when all is sent
  bool waits_for_room = false;       // the socket takes no more at the moment
  bool peer_ended = false;           // the peer sends no more, but still reads
  std::int64_t deadline = kForever;  // ms; what happens then depends on the phase
  Mishap mishap;                     // what goes wrong with it on purpose
};

}  // namespace parlorwire::service
