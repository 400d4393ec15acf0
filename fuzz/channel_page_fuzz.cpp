// The page of channels, by both ways that it comes: as the frame's answer to a tab without a
// channel, and as the answer to a leave. The first byte of the input says how long the chunks are.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "chunks.h"
#include "session/connect.h"
#include "session/leaving.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"

using namespace parlorwire;

namespace {

// A key in a value is a key, too: so much may stand in the pane of what came.
void BoundPane(const TabSession& session, std::size_t size) {
  constexpr std::size_t kWords = 1000;  // of the statuses and the labels
  if (static_cast<std::size_t>(session.Rich.Length()) > kWords + size * (size + 20)) std::abort();
  if (!session.Rich.Redraw()) std::abort();
}

void AsAFrame(const std::uint8_t* data, std::size_t size) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  TabSession& session = client.tab(0);
  session.Login = "me";
  ConnectToChat(client, 0);
  SimulatedSocket& socket = Simulated(session.Winsock1);
  socket.Accept();
  socket.Deliver("&ticket=T'");
  socket.PeerCloses();
  AnswerInChunks(socket, data, size);
  BoundPane(session, size);
  // A list is shown, and nothing follows.
  if (!session.IsChannelList) return;
  if (!session.ChannelListPage.empty() || session.Connected || session.Connecting) std::abort();
  if (session.Timer1->Enabled() || session.Timer3->Enabled()) std::abort();
  if (socket.State() != SocketState::kClosing) std::abort();
}

void AsALeave(const std::uint8_t* data, std::size_t size) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  TabSession& session = client.tab(0);
  session.Login = "me";
  session.Channel = "hall";
  LeaveChannel(client, 0);
  AnswerInChunks(Simulated(session.Winsock5), data, size);
  BoundPane(session, size);
  if (session.IsChannelList && !session.ChannelListPage.empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  AsAFrame(data, size);
  AsALeave(data, size);
  return 0;
}
