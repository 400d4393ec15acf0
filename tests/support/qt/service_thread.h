// The chat service in a thread of this process, on a loopback port.
#pragma once

#include <QByteArray>
#include <QTest>
#include <memory>
#include <thread>
#include <utility>

#include "platform/qt/qt_winsock.h"
#include "service/server.h"

namespace parlorwire {

class ServiceThread {
 public:
  explicit ServiceThread(service::ServerOptions options) : options_(std::move(options)) { Start(); }
  ~ServiceThread() { Stop(); }
  ServiceThread(const ServiceThread&) = delete;
  ServiceThread& operator=(const ServiceThread&) = delete;

  // After a Stop: on the same port, with a new memory.
  void Start() {
    server_ = std::make_unique<service::Server>(options_);
    options_.port = server_->port();
    thread_ = std::thread([this] { server_->Run(); });
  }

  void Stop() {
    if (!thread_.joinable()) return;
    server_->Stop();
    thread_.join();
    server_.reset();
  }

  Text port() const { return std::to_string(options_.port); }

  // The answer to a request; the event loop runs while it is awaited.
  Text Ask(const Text& request) const {
    QtWinsock socket;
    Text answer;
    bool ended = false;
    socket.events.Connect = [&] { socket.SendData(request); };
    socket.events.DataArrival = [&](std::size_t) { answer += socket.GetData(); };
    socket.events.Close = [&] { ended = true; };
    socket.events.Error = [&](int, const Text&) { ended = true; };
    socket.Connect("127.0.0.1", port());
    if (!QTest::qWaitFor([&] { return ended; })) qFatal("the service does not answer");
    return answer;
  }

  // Changes what goes wrong, from now on.
  void Misbehave(const Text& fault) const {
    const Text answer = Ask("GET /misbehave?fault=" + fault + " HTTP/1.0\r\n\r\n");
    if (!answer.ends_with(fault + "\n")) qFatal("the service refuses a fault");
  }

 private:
  service::ServerOptions options_;
  std::unique_ptr<service::Server> server_;
  std::thread thread_;
};

}  // namespace parlorwire
