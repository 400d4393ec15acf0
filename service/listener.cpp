#include "service/listener.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace parlorwire::service {
namespace {

[[noreturn]] void Throw(int error, int fd, const char* what) {
  if (fd >= 0) close(fd);
  throw std::system_error(error, std::generic_category(), what);
}

int OpenReserve() {
  return open("/dev/null", O_RDONLY | O_CLOEXEC);
}

}  // namespace

Listener::Listener(const std::string& address, std::uint16_t port) {
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_port = htons(port);
  if (inet_pton(AF_INET, address.c_str(), &place.sin_addr) != 1) Throw(EINVAL, -1, "address");
  fd_ = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (fd_ < 0) Throw(errno, fd_, "socket");
  const int on = 1;
  setsockopt(fd_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  if (bind(fd_, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0)
    Throw(errno, fd_, "bind");
  if (listen(fd_, SOMAXCONN) != 0) Throw(errno, fd_, "listen");
  socklen_t length = sizeof place;
  getsockname(fd_, reinterpret_cast<sockaddr*>(&place), &length);
  port_ = ntohs(place.sin_port);
  reserve_ = OpenReserve();
}

Listener::~Listener() {
  close(fd_);
  if (reserve_ >= 0) close(reserve_);
}

std::optional<Listener::Accepted> Listener::Accept() {
  sockaddr_in peer{};
  socklen_t length = sizeof peer;
  const int fd =
      accept4(fd_, reinterpret_cast<sockaddr*>(&peer), &length, SOCK_NONBLOCK | SOCK_CLOEXEC);
  if (fd < 0 && (errno == EMFILE || errno == ENFILE)) TurnAwayOne();
  if (fd < 0) return std::nullopt;
  const int on = 1;
  setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  std::array<char, INET_ADDRSTRLEN> address{};
  inet_ntop(AF_INET, &peer.sin_addr, address.data(), address.size());
  return Accepted{fd, address.data()};
}

// A connection that is left waiting would keep its listener readable for nothing.
void Listener::TurnAwayOne() {
  if (reserve_ >= 0) close(reserve_);
  const int fd = accept4(fd_, nullptr, nullptr, SOCK_CLOEXEC);
  if (fd >= 0) close(fd);
  reserve_ = OpenReserve();
}

}  // namespace parlorwire::service
