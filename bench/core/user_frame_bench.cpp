// What the users of a channel cost, by their number: a whole user frame from its last byte to the
// drawn list; the line of one who leaves, and of one who is not on the list, while so many are; a
// page of channels that names so many.
#include <benchmark/benchmark.h>

#include <string>

#include "display/parse_chat_line.h"
#include "session/channel_list.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

Text UsersAnswer(std::int64_t users) {
  Text answer = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
  for (std::int64_t i = 0; i < users; ++i)
    answer += "user" + std::to_string(i) + "|[" + (i % 9 == 0 ? "+o -t" : "-t") + "][10.0." +
              std::to_string(i % 256) + ".7:]'" + (i % 3 == 0 ? "at work" : "") + "'\n";
  return answer;
}

// A client that is on a channel, with the socket of its user frame up to the last byte.
struct OnChannel {
  OnChannel() {
    Assemble(client);
    client.tab(0).Login = "user7";
    client.tab(0).Channel = "hall";
  }
  void Fetch(const Text& answer) {
    UpdateUsersFrame(client, 0);
    socket().Accept();
    socket().Deliver(answer);
  }
  SimulatedSocket& socket() { return Simulated(client.tab(0).Winsock3); }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

void BM_UserFrame(benchmark::State& state) {
  OnChannel tab;
  const Text answer = UsersAnswer(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    tab.Fetch(answer);
    state.ResumeTiming();
    tab.socket().PeerCloses();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UserFrame)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);

// The last of them leaves: of all places, his is the furthest to search for. The line goes to the
// pane and to a day log in memory, and the list loses his.
void BM_LeaveLine(benchmark::State& state) {
  OnChannel tab;
  tab.client.tab(0).ActionsArmed = true;
  const Text answer = UsersAnswer(state.range(0));
  const Text line =
      "..[16:45:59]user" + std::to_string(state.range(0) - 1) + " покидает нас (10.0.0.7)"_w;
  for (auto _ : state) {
    state.PauseTiming();
    tab.Fetch(answer);
    tab.socket().PeerCloses();
    state.ResumeTiming();
    ParseChatLine(tab.client, line, 0);
  }
}
BENCHMARK(BM_LeaveLine)->Arg(50)->Arg(200)->Arg(5000)->Unit(benchmark::kMicrosecond);

// Each time another one, so that no place of a nick is remembered.
void BM_LineOfAStranger(benchmark::State& state) {
  OnChannel tab;
  tab.Fetch(UsersAnswer(state.range(0)));
  tab.socket().PeerCloses();
  int number = 0;
  for (auto _ : state)
    ParseChatLine(tab.client, "..[16:45:59]stranger" + std::to_string(++number) + ":() hello", 0);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LineOfAStranger)->Arg(50)->Arg(5000)->Iterations(2000)->Unit(benchmark::kMicrosecond);

void BM_ChannelPage(benchmark::State& state) {
  OnChannel tab;
  Text page = "id=1\n";
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    if (i % 20 == 0) page += "channel: room" + std::to_string(i) + "\nchflags: +k\ntopic: news\n";
    page += "user: user" + std::to_string(i) + "\t[+o]\n";
  }
  for (auto _ : state) {
    tab.client.tab(0).Rich.Text("");
    tab.client.tab(0).ChannelListPage = page;
    ShowChannelList(tab.client, 0);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ChannelPage)->Arg(50)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
