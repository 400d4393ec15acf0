#include "platform/qt/qt_winsock.h"

#include <net/if.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QHostAddress>
#include <QHostInfo>
#include <QPointer>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>

#include "platform/qt/text_conversion.h"
#include "platform/socket_error.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// 0 for what is no number in 1..65535.
std::uint16_t PortNumber(const Text& text) {
  const std::string_view digits = TrimView(text);
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
  return error == std::errc() && end == digits.data() + digits.size() ? port : std::uint16_t{0};
}

int ConnectTo(int descriptor, const QHostAddress& address, std::uint16_t port) {
  if (address.protocol() == QAbstractSocket::IPv4Protocol) {
    sockaddr_in name{};
    name.sin_family = AF_INET;
    name.sin_port = htons(port);
    name.sin_addr.s_addr = htonl(address.toIPv4Address());
    return connect(descriptor, reinterpret_cast<const sockaddr*>(&name), sizeof name);
  }
  sockaddr_in6 name{};
  name.sin6_family = AF_INET6;
  name.sin6_port = htons(port);
  name.sin6_scope_id = if_nametoindex(address.scopeId().toUtf8().constData());
  const Q_IPV6ADDR bytes = address.toIPv6Address();
  std::memcpy(&name.sin6_addr, &bytes, sizeof name.sin6_addr);
  return connect(descriptor, reinterpret_cast<const sockaddr*>(&name), sizeof name);
}

// Finds out in about two minutes that a silent peer is dead. What can't be set stays as it is.
void KeepAlive(int descriptor) {
  const auto set = [descriptor](int level, int option, int value) {
    setsockopt(descriptor, level, option, &value, sizeof value);
  };
  set(SOL_SOCKET, SO_KEEPALIVE, 1);
  set(IPPROTO_TCP, TCP_KEEPIDLE, 60);
  set(IPPROTO_TCP, TCP_KEEPINTVL, 15);
  set(IPPROTO_TCP, TCP_KEEPCNT, 4);
}

bool IsPassing(int error) {
  return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

}  // namespace

QtWinsock::QtWinsock(std::chrono::milliseconds connect_timeout)
    : connect_timeout_(connect_timeout) {
  address_timer_.setSingleShot(true);
  address_timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&address_timer_, &QTimer::timeout, &context_,
                   [this] { AddressFailed(ETIMEDOUT); });
}

QtWinsock::~QtWinsock() {
  Close();
}

void QtWinsock::Later(void (QtWinsock::*member)()) {
  QMetaObject::invokeMethod(
      &context_,
      [this, member, connection = connection_] {
        if (connection == connection_) (this->*member)();
      },
      Qt::QueuedConnection);
}

void QtWinsock::Connect(const Text& host, const Text& port) {
  Close();
  state_ = SocketState::kConnecting;
  host_ = host;
  port_ = PortNumber(port);
  Later(&QtWinsock::LookUp);
}

void QtWinsock::Close() {
  ++connection_;
  ReleaseSocket();
  state_ = SocketState::kClosed;
  addresses_.clear();
  received_.clear();
}

void QtWinsock::ReleaseSocket() {
  address_timer_.stop();
  // A notifier must not outlive its descriptor, whose number the next socket may get.
  readable_.reset();
  writable_.reset();
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = -1;
  to_send_.clear();
  first_error_ = 0;
  raising_ = false;
}

// ---- connecting ----

void QtWinsock::LookUp() {
  if (port_ == 0) return EndByError(kSocketAddressNotAvailable);
  const QString host = ToQString(host_);
  if (QHostAddress address; address.setAddress(host)) {
    addresses_ = {address};
    connect_deadline_ = std::chrono::steady_clock::now() + connect_timeout_;
    return ConnectToNextAddress();
  }
  // Not for context_: the toolkit never frees what it was to call for an object that is gone.
  const auto found = [this, alive = QPointer<QObject>(&context_),
                      connection = connection_](const QHostInfo& info) {
    if (alive && connection == connection_) LookedUp(info);
  };
  QHostInfo::lookupHost(host, QCoreApplication::instance(), found);
}

void QtWinsock::LookedUp(const QHostInfo& info) {
  if (info.error() == QHostInfo::HostNotFound) return EndByError(kSocketHostNotFound);
  if (info.error() != QHostInfo::NoError) return EndByError(kSocketTryAgain);
  addresses_ = info.addresses();
  last_address_error_ = EADDRNOTAVAIL;
  connect_deadline_ = std::chrono::steady_clock::now() + connect_timeout_;
  ConnectToNextAddress();
}

