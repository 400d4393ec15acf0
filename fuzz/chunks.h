// An answer that comes in chunks.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/simulated_platform.h"

namespace parlorwire {

// The connection stands, the input comes in chunks as long as its first byte says, and the peer
// closes. `size` is at least 1.
inline void AnswerInChunks(SimulatedSocket& socket, const std::uint8_t* data, std::size_t size) {
  std::string_view answer(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t chunk = std::max<std::size_t>(data[0], 1);
  socket.Accept();
  while (!answer.empty()) {
    socket.Deliver(answer.substr(0, chunk));
    answer.remove_prefix(std::min(chunk, answer.size()));
  }
  socket.PeerCloses();
}

}  // namespace parlorwire
