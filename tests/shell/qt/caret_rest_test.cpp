#include "shell/qt/caret_rest.h"

#include <QLineEdit>
#include <QObject>
#include <QSignalSpy>
#include <QVBoxLayout>

#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Counts the repaints of a box.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget* box) { box->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

constexpr int kBlink = 60;  // ms

// A window with the input box in focus, whose caret blinks quickly, and the timer that ends that.
struct RestingWindow : Windows {
  RestingWindow() {
    QApplication::setCursorFlashTime(kBlink);
    tab(0).LoginShown = true;
    desktop.SetTabVisible(0, true);
    desktop.SetTabControlsEnabled(0, true);
    msg = Find<QLineEdit>("msg_0");
    timer = window->findChild<CaretRest*>()->findChild<QTimer*>();
    timer->setTimerType(Qt::PreciseTimer);
    QTest::qWait(60);
    msg->clearFocus();
    msg->setFocus();
  }
  bool Blinks() {
    const PaintCount paints(msg);
    QTest::qWait(6 * kBlink);
    return paints.count >= 3;
  }
  bool RestsAfterItsTime() {
    if (!timer->isActive()) return false;
    timer->start(1);
    QTest::qWait(20);
    timer->setInterval(CaretRest::kMilliseconds);
    QTest::qWait(kBlink);
    return !Blinks();
  }
  QLineEdit* msg;
  QTimer* timer;
};

}  // namespace

class CaretRestTest : public QObject {
  Q_OBJECT

 private slots:
  void TenSecondsBehindTheLastKeyTheCaretStopsAndIsSeen() {
    RestingWindow windows;
    QVERIFY(windows.Blinks());
    QCOMPARE(windows.timer->interval(), 10'000);
    QVERIFY(windows.timer->isSingleShot());
    QVERIFY(windows.RestsAfterItsTime());
    const QImage with = windows.msg->grab().toImage();
    windows.msg->clearFocus();
    QVERIFY(windows.msg->grab().toImage() != with);
  }

  void AKeyAndAClickStartItAnew() {
    RestingWindow windows;
    QVERIFY(windows.RestsAfterItsTime());
    QTest::keyClick(windows.msg, Qt::Key_A);
    QVERIFY(windows.Blinks());
    QVERIFY(windows.RestsAfterItsTime());
    QTest::mouseClick(windows.msg, Qt::LeftButton);
    QVERIFY(windows.Blinks());
    QVERIFY(windows.RestsAfterItsTime());
  }

  void EveryKeyBeginsTheTimeAnew() {
    RestingWindow windows;
    windows.timer->start();
    QTest::qWait(200);
    const int left = windows.timer->remainingTime();
    QTest::keyClick(windows.msg, Qt::Key_Left);
    QVERIFY(windows.timer->remainingTime() > left + 100);
  }

  void WithoutTheFocusNothingRunsAndOtherBoxesBlinkAsEver() {
    RestingWindow windows;
    QVERIFY(windows.RestsAfterItsTime());
    QCOMPARE(QApplication::cursorFlashTime(), 0);
    windows.msg->clearFocus();
    QCOMPARE(QApplication::cursorFlashTime(), kBlink);
    QVERIFY(!windows.timer->isActive());
  }

  void ACaretThatNeverBlinksIsLeftAlone() {
    RestingWindow windows;
    QApplication::setCursorFlashTime(0);
    windows.timer->start(1);
    QTest::qWait(20);
    QTest::keyClick(windows.msg, Qt::Key_A);
    QCOMPARE(QApplication::cursorFlashTime(), 0);
  }

  void AnEndWithTheCaretAtRestLeavesTheToolkitAsItWas() {
    {
      RestingWindow windows;
      QVERIFY(windows.RestsAfterItsTime());
    }
    QCOMPARE(QApplication::cursorFlashTime(), kBlink);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::CaretRestTest)
#include "caret_rest_test.moc"
