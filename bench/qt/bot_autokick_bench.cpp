// What the editor of the list of kicks costs with a list of 10,000 entries. Offscreen: every figure
// ends with the paint event.
#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>
#include <cstdlib>
#include <memory>

#include "session/client.h"
#include "shell/assembly.h"
#include "shell/qt/autokick_grid.h"
#include "shell/qt/bot_autokick.h"
#include "shell/qt/client_main.h"
#include "shell/qt/qt_desktop.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

// The main window of a client with such a list, and the editor once it is open.
struct Operator {
  explicit Operator(std::int64_t entries) {
    Assemble(client);
    window = std::make_unique<client_main>(client, desktop);
    window->Load();
    window->show();
    for (std::int64_t i = 0; i < entries; ++i)
      client.app.AutoKickText += (i == 0 ? "" : "\r\n") + ("spammer" + std::to_string(i)) +
                                 "*\thall;attic\tgo away, and stay there\tfriend;another";
    QCoreApplication::processEvents();
  }
  void Open() {
    window->findChild<QAction*>(QStringLiteral("akick_modify"))->trigger();
    QCoreApplication::processEvents();
    editor = window->findChild<bot_autokick*>();
    grid = window->findChild<AutoKickGrid*>();
  }
  static void Press(QWidget* widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    QCoreApplication::processEvents();
  }

  SimulatedPlatform outside;
  QtDesktop desktop;
  Client client{outside.Ports(desktop)};
  std::unique_ptr<client_main> window;
  bot_autokick* editor = nullptr;
  AutoKickGrid* grid = nullptr;
};

// Its window is made, too.
void OpenFirst(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto chat = std::make_unique<Operator>(state.range(0));
    state.ResumeTiming();
    chat->Open();
    state.PauseTiming();
    chat.reset();
    state.ResumeTiming();
  }
}

void OpenAgain(benchmark::State& state) {
  Operator chat(state.range(0));
  chat.Open();
  for (auto _ : state) {
    state.PauseTiming();
    chat.editor->reject();
    QCoreApplication::processEvents();
    state.ResumeTiming();
    chat.Open();
  }
}

void WalkByKeys(benchmark::State& state, int forwards, int backwards) {
  Operator chat(state.range(0));
  chat.Open();
  chat.grid->setFocus();
  chat.grid->setCurrentIndex(chat.grid->model()->index(0, 1));
  int step = 0;
  for (auto _ : state)
    Operator::Press(chat.grid, ++step % 400 < 200 ? forwards : backwards);
}

void RowByRow(benchmark::State& state) {
  WalkByKeys(state, Qt::Key_Down, Qt::Key_Up);
}

void PageByPage(benchmark::State& state) {
  WalkByKeys(state, Qt::Key_PageDown, Qt::Key_PageUp);
}

void ScrollByWheel(benchmark::State& state) {
  Operator chat(state.range(0));
  chat.Open();
  QWidget* viewport = chat.grid->viewport();
  const QPointF at = viewport->rect().center();
  int step = 0;
  for (auto _ : state) {
    const int angle = ++step % 400 < 200 ? -120 : 120;
    QWheelEvent event(at, viewport->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(viewport, &event);
    QCoreApplication::processEvents();
  }
}

// The bar dragged from end to end and back, a hundredth at a time.
void DragBar(benchmark::State& state) {
  Operator chat(state.range(0));
  chat.Open();
  QScrollBar* bar = chat.grid->verticalScrollBar();
  int step = 0;
  for (auto _ : state) {
    const int part = std::abs(++step % 200 - 100);
    bar->setValue(bar->maximum() * part / 100);
    QCoreApplication::processEvents();
  }
}

// A mask that no row has yet, typed beforehand.
void AddRow(benchmark::State& state) {
  Operator chat(state.range(0));
  chat.Open();
  auto* input = chat.editor->findChild<QLineEdit*>(QStringLiteral("input_field"));
  int step = 0;
  for (auto _ : state) {
    input->setText(QStringLiteral("nick%1").arg(++step));
    Operator::Press(input, Qt::Key_Return);
  }
}

void RegisterAll() {
  for (const int entries : {100, 10'000}) {
    const auto add = [&](const char* name, void (*run)(benchmark::State&)) {
      benchmark::RegisterBenchmark(name, run)->Arg(entries)->Unit(benchmark::kMillisecond);
    };
    add("OpenFirst", OpenFirst);
    add("OpenAgain", OpenAgain);
    add("RowByRow", RowByRow);
    add("PageByPage", PageByPage);
    add("ScrollByWheel", ScrollByWheel);
    add("DragBar", DragBar);
    add("AddRow", AddRow);
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
  return 0;
}
