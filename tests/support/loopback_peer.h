// The other end of a connection on the loopback, of raw sockets, for tests of one thread: the
// kernel accepts and buffers, so the test plays both ends in turn. Every call ends within five
// seconds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace parlorwire {

// What the peer does with one connection. A call that fails throws std::runtime_error.
class PeerConnection {
 public:
  explicit PeerConnection(int descriptor) : descriptor_(descriptor) {}
  PeerConnection(PeerConnection&& other) noexcept;
  PeerConnection& operator=(PeerConnection&& other) noexcept;
  ~PeerConnection();

  void Send(std::string_view bytes);
  // As many bytes as go without waiting; how many these were.
  std::size_t SendSome(std::string_view bytes);
  // Exactly `count` bytes, or fewer if the other side ends before that.
  std::string Receive(std::size_t count);
  // Waits for the other side's end, in good order or not, and drops what it sent before.
  void AwaitEnd();

  void EndSending();  // half a close: the other side reads an end, and may still send
  void Close();       // resets instead if there are bytes that nobody has received
  void Reset();       // once the other side's kernel has all that was sent

 private:
  int descriptor_;
};

// Listens at a loopback address, "127.0.0.1" or "::1", at a free port or at the given one.
class LoopbackPeer {
 public:
  explicit LoopbackPeer(const std::string& address = "127.0.0.1", int backlog = 16,
                        std::uint16_t port = 0);
  ~LoopbackPeer();
  LoopbackPeer(const LoopbackPeer&) = delete;
  LoopbackPeer& operator=(const LoopbackPeer&) = delete;

  std::string port() const { return std::to_string(port_); }
  std::uint16_t port_number() const { return port_; }
  PeerConnection Accept();
  bool AnyoneWaits() const;
  // Nobody is served from now on: who connects is refused.
  void StopListening();
  // Takes the places of the backlog, so that who connects next gets no answer.
  void FillBacklog();

 private:
  std::string address_;
  std::uint16_t port_ = 0;
  int descriptor_;
  std::vector<int> fillers_;  // descriptors
};

}  // namespace parlorwire
