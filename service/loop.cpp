#include "service/loop.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <memory>
#include <random>
#include <system_error>

#include "service/site.h"

namespace parlorwire::service {
namespace {

constexpr std::uint64_t kListener = 0;
constexpr std::uint64_t kWaker = 1;
constexpr std::size_t kReadAtOnce = 16 * 1024;

[[noreturn]] void ThrowErrno(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
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

int OpenReserve() {
  return open("/dev/null", O_RDONLY | O_CLOEXEC);
}

}  // namespace

Server::Loop::Loop(const ServerOptions& options) : options_(options) {
  chat_.options = options.chat;
  chat_.random = MakeRandom(options.seed);
  epoll_ = epoll_create1(EPOLL_CLOEXEC);
  waker_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (epoll_ < 0 || waker_ < 0) ThrowErrno("epoll");
  reserve_ = OpenReserve();
  Listen();
  Watch(listener_, kListener, EPOLLIN, EPOLL_CTL_ADD);
  Watch(waker_, kWaker, EPOLLIN, EPOLL_CTL_ADD);
}

Server::Loop::~Loop() {
  for (const auto& [id, connection] : connections_)
    close(connection.fd);
  for (const int fd : {listener_, reserve_, waker_, epoll_})
    if (fd >= 0) close(fd);
}

void Server::Loop::Listen() {
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (listener_ < 0) ThrowErrno("socket");
  const int on = 1;
  setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(options_.port);
  if (inet_pton(AF_INET, options_.address.c_str(), &address.sin_addr) != 1) {
    errno = EINVAL;
    ThrowErrno("address");
  }
  if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    ThrowErrno("bind");
  if (listen(listener_, SOMAXCONN) != 0) ThrowErrno("listen");
  socklen_t length = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length);
  port_ = ntohs(address.sin_port);
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

void Server::Loop::Accept() {
  for (;;) {
    sockaddr_in peer{};
    socklen_t length = sizeof peer;
    const int fd = accept4(listener_, reinterpret_cast<sockaddr*>(&peer), &length,
                           SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd < 0 && (errno == EMFILE || errno == ENFILE)) TurnAwayOne();
    if (fd < 0) return;
    std::array<char, INET_ADDRSTRLEN> address{};
    inet_ntop(AF_INET, &peer.sin_addr, address.data(), address.size());
    AcceptOne(fd, address.data());
  }
}

void Server::Loop::AcceptOne(int fd, const std::string& address) {
  const int on = 1;
  setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  Connection& connection = connections_[next_id_];
  connection.fd = fd;
  connection.id = next_id_++;
  connection.address = address;
  Watch(fd, connection.id, EPOLLIN, EPOLL_CTL_ADD);
  SetDeadline(connection, now_.ms + options_.request_ms);
  if (connections_.size() > options_.most_connections) StartAnswer(connection, ErrorAnswer(503));
}

// With no descriptor left a waiting connection would keep the loop awake for nothing.
void Server::Loop::TurnAwayOne() {
  close(reserve_);
  const int fd = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (fd >= 0) close(fd);
  reserve_ = OpenReserve();
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
                           !connection.silent && !connection.peer_ended;
  if (!gets_answer) {
    Drop(connection);
    return false;
  }
  connection.peer_ended = true;
  Watch(connection.fd, connection.id, EPOLLOUT, EPOLL_CTL_MOD);
  return true;
}

bool Server::Loop::Serve(Connection& connection) {
  const Request request = std::exchange(connection.reader.request, {});
  if (TakesControl(connection, request)) return true;
  connection.fault = FaultOf(request);
  if (connection.fault.fault == Fault::kDrop) {
    connection.phase = Phase::kAnswering;
    connection.silent = true;
    SetDeadline(connection, kForever);
    return true;
  }
  Answer answer = Handle(chat_, request, {connection.address, request.forwarded_for}, now_);
  const Misbehaviour& misbehaviour = options_.misbehaviour;
  const bool is_for_frames = misbehaviour.path.empty() && misbehaviour.fault != Fault::kRandom;
  if (!answer.frame) {
    if (is_for_frames) connection.fault = {};
    return StartAnswer(connection, std::move(answer.bytes));
  }
  connection.phase = Phase::kAnswering;
  connection.frame = *answer.frame;
  frames_[connection.frame] = connection.id;
  SetDeadline(connection, kForever);
  return true;
}

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
