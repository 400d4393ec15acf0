// The answer to a post, in chunks. The first byte of the input says how long the chunks are.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "chunks.h"
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
  button_say_MouseUp(client, 0);
  AnswerInChunks(Simulated(session.Winsock2), data, size);

  if (!session.SendBuffer.empty()) std::abort();
  if (platform.files.files.contains("error.log")) std::abort();
  if (session.Rich_Server.Length() > static_cast<PanePosition>(size) + 3) std::abort();
  return 0;
}
