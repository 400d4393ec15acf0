// A server on a free loopback port, in a thread of its own, and plain sockets to speak to it.
#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "service/server.h"
#include "text/charset.h"

namespace parlorwire::service {

// What a frame begins with.
inline constexpr std::string_view kFrameHeader =
    "HTTP/1.0 200 OK\r\nContent-Type: text/html; charset=koi8-r\r\nCache-Control: no-store\r\n"
    "Connection: close\r\n\r\n";

// A blocking socket whose reads wait for at most 10 s.
class Peer {
 public:
  // The last byte of the address that it comes from is 127.0.0.`source`.
  explicit Peer(std::uint16_t port, int receive_buffer = 0, std::uint8_t source = 1) {
    fd_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in here{};
    here.sin_family = AF_INET;
    here.sin_addr.s_addr = htonl(INADDR_LOOPBACK - 1 + source);
    EXPECT_EQ(bind(fd_, reinterpret_cast<const sockaddr*>(&here), sizeof here), 0);
    if (receive_buffer != 0)
      setsockopt(fd_, SOL_SOCKET, SO_RCVBUF, &receive_buffer, sizeof receive_buffer);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }
  Peer(Peer&& other) noexcept : fd_(std::exchange(other.fd_, -1)), ended(other.ended) {}
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  Peer& operator=(Peer&&) = delete;
  ~Peer() {
    if (fd_ >= 0) close(fd_);
  }

  void Send(std::string_view bytes) {
    ASSERT_EQ(send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
  }

  void EndSending() { shutdown(fd_, SHUT_WR); }

  // What one read gives; "" at the end of the stream, at a reset, or after wait_ms without a byte.
  std::string ReadOnce(int wait_ms = 10000) {
    pollfd waits{fd_, POLLIN, 0};
    if (poll(&waits, 1, wait_ms) <= 0) return {};
    std::array<char, 1 << 16> bytes{};
    const ssize_t count = recv(fd_, bytes.data(), bytes.size(), 0);
    ended = count <= 0;
    was_reset = count < 0 && errno == ECONNRESET;
    return count <= 0 ? std::string() : std::string(bytes.data(), static_cast<std::size_t>(count));
  }

  // All up to the end of the stream, or until 10 s bring nothing.
  std::string ReadAll() {
    std::string all;
    while (!ended) {
      const std::string some = ReadOnce();
      if (some.empty() && !ended) break;
      all += some;
    }
    return all;
  }

  // Everything up to and with the text, which is Windows-1251; less if it doesn't come.
  Text ReadUntil(std::string_view text) {
    Text all;
    for (std::size_t searched = 0; all.find(text, searched) == Text::npos;) {
      searched = all.size() < text.size() ? 0 : all.size() - text.size();
      const std::string some = ReadOnce();
      if (some.empty()) break;
      all += DecodeKoi(some);
    }
    return all;
  }

 private:
  int fd_;

 public:
  bool ended = false;
  bool was_reset = false;
};

struct RunningServer : testing::Test {
  ~RunningServer() override { Finish(); }

  ServerOptions options = [] {
    ServerOptions quiet;
    quiet.inhabitants.present = false;
    return quiet;
  }();

  void Start() {
    server = std::make_unique<Server>(options);
    thread = std::thread([this] { server->Run(); });
  }

  void Finish() {
    if (!thread.joinable()) return;
    server->Stop();
    thread.join();
  }

  static std::string PostRequest(const std::string& path, const Text& body) {
    return "POST " + path +
           " HTTP/1.0\r\nHost: localhost\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + ConvertCharset(body, Charset::kWindows1251, Charset::kKoi);
  }

  // The whole answer to a request.
  std::string Ask(const std::string& request) {
    Peer peer(server->port());
    peer.Send(request);
    return peer.ReadAll();
  }

  Text Post(const std::string& path, const Text& body) {
    return DecodeKoi(Ask(PostRequest(path, body)));
  }

  // Logs in; the query that the frame and the others want.
  Text LogIn(const Text& nick, const Text& channel = "hall") {
    const Text answer =
        Post("/", "username=" + nick + "&passwd=secret&channel=" + channel + "&chpwd=");
    const auto at = answer.find("&ticket=");
    EXPECT_NE(at, Text::npos) << answer;
    if (at == Text::npos) return {};
    const Text ticket = answer.substr(at + 8, answer.find('\'', at) - at - 8);
    return "username=" + nick + "&ticket=" + ticket + "&channel=" + channel + "&chpwd=";
  }

  Peer OpenFrame(const Text& query) {
    Peer peer(server->port());
    peer.Send(PostRequest("/pframe", query));
    return peer;
  }

  Text Say(const Text& query, const Text& text) {
    return Post("/newmsg_t", query + "&reqnum=" + std::to_string(++number) + "&msgtext=" + text +
                                 "&msgtext0=" + text);
  }

  // A frame in the robots' style, with its beginning read away.
  Peer Come(const Text& query, const Text& nick) {
    Say(query, "/set s 9");
    Peer frame = OpenFrame(query);
    frame.ReadUntil(nick + " приходит на канал (127.0.0.1)\n"_w);
    return frame;
  }

  std::unique_ptr<Server> server;
  std::thread thread;
  int number = 10000000;
};

}  // namespace parlorwire::service
