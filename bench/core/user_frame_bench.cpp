// A whole user frame, from its last byte to the drawn list, and a user who leaves it. The argument
// is the number of users.
#include <benchmark/benchmark.h>

#include <string>

#include "bot/reactions.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

Text Answer(std::int64_t users) {
  Text answer = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
  for (std::int64_t i = 0; i < users; ++i)
    answer += "user" + std::to_string(i) + "|[" + (i % 9 == 0 ? "+o -t" : "-t") + "][10.0." +
              std::to_string(i % 256) + ".7:]'" + (i % 3 == 0 ? "at work" : "") + "'\n";
  return answer;
}

void Fetch(Client& client, const Text& answer) {
  UpdateUsersFrame(client, 0);
  SimulatedSocket& socket = Simulated(client.tab(0).Winsock3);
  socket.Accept();
  socket.Deliver(answer);
}

void BM_UserFrame(benchmark::State& state) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  client.tab(0).Login = "user7";
  const Text answer = Answer(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Fetch(client, answer);
    state.ResumeTiming();
    Simulated(client.tab(0).Winsock3).PeerCloses();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UserFrame)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);

// The last of them leaves: of all places, his is the furthest to search for.
void BM_LeaveLine(benchmark::State& state) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  client.tab(0).ActionsArmed = true;
  const Text answer = Answer(state.range(0));
  const Text line = "user" + std::to_string(state.range(0) - 1) + " покидает нас (10.0.0.7)"_w;
  for (auto _ : state) {
    state.PauseTiming();
    Fetch(client, answer);
    Simulated(client.tab(0).Winsock3).PeerCloses();
    state.ResumeTiming();
    ClientAction(client, line, 0);
  }
}
BENCHMARK(BM_LeaveLine)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
