#include "service/loop.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <functional>
#include <memory>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>

#include "service/personal.h"
#include "service/presence.h"
#include "service/presentation.h"
#include "service/site.h"
#include "text/charset.h"

namespace parlorwire::service {
namespace {

constexpr std::uint64_t kListener = 0;
constexpr std::uint64_t kWaker = 1;
constexpr std::size_t kReadAtOnce = 16 * 1024;
constexpr std::int64_t kLingerMs = 2000;
// Long enough that the mark of an ejection arrives by itself.
constexpr std::int64_t kEjectPauseMs = 80;
// Bytes already sent that may stand in a buffer.
constexpr std::size_t kMostSentKept = 64 * 1024;

// What people say goes ahead of what they look at.
bool IsUrgent(const Request& request) {
  return request.path == "/newmsg_t" || request.path == kPersonalPostPage;
}

Moment Now() {
  const auto running = std::chrono::steady_clock::now().time_since_epoch();
  const std::time_t wall = std::time(nullptr);
  std::tm local{};
  localtime_r(&wall, &local);
  return {std::chrono::duration_cast<std::chrono::milliseconds>(running).count(),
          static_cast<std::int64_t>(wall) + local.tm_gmtoff};
}

std::function<std::uint64_t()> MakeRandom(std::uint64_t seed) {
  if (seed != 0) return [engine = std::mt19937_64(seed)]() mutable { return engine(); };
  return [device = std::make_shared<std::random_device>()] {
    return (static_cast<std::uint64_t>((*device)()) << 32) | (*device)();
  };
}

}  // namespace

Server::Loop::Loop(const ServerOptions& options)
    : options_(options), listener_(options.address, options.port) {
  chat_.options = options.chat;
  chat_.random = MakeRandom(options.seed);
  mischief_.wanted = options.misbehaviour;
  mischief_.may_change = options.control;
  mischief_.random = [this] { return chat_.random(); };
  epoll_ = epoll_create1(EPOLL_CLOEXEC);
  waker_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (epoll_ < 0 || waker_ < 0)
    throw std::system_error(errno, std::generic_category(), "the event loop");
  Watch(listener_.fd(), kListener, EPOLLIN, EPOLL_CTL_ADD);
  Watch(waker_, kWaker, EPOLLIN, EPOLL_CTL_ADD);
}

Server::Loop::~Loop() {
  for (const auto& [id, connection] : connections_)
    close(connection.fd);
  for (const int fd : {waker_, epoll_})
    if (fd >= 0) close(fd);
}

void Server::Loop::Stop() {
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(waker_, &one, sizeof one);
}

void Server::Loop::Run() {
  now_ = Now();
  inhabitants_ = MoveIn(chat_, options_.inhabitants, now_);
  std::array<epoll_event, 128> events{};
  for (bool running = true; running;) {
    const int count = epoll_wait(epoll_, events.data(), static_cast<int>(events.size()), WaitMs());
    now_ = Now();
    bytes_left_ = options_.bytes_a_turn;
    ServeQueued();
    for (int i = 0; i < count; ++i) {
      const epoll_event& event = events[static_cast<std::size_t>(i)];
      if (event.data.u64 == kWaker)
        running = false;
      else if (event.data.u64 == kListener)
        Accept();
      else
        OnReady(event.data.u64, event.events);
    }
    RunDeadlines();
    Advance(chat_, now_);
    if (options_.inhabitants.patient) NoteWaiting();
    LiveOn(inhabitants_, chat_, now_);
    SendFrames();
  }
  while (!connections_.empty())
    Drop(connections_.begin()->second);
}

void Server::Loop::Watch(int fd, std::uint64_t id, std::uint32_t what, int operation) {
  epoll_event event{};
  event.events = what;
  event.data.u64 = id;
  epoll_ctl(epoll_, operation, fd, &event);
}

// Until the next thing that is due.
int Server::Loop::WaitMs() const {
  if (!queued_.empty()) return 0;
  std::int64_t next = std::min(NextAdvance(chat_), inhabitants_.next_ms);
  if (!deadlines_.empty()) next = std::min(next, deadlines_.begin()->first);
  if (next == kForever) return -1;
  return static_cast<int>(std::clamp<std::int64_t>(next - now_.ms, 0, 60000));
}

void Server::Loop::SetDeadline(Connection& connection, std::int64_t at) {
  deadlines_.erase({connection.deadline, connection.id});
  connection.deadline = at;
  if (at != kForever) deadlines_.insert({at, connection.id});
}

void Server::Loop::RunDeadlines() {
  while (!deadlines_.empty() && deadlines_.begin()->first <= now_.ms) {
    Connection& connection = connections_.at(deadlines_.begin()->second);
    SetDeadline(connection, kForever);
    OnDeadline(connection);
  }
}

void Server::Loop::OnDeadline(Connection& connection) {
  switch (connection.phase) {
    case Phase::kReading:
      StartAnswer(connection, ErrorAnswer(408));
      break;
    case Phase::kQueued:
      StartAnswer(connection, ErrorAnswer(503));
      break;
    case Phase::kAnswering:
      if (connection.waits_for_room)
        DropWithReset(connection);
      else
        Flush(connection);
      break;
    case Phase::kEjecting:
      SendEjectMark(connection);
      break;
    case Phase::kEjected:
      Linger(connection);
      break;
    case Phase::kLingering:
      Drop(connection);
      break;
  }
}

void Server::Loop::OnReady(std::uint64_t id, std::uint32_t what) {
  const auto found = connections_.find(id);
  if (found == connections_.end()) return;
  Connection& connection = found->second;
  if ((what & (EPOLLIN | EPOLLHUP | EPOLLERR)) != 0 && !Read(connection)) return;
  if ((what & EPOLLOUT) != 0) Flush(connection);
}

bool Server::Loop::Read(Connection& connection) {
  std::array<char, kReadAtOnce> bytes{};
  const ssize_t count = recv(connection.fd, bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return true;
  if (count < 0) {
    Drop(connection);
    return false;
  }
  if (count == 0) return ReadEnd(connection);
  if (connection.phase != Phase::kReading) return true;
  const auto state =
      Feed(connection.reader, std::string_view(bytes.data(), static_cast<std::size_t>(count)));
  if (state == RequestReader::State::kDone) return Serve(connection);
  if (state == RequestReader::State::kFailed)
    return StartAnswer(connection, ErrorAnswer(connection.reader.error));
  return true;
}

// Who still waits for an answer gets it; who only read a frame is gone.
bool Server::Loop::ReadEnd(Connection& connection) {
  const bool gets_answer = connection.phase == Phase::kAnswering && connection.frame == 0 &&
                           !connection.mishap.silent && !connection.peer_ended;
  if (!gets_answer) {
    Drop(connection);
    return false;
  }
  connection.peer_ended = true;
  Watch(connection.fd, connection.id, EPOLLOUT, EPOLL_CTL_MOD);
  return true;
}

bool Server::Loop::Serve(Connection& connection) {
  reading_.erase(connection.id);
  if (bytes_left_ == 0 && !IsUrgent(connection.reader.request)) {
    connection.phase = Phase::kQueued;
    queued_.push_back(connection.id);
    return true;
  }
  const Request request = std::exchange(connection.reader.request, {});
  if (IsControl(mischief_, request, connection.address)) return Obey(connection, request);
  connection.mishap = BefallRequest(mischief_, request);
  if (connection.mishap.silent) {
    connection.phase = Phase::kAnswering;
    SetDeadline(connection, kForever);
    return true;
  }
  Answer answer =
      Handle(chat_, request, OriginOf(chat_.options, connection.address, request), now_);
  const std::size_t made =
      answer.frame ? chat_.frames.open.at(*answer.frame).out.size() : answer.bytes.size();
  bytes_left_ -= std::min(bytes_left_, made);
  if (!answer.frame) {
    connection.mishap = BefallAnswer(mischief_, connection.mishap);
    return StartAnswer(connection, std::move(answer.bytes));
  }
  connection.phase = Phase::kAnswering;
  connection.frame = *answer.frame;
  frames_[connection.frame] = connection.id;
  SetDeadline(connection, kForever);
  return true;
}

void Server::Loop::ServeQueued() {
  while (bytes_left_ != 0 && !queued_.empty()) {
    const auto found = connections_.find(queued_.front());
    queued_.pop_front();
    if (found != connections_.end() && found->second.phase == Phase::kQueued) Serve(found->second);
  }
}

bool Server::Loop::Obey(Connection& connection, const Request& request) {
  if (!TakeControl(mischief_, request)) return StartAnswer(connection, ErrorAnswer(400));
  for (auto& [id, each] : connections_)
    each.mishap = BefallOpen(mischief_, each.mishap, each.frame != 0);
  return StartAnswer(connection, "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\n" +
                                     MisbehaviourText(mischief_.wanted) + "\n");
}

bool Server::Loop::StartAnswer(Connection& connection, std::string bytes) {
  reading_.erase(connection.id);
  connection.phase = Phase::kAnswering;
  connection.out = std::move(bytes);
  connection.end = FrameEnd::kClose;
  SetDeadline(connection, now_.ms + options_.stall_ms);
  return Flush(connection);
}

// Moves what the chat wrote to its frames on to their connections: one send for each, however many
// lines there are.
void Server::Loop::SendFrames() {
  while (!chat_.frames.touched.empty()) {
    for (const FrameId id : std::exchange(chat_.frames.touched, {})) {
      const auto frame = chat_.frames.open.find(id);
      if (frame == chat_.frames.open.end()) continue;
      frame->second.touched = false;
      Connection& connection = connections_.at(frames_.at(id));
      if (connection.sent > kMostSentKept) {
        connection.out.erase(0, connection.sent);
        connection.sent = 0;
      }
      if (!connection.mishap.silent) connection.out += frame->second.out;
      frame->second.out.clear();
      connection.end = frame->second.end;
      const bool may_flush = connection.phase == Phase::kAnswering && !connection.waits_for_room;
      if (may_flush && !Flush(connection)) continue;
      Count(connection);
      if (LetsTooMuchWait(connection)) DropWithReset(connection);
    }
  }
}

// Brings up to date what waits for all.
void Server::Loop::Count(Connection& connection) {
  waiting_ -= connection.counted;
  connection.counted = connection.out.size() - connection.sent;
  waiting_ += connection.counted;
}

bool Server::Loop::LetsTooMuchWait(const Connection& connection) const {
  if (connection.counted > options_.most_waiting) return true;
  return waiting_ > options_.most_waiting_of_all &&
         connection.counted > options_.most_waiting_of_all / connections_.size();
}

// What the readers of the frames have not taken yet.
void Server::Loop::NoteWaiting() {
  for (const auto& [frame, id] : frames_) {
    const Connection& connection = connections_.at(id);
    chat_.frames.open.at(frame).waiting = connection.out.size() - connection.sent;
  }
}

bool Server::Loop::Flush(Connection& connection) {
  if (connection.mishap.waits_until > now_.ms) return true;
  while (connection.sent < connection.out.size()) {
    const std::size_t size = MaySend(connection.mishap, connection.out.size() - connection.sent);
    const ssize_t count =
        send(connection.fd, connection.out.data() + connection.sent, size, MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return WaitForRoom(connection);
    if (count < 0) {
      Drop(connection);
      return false;
    }
    connection.sent += static_cast<std::size_t>(count);
    const Blow blow = AfterSend(connection.mishap, static_cast<std::size_t>(count), now_.ms);
    if (blow == Blow::kGarbage)
      connection.out.insert(connection.sent, Garbage(mischief_));
    else if (blow != Blow::kNone)
      return Suffer(connection, blow);
  }
  connection.out.clear();
  connection.sent = 0;
  Count(connection);
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
  Count(connection);
  if (!connection.waits_for_room) {
    const std::uint32_t what = connection.peer_ended ? EPOLLOUT : EPOLLIN | EPOLLOUT;
    Watch(connection.fd, connection.id, what, EPOLL_CTL_MOD);
  }
  connection.waits_for_room = true;
  return true;
}

bool Server::Loop::AllSent(Connection& connection) {
  if (connection.phase != Phase::kAnswering || connection.end == FrameEnd::kNone) return true;
  if (connection.mishap.silent) return true;
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
  const auto from = from_.find(connection.address);
  if (--from->second == 0) from_.erase(from);
  reading_.erase(connection.id);
  waiting_ -= connection.counted;
  const std::uint64_t id = connection.id;
  connections_.erase(id);
}

void Server::Loop::DropWithReset(Connection& connection) {
  const linger hard{1, 0};
  setsockopt(connection.fd, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
  Drop(connection);
}

// A blow that ends the sending.
bool Server::Loop::Suffer(Connection& connection, Blow blow) {
  if (blow == Blow::kPause) {
    SetDeadline(connection, connection.mishap.waits_until);
    return true;
  }
  if (blow == Blow::kReset) {
    DropWithReset(connection);
    return false;
  }
  connection.out.clear();
  connection.sent = 0;
  if (blow == Blow::kClose) return Linger(connection);
  SetDeadline(connection, kForever);
  return true;
}

}  // namespace parlorwire::service
