// The port to a TCP connection: one socket that is connected, closed and connected again for as
// long as the process lives.
#pragma once

#include <cstddef>
#include <functional>

#include "text/text.h"

namespace parlorwire {

// The states that anybody asks for, with their classic numbers.
enum class SocketState {
  kClosed = 0,
  kConnecting = 6,  // from Connect until the connection stands or fails, name resolution included
  kConnected = 7,
  kClosing = 8,  // the peer has closed; Close has not been called yet
  kError = 9,    // an error was reported; Close has not been called yet
};

// What the logic may rely on:
// - Nothing throws, and nothing blocks.
// - All events come from the event loop, never from inside a call.
// - A handler may call Close, Connect and SendData on its own socket.
// - Whatever the peer sent is delivered by DataArrival before Close or Error is raised. Without a
//   handler for it nothing is kept of what the peer sends.
// - After Close no event of the closed connection arrives any more.
// - One connection ends with exactly one Close event (the peer ended it in good order) or exactly
//   one Error event (anything else), and no event follows that one.
class Winsock {
 public:
  struct Events {
    std::function<void()> Connect;
    // `bytes_total` bytes are waiting; at least 1. Whatever the handler does not take with GetData
    // is handed over together with what comes next.
    std::function<void(std::size_t bytes_total)> DataArrival;
    std::function<void()> Close;
    // `number` is the Windows Sockets number of the failure, `description` its English text.
    std::function<void(int number, const Text& description)> Error;
  };

  virtual ~Winsock() = default;

  // Starts to connect; closes what was open before. `port` is decimal; one that is no number in
  // 1..65535 is reported as error 10049. A connect that gets no answer fails with 10060 after 21 s.
  virtual void Connect(const Text& host, const Text& port) = 0;

  // Closes at once. Legal in any state. Bytes not yet sent are dropped.
  virtual void Close() = 0;

  // Sends the bytes of `bytes`, in order, buffering what the kernel does not take. Without a
  // connection it does nothing.
  virtual void SendData(const Text& bytes) = 0;

  // All bytes received since the last call; empty if there are none.
  virtual Text GetData() = 0;

  virtual SocketState State() const = 0;

  Events events;
};

}  // namespace parlorwire
