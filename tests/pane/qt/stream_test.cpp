// What is written while lines stream in is painted together, what the reader does at once.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <functional>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr int kFrame = 66;  // ms

void WriteLine(ShownPane& pane) {
  AppendMessages(pane.box, 1);
  pane.box.VScroll(PaneScroll::kBottom);
}

// Milliseconds until the view is painted once more: the shortest of some tries, since a busy
// machine may make any of them long.
qint64 ShortestWait(ShownPane& pane, const std::function<void()>& prepare,
                    const std::function<void()>& act) {
  qint64 shortest = 1'000;
  for (int attempt = 0; attempt < 20 && shortest > kFrame / 2; ++attempt) {
    QTest::qWait(2 * kFrame);
    prepare();
    const auto painted = pane.view.work().paints;
    QElapsedTimer time;
    time.start();
    act();
    while (pane.view.work().paints == painted && time.elapsed() < 1'000)
      QTest::qWait(1);
    shortest = std::min(shortest, time.elapsed());
  }
  return shortest;
}

// Two lines close together: the second one waits.
void WriteTwoLines(ShownPane& pane) {
  WriteLine(pane);
  const auto painted = pane.view.work().paints;
  while (pane.view.work().paints == painted)
    QTest::qWait(1);
  WriteLine(pane);
}

struct TimerCounter : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Timer) ++ticks;
    return false;
  }
  int ticks = 0;
};

}  // namespace

class PaneStreamTest : public QObject {
  Q_OBJECT

 private slots:
  void LinesThatStreamInArePaintedFifteenTimesASecond() {
    ShownPane pane(200);
    const auto before = pane.view.work().paints;
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 100; ++i) {
      WriteLine(pane);
      QTest::qWait(2);
    }
    const auto paints = static_cast<qint64>(pane.view.work().paints - before);
    QVERIFY(paints >= 2);
    QVERIFY2(paints <= time.elapsed() / kFrame + 2, qPrintable(QString::number(paints)));
    ShownPane::Settle();
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void ALineBehindAPauseIsPaintedAtOnce() {
    ShownPane pane(200);
    QVERIFY(ShortestWait(pane, [] {}, [&] { WriteLine(pane); }) <= kFrame / 2);
  }

  void AMoveOfTheMouseHasWhatIsWrittenPaintedAtOnce() {
    ShownPane pane(200);
    const QPoint center = pane.view.viewport()->rect().center();
    QVERIFY(ShortestWait(
                pane, [&] { WriteTwoLines(pane); },
                [&] {
                  QTest::mouseMove(pane.view.viewport(), center);
                  QTest::mouseMove(pane.view.viewport(), center + QPoint(30, 0));
                }) <= kFrame / 2);
  }

  void WhatTheReaderSelectsIsPaintedAtOnce() {
    ShownPane pane(200);
    const PanePosition end = pane.box.Length() - 3;
    QVERIFY(ShortestWait(
                pane, [&] { WriteTwoLines(pane); },
                [&] { pane.view.Select(pane.view.Selected().empty() ? end - 5 : end, end); }) <=
            kFrame / 2);
  }

  void AHiddenViewHasNoTimerThatGoesOn() {
    ShownPane pane(200);
    WriteTwoLines(pane);
    TimerCounter counter;
    pane.view.installEventFilter(&counter);
    pane.view.hide();
    QTest::qWait(6 * kFrame);
    QVERIFY(counter.ticks <= 1);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::PaneStreamTest)

#include "stream_test.moc"
