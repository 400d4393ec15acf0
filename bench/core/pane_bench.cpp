// What the pane's operations cost at 1,000, 100,000 and 1,000,000 lines. The argument of each
// benchmark is the number of lines; a line has about 90 characters and four runs.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "platform/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr std::string_view kTime = "[16:45:57] ";
constexpr std::string_view kNick = "somebody: ";
constexpr std::string_view kSaid =
    " what is said in a chat is about as long as this, seventy characters\r\n";

void SetFormat(RichTextBox& pane, PaneColour colour, bool bold, bool underline) {
  pane.SelFontName("Times New Roman");
  pane.SelFontSize(12);
  pane.SelItalic(false);
  pane.SelBold(bold);
  pane.SelUnderline(underline);
  pane.SelColor(colour);
}

// As a chat line is written: the time, the nick, its last blank made plain and replaced by the
// text.
void AppendLine(RichTextBox& pane) {
  PanePosition end = pane.Length();
  pane.ExSetSel(end, end);
  SetFormat(pane, 0xFFCFCF, true, false);
  pane.ReplaceSel(kTime);
  end = pane.Length();
  pane.ExSetSel(end, end);
  SetFormat(pane, 0xFFFF00, true, true);
  pane.ReplaceSel(kNick);
  end = pane.Length();
  pane.ExSetSel(end - 1, end);
  pane.SelUnderline(false);
  SetFormat(pane, 0xC0C0C0, false, false);
  pane.ReplaceSel(kSaid);
}

// One pane of each size for all benchmarks: filling a million lines takes its time.
RichTextBox& PaneOf(std::int64_t lines) {
  static std::map<std::int64_t, std::unique_ptr<RichTextBox>> panes;
  std::unique_ptr<RichTextBox>& pane = panes[lines];
  if (pane == nullptr) {
    pane = std::make_unique<RichTextBox>();
    for (std::int64_t i = 0; i < lines; ++i)
      AppendLine(*pane);
  }
  return *pane;
}

void ReportMemory(benchmark::State& state, const RichTextBox& pane) {
  state.counters["bytes_per_text_byte"] =
      static_cast<double>(pane.MemoryUsed()) / static_cast<double>(pane.Length());
}

// Each line is written behind `lines` others; what comes to more than a tenth is taken off again.
void BM_AppendLine(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  const PanePosition length = pane.Length();
  for (auto _ : state) {
    AppendLine(pane);
    if (pane.Length() > length + length / 10) {
      state.PauseTiming();
      pane.ExSetSel(length, -1);
      pane.ReplaceSel("");
      state.ResumeTiming();
    }
  }
  pane.ExSetSel(length, -1);
  pane.ReplaceSel("");
  ReportMemory(state, pane);
}

// The first character of the line written last, as its mark is coloured.
void BM_FormatNearEnd(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  const PanePosition start = pane.LineByIndex(pane.LineCount() - 2).start;
  PaneColour colour = 0;
  for (auto _ : state) {
    pane.ExSetSel(start, start + 1);
    pane.SelBold(false);
    pane.SelColor(++colour & 0xFF);
  }
}

// A code of the last line becomes a picture, and a code again.
void BM_InsertPicture(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  const auto picture = std::make_shared<PanePicture>(PanePicture{"*:)", "image"});
  const PanePosition start = pane.LineByIndex(pane.LineCount() - 2).start + 40;
  pane.ExSetSel(start, start);
  pane.ReplaceSel("*:)");
  for (auto _ : state) {
    pane.ExSetSel(start, start + 3);
    pane.PastePicture(picture);
    pane.ExSetSel(start, start + 1);
    pane.ReplaceSel("*:)");
  }
  pane.ExSetSel(start, start + 3);
  pane.ReplaceSel("");
}

// The places that the benchmarks go to. They are drawn ahead, and as many in each pane.
std::vector<PanePosition> RandomPositions(const RichTextBox& pane) {
  std::mt19937 random(7);
  std::uniform_int_distribution<PanePosition> anywhere(0, pane.Length() - 200);
  std::vector<PanePosition> positions(4096);
  for (PanePosition& position : positions)
    position = anywhere(random);
  return positions;
}

// The mouse comes upon a nick somewhere in the pane and leaves it: the line is found and read, the
// nick is tinted and gets its colour back.
void BM_TintNickAnywhere(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  const auto positions = RandomPositions(pane);
  std::size_t i = 0;
  for (auto _ : state) {
    const RichTextBox::Line line = pane.LineByIndex(pane.LineAt(positions[i++ % positions.size()]));
    const std::string text = pane.TextBetween(line.start, line.start + line.length);
    const auto nick = line.start + static_cast<PanePosition>(text.find(' ') + 1);
    const auto nick_end = line.start + static_cast<PanePosition>(text.find(':', 12));
    pane.ExSetSel(nick, nick_end);
    pane.SelColor(0xFF00);
    pane.ExSetSel(nick, nick_end);
    pane.SelColor(0xFFFF00);
  }
}

void BM_LineAt(benchmark::State& state) {
  const RichTextBox& pane = PaneOf(state.range(0));
  const auto positions = RandomPositions(pane);
  std::size_t i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(pane.LineAt(positions[i++ % positions.size()]));
}

// The line around a position with its text and runs, as a view asks for it.
void BM_ReadLineAnywhere(benchmark::State& state) {
  const RichTextBox& pane = PaneOf(state.range(0));
  const auto positions = RandomPositions(pane);
  std::size_t i = 0;
  for (auto _ : state) {
    const RichTextBox::Line line = pane.LineByIndex(pane.LineAt(positions[i++ % positions.size()]));
    benchmark::DoNotOptimize(pane.TextBetween(line.start, line.start + line.length));
    benchmark::DoNotOptimize(pane.RunsBetween(line.start, line.next));
  }
}

// A line in the middle goes, and as long a one comes at its place.
void BM_DeleteLineInMiddle(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  const std::int64_t lines = pane.LineCount() / 2;
  std::mt19937 random(7);
  for (auto _ : state) {
    const std::int64_t index = lines / 2 + static_cast<std::int64_t>(random()) % lines;
    const RichTextBox::Line line = pane.LineByIndex(index);
    pane.ExSetSel(line.start, line.next);
    pane.ReplaceSel("");
    state.PauseTiming();
    AppendLine(pane);
    state.ResumeTiming();
  }
  ReportMemory(state, pane);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  for (const std::int64_t lines : {1'000, 100'000, 1'000'000})
    benchmark->Arg(lines);
}

BENCHMARK(BM_AppendLine)->Apply(Sizes);
BENCHMARK(BM_FormatNearEnd)->Apply(Sizes);
BENCHMARK(BM_InsertPicture)->Apply(Sizes);
BENCHMARK(BM_TintNickAnywhere)->Apply(Sizes);
BENCHMARK(BM_LineAt)->Apply(Sizes);
BENCHMARK(BM_ReadLineAnywhere)->Apply(Sizes);
BENCHMARK(BM_DeleteLineInMiddle)->Apply(Sizes);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
