// The sending half of the loop, and the ways in which a connection ends.
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

#include "service/form.h"
#include "service/loop.h"
#include "service/site.h"
#include "text/charset.h"

namespace parlorwire::service {
namespace {

constexpr std::int64_t kLingerMs = 2000;
// Long enough that the mark of an ejection arrives by itself.
constexpr std::int64_t kEjectPauseMs = 80;
constexpr std::size_t kGarbageBytes = 64;
// Bytes already sent that may stand in a buffer.
constexpr std::size_t kMostSentKept = 64 * 1024;

}  // namespace

bool Server::Loop::StartAnswer(Connection& connection, std::string bytes) {
  connection.phase = Phase::kAnswering;
  connection.out = std::move(bytes);
  connection.end = FrameEnd::kClose;
  SetDeadline(connection, now_.ms + options_.stall_ms);
  return Flush(connection);
}

// Moves what the chat wrote to its frames on to their connections: one send for each, however many
// lines there are.
void Server::Loop::SendFrames() {
  while (!chat_.touched.empty()) {
    for (const FrameId id : std::exchange(chat_.touched, {})) {
      const auto frame = chat_.frames.find(id);
      if (frame == chat_.frames.end()) continue;
      frame->second.touched = false;
      Connection& connection = connections_.at(frames_.at(id));
      if (connection.sent > kMostSentKept) {
        connection.out.erase(0, connection.sent);
        connection.sent = 0;
      }
      if (!connection.silent) connection.out += frame->second.out;
      frame->second.out.clear();
      connection.end = frame->second.end;
      const bool may_flush = connection.phase == Phase::kAnswering && !connection.waits_for_room;
      if (may_flush && !Flush(connection)) continue;
      if (connection.out.size() - connection.sent > options_.most_waiting)
        DropWithReset(connection);
    }
  }
}

// What the readers of the frames have not taken yet.
void Server::Loop::NoteWaiting() {
  for (const auto& [frame, id] : frames_) {
    const Connection& connection = connections_.at(id);
    chat_.frames.at(frame).waiting = connection.out.size() - connection.sent;
  }
}

bool Server::Loop::Flush(Connection& connection) {
  if (connection.drips_at > now_.ms) return true;
  while (connection.sent < connection.out.size()) {
    const std::size_t size = MaySend(connection);
    const ssize_t count =
        send(connection.fd, connection.out.data() + connection.sent, size, MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return WaitForRoom(connection);
    if (count < 0) {
      Drop(connection);
      return false;
    }
    connection.sent += static_cast<std::size_t>(count);
    const std::uint64_t id = connection.id;
    if (!AfterSend(connection, static_cast<std::size_t>(count))) return connections_.contains(id);
  }
  connection.out.clear();
  connection.sent = 0;
  if (connection.waits_for_room) {
    connection.waits_for_room = false;
    Watch(connection.fd, connection.id, EPOLLIN, EPOLL_CTL_MOD);
    if (connection.frame != 0) SetDeadline(connection, kForever);
  }
  return AllSent(connection);
}

// A reader that takes something now and then is waited for; one that takes nothing is not.
bool Server::Loop::WaitForRoom(Connection& connection) {
  SetDeadline(connection, now_.ms + options_.stall_ms);
  if (!connection.waits_for_room) {
    const std::uint32_t what = connection.peer_ended ? EPOLLOUT : EPOLLIN | EPOLLOUT;
    Watch(connection.fd, connection.id, what, EPOLL_CTL_MOD);
  }
  connection.waits_for_room = true;
  return true;
}

bool Server::Loop::AllSent(Connection& connection) {
  if (connection.phase != Phase::kAnswering || connection.end == FrameEnd::kNone) return true;
  if (connection.silent) return true;
  if (connection.end == FrameEnd::kClose) return Linger(connection);
  connection.phase = Phase::kEjecting;
  SetDeadline(connection, now_.ms + kEjectPauseMs);
  return true;
}

void Server::Loop::SendEjectMark(Connection& connection) {
  const Text mark = ConvertCharset(EjectMark(), Charset::kWindows1251, Charset::kKoi);
  send(connection.fd, mark.data(), mark.size(), MSG_NOSIGNAL);
  connection.phase = Phase::kEjected;
  SetDeadline(connection, now_.ms + kEjectPauseMs);
}

// Closes our side only: what the peer still sends would otherwise reset the connection and take the
// answer with it.
bool Server::Loop::Linger(Connection& connection) {
  ForgetFrame(connection);
  if (connection.peer_ended) {
    Drop(connection);
    return false;
  }
  shutdown(connection.fd, SHUT_WR);
  connection.phase = Phase::kLingering;
  SetDeadline(connection, now_.ms + kLingerMs);
  return true;
}

void Server::Loop::ForgetFrame(Connection& connection) {
  if (connection.frame == 0) return;
  FrameIsGone(chat_, connection.frame, now_);
  frames_.erase(connection.frame);
  connection.frame = 0;
}

void Server::Loop::Drop(Connection& connection) {
  ForgetFrame(connection);
  SetDeadline(connection, kForever);
  close(connection.fd);
  const std::uint64_t id = connection.id;
  connections_.erase(id);
}

void Server::Loop::DropWithReset(Connection& connection) {
  const linger hard{1, 0};
  setsockopt(connection.fd, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
  Drop(connection);
}

// "/misbehave?fault=..." from this machine changes the fault, if that is allowed.
bool Server::Loop::TakesControl(Connection& connection, const Request& request) {
  if (!options_.control || request.path != "/misbehave" || !connection.address.starts_with("127."))
    return false;
  const Form form = DecodeForm(request.query, FormBytes::kKoi);
  const auto wanted = ParseMisbehaviour(form["fault"]);
  if (!wanted) {
    StartAnswer(connection, ErrorAnswer(400));
    return true;
  }
  ChangeFault(*wanted);
  StartAnswer(connection, "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\n" +
                              MisbehaviourText(*wanted) + "\n");
  return true;
}

// What concerns all frames concerns the open ones, too.
void Server::Loop::ChangeFault(const Misbehaviour& wanted) {
  options_.misbehaviour = wanted;
  const bool is_for_frames =
      wanted.path.empty() && wanted.fault != Fault::kRandom && wanted.fault != Fault::kDrop;
  for (auto& [id, each] : connections_) {
    each.fault = is_for_frames && each.frame != 0 ? wanted : Misbehaviour{};
    each.since_fault = each.drips_at = 0;
  }
}

// What goes wrong with the answer to a request.
Misbehaviour Server::Loop::FaultOf(const Request& request) {
  const Misbehaviour& misbehaviour = options_.misbehaviour;
  if (!misbehaviour.path.empty() && misbehaviour.path != request.path) return {};
  if (misbehaviour.fault == Fault::kRandom) return RandomFault(misbehaviour.number, chat_.random);
  if (misbehaviour.fault == Fault::kDrop && ++requests_ % misbehaviour.number != 0) return {};
  return misbehaviour;
}

std::size_t Server::Loop::MaySend(const Connection& connection) {
  const std::size_t rest = connection.out.size() - connection.sent;
  if (connection.fault.fault == Fault::kNone) return rest;
  if (connection.fault.fault == Fault::kDrip) return 1;
  const std::int64_t until =
      std::max<std::int64_t>(1, connection.fault.number - connection.since_fault);
  return std::min(rest, static_cast<std::size_t>(until));
}

bool Server::Loop::AfterSend(Connection& connection, std::size_t count) {
  const Misbehaviour& misbehaviour = connection.fault;
  if (misbehaviour.fault == Fault::kNone) return true;
  if (misbehaviour.fault == Fault::kDrip) {
    connection.drips_at = now_.ms + misbehaviour.number;
    SetDeadline(connection, connection.drips_at);
    return false;
  }
  connection.since_fault += static_cast<std::int64_t>(count);
  if (connection.since_fault < misbehaviour.number) return true;
  connection.since_fault = 0;
  switch (misbehaviour.fault) {
    case Fault::kStall:
      connection.silent = true;
      connection.out.clear();
      connection.sent = 0;
      SetDeadline(connection, kForever);
      return false;
    case Fault::kCut:
      connection.out.clear();
      connection.sent = 0;
      Linger(connection);
      return false;
    case Fault::kReset:
      DropWithReset(connection);
      return false;
    case Fault::kGarbage: {
      std::string garbage;
      for (std::size_t i = 0; i < kGarbageBytes; ++i)
        garbage += static_cast<char>(chat_.random() & 0xFF);
      connection.out.insert(connection.sent, garbage);
      return true;
    }
    default:
      return true;
  }
}

}  // namespace parlorwire::service
