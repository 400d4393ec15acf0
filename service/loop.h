// The loop of a server: waits for sockets and deadlines, and carries bytes between the connections
// and the chat. Nothing in here waits for one peer.
#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "service/chat.h"
#include "service/connection.h"
#include "service/inhabitants.h"
#include "service/listener.h"
#include "service/misbehaviour.h"
#include "service/moment.h"
#include "service/server.h"

namespace parlorwire::service {

// The functions that say so return false when the connection is no more.
class Server::Loop {
 public:
  explicit Loop(const ServerOptions& options);
  ~Loop();
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  std::uint16_t port() const { return listener_.port(); }
  void Run();
  void Stop();

 private:
  void Watch(int fd, std::uint64_t id, std::uint32_t what, int operation);
  int WaitMs() const;
  void SetDeadline(Connection& connection, std::int64_t at);
  void RunDeadlines();
  void OnDeadline(Connection& connection);

  void Accept();
  // Sees to it that there is room for a connection that has just come: the oldest request that is
  // not whole yet goes first, of the same address if that has too many. False: there is none.
  bool MakeRoomFor(const Connection& connection);
  bool DropOldestReading(const std::string& address, std::uint64_t but);
  void OnReady(std::uint64_t id, std::uint32_t what);
  bool Read(Connection& connection);     // false: no more
  bool ReadEnd(Connection& connection);  // false: no more
  bool Serve(Connection& connection);    // false: no more
  void ServeQueued();
  // A request that changes what goes wrong on purpose.
  bool Obey(Connection& connection, const Request& request);  // false: no more

  bool StartAnswer(Connection& connection, std::string bytes);  // false: no more
  void SendFrames();
  void Count(Connection& connection);
  bool LetsTooMuchWait(const Connection& connection) const;
  bool Flush(Connection& connection);        // false: no more
  bool WaitForRoom(Connection& connection);  // false: no more
  bool AllSent(Connection& connection);      // false: no more
  bool Linger(Connection& connection);       // false: no more
  void SendEjectMark(Connection& connection);
  void ForgetFrame(Connection& connection);
  void Drop(Connection& connection);
  void DropWithReset(Connection& connection);

  bool Suffer(Connection& connection, Blow blow);  // false: no more
  void NoteWaiting();

  ServerOptions options_;
  Listener listener_;
  Chat chat_;
  Inhabitants inhabitants_;
  Mischief mischief_;
  Moment now_;
  int epoll_ = -1;
  int waker_ = -1;
  std::uint64_t next_id_ = 2;  // of a connection; those below are the loop's own
  std::unordered_map<std::uint64_t, Connection> connections_;
  std::unordered_map<FrameId, std::uint64_t> frames_;  // the connections of the frames
  std::set<std::pair<std::int64_t, std::uint64_t>> deadlines_;
  std::unordered_map<std::string, std::size_t> from_;  // the connections of each address
  std::set<std::uint64_t> reading_;                    // those in kReading, the oldest first
  std::deque<std::uint64_t> queued_;                   // those in kQueued, and some that are gone
  std::size_t waiting_ = 0;                            // bytes, for all connections that count
  std::size_t bytes_left_ = 0;                         // to be made of answers in this turn
};

}  // namespace parlorwire::service
