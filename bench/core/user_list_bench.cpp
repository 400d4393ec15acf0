// What a move of the mouse costs in a list of users, by their number: from nick to nick, and behind
// a list that was drawn anew before each move.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/listed_user.h"
#include "users/nick_menu.h"
#include "users/user_frame.h"
#include "users/users_mouse.h"

namespace parlorwire {
namespace {

struct DrawnList {
  explicit DrawnList(std::int64_t users) {
    Assemble(client);
    client.tab(0).Login = "nobody";
    answer = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
    for (std::int64_t i = 0; i < users; ++i)
      answer += "user" + std::to_string(i) + "|[" + (i % 9 == 0 ? "+o -t" : "-t") + "][10.0." +
                std::to_string(i % 256) + ".7:]'" + (i % 3 == 0 ? "at work" : "") + "'\n";
    Draw();
    const RichTextBox& list = client.tab(0).Rich_Users;
    auto user = NextListedUser(list, 0, ListDirection::kDown);
    for (; user;
         user = NextListedUser(list, list.LineAt(user->nick_start) + 1, ListDirection::kDown))
      nicks.push_back(user->nick_start);
  }

  void Draw() {
    UpdateUsersFrame(client, 0);
    SimulatedSocket& socket = Simulated(client.tab(0).Winsock3);
    socket.Accept();
    socket.Deliver(answer);
    socket.PeerCloses();
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  Text answer;
  std::vector<PanePosition> nicks;
};

// Down the list; no nick has been looked at before it is left.
void BM_HoverFromNickToNick(benchmark::State& state) {
  DrawnList list(state.range(0));
  std::size_t i = 0;
  for (auto _ : state) {
    if (i == list.nicks.size()) {
      state.PauseTiming();
      list.Draw();
      i = 0;
      state.ResumeTiming();
    }
    Rich_Users_MouseMove(list.client, 0, list.nicks[i++]);
  }
}
BENCHMARK(BM_HoverFromNickToNick)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMicrosecond);

// The move goes from the last nick to its address: of all nicks, it is the furthest to search for.
void BM_HoverOffTheLastNickOfANewList(benchmark::State& state) {
  DrawnList list(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    list.Draw();
    Rich_Users_MouseMove(list.client, 0, list.nicks.back());
    state.ResumeTiming();
    Rich_Users_MouseMove(list.client, 0, list.nicks.back() + 12);
  }
}
BENCHMARK(BM_HoverOffTheLastNickOfANewList)
    ->Arg(50)
    ->Arg(5000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

// The tinted nick has to be looked for: the list was drawn anew since.
void BM_HoverOverANewList(benchmark::State& state) {
  DrawnList list(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Rich_Users_MouseMove(list.client, 0, list.nicks[1]);
    list.Draw();
    state.ResumeTiming();
    Rich_Users_MouseMove(list.client, 0, list.nicks.back());
  }
}
BENCHMARK(BM_HoverOverANewList)->Arg(50)->Arg(5000)->Iterations(200)->Unit(benchmark::kMicrosecond);

void BM_ShowNickMenu(benchmark::State& state) {
  DrawnList list(state.range(0));
  const Text nick = "user" + std::to_string(state.range(0) - 1);
  for (auto _ : state)
    ShowNickMenu(list.client, 0, nick);
}
BENCHMARK(BM_ShowNickMenu)->Arg(50)->Arg(5000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
