// The answer to a post, in chunks. The first byte of the input says how long the chunks are.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/posting.h"

using namespace parlorwire;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  TabSession& session = client.tab(0);
  session.Rich_Server.Text("old");
  button_say_MouseUp(client, 0, 1);
  SimulatedSocket& socket = Simulated(session.Winsock2);
  socket.Accept();
  std::string_view answer(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t chunk = std::max<std::size_t>(data[0], 1);
  while (!answer.empty()) {
    socket.Deliver(answer.substr(0, chunk));
    answer.remove_prefix(std::min(chunk, answer.size()));
  }
  socket.PeerCloses();

  if (!session.SendBuffer.empty()) std::abort();
  if (platform.files.files.contains("error.log")) std::abort();
  if (session.Rich_Server.Length() > static_cast<PanePosition>(size) + 3) std::abort();
  return 0;
}
