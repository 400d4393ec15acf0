// Lines a second from the bytes of a frame to runs in a pane: decoding, cutting, marks, flags of
// nicks out of a list of 200 users, colours of nicks out of a table of 1,000, the day log up to its
// port.
#include <benchmark/benchmark.h>

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "display/chat_log.h"
#include "platform/posix/posix_files.h"
#include "shell/assembly.h"
#include "support/simulated_platform.h"
#include "text/charset.h"

namespace parlorwire {
namespace {

constexpr std::size_t kChunk = 4096;  // bytes that arrive at once
constexpr int kLinesInScript = 20000;
constexpr int kListedUsers = 200;
constexpr int kKnownNicks = 1000;

// A day log that goes nowhere: what is measured ends at the port.
struct NoFiles : SimulatedFiles {
  std::int64_t Size(const Text&) const override { return 1; }
  void WriteAt(const Text&, std::int64_t, const Text&) override {}
  void Append(const Text&, const Text&) override {}
};

Text Nick(int number) {
  static const std::vector<Text> stems = {"Маша"_w, "serge", "Ёжик"_w, "kot", "Волшебник"_w};
  return stems[static_cast<std::size_t>(number) % stems.size()] + std::to_string(number);
}

// What one evening says: mostly messages of the listed users, some of them own, some that name the
// user, some with an intonation; and actions, echoes and lines of the service.
class Talk {
 public:
  Text Line() {
    const int kind = Draw(100);
    const Text time =
        "..[" + std::to_string(10 + Draw(14)) + ":45:" + std::to_string(10 + Draw(50)) + "]";
    const Text nick = kind < 8 ? Text("Me") : Nick(Draw(kListedUsers));
    if (kind < 70) return time + nick + ":() " + Says();
    if (kind < 80) return time + nick + ":(задумчиво) "_w + Says();
    if (kind < 84) return time + nick + ":() *** " + Says();
    if (kind < 86) return time + " ### " + nick + ":() " + Says();
    if (kind < 93) return time + nick + " приходит на канал (10.0.0.7)"_w;
    return time + nick + " покидает нас (10.0.0.7)"_w;
  }

 private:
  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  Text Says() {
    static const std::vector<Text> words = {"привет"_w,
                                            "как"_w,
                                            "дела"_w,
                                            "сегодня"_w,
                                            "вечером"_w,
                                            "идём"_w,
                                            "гулять"_w,
                                            "в"_w,
                                            "кино"_w,
                                            "а"_w,
                                            "потом"_w,
                                            "домой"_w,
                                            "ok",
                                            "&amp;",
                                            "&lt;b&gt;",
                                            "*:)",
                                            "http://a.example/x",
                                            "ну"_w,
                                            "да"_w,
                                            "конечно"_w,
                                            "Me,",
                                            "serge12:",
                                            "*n"};
    Text text;
    for (int i = 1 + Draw(16); i > 0; --i)
      text += words[static_cast<std::size_t>(Draw(Draw(4) == 0 ? 23 : 12))] + " ";
    return text;
  }

  std::minstd_rand random_{7};
};

struct Evening {
  Evening() {
    session.Login = "Me";
    session.Channel = "Болтовня"_w;
    platform.files.folders = {"Logs", "Logs\\" + session.Channel};
    Assemble(client);
    Text colours;
    for (int i = 0; i < kKnownNicks; ++i)
      colours += Nick((i * 7) % kKnownNicks) + "=" + std::to_string(i * 1000) + " ";
    client.app.CmIniText.Assign(colours);
    session.Authorized = true;
    session.Winsock1->Connect("chat", "80");
    Simulated(session.Winsock1).Accept();
    Deliver("HTTP/1.0 200 OK\r\n\r\n<pre>\n");
    for (int i = 0; i < kListedUsers; ++i)
      session.UsersText.Append(Nick(i), "10.0.0." + std::to_string(i), i % 9 == 0 ? "[+o]" : "[-t]",
                               i % 3 == 0 ? "away" : "");
    Talk talk;
    Text wire;
    for (int i = 0; i < kLinesInScript; ++i)
      wire += ConvertCharset(talk.Line(), Charset::kWindows1251, Charset::kKoi) + "\n";
    for (std::size_t at = 0; at < wire.size(); at += kChunk)
      chunks.push_back(wire.substr(at, kChunk));
  }

  void Deliver(std::string_view bytes) { Simulated(session.Winsock1).Deliver(bytes); }

  void PlayScript() {
    for (const Text& chunk : chunks)
      Deliver(chunk);
  }

  SimulatedPlatform platform;
  NoFiles no_files;
  Client client{platform.Ports(no_files)};
  TabSession& session = client.tab(0);
  std::vector<Text> chunks;
};

// The argument: how many lines the pane holds when the clock starts.
void BM_Ingest(benchmark::State& state) {
  Evening evening;
  for (std::int64_t lines = 0; lines < state.range(0); lines += kLinesInScript)
    evening.PlayScript();
  std::size_t next = 0;
  std::int64_t lines = 0;
  for (auto _ : state) {
    const Text& chunk = evening.chunks[next];
    evening.Deliver(chunk);
    lines += std::count(chunk.begin(), chunk.end(), '\n');
    next = (next + 1) % evening.chunks.size();
  }
  state.SetItemsProcessed(lines);
  const RichTextBox& pane = evening.session.Rich;
  state.counters["pane_lines"] = static_cast<double>(pane.LineCount());
  state.counters["memory_by_text"] =
      static_cast<double>(pane.MemoryUsed()) / static_cast<double>(pane.Length());
}
BENCHMARK(BM_Ingest)->Arg(0)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// The three pieces of a line into a real file.
void BM_LogOnDisk(benchmark::State& state) {
  std::string folder = (std::filesystem::temp_directory_path() / "ingest_bench.XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    state.SkipWithError("no temporary folder");
    return;
  }
  SimulatedPlatform platform;
  PosixFiles files(folder);
  Client client(platform.Ports(files));
  const Text channel = "Болтовня"_w;
  for (auto _ : state) {
    LogChatLine(client, "[16:45:57] ", channel);
    LogChatLine(client, "serge12: ", channel);
    LogChatLine(client, " as long as what is said in a chat mostly is\r\n", channel);
  }
  state.SetItemsProcessed(state.iterations());
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_LogOnDisk)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