void QtWinsock::ConnectToNextAddress() {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  while (!addresses_.isEmpty()) {
    const auto left = connect_deadline_ - std::chrono::steady_clock::now();
    const auto part = duration_cast<milliseconds>(left / addresses_.size());
    const QHostAddress address = addresses_.takeFirst();
    const bool is_ip4 = address.protocol() == QAbstractSocket::IPv4Protocol;
    descriptor_ =
        socket(is_ip4 ? AF_INET : AF_INET6, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor_ >= 0) {
      KeepAlive(descriptor_);
      if (ConnectTo(descriptor_, address, port_) == 0 || errno == EINPROGRESS) {
        writable_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Write);
        QObject::connect(writable_.get(), &QSocketNotifier::activated, &context_, [this] {
          if (state_ == SocketState::kConnecting)
            ConnectEnded();
          else
            Write();
        });
        address_timer_.start(std::max(part, milliseconds(1)));
        return;
      }
    }
    last_address_error_ = errno;
    ReleaseSocket();
  }
  EndByError(SocketErrorFromErrno(last_address_error_));
}

void QtWinsock::AddressFailed(int error) {
  last_address_error_ = error;
  ReleaseSocket();
  ConnectToNextAddress();
}

void QtWinsock::ConnectEnded() {
  int error = 0;
  socklen_t length = sizeof error;
  if (getsockopt(descriptor_, SOL_SOCKET, SO_ERROR, &error, &length) != 0) error = errno;
  // A connection that the peer has reset already did stand, and what the peer sent is there to
  // read.
  const bool stood = error == 0 || error == ECONNRESET || error == EPIPE;
  if (!stood) return AddressFailed(error);

  address_timer_.stop();
  addresses_.clear();
  writable_->setEnabled(false);
  readable_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
  QObject::connect(readable_.get(), &QSocketNotifier::activated, &context_, [this] { Read(); });
  state_ = SocketState::kConnected;
  if (error != 0) RememberError(error);
  Raise([handler = events.Connect] {
    if (handler) handler();
  });
}

// ---- connected ----

void QtWinsock::Raise(const std::function<void()>& event) {
  const QPointer<QObject> alive(&context_);
  const std::uint64_t connection = connection_;
  raising_ = true;
  readable_->setEnabled(false);
  event();
  if (!alive || connection != connection_) return;
  raising_ = false;
  readable_->setEnabled(true);
  // The notifier says nothing of an error that has been told already.
  if (first_error_ != 0) Later(&QtWinsock::Read);
}

void QtWinsock::SendData(const Text& bytes) {
  if (state_ != SocketState::kConnected || first_error_ != 0) return;
  const bool others_wait = !to_send_.empty();
  to_send_ += bytes;
  if (!others_wait) Write();
}

void QtWinsock::Write() {
  std::size_t sent = 0;
  while (sent < to_send_.size()) {
    const ssize_t taken =
        send(descriptor_, to_send_.data() + sent, to_send_.size() - sent, MSG_NOSIGNAL);
    if (taken < 0) {
      if (errno == EINTR) continue;
      if (!IsPassing(errno)) RememberError(errno);
      break;
    }
    sent += static_cast<std::size_t>(taken);
  }
  to_send_.erase(0, first_error_ == 0 ? sent : Text::npos);
  writable_->setEnabled(!to_send_.empty());
}

void QtWinsock::RememberError(int error) {
  if (first_error_ == 0) first_error_ = error;
  Later(&QtWinsock::Read);
}

Text QtWinsock::GetData() {
  return std::exchange(received_, Text());
}

void QtWinsock::Read() {
  if (state_ != SocketState::kConnected || raising_) return;
  std::array<char, kReadBudget> bytes;
  const ssize_t length = recv(descriptor_, bytes.data(), bytes.size(), 0);
  if (length < 0) {
    if (first_error_ == 0 && IsPassing(errno)) return;
    return EndByError(SocketErrorFromErrno(first_error_ != 0 ? first_error_ : errno));
  }
  if (length == 0) {
    if (first_error_ != 0) return EndByError(SocketErrorFromErrno(first_error_));
    return EndByPeer();
  }
  if (events.DataArrival) received_.append(bytes.data(), static_cast<std::size_t>(length));
  Raise([handler = events.DataArrival, total = received_.size()] {
    if (handler) handler(total);
  });
}

// ---- the end ----

void QtWinsock::EndByPeer() {
  ReleaseSocket();
  state_ = SocketState::kClosing;
  const auto handler = events.Close;
  if (handler) handler();
}

void QtWinsock::EndByError(int number) {
  ReleaseSocket();
  state_ = SocketState::kError;
  const auto handler = events.Error;
  if (handler) handler(number, SocketErrorDescription(number));
}

}  // namespace parlorwire
