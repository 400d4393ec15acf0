// Lines a second from the bytes of a frame to runs in a pane: decoding, cutting, marks, flags of
// nicks out of a list of 200 users, colours of nicks out of a table of 1,000, links, smiles out of
// a table of 60 pictures with 120 names, the day log up to its port.
#include <benchmark/benchmark.h>

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "display/chat_log.h"
#include "display/smiles.h"
#include "platform/posix/posix_files.h"
#include "shell/assembly.h"
#include "support/resource_file.h"
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

constexpr int kPictures = 60;

// Each picture has two names.
Text SmileNameOf(int picture, int which) {
  return (which == 0 ? ":" : "name") + std::to_string(picture);
}

Text SmileLibrary() {
  const auto wide = [](const Text& text) { return std::u16string(text.begin(), text.end()); };
  DibParts parts{.width = 40, .height = 40, .depth = 32};
  ResourceFile file;
  file.String(101, wide(std::to_string(kPictures)));
  for (int i = 0; i < kPictures; ++i) {
    const auto id = static_cast<std::uint32_t>(102 + i);
    parts.data.assign(std::size_t{40} * 40 * 4, static_cast<char>(i));
    file.String(id, wide(SmileNameOf(i, 0) + " " + SmileNameOf(i, 1)));
    file.Bitmap(id, parts.Bytes());
  }
  return file.Bytes();
}

Text Nick(int number) {
  static const std::vector<Text> stems = {"Маша"_w, "serge", "Ёжик"_w, "kot", "Волшебник"_w};
  return stems[static_cast<std::size_t>(number) % stems.size()] + std::to_string(number);
}

// How many of a hundred lines have a link or a smile.
struct Shares {
  int links = 8;
  int smiles = 15;
};

// What one evening says: mostly messages of the listed users, some of them own, some that name the
// user, some with an intonation; and actions, echoes and lines of the service.
class Talk {
 public:
  explicit Talk(Shares shares) : shares_(shares) {}

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
    static const std::vector<Text> words = {
        "привет"_w,  "как"_w,  "дела"_w, "сегодня"_w, "вечером"_w, "идём"_w,   "гулять"_w,
        "в"_w,       "кино"_w, "а"_w,    "потом"_w,   "домой"_w,   "ok",       "&amp;",
        "&lt;b&gt;", "ну"_w,   "да"_w,   "конечно"_w, "Me,",       "serge12:", "*n"};
    Text text;
    for (int i = 1 + Draw(16); i > 0; --i)
      text += words[static_cast<std::size_t>(Draw(Draw(4) == 0 ? 21 : 12))] + " ";
    // Of the kinds of lines 86 in a hundred say something.
    if (Draw(86) < shares_.links) text += Draw(4) == 0 ? "192.168.*.* " : "http://a.example/x ";
    if (Draw(86) < shares_.smiles) text += "*" + SmileNameOf(Draw(kPictures), Draw(2)) + " ";
    return text;
  }

  Shares shares_;
  std::minstd_rand random_{7};
};

struct Evening {
  explicit Evening(Shares shares = {}, bool with_table = true) {
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
    if (with_table) {
      platform.program_files.files["smiles.dll"] = SmileLibrary();
      LoadSmiles(client);
    }
    Talk talk(shares);
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
void Ingest(benchmark::State& state, Evening& evening) {
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

void BM_Ingest(benchmark::State& state) {
  Evening evening;
  Ingest(state, evening);
}
BENCHMARK(BM_Ingest)->Arg(0)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// Lines without links and smiles, with a table of smiles and without.
void BM_IngestPlain(benchmark::State& state) {
  Evening evening({0, 0}, true);
  Ingest(state, evening);
}
BENCHMARK(BM_IngestPlain)->Arg(0)->Unit(benchmark::kMicrosecond);

void BM_IngestPlainWithoutTable(benchmark::State& state) {
  Evening evening({0, 0}, false);
  Ingest(state, evening);
}
BENCHMARK(BM_IngestPlainWithoutTable)->Arg(0)->Unit(benchmark::kMicrosecond);

// A line of 100 KB of one word, from the bytes of the frame to the pane.
void BM_LongLine(benchmark::State& state, const char* word) {
  Evening evening;
  evening.session.UsersText.Clear();
  Text line = "..[16:45:57]serge12:() ";
  while (line.size() < 100'000)
    line += word;
  line += "\n";
  for (auto _ : state) {
    state.PauseTiming();
    evening.session.Rich.Text("");
    state.ResumeTiming();
    evening.Deliver(line);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(line.size()));
}
BENCHMARK_CAPTURE(BM_LongLine, text, "hello ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, stars, "*")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, star_words, "* ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, blanks, " ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, smiles, "*:1 ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, markers, "http:// ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, links, "www.a.b ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, masks, "1.2.3.4 ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LongLine, nicks, "serge12: ")->Unit(benchmark::kMillisecond);

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
