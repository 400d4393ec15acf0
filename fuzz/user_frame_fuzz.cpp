// The list of users, in chunks. The first byte of the input says how long the chunks are.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "chunks.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/user_frame.h"

using namespace parlorwire;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  TabSession& session = client.tab(0);
  session.Login = "me";
  UpdateUsersFrame(client, 0);
  AnswerInChunks(Simulated(session.Winsock3), data, size);

  if (!session.UsersBuffer.empty()) std::abort();
  if (!session.Rich_Users.Redraw()) std::abort();
  // A script without an end repeats the page once; a line of the list adds separators to a user's
  // text.
  if (session.UsersText.text().size() > 8 * size + 64) std::abort();
  return 0;
}
