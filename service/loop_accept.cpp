// How the loop takes connections, and which of them go when there are too many.
#include <sys/epoll.h>

#include <algorithm>
#include <utility>

#include "service/loop.h"
#include "service/site.h"

namespace parlorwire::service {
namespace {

// Connections over the limit that are answered, and not just dropped.
constexpr std::size_t kMostTurnedAway = 100;

}  // namespace

void Server::Loop::Accept() {
  while (auto accepted = listener_.Accept()) {
    Connection& connection = connections_[next_id_];
    connection.fd = accepted->fd;
    connection.id = next_id_++;
    connection.address = std::move(accepted->address);
    ++from_[connection.address];
    reading_.insert(connection.id);
    Watch(connection.fd, connection.id, EPOLLIN, EPOLL_CTL_ADD);
    SetDeadline(connection, now_.ms + options_.request_ms);
    if (MakeRoomFor(connection)) continue;
    // Those that are being told so take room for a while, too.
    const bool flood =
        connections_.size() > options_.most_connections + kMostTurnedAway ||
        from_[connection.address] > options_.connections_of_address + kMostTurnedAway;
    if (flood)
      DropWithReset(connection);
    else
      StartAnswer(connection, ErrorAnswer(503));
  }
}

bool Server::Loop::MakeRoomFor(const Connection& connection) {
  const bool too_many_of_address = from_[connection.address] > options_.connections_of_address &&
                                   !IsTrusted(chat_.options, connection.address);
  if (too_many_of_address && !DropOldestReading(connection.address, connection.id)) return false;
  return connections_.size() <= options_.most_connections || DropOldestReading({}, connection.id);
}

// "" is any address.
bool Server::Loop::DropOldestReading(const std::string& address, std::uint64_t but) {
  const auto oldest = std::find_if(reading_.begin(), reading_.end(), [&](std::uint64_t id) {
    return id != but && (address.empty() || connections_.at(id).address == address);
  });
  if (oldest == reading_.end()) return false;
  DropWithReset(connections_.at(*oldest));
  return true;
}

}  // namespace parlorwire::service
