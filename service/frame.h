// Frames: answers that don't end, of a channel or of personal messages. What a frame shall send
// gathers in its `out`, in the wire's character set; whoever has the connections takes it from
// there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

using FrameId = std::uint64_t;  // 0 is none

// What shall become of a frame once its `out` is sent.
enum class FrameEnd {
  kNone,
  kClose,
  kEject,  // send EjectMark() by itself, then close
};

struct Frame {
  FrameId id = 0;
  Text account;  // key of the account
  Text channel;  // key of the channel; "" for personal messages
  Text place;    // the address that it goes to, see PlaceOf
  Text host;     // under which the service was asked for personal messages; else ""
  Text out;      // bytes of the wire
  FrameEnd end = FrameEnd::kNone;
  std::int64_t wrote_ms = 0;  // when something was last written
  bool touched = false;       // stands in Frames::touched
  std::size_t waiting = 0;    // bytes that the reader has not taken; kept for patient talk only
};

struct Frames {
  std::unordered_map<FrameId, Frame> open;  // a Frame stays where it is as long as it is in here
  FrameId next = 1;
  std::vector<FrameId> touched;  // those with something in `out` or with an end; each once
};

// A frame with a number of its own and nothing in it.
Frame& OpenFrame(Frames& frames, const Text& account);

// Puts a text in Windows-1251 on its way. A frame that has its end takes nothing more.
void Write(Frames& frames, Frame& frame, std::string_view text, const Moment& now);

// The same with bytes of the wire.
void WriteWire(Frames& frames, Frame& frame, std::string_view bytes, const Moment& now);

// Ends a frame behind what it has written. The first end that is told counts.
void End(Frames& frames, Frame& frame, FrameEnd end);

}  // namespace parlorwire::service
