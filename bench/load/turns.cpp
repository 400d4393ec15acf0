// Preloaded into the client by load.py: measures how long the event thread is away from its wait
// for events. Writes to the file that TURNS_FILE names; zeros written there start it anew.
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

// In nanoseconds; read by load.py in this order.
struct Turns {
  std::uint64_t turns;
  std::uint64_t worst_wall;
  std::uint64_t worst_cpu;
  std::uint64_t wall_over_50ms;  // turns that took longer than that, by the clock
  std::uint64_t cpu_over_50ms;   // and by the time that the thread really ran
  std::uint64_t cpu;
};

constexpr std::uint64_t kTooLong = 50'000'000;

std::uint64_t Now(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 +
         static_cast<std::uint64_t>(now.tv_nsec);
}

Turns* OpenTurns() {
  const char* name = std::getenv("TURNS_FILE");
  if (name == nullptr) return nullptr;
  const int file = open(name, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0 || ftruncate(file, sizeof(Turns)) != 0) return nullptr;
  void* memory = mmap(nullptr, sizeof(Turns), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  return memory == MAP_FAILED ? nullptr : static_cast<Turns*>(memory);
}

// The event loop waits in GLib; other libraries wait within a turn, which is a part of it.
bool IsEventLoop(const void* caller) {
  static const void* known = nullptr;
  if (caller == known) return true;
  Dl_info info{};
  if (syscall(SYS_gettid) != getpid() || dladdr(caller, &info) == 0 || info.dli_fname == nullptr ||
      std::strstr(info.dli_fname, "libglib-2.0") == nullptr)
    return false;
  known = caller;
  return true;
}

void CountTurn(Turns& turns, std::uint64_t wall, std::uint64_t cpu) {
  ++turns.turns;
  turns.cpu += cpu;
  if (wall > turns.worst_wall) turns.worst_wall = wall;
  if (cpu > turns.worst_cpu) turns.worst_cpu = cpu;
  if (wall > kTooLong) ++turns.wall_over_50ms;
  if (cpu > kTooLong) ++turns.cpu_over_50ms;
}

}  // namespace

extern "C" int poll(pollfd* descriptors, nfds_t count, int timeout) {
  static const auto real =
      reinterpret_cast<int (*)(pollfd*, nfds_t, int)>(dlsym(RTLD_NEXT, "poll"));
  static Turns* const turns = OpenTurns();
  const bool is_wait = turns != nullptr && syscall(SYS_gettid) == getpid() &&
                       IsEventLoop(__builtin_return_address(0));
  if (!is_wait) return real(descriptors, count, timeout);
  static std::uint64_t wall = 0;
  static std::uint64_t cpu = 0;
  if (wall != 0) CountTurn(*turns, Now(CLOCK_MONOTONIC) - wall, Now(CLOCK_THREAD_CPUTIME_ID) - cpu);
  const int ready = real(descriptors, count, timeout);
  wall = Now(CLOCK_MONOTONIC);
  cpu = Now(CLOCK_THREAD_CPUTIME_ID);
  return ready;
}
