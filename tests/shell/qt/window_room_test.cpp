// The main window is never out of reach, and never too small.
#include <QObject>
#include <QWidget>

#include "shell/qt/window_room.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {

class WindowRoomTest : public QObject {
  Q_OBJECT

 private slots:
  void AWindowIsFittedIntoTheRoom() {
    QWidget window;
    window.setGeometry(5000, 100, 900, 700);
    WindowRoom room(&window, [] { return std::vector<QRect>{{0, 20, 800, 600}}; });
    room.Fit();
    QCOMPARE(window.frameGeometry().left(), 0);
    QCOMPARE(window.frameGeometry().top(), 20);
    QCOMPARE(window.width(), 800);
    QVERIFY(window.height() <= 600 - 24);  // a title is above it
    QCOMPARE(window.minimumSize(), QSize(520, 360));
  }

  void ASmallScreenTakesFromTheLeastSize() {
    QWidget window;
    window.setGeometry(0, 0, 900, 700);
    WindowRoom room(&window, [] { return std::vector<QRect>{{0, 0, 400, 300}}; });
    room.Fit();
    QCOMPARE(window.width(), 400);
    QVERIFY(window.height() < 300);
    QVERIFY(window.minimumHeight() <= window.height());
    QVERIFY(window.minimumWidth() <= window.width());
  }

  void WhatIsMaximizedIsLeftAlone() {
    QWidget window;
    window.showMaximized();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QRect before = window.geometry();
    WindowRoom room(&window, [] { return std::vector<QRect>{{0, 0, 300, 300}}; });
    room.Fit();
    QCOMPARE(window.geometry(), before);
  }

  // ---- the main window ----

  void APlaceOnAScreenThatIsGoneIsBroughtBack() {
    Windows windows("[Main]\r\nHeight=6000\r\nWidth=9000\r\nTop=300\r\nLeft=90000\r\n");
    const QRect room = windows.window->screen()->availableGeometry();
    // How wide its frame is shows only when it has one.
    QVERIFY(room.adjusted(-8, 0, 8, 8).contains(windows.window->frameGeometry()));
    QCOMPARE(windows.window->size(), QSize(600, 400));
  }

  void ASizeBeyondTheScreenIsCut() {
    Windows windows("[Main]\r\nHeight=30000\r\nWidth=30000\r\nTop=0\r\nLeft=0\r\n");
    const QRect room = windows.window->screen()->availableGeometry();
    QTRY_VERIFY(room.contains(windows.window->frameGeometry()));
    QCOMPARE(windows.window->frameGeometry().width(), room.width());
  }

  void WhatIsSavedIsWhatTheWindowThenWas() {
    Windows windows("[Main]\r\nHeight=6000\r\nWidth=9000\r\nTop=300\r\nLeft=90000\r\n");
    const int left = windows.window->x();
    windows.window->Unload();
    QVERIFY(windows.Config().find("Left=" + std::to_string(left * 15) + "\r\n") != Text::npos);
  }

  void TheWindowHasALeastSize() {
    Windows windows("[Main]\r\nHeight=3000\r\nWidth=4500\r\nTop=300\r\nLeft=300\r\n");
    QCOMPARE(windows.window->size(), QSize(520, 360));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::WindowRoomTest)
#include "window_room_test.moc"
