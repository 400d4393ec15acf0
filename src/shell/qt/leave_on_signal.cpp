#include "shell/qt/leave_on_signal.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <utility>

namespace parlorwire {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGHUP, SIGINT};

// A pipe from the signal handler, which may do next to nothing, to the event loop.
std::array<int, 2> pipe_ends = {-1, -1};

extern "C" void TellEventLoop(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(pipe_ends[1], &byte, 1);
}

}  // namespace

LeaveOnSignal::LeaveOnSignal(std::function<void()> leave) {
  if (pipe2(pipe_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* notifier = new QSocketNotifier(pipe_ends[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [leave = std::move(leave)] {
    char byte = 0;
    while (read(pipe_ends[0], &byte, 1) == 1) {
    }
    leave();
  });
  for (const int number : kSignals)
    std::signal(number, TellEventLoop);
}

LeaveOnSignal::~LeaveOnSignal() {
  if (pipe_ends[0] < 0) return;
  for (const int number : kSignals)
    std::signal(number, SIG_DFL);
  qDeleteAll(findChildren<QSocketNotifier*>());
  for (int& end : pipe_ends) {
    close(end);
    end = -1;
  }
}

}  // namespace parlorwire
