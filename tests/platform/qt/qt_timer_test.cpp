#include "platform/qt/qt_timer.h"
#include "support/qt/qt_test.h"
#include "text/fault.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QTest>
#include <memory>
#include <vector>

namespace parlorwire {

class TimerTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QtTimer> timer;
  int ticks = 0;
  QElapsedTimer elapsed;

  // Lets the loop run until there are so many ticks, and no longer.
  bool AwaitTicks(int count) {
    QElapsedTimer waited;
    waited.start();
    while (ticks < count && waited.elapsed() < 5000)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return ticks == count;
  }

 private slots:
  void init() {
    timer = std::make_unique<QtTimer>();
    timer->Tick = [this] { ++ticks; };
    ticks = 0;
    elapsed.start();
  }

  void IsOffAtFirst() {
    QVERIFY(!timer->Enabled());
    QCOMPARE(timer->Interval(), 0);
    timer->Interval(1);
    QTest::qWait(30);
    QCOMPARE(ticks, 0);
  }

  void TicksAgainAndAgain() {
    timer->Interval(20);
    timer->Enabled(true);
    QCOMPARE(ticks, 0);
    QVERIFY(AwaitTicks(5));
    QVERIFY(elapsed.elapsed() >= 95);
    QVERIFY(timer->Enabled());
    QCOMPARE(timer->Interval(), 20);
  }

  void SwitchedOffTicksNoMore() {
    timer->Interval(1);
    timer->Enabled(true);
    QTRY_VERIFY(ticks > 2);
    timer->Enabled(false);
    ticks = 0;
    QTest::qWait(30);
    QCOMPARE(ticks, 0);
  }

  void ATickThatIsDueWhenTheTimerIsSwitchedOffDoesNotCome() {
    timer->Interval(1);
    timer->Enabled(true);
    QTest::qSleep(20);
    timer->Enabled(false);
    QTest::qWait(20);
    QCOMPARE(ticks, 0);
  }

  void SwitchingOnFromOffStartsANewPeriod() {
    timer->Interval(100);
    timer->Enabled(true);
    QTest::qWait(60);
    timer->Enabled(false);
    timer->Enabled(true);
    elapsed.start();
    QVERIFY(AwaitTicks(1));
    QVERIFY(elapsed.elapsed() >= 99);
  }

  void SwitchingOnAgainChangesNothing() {
    timer->Interval(400);
    timer->Enabled(true);
    QTest::qWait(250);
    timer->Enabled(true);
    QVERIFY(AwaitTicks(1));
    QVERIFY(elapsed.elapsed() < 600);
  }

  void AnIntervalSetOnARunningTimerStartsANewPeriod() {
    timer->Interval(100);
    timer->Enabled(true);
    QTest::qWait(60);
    timer->Interval(100);
    elapsed.start();
    QVERIFY(AwaitTicks(1));
    QVERIFY(elapsed.elapsed() >= 99);
  }

  void AnIntervalOfZeroNeverTicks() {
    timer->Enabled(true);
    QTest::qWait(30);
    QCOMPARE(ticks, 0);
    QVERIFY(timer->Enabled());
    timer->Interval(1);
    QTRY_VERIFY(ticks > 0);
    timer->Interval(0);
    ticks = 0;
    QTest::qWait(30);
    QCOMPARE(ticks, 0);
    QVERIFY(timer->Enabled());
  }

  void ANegativeIntervalIsFault380AndChangesNothing() {
    timer->Interval(20);
    timer->Enabled(true);
    try {
      timer->Interval(-1);
      QFAIL("no fault");
    } catch (const Fault& fault) {
      QCOMPARE(fault.number, 380);
      QCOMPARE(fault.description, Text("Invalid property value"));
    }
    QCOMPARE(timer->Interval(), 20);
    QVERIFY(timer->Enabled());
    QVERIFY(AwaitTicks(1));
  }

  void ATickMaySwitchOffItsTimer() {
    timer->Tick = [this] {
      ++ticks;
      timer->Enabled(false);
    };
    timer->Interval(1);
    timer->Enabled(true);
    QVERIFY(AwaitTicks(1));
    QTest::qWait(30);
    QCOMPARE(ticks, 1);
  }

  void ATickMayStartItsTimerAnew() {
    timer->Tick = [this] {
      ++ticks;
      timer->Enabled(false);
      timer->Interval(40);
      timer->Enabled(true);
      elapsed.start();
    };
    timer->Interval(1);
    timer->Enabled(true);
    QVERIFY(AwaitTicks(1));
    const QElapsedTimer since_first = elapsed;
    QVERIFY(AwaitTicks(2));
    QVERIFY(since_first.elapsed() >= 39);
    QCOMPARE(timer->Interval(), 40);
  }

  void ATickMayDestroyItsTimer() {
    timer->Tick = [this] {
      timer.reset();
      ++ticks;  // by way of what the handler holds, which must live on
    };
    timer->Interval(1);
    timer->Enabled(true);
    QVERIFY(AwaitTicks(1));
    QTest::qWait(20);
    QCOMPARE(ticks, 1);
  }

  void ATimerWithoutATickIsNoFault() {
    timer->Tick = nullptr;
    timer->Interval(1);
    timer->Enabled(true);
    QTest::qWait(20);
    QVERIFY(timer->Enabled());
  }

  void TicksThatABusyProcessMissesDoNotComeLater() {
    timer->Interval(10);
    timer->Enabled(true);
    QTest::qSleep(200);
    for (int i = 0; i < 5; ++i)
      QCoreApplication::processEvents();
    QVERIFY2(ticks <= 2, qPrintable(QString::number(ticks)));
  }

  void AFewThatAreOffWakeNobody() {
    std::vector<std::unique_ptr<QtTimer>> idle;
    for (int i = 0; i < 100; ++i) {
      idle.push_back(std::make_unique<QtTimer>());
      idle.back()->Interval(1);
      if (i % 2 == 0) idle.back()->Enabled(true);
      idle.back()->Enabled(false);
    }
    QTest::qSleep(10);
    for (int i = 0; i < 20; ++i)
      QVERIFY(!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::TimerTest)
#include "qt_timer_test.moc"
