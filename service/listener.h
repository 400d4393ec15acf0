// The socket that takes connections.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace parlorwire::service {

class Listener {
 public:
  // Listens on an IPv4 address, in digits; port 0 takes a free one. Throws std::system_error if it
  // can't.
  Listener(const std::string& address, std::uint16_t port);
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  int fd() const { return fd_; }  // for waiting; readable when a connection waits
  std::uint16_t port() const { return port_; }

  struct Accepted {
    int fd = -1;          // non-blocking; the caller closes it
    std::string address;  // of the peer, in digits
  };

  // The next connection that waits; none if there is none. With no descriptor left for it, one is
  // turned away.
  std::optional<Accepted> Accept();

 private:
  void TurnAwayOne();

  int fd_ = -1;
  int reserve_ = -1;  // a descriptor to give up when there is no other left
  std::uint16_t port_ = 0;
};

}  // namespace parlorwire::service
