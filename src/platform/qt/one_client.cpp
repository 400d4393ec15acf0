#include "platform/qt/one_client.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <thread>

namespace parlorwire {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr auto kWaitForTheFirst = 5s;  // it may be at its start, or busy
constexpr auto kBetweenTries = 50ms;
constexpr auto kWaitForTheAsker = 200ms;  // the event loop stands meanwhile
constexpr std::size_t kLongestToken = 4096;
constexpr char kSeen = '\n';  // the answer, and the end of a question

struct Address {
  sockaddr_un name{};
  socklen_t length = 0;
};

Address AbstractAddress(const std::string& text) {
  Address address;
  address.name.sun_family = AF_UNIX;
  const std::size_t length = std::min(text.size(), sizeof address.name.sun_path - 1);
  std::memcpy(&address.name.sun_path[1], text.data(), length);
  address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return address;
}

int NewSocket() {
  return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

// Anybody on the machine can reach such a socket.
bool IsOfTheSameUser(int connection) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == geteuid();
}

bool Readable(int connection, milliseconds wait) {
  pollfd waiting{connection, POLLIN, 0};
  return poll(&waiting, 1, static_cast<int>(std::max(wait, 0ms).count())) > 0;
}

// Up to the mark at its end, which is not part of it. Nothing if that doesn't come in time.
std::optional<std::string> ReadQuestion(int connection) {
  const auto end = steady_clock::now() + kWaitForTheAsker;
  std::string question;
  std::array<char, 512> bytes{};
  while (question.size() <= kLongestToken &&
         Readable(connection, std::chrono::ceil<milliseconds>(end - steady_clock::now()))) {
    const ssize_t count = read(connection, bytes.data(), bytes.size());
    if (count <= 0) break;
    question.append(bytes.data(), static_cast<std::size_t>(count));
    if (question.back() != kSeen) continue;
    question.pop_back();
    return question;
  }
  return std::nullopt;
}

bool Send(int connection, const std::string& bytes) {
  return send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
         static_cast<ssize_t>(bytes.size());
}

bool AskOnce(const std::string& address_text, const std::string& token) {
  const int connection = NewSocket();
  if (connection < 0) return false;
  const Address address = AbstractAddress(address_text);
  const auto* name = reinterpret_cast<const sockaddr*>(&address.name);
  char answer = 0;
  const bool answered = connect(connection, name, address.length) == 0 &&
                        IsOfTheSameUser(connection) && Send(connection, token + kSeen) &&
                        Readable(connection, kWaitForTheFirst) &&
                        read(connection, &answer, 1) == 1 && answer == kSeen;
  close(connection);
  return answered;
}

}  // namespace

OneClient::OneClient(const std::filesystem::path& folder) {
  folder_ = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  struct stat about{};
  if (folder_ < 0 || fstat(folder_, &about) != 0) return;
  address_ = "parlorwire-" + std::to_string(geteuid()) + "-" + std::to_string(about.st_dev) + "-" +
             std::to_string(about.st_ino);
  // A file system that knows no locks can't say that there is another.
  if (flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
    first_ = false;
  else
    Listen();
}

OneClient::~OneClient() {
  waiting_.reset();
  for (const int descriptor : {listener_, folder_})
    if (descriptor >= 0) close(descriptor);
}

void OneClient::Listen() {
  listener_ = NewSocket();
  if (listener_ < 0) return;
  const Address address = AbstractAddress(address_);
  if (bind(listener_, reinterpret_cast<const sockaddr*>(&address.name), address.length) != 0 ||
      listen(listener_, SOMAXCONN) != 0)
    return;
  waiting_ = std::make_unique<QSocketNotifier>(listener_, QSocketNotifier::Read);
  connect(waiting_.get(), &QSocketNotifier::activated, this, [this] { Answer(); });
}

void OneClient::Answer() {
  const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (connection < 0) return;
  const auto token =
      IsOfTheSameUser(connection) ? ReadQuestion(connection) : std::optional<std::string>();
  if (token) Send(connection, std::string(1, kSeen));
  close(connection);
  if (token && Asked) Asked(*token);
}

bool OneClient::AskFirst(const std::string& token) {
  const auto end = steady_clock::now() + kWaitForTheFirst;
  do {
    if (AskOnce(address_, token.size() < kLongestToken ? token : std::string())) return true;
    std::this_thread::sleep_for(kBetweenTries);
  } while (steady_clock::now() < end);
  return false;
}

}  // namespace parlorwire
