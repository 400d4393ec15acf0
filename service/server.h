// A server of the chat: sockets, time-outs and buffers. One thread; every socket is non-blocking.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "service/chat.h"
#include "service/inhabitants.h"
#include "service/misbehaviour.h"

namespace parlorwire::service {

struct ServerOptions {
  std::string address = "127.0.0.1";  // IPv4, in digits
  std::uint16_t port = 0;             // 0 takes a free one
  std::size_t most_connections = 1000;
  std::size_t connections_of_address = 500;  // but of a trusted proxy as many as it likes
  // How much may be made of answers in one turn of the loop; what is asked for behind it waits for
  // the next turn. What people say never waits.
  std::size_t bytes_a_turn = 1024 * 1024;
  std::int64_t request_ms = 15000;  // how long a request may take to come in
  std::int64_t stall_ms = 30000;    // how long a reader may take nothing of what waits for him
  std::size_t most_waiting = 4 * 1024 * 1024;  // bytes that may wait for one reader
  // And for all of them; beyond, those go who have more than an equal share.
  std::size_t most_waiting_of_all = std::size_t{64} * 1024 * 1024;
  ChatOptions chat;
  InhabitantOptions inhabitants;
  Misbehaviour misbehaviour;
  bool control = false;    // whether "/misbehave" may change it
  std::uint64_t seed = 0;  // 0: tickets and talk come from the system's randomness
};

class Server {
 public:
  // Listens at once. Throws std::system_error if it can't.
  explicit Server(const ServerOptions& options);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  std::uint16_t port() const;

  // Serves until Stop is called, then closes every connection.
  void Run();

  // May be called from any thread, and from a signal handler.
  void Stop();

 private:
  class Loop;
  std::unique_ptr<Loop> loop_;
};

}  // namespace parlorwire::service
