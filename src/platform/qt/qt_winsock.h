// A TCP connection: a non-blocking socket of the system on the toolkit's event loop.
#pragma once

#include <QList>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/winsock.h"

class QHostAddress;
class QHostInfo;
class QSocketNotifier;

namespace parlorwire {

// - One DataArrival is one read of at most kReadBudget bytes, and one read is made each time that
// the
//   event loop finds the socket readable. So other events have their turn between two of them.
// - The addresses of a name are tried in their order; the error of the last one is reported. They
//   share the time-out: none takes more than its part of what is left.
// - The time-out begins when the name has been resolved; a look-up ends by the system's resolver.
// - While the handler of Connect or DataArrival runs, the next event of that connection waits, also
// if
//   the handler lets the event loop run.
// - A handler may also destroy the socket that calls it.
// - Needs a QCoreApplication while it looks names up.
// - Nothing wakes the process while a connection is silent.
class QtWinsock : public Winsock {
 public:
  // Some fifty lines of a frame: also with all ten tabs behind, a turn of the event loop stays
  // short.
  static constexpr std::size_t kReadBudget = 4 * 1024;
  static constexpr std::chrono::milliseconds kConnectTimeout = std::chrono::seconds(21);

  explicit QtWinsock(std::chrono::milliseconds connect_timeout = kConnectTimeout);
  ~QtWinsock() override;

  void Connect(const Text& host, const Text& port) override;
  void Close() override;
  void SendData(const Text& bytes) override;
  Text GetData() override;
  SocketState State() const override { return state_; }

 private:
  // Calls a member later, from the event loop, unless the connection has been closed by then.
  void Later(void (QtWinsock::*member)());

  void LookUp();
  void LookedUp(const QHostInfo& info);
  void ConnectToNextAddress();
  void AddressFailed(int error);
  void ConnectEnded();
  void Raise(const std::function<void()>& event);  // one after which the connection still stands
  void Read();
  void Write();
  void RememberError(int error);

  // Both end the connection with its one event.
  void EndByPeer();
  void EndByError(int number);

  void ReleaseSocket();

  std::chrono::milliseconds connect_timeout_;
  SocketState state_ = SocketState::kClosed;

  QObject context_;  // of everything that is called later
  std::uint64_t connection_ =
      0;  // counts Connect and Close: what belongs to an older one is dropped

  Text host_;
  std::uint16_t port_ = 0;
  QList<QHostAddress> addresses_;  // not yet tried
  std::chrono::steady_clock::time_point connect_deadline_;
  QTimer address_timer_;
  int last_address_error_ = 0;  // errno

  int descriptor_ = -1;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;  // enabled while connecting and while bytes wait
  Text received_;
  Text to_send_;
  // The first errno of this connection, or 0. The system tells an error once, on whatever call
  // comes next, and then pretends that the stream ended in good order.
  int first_error_ = 0;
  bool raising_ = false;
};

}  // namespace parlorwire
