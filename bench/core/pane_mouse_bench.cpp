// What a move of the mouse costs over a message pane, by its lines: from line to line all over the
// pane, onto the time, the nick, a plain word and a link of each.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "display/pane_mouse.h"
#include "display/text_out.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSaid =
    "what is said in a chat is about as long as this, with http://a.example/page in it";

struct WrittenPane {
  explicit WrittenPane(std::int64_t lines) {
    Assemble(client);
    TabSession& session = client.tab(0);
    session.Login = "nobody";
    session.Connected = true;
    for (std::int64_t i = 0; i < lines; ++i) {
      starts.push_back(session.Rich.Length());
      TextOut(client, "[16:45:57]", "somebody:", kSaid, LineKind::kMessage, 0);
    }
    std::mt19937 random(1);
    std::shuffle(starts.begin(), starts.end(), random);
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
  std::vector<PanePosition> starts;
};

WrittenPane& PaneOf(std::int64_t lines) {
  static std::map<std::int64_t, std::unique_ptr<WrittenPane>> panes;
  auto& pane = panes[lines];
  if (!pane) pane = std::make_unique<WrittenPane>(lines);
  return *pane;
}

void MoveOver(benchmark::State& state, PanePosition in_line) {
  WrittenPane& pane = PaneOf(state.range(0));
  std::size_t i = 0;
  for (auto _ : state) {
    Rich_MouseMove(pane.client, 0, pane.starts[i] + in_line);
    if (++i == pane.starts.size()) i = 0;
  }
}

BENCHMARK_CAPTURE(MoveOver, time, 3)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MoveOver, nick, 12)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MoveOver, word, 30)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MoveOver, link, 80)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
