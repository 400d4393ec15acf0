#include "session/answer_deadline.h"

#include <memory>
#include <utility>

#include "platform/socket_error.h"

namespace parlorwire {
namespace {

struct WatchedSocket {
  Winsock& socket;
  Timer& timer;
  Winsock::Events inner;  // what the socket's events do without a watch
  std::function<bool()> is_finite;

  void WaitAnew() const {
    timer.Enabled(false);
    timer.Enabled(is_finite());
  }

  void TimeOut() const {
    timer.Enabled(false);
    if (socket.State() != SocketState::kConnected) return;  // closed by the client meanwhile
    socket.Close();
    if (inner.Error) inner.Error(kSocketTimedOut, SocketErrorDescription(kSocketTimedOut));
  }
};

}  // namespace

void WatchAnswers(Winsock& socket, Timer& timer, std::function<bool()> is_finite) {
  const auto watched = std::make_shared<const WatchedSocket>(
      WatchedSocket{socket, timer, socket.events, std::move(is_finite)});
  timer.Interval(kAnswerDeadline);
  timer.Tick = [watched] { watched->TimeOut(); };
  socket.events.Connect = [watched] {
    if (watched->inner.Connect) watched->inner.Connect();
    watched->WaitAnew();
  };
  socket.events.DataArrival = [watched](std::size_t bytes_total) {
    if (watched->inner.DataArrival)
      watched->inner.DataArrival(bytes_total);
    else
      watched->socket.GetData();  // nobody reads it
    watched->WaitAnew();
  };
  socket.events.Close = [watched] {
    watched->timer.Enabled(false);
    if (watched->inner.Close) watched->inner.Close();
  };
  socket.events.Error = [watched](int number, const Text& description) {
    watched->timer.Enabled(false);
    if (watched->inner.Error) watched->inner.Error(number, description);
  };
}

}  // namespace parlorwire
