// What a pane's view costs with a thousand lines and with a million. Offscreen, on a view of 800 by
// 600: every figure ends with the paint event.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <cstdlib>
#include <memory>

#include "pane/qt/reader_selection.h"
#include "pane/qt/rich_text_view.h"
#include "support/pane_samples.h"

namespace parlorwire {
namespace {

struct Shown {
  explicit Shown(int lines) : view(box) {
    box.BackColor(0);
    AppendMessages(box, lines);
    view.resize(800, 600);
    view.show();
    view.ScrollToEnd();
    Paint();
  }
  static void Paint() { QCoreApplication::processEvents(); }

  RichTextBox box;
  RichTextView view;
};

// Making a pane of a million lines takes a while, so the benchmarks share it. It goes before the
// application does.
std::unique_ptr<Shown> shown_pane;

Shown& ShownOf(int lines) {
  static int made = 0;
  if (made != lines) shown_pane = std::make_unique<Shown>(lines);
  made = lines;
  return *shown_pane;
}

void AppendOneLine(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  shown.view.ScrollToEnd();
  Shown::Paint();
  for (auto _ : state) {
    AppendMessage(shown.box, "[16:45:57]", "alice:", "one more line");
    shown.box.VScroll(PaneScroll::kBottom);
    shown.box.Refresh();
    Shown::Paint();
  }
}

// A thousand lines between two turns of the event loop, each with the pane's own scrolling rule.
void AppendThousandLines(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  const auto before = shown.view.work();
  for (auto _ : state) {
    for (int i = 0; i < 1000; ++i) {
      shown.box.SetRedraw(false);
      AppendMessage(shown.box, "[16:45:57]", "alice:", "one more line");
      benchmark::DoNotOptimize(shown.box.GetScrollInfo());
      shown.box.VScroll(PaneScroll::kBottom);
      shown.box.SetRedraw(true);
      shown.box.Refresh();
    }
    Shown::Paint();
  }
  const auto after = shown.view.work();
  const auto turns = static_cast<double>(state.iterations());
  state.counters["paints"] = static_cast<double>(after.paints - before.paints) / turns;
  state.counters["laid_out"] = static_cast<double>(after.laid_out - before.laid_out) / turns;
}

void AppendWhileScrolledUp(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  shown.view.ShowPosition(shown.box.Length() / 2);
  Shown::Paint();
  for (auto _ : state) {
    AppendMessage(shown.box, "[16:45:57]", "alice:", "one more line");
    shown.box.Refresh();
    Shown::Paint();
  }
}

void Resize(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  shown.view.ShowPosition(shown.box.Length() / 2);
  bool wide = false;
  for (auto _ : state) {
    shown.view.resize(wide ? 800 : 1600, 600);
    wide = !wide;
    Shown::Paint();
  }
  shown.view.resize(800, 600);
}

// The bar dragged from end to end and back, a hundredth at a time, each step painted.
void DragBar(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  QScrollBar* bar = shown.view.verticalScrollBar();
  int step = 0;
  bar->setSliderDown(true);
  for (auto _ : state) {
    const int part = std::abs(++step % 200 - 100);
    bar->setSliderPosition(static_cast<int>(std::int64_t{bar->maximum()} * part / 100));
    Shown::Paint();
  }
  bar->setSliderDown(false);
}

void JumpToPosition(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  int step = 0;
  for (auto _ : state) {
    shown.view.ShowPosition(shown.box.Length() / 100 * (++step * 37 % 100));
    Shown::Paint();
  }
}

void ScrollByWheel(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  shown.view.ShowPosition(shown.box.Length() / 2);
  Shown::Paint();
  QWidget* viewport = shown.view.viewport();
  const QPointF at = viewport->rect().center();
  int step = 0;
  for (auto _ : state) {
    const int angle = ++step % 400 < 200 ? 120 : -120;
    QWheelEvent event(at, viewport->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(viewport, &event);
    Shown::Paint();
  }
}

void WordAndLineAtPosition(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  int step = 0;
  for (auto _ : state) {
    const PanePosition at = shown.box.Length() / 100 * (++step * 37 % 100);
    benchmark::DoNotOptimize(RangeAround(shown.box, at, SelectionGrain::kWord));
    benchmark::DoNotOptimize(RangeAround(shown.box, at, SelectionGrain::kLine));
  }
}

void PositionUnderPoint(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  int x = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(shown.view.CharFromPos(x, 300));
    x = (x + 7) % 400;
  }
}

void Tint(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  const PanePosition at = shown.view.CharFromPos(100, 300);
  PaneColour colour = 0;
  for (auto _ : state) {
    shown.box.ExSetSel(at, at + 5);
    shown.box.SelColor(++colour & 0xFFFFFF);
    Shown::Paint();
  }
}

void SelectEverything(benchmark::State& state) {
  Shown& shown = ShownOf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    shown.view.SelectAll();
    Shown::Paint();
    shown.view.Select(0, 0);
    Shown::Paint();
  }
}

void RegisterAll() {
  for (const int lines : {1'000, 100'000, 1'000'000}) {
    const auto add = [&](const char* name, void (*run)(benchmark::State&)) {
      benchmark::RegisterBenchmark(name, run)->Arg(lines)->Unit(benchmark::kMicrosecond);
    };
    add("Resize", Resize);
    add("DragBar", DragBar);
    add("JumpToPosition", JumpToPosition);
    add("ScrollByWheel", ScrollByWheel);
    add("PositionUnderPoint", PositionUnderPoint);
    add("WordAndLineAtPosition", WordAndLineAtPosition);
    add("Tint", Tint);
    add("SelectEverything", SelectEverything);
    add("AppendOneLine", AppendOneLine);
    add("AppendWhileScrolledUp", AppendWhileScrolledUp);
    add("AppendThousandLines", AppendThousandLines);
  }
}

}  // namespace
}  // namespace parlorwire

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  parlorwire::RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
  parlorwire::shown_pane.reset();
  return 0;
}
