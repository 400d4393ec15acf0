// What the operations of a pane cost when it has 1,000, 100,000 and 1,000,000 lines: the argument
// of each benchmark. A line has about 90 characters and three runs.
//
// An operation anywhere in a pane meets cold memory when the pane is large, and memory that is
// still in the cache when it is small. To see the cost of the pane and not that of the memory,
// there are always a million lines: 1,000 panes of 1,000 lines, 10 of 100,000, or one. An operation
// anywhere takes one of these panes and a place in it, both drawn ahead.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "pane/rich_text_box.h"
#include "pane/search.h"

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

constexpr std::int64_t kAllLines = 1'000'000;

using Panes = std::vector<std::unique_ptr<RichTextBox>>;

// Made once for all benchmarks: filling a million lines takes its time.
const Panes& PanesOf(std::int64_t lines) {
  static std::map<std::int64_t, Panes> all;
  Panes& panes = all[lines];
  while (static_cast<std::int64_t>(panes.size()) < kAllLines / lines) {
    panes.push_back(std::make_unique<RichTextBox>());
    for (std::int64_t i = 0; i < lines; ++i)
      AppendLine(*panes.back());
  }
  return panes;
}

RichTextBox& PaneOf(std::int64_t lines) {
  return *PanesOf(lines).front();
}

struct Place {
  RichTextBox* pane;
  PanePosition position;
};

// Places anywhere, in an endless row.
class Anywhere {
 public:
  explicit Anywhere(const Panes& panes) : places_(1U << 16U) {
    std::mt19937_64 random(7);
    for (Place& place : places_) {
      place.pane = panes[random() % panes.size()].get();
      place.position = static_cast<PanePosition>(
          random() % static_cast<std::uint64_t>(place.pane->Length() - 200));
    }
  }
  const Place& Next() { return places_[next_++ % places_.size()]; }

 private:
  std::vector<Place> places_;
  std::size_t next_ = 0;
};

void ReportMemory(benchmark::State& state, const RichTextBox& pane) {
  state.counters["bytes_per_text_byte"] =
      static_cast<double>(pane.MemoryUsed()) / static_cast<double>(pane.Length());
}

// Once a tenth has come on top, it is taken off again.
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
  const auto picture = std::make_shared<PanePicture>(PanePicture{"*:)", nullptr});
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

// The mouse comes upon a nick somewhere and leaves it: the line is found and read, the nick is
// tinted and gets its colour back.
void BM_TintNickAnywhere(benchmark::State& state) {
  Anywhere anywhere(PanesOf(state.range(0)));
  for (auto _ : state) {
    const auto& [pane, position] = anywhere.Next();
    const PaneLine line = pane->LineByIndex(pane->LineAt(position));
    const std::string text = pane->TextBetween(line.start, line.start + line.length);
    const auto nick = line.start + static_cast<PanePosition>(text.find(' ') + 1);
    const auto nick_end = line.start + static_cast<PanePosition>(text.find(':', kTime.size()));
    pane->ExSetSel(nick, nick_end);
    pane->SelColor(0xFF00);
    pane->ExSetSel(nick, nick_end);
    pane->SelColor(0xFFFF00);
  }
}

void BM_LineAtAnywhere(benchmark::State& state) {
  Anywhere anywhere(PanesOf(state.range(0)));
  for (auto _ : state) {
    const auto& [pane, position] = anywhere.Next();
    benchmark::DoNotOptimize(pane->LineByIndex(pane->LineAt(position)));
  }
}

// The line around a position with its text and runs, as a view asks for it.
void BM_ReadLineAnywhere(benchmark::State& state) {
  Anywhere anywhere(PanesOf(state.range(0)));
  for (auto _ : state) {
    const auto& [pane, position] = anywhere.Next();
    const PaneLine line = pane->LineByIndex(pane->LineAt(position));
    benchmark::DoNotOptimize(pane->TextBetween(line.start, line.start + line.length));
    benchmark::DoNotOptimize(pane->RunsBetween(line.start, line.next));
  }
}

// A line somewhere goes, and a line comes at the end, as in a list of users.
void BM_DeleteLineAnywhereAndAppendOne(benchmark::State& state) {
  Anywhere anywhere(PanesOf(state.range(0)));
  for (auto _ : state) {
    const auto& [pane, position] = anywhere.Next();
    const PaneLine line = pane->LineByIndex(pane->LineAt(position));
    pane->ExSetSel(line.start, line.next);
    pane->ReplaceSel("");
    AppendLine(*pane);
  }
  ReportMemory(state, PaneOf(state.range(0)));
}

// All is selected and let go again; what is written with it is another thing.
void BM_SelectAll(benchmark::State& state) {
  RichTextBox& pane = PaneOf(state.range(0));
  for (auto _ : state) {
    pane.ExSetSel(0, -1);
    benchmark::DoNotOptimize(pane.SelLength());
    pane.ExSetSel(0, 0);
  }
}

// Through the whole pane for what is not in it.
void Search(benchmark::State& state, std::string_view wanted, LetterCase letter_case) {
  RichTextBox& pane = PaneOf(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(FindForwards(pane, wanted, 0, letter_case));
  state.SetBytesProcessed(state.iterations() * pane.Length());
}
void BM_SearchForwards(benchmark::State& state) {
  Search(state, "another text", LetterCase::kCounts);
}
void BM_SearchForwardsIgnoringCase(benchmark::State& state) {
  Search(state, "another text", LetterCase::kIgnored);
}
void BM_SearchForwardsForThreeLetters(benchmark::State& state) {
  Search(state, "xyz", LetterCase::kIgnored);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  for (const std::int64_t lines : {1'000, 100'000, 1'000'000})
    benchmark->Arg(lines);
}

BENCHMARK(BM_AppendLine)->Apply(Sizes);
BENCHMARK(BM_FormatNearEnd)->Apply(Sizes);
BENCHMARK(BM_InsertPicture)->Apply(Sizes);
BENCHMARK(BM_TintNickAnywhere)->Apply(Sizes);
BENCHMARK(BM_LineAtAnywhere)->Apply(Sizes);
BENCHMARK(BM_ReadLineAnywhere)->Apply(Sizes);
BENCHMARK(BM_DeleteLineAnywhereAndAppendOne)->Apply(Sizes);
BENCHMARK(BM_SelectAll)->Apply(Sizes);
BENCHMARK(BM_SearchForwards)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SearchForwardsIgnoringCase)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SearchForwardsForThreeLetters)->Apply(Sizes)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlorwire

BENCHMARK_MAIN();
