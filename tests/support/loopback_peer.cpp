#include "support/loopback_peer.h"

#include <arpa/inet.h>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace parlorwire {
namespace {

constexpr int kPatience = 5000;  // milliseconds

[[noreturn]] void Fail(const char* call) {
  throw std::runtime_error(std::string(call) + ": " + std::strerror(errno));
}

void Await(int descriptor, short what, const char* call) {
  pollfd entry{descriptor, what, 0};
  errno = ETIMEDOUT;
  if (poll(&entry, 1, kPatience) != 1) Fail(call);
}

struct Address {
  sockaddr_storage storage{};
  socklen_t length = 0;

  Address(const std::string& text, std::uint16_t port) {
    if (text.find(':') == std::string::npos) {
      auto* name = reinterpret_cast<sockaddr_in*>(&storage);
      name->sin_family = AF_INET;
      name->sin_port = htons(port);
      inet_pton(AF_INET, text.c_str(), &name->sin_addr);
      length = sizeof *name;
    } else {
      auto* name = reinterpret_cast<sockaddr_in6*>(&storage);
      name->sin6_family = AF_INET6;
      name->sin6_port = htons(port);
      inet_pton(AF_INET6, text.c_str(), &name->sin6_addr);
      length = sizeof *name;
    }
  }

  sockaddr* get() { return reinterpret_cast<sockaddr*>(&storage); }
  std::uint16_t port() const {
    return ntohs(storage.ss_family == AF_INET
                     ? reinterpret_cast<const sockaddr_in*>(&storage)->sin_port
                     : reinterpret_cast<const sockaddr_in6*>(&storage)->sin6_port);
  }
};

}  // namespace

// ---- a connection ----

PeerConnection::PeerConnection(PeerConnection&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

PeerConnection& PeerConnection::operator=(PeerConnection&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

PeerConnection::~PeerConnection() {
  Close();
}

void PeerConnection::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    Await(descriptor_, POLLOUT, "send");
    bytes.remove_prefix(SendSome(bytes));
  }
}

std::size_t PeerConnection::SendSome(std::string_view bytes) {
  const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
  if (sent < 0 && errno != EAGAIN) Fail("send");
  return sent < 0 ? 0 : static_cast<std::size_t>(sent);
}

std::string PeerConnection::Receive(std::size_t count) {
  std::string bytes(count, '\0');
  std::size_t have = 0;
  while (have < count) {
    Await(descriptor_, POLLIN, "recv");
    const ssize_t length = recv(descriptor_, bytes.data() + have, count - have, 0);
    if (length < 0) Fail("recv");
    if (length == 0) break;
    have += static_cast<std::size_t>(length);
  }
  bytes.resize(have);
  return bytes;
}

void PeerConnection::AwaitEnd() {
  std::string dropped(0x10000, '\0');
  do {
    Await(descriptor_, POLLIN, "recv");
  } while (recv(descriptor_, dropped.data(), dropped.size(), 0) > 0);
}

void PeerConnection::EndSending() {
  if (shutdown(descriptor_, SHUT_WR) != 0) Fail("shutdown");
}

void PeerConnection::Close() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

void PeerConnection::Reset() {
  // A reset takes back what the other side's kernel does not have yet.
  for (int waited = 0, unsent = 1; unsent > 0 && waited < kPatience; ++waited) {
    if (ioctl(descriptor_, SIOCOUTQ, &unsent) != 0) Fail("ioctl");
    if (unsent > 0) usleep(1000);
  }
  const linger at_once{1, 0};
  setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
  Close();
}

// ---- the listener ----

LoopbackPeer::LoopbackPeer(const std::string& address, int backlog, std::uint16_t port)
    : address_(address) {
  Address name(address, port);
  descriptor_ = socket(name.storage.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor_ < 0) Fail("socket");
  if (bind(descriptor_, name.get(), name.length) != 0) Fail("bind");
  if (listen(descriptor_, backlog) != 0) Fail("listen");
  if (getsockname(descriptor_, name.get(), &name.length) != 0) Fail("getsockname");
  port_ = name.port();
}

LoopbackPeer::~LoopbackPeer() {
  StopListening();
  for (const int filler : fillers_)
    close(filler);
}

PeerConnection LoopbackPeer::Accept() {
  Await(descriptor_, POLLIN, "accept");
  const int descriptor = accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC);
  if (descriptor < 0) Fail("accept");
  return PeerConnection(descriptor);
}

bool LoopbackPeer::AnyoneWaits() const {
  pollfd entry{descriptor_, POLLIN, 0};
  return poll(&entry, 1, 0) == 1;
}

void LoopbackPeer::StopListening() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

void LoopbackPeer::FillBacklog() {
  Address name(address_, port_);
  // One that isn't answered shows that all places are taken.
  for (int attempt = 0; attempt < 64; ++attempt) {
    const int filler =
        socket(name.storage.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (filler < 0) Fail("socket");
    fillers_.push_back(filler);
    if (connect(filler, name.get(), name.length) != 0 && errno != EINPROGRESS) Fail("connect");
    pollfd entry{filler, POLLOUT, 0};
    if (poll(&entry, 1, 100) == 0) return;
  }
  throw std::runtime_error("the backlog doesn't fill");
}

}  // namespace parlorwire
