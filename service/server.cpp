#include "service/server.h"

#include "service/loop.h"

namespace parlorwire::service {

Server::Server(const ServerOptions& options) : loop_(std::make_unique<Loop>(options)) {}

Server::~Server() = default;

std::uint16_t Server::port() const {
  return loop_->port();
}

void Server::Run() {
  loop_->Run();
}

void Server::Stop() {
  loop_->Stop();
}

}  // namespace parlorwire::service
