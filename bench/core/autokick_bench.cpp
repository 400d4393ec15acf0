// What somebody who joins costs an operator's client: the look-ups in the list of kicks, by nick
// and by address, the log of addresses, and the report.
#include <benchmark/benchmark.h>

#include <string>

#include "bot/autokick.h"
#include "bot/join_report.h"
#include "bot/reactions.h"
#include "platform/posix/posix_files.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

constexpr int kAddresses = 100'000;

// Every other entry is a mask of addresses, and no entry names anybody below.
Text List(std::int64_t entries) {
  Text list;
  for (std::int64_t i = 0; i < entries; ++i) {
    const Text number = std::to_string(i);
    list += i % 2 == 0 ? "spammer" + number + "*"
                       : "172." + std::to_string(i / 200) + ".*." + std::to_string(i % 200);
    list += "\thall;attic\tgo away, and stay there\tfriend" + number + ";another\r\n";
  }
  list.resize(list.size() - 2);
  return list;
}

Text Address(int number) {
  return "10." + std::to_string(number / 40'000) + "." + std::to_string(number / 200 % 200) + "." +
         std::to_string(number % 200);
}

// About five megabytes.
Text Log() {
  Text log;
  for (int i = 0; i < kAddresses; ++i) {
    const Text number = std::to_string(i);
    log += "\r\n" + Address(i) + " visitor_" + number + " guest_" + number + " mask_" + number;
  }
  return log;
}

void BM_LookUpByNick(benchmark::State& state) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  client.app.AutoKickText = List(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(FindAutoKick(client, "Spamalot", "hall", true, ""));
}
BENCHMARK(BM_LookUpByNick)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void BM_LookUpByAddress(benchmark::State& state) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  client.app.AutoKickText = List(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(FindAutoKick(client, "172.16.0.250", "hall", false, "bob"));
}
BENCHMARK(BM_LookUpByAddress)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);

// An operator's client with such a list and such a log, whose files are on a disk.
struct Operator {
  Operator() {
    Assemble(client);
    files.Replace("IPlog.log", Log());
    client.app.AutoKickText = List(10'000);
    client.app.IpLogText = files.Read("IPlog.log");
    client.app.AutoKick = true;
    client.app.SayIPAndFlags = true;
    TabSession& session = client.tab(0);
    session.Login = "me";
    session.Channel = "hall";
    session.ActionsArmed = true;
    session.IsOperator = true;
  }
  // A hundred join lines, and the list that tells of them; number `first` has the first address.
  void Join(int first, const Text& nick) {
    TabSession& session = client.tab(0);
    session.UsersText.Clear();
    for (int i = first; i < first + 100; ++i) {
      const Text name = nick + std::to_string(i);
      ClientAction(client, name + " приходит на канал (mask)"_w, 0);
      session.UsersText.Append(name, Address(i), "[-t]", "");
    }
    SayBotFunction(client, 0);
    session.JoinLines.clear();
    session.BotQueue.clear();
  }
  Platform Ports() { return rest.Ports(files); }

  TemporaryFolder folder;
  SimulatedPlatform rest;
  PosixFiles files{folder.path()};
  Client client{Ports()};
};

// At addresses that the log doesn't have: each is written behind the others.
void BM_HundredNewAddresses(benchmark::State& state) {
  Operator chat;
  int first = kAddresses;
  for (auto _ : state) {
    chat.Join(first, "newcomer");
    first += 100;
  }
  state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(BM_HundredNewAddresses)->Unit(benchmark::kMillisecond);

// New nicks at addresses that it has: each takes a new file.
void BM_HundredNewNicks(benchmark::State& state) {
  Operator chat;
  int round = 0;
  for (auto _ : state)
    chat.Join(100 * (round++ % 1000), "nick" + std::to_string(round) + "_");
  state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(BM_HundredNewNicks)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
