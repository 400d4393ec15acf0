// The wire's bytes to memory, against copying them.
#include <benchmark/benchmark.h>

#include <cstring>
#include <utility>

#include "text/charset.h"

namespace {

using namespace parlorwire;

constexpr std::size_t kSize = 64 * 1024;

// Chat lines: mostly Russian letters, with times, nicks and punctuation in between.
Text Wire() {
  const Text line = ConvertCharset(
      "..[16:45:57]Alice:() Здравствуйте, а кто сегодня был в парке? Погода хорошая, 21 ноября.\n"_w,
      Charset::kWindows1251, Charset::kKoi);
  Text wire;
  while (wire.size() < kSize)
    wire += line;
  wire.resize(kSize);
  return wire;
}

// As the frame's reader calls it: the socket's own buffer is decoded where it lies. Decoding it
// again and again keeps letters letters.
void Decode(benchmark::State& state) {
  Text wire = Wire();
  for (auto _ : state) {
    wire = DecodeKoi(std::move(wire));
    benchmark::DoNotOptimize(wire.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kSize));
}
BENCHMARK(Decode);

void Memcpy(benchmark::State& state) {
  const Text wire = Wire();
  Text to(kSize, '\0');
  for (auto _ : state) {
    std::memcpy(to.data(), wire.data(), kSize);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kSize));
}
BENCHMARK(Memcpy);

}  // namespace

BENCHMARK_MAIN();
