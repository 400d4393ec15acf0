// What the desktop port knows of the toolkit's event loop.
#include "shell/qt/qt_desktop.h"
#include "support/qt/qt_test.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <thread>

namespace parlorwire {
namespace {

void StayInThisTurn(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

class QtDesktopTest : public QObject {
  Q_OBJECT

 private slots:
  void EventsMayWaitOnceATurnIsLong() {
    const QtDesktop desktop;
    StayInThisTurn(20);
    QVERIFY(desktop.EventsWaiting());
  }

  void NoneDoesWhereATurnBegins() {
    const QtDesktop desktop;
    StayInThisTurn(20);
    // On a busy machine a turn may be long before its first event.
    bool none = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] { none = none || !desktop.EventsWaiting(); });
    look.start(1);
    QTRY_VERIFY(none);
  }

  void WhatWaitedIsHandledByAYield() {
    QtDesktop desktop;
    bool handled = false;
    QTimer::singleShot(0, [&] { handled = true; });
    StayInThisTurn(20);
    desktop.YieldToEvents();
    QVERIFY(handled);
    bool none = false;
    for (int i = 0; i < 100 && !none; ++i) {
      desktop.YieldToEvents();
      none = !desktop.EventsWaiting();
    }
    QVERIFY(none);
  }
};

}  // namespace
}  // namespace parlorwire

WINDOW_TEST(parlorwire::QtDesktopTest)
#include "qt_desktop_test.moc"
