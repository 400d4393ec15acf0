// What a message costs for the colour of its nick.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "session/nick_colours.h"

namespace parlorwire {
namespace {

// The nicks of a table of `count`, in an order that jumps about in it.
std::vector<Text> Nicks(int count) {
  std::vector<Text> nicks;
  for (int i = 0; i < count; ++i)
    nicks.push_back("Visitor_" + std::to_string((i * 7919) % count));
  return nicks;
}

void Lookup(benchmark::State& state) {
  const std::vector<Text> nicks = Nicks(static_cast<int>(state.range(0)));
  NickColours colours;
  for (const Text& nick : nicks)
    colours.Prepend(nick, 0xC0FFEE);
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(colours.Use(nicks[next]));
    next = next + 1 < nicks.size() ? next + 1 : 0;
  }
}
BENCHMARK(Lookup)->Arg(10)->Arg(1000)->Arg(100000);

// The first lookup of each nick of a table that has just been read.
void FirstLookup(benchmark::State& state) {
  const std::vector<Text> nicks = Nicks(1000);
  NickColours written;
  for (const Text& nick : nicks)
    written.Prepend(nick, 0xC0FFEE);
  const Text text = written.text();
  NickColours colours;
  std::size_t next = nicks.size();
  for (auto _ : state) {
    if (next == nicks.size()) {
      state.PauseTiming();
      colours.Assign(text);
      next = 0;
      state.ResumeTiming();
    }
    benchmark::DoNotOptimize(colours.Use(nicks[next++]));
  }
}
BENCHMARK(FirstLookup);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
