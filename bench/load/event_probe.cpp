// A library that is loaded ahead of the others (LD_PRELOAD) into a program of the toolkit, and
// watches its event thread from outside: how long each turn of the event loop takes, from the
// moment when the system has told what is ready until it is asked again, and how often a window is
// shown anew. The program itself is the same, byte for byte.
//
// The figures stand in the file that EVENT_PROBE names, as the record below, and can be read and
// set back to zero at any time.
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

struct Record {
  std::uint64_t turns;
  std::uint64_t frames;           // contents of a window brought to the screen
  std::uint64_t longest_wall_ns;  // of one turn
  std::uint64_t longest_cpu_ns;   // of one turn, the thread's own processor time
  // Turns by their wall time: below 1 ms, below 2 ms, ...; the last one takes the rest.
  std::array<std::uint64_t, 64> by_ms;
  std::array<std::uint64_t, 64> by_cpu_ms;
};

std::uint64_t Nanoseconds(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U +
         static_cast<std::uint64_t>(now.tv_nsec);
}

Record* MapRecord() {
  const char* path = std::getenv("EVENT_PROBE");
  if (path == nullptr) return nullptr;
  const int file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0 || ftruncate(file, sizeof(Record)) != 0) return nullptr;
  void* place = mmap(nullptr, sizeof(Record), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  return place == MAP_FAILED ? nullptr : static_cast<Record*>(place);
}

Record* TheRecord() {
  static Record* record = MapRecord();
  return record;
}

template <class Function>
Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// The event loop asks for events from its own library. The connection to the screen waits for
// answers with the same call; that is part of the turn in which it does.
bool IsEventLoop(void* caller) {
  static std::array<void*, 8> loops{};
  static std::array<void*, 8> others{};
  for (std::size_t i = 0; i < loops.size(); ++i) {
    if (loops[i] == caller) return true;
    if (others[i] == caller) return false;
  }
  Dl_info info{};
  const bool is_loop = dladdr(caller, &info) != 0 && info.dli_fname != nullptr &&
                       (std::strstr(info.dli_fname, "libglib-2.0") != nullptr ||
                        std::strstr(info.dli_fname, "libQt6Core") != nullptr);
  for (void*& slot : is_loop ? loops : others) {
    if (slot != nullptr) continue;
    slot = caller;
    break;
  }
  return is_loop;
}

bool IsEventThread() {
  thread_local const bool first = gettid() == getpid();
  return first;
}

struct Turn {
  bool running = false;
  std::uint64_t wall_ns = 0;
  std::uint64_t cpu_ns = 0;
};
Turn turn;

void Count(std::array<std::uint64_t, 64>& by_ms, std::uint64_t& longest, std::uint64_t ns) {
  if (ns > longest) longest = ns;
  const std::uint64_t ms = ns / 1'000'000;
  ++by_ms[ms < by_ms.size() ? ms : by_ms.size() - 1];
}

void EndTurn() {
  Record* record = TheRecord();
  if (record == nullptr || !turn.running) return;
  ++record->turns;
  Count(record->by_ms, record->longest_wall_ns, Nanoseconds(CLOCK_MONOTONIC) - turn.wall_ns);
  Count(record->by_cpu_ms, record->longest_cpu_ns,
        Nanoseconds(CLOCK_THREAD_CPUTIME_ID) - turn.cpu_ns);
}

void BeginTurn() {
  turn = {true, Nanoseconds(CLOCK_MONOTONIC), Nanoseconds(CLOCK_THREAD_CPUTIME_ID)};
}

template <class Call>
int Watched(void* caller, Call call) {
  if (!IsEventThread() || !IsEventLoop(caller)) return call();
  EndTurn();
  const int result = call();
  BeginTurn();
  return result;
}

}  // namespace

extern "C" {

int poll(pollfd* descriptors, nfds_t count, int timeout) {
  static const auto next = Next<int (*)(pollfd*, nfds_t, int)>("poll");
  return Watched(__builtin_return_address(0), [=] { return next(descriptors, count, timeout); });
}

int ppoll(pollfd* descriptors, nfds_t count, const timespec* timeout, const sigset_t* signals) {
  static const auto next =
      Next<int (*)(pollfd*, nfds_t, const timespec*, const sigset_t*)>("ppoll");
  return Watched(__builtin_return_address(0),
                 [=] { return next(descriptors, count, timeout, signals); });
}

// QBackingStore::flush(const QRegion&, QWindow*, const QPoint&): by the calling convention of a
// member function the object comes first, and nothing here depends on what it is.
void BackingStoreFlush(void* store, const void* region, void* window, const void* offset) asm(
    "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint");

void BackingStoreFlush(void* store, const void* region, void* window, const void* offset) {
  static const auto next = Next<void (*)(void*, const void*, void*, const void*)>(
      "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint");
  if (Record* record = TheRecord()) ++record->frames;
  next(store, region, window, offset);
}

}  // extern "C"
