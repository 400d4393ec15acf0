// A whole user frame, from its last byte to the drawn list. The argument is the number of users.
#include <benchmark/benchmark.h>

#include <string>

#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

void BM_UserFrame(benchmark::State& state) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Assemble(client);
  client.tab(0).Login = "user7";
  Text answer = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
  for (int i = 0; i < state.range(0); ++i)
    answer += "user" + std::to_string(i) + "|[" + (i % 9 == 0 ? "+o -t" : "-t") + "][10.0." +
              std::to_string(i % 256) + ".7:]'" + (i % 3 == 0 ? "at work" : "") + "'\n";
  for (auto _ : state) {
    state.PauseTiming();
    UpdateUsersFrame(client, 0);
    SimulatedSocket& socket = Simulated(client.tab(0).Winsock3);
    socket.Accept();
    socket.Deliver(answer);
    state.ResumeTiming();
    socket.PeerCloses();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UserFrame)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
