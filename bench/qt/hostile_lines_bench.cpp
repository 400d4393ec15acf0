// A line that somebody sends to make a client choke, from the bytes of the frame to the painted
// pane. Offscreen, on a view that fills a screen; the size of the line stands behind its name.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <cstdlib>

#include "pane/qt/rich_text_view.h"
#include "session/frame_stream.h"
#include "shell/assembly.h"
#include "support/one_smile.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct ShownTab {
  ShownTab() : view(client.tab(0).Rich) {
    Assemble(client);
    LoadOneSmile(outside, client);
    client.tab(0).Login = "alice";
    client.tab(0).Connected = true;
    client.tab(0).Rich.BackColor(0);
    view.resize(1000, 560);
    view.show();
    for (int i = 0; i < 100; ++i)
      Line("one more line");
    QCoreApplication::processEvents();
  }
  void Line(const Text& text) { CacheMessages(client, "..[16:45:57]bob:() " + text + "\n", 0); }

  SimulatedPlatform outside;
  Client client{outside.Ports()};
  RichTextView view;
};

struct HostileWord {
  const char* name;
  const char* word;
};
constexpr std::array<HostileWord, 10> kHostileWords{{{"Smiles", " *:)"},
                                                     {"Links", " http://a"},
                                                     {"Masks", " 1.2.3.4"},
                                                     {"Markers", " http:// www."},
                                                     {"LineBreaks", " *n"},
                                                     {"Stars", "*"},
                                                     {"LoneStars", " *"},
                                                     {"Blanks", " "},
                                                     {"Nicks", " alice:"},
                                                     {"Words", " word"}}};

void HostileLine(benchmark::State& state, const char* word) {
  ShownTab tab;
  Text text = "x";
  while (static_cast<std::int64_t>(text.size()) < state.range(0))
    text += word;
  for (auto _ : state) {
    tab.Line(text + " x");
    QCoreApplication::processEvents();
  }
}

}  // namespace
}  // namespace parlorwire

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  for (const parlorwire::HostileWord& hostile : parlorwire::kHostileWords)
    for (const int size : {100'000, 1'000'000})
      benchmark::RegisterBenchmark(hostile.name, parlorwire::HostileLine, hostile.word)
          ->Arg(size)
          ->Iterations(3)
          ->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
