// What a search through the day logs costs for what is not there: 256 MB in files that the system
// has in its memory.
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <string_view>

#include "display/log_search.h"
#include "platform/posix/posix_day_logs.h"
#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

constexpr int kLogs = 16;
constexpr int kLogBytes = 16 * 1024 * 1024;

class LogFolder {
 public:
  LogFolder() {
    std::filesystem::create_directories(folder_.path() / "main");
    Text content;
    for (int i = 0; content.size() < kLogBytes; ++i)
      content += "[12:34:" + std::to_string(10 + i % 50) + "] nordwind" + std::to_string(i % 97) +
                 ": a line of talk as people say it, number " + std::to_string(i) + "\r\n";
    for (int day = 1; day <= kLogs; ++day)
      std::ofstream(folder_.path() / "main" / (std::to_string(10 + day) + ".01.2026.log"))
          << content;
  }

  PosixDayLogs Logs() const { return PosixDayLogs(folder_.path()); }

 private:
  TemporaryFolder folder_;
};

void SearchFor(benchmark::State& state, std::string_view wanted, LetterCase letter_case) {
  static const LogFolder folder;
  const PosixDayLogs logs = folder.Logs();
  const LogQuery query{Text(wanted), "", {2000, 1, 1}, {2100, 1, 1}, letter_case, false};
  std::int64_t bytes = 0;
  for (auto _ : state) {
    SearchLogs(
        logs, query, {}, [&](const LogHit&) { state.SkipWithError("it is there"); },
        [&](const LogProgress& progress) { bytes = progress.bytes; });
  }
  state.SetBytesProcessed(state.iterations() * bytes);
}

constexpr auto kIgnored = LetterCase::kIgnored;
constexpr auto kCounts = LetterCase::kCounts;

BENCHMARK_CAPTURE(SearchFor, twelve_letters, "another text", kIgnored);
BENCHMARK_CAPTURE(SearchFor, twelve_letters_with_case, "another text", kCounts);
BENCHMARK_CAPTURE(SearchFor, three_letters, "xyz", kIgnored);
BENCHMARK_CAPTURE(SearchFor, two_letters, "xz", kIgnored);
BENCHMARK_CAPTURE(SearchFor, one_letter, "$", kIgnored);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
