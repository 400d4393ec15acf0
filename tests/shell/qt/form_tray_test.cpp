#include "shell/qt/form_tray.h"

#include <QAction>
#include <QMenu>
#include <QObject>

#include "shell/qt/qt_tray.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct TrayWindows : Windows {
  QAction* Item(const char* name) { return form.menu()->findChild<QAction*>(name); }
  QtTray tray;
  Form_tray form{client, tray, *window};
};

}  // namespace

class FormTrayTest : public QObject {
  Q_OBJECT

 private slots:
  void TheMenuFollowsTheWindow() {
    TrayWindows windows;
    QVERIFY(windows.Item("put_in_tray")->isVisible());
    QVERIFY(!windows.Item("restore_client")->isVisible());
    windows.Item("put_in_tray")->trigger();
    QTRY_VERIFY(!windows.window->isVisible());
    QTRY_VERIFY(windows.Item("restore_client")->isVisible());
    QVERIFY(!windows.Item("put_in_tray")->isVisible());
    windows.Item("restore_client")->trigger();
    QVERIFY(windows.window->isVisible());
    QTRY_VERIFY(windows.Item("put_in_tray")->isVisible());
  }

  void TheMenuFollowsTheLanguage() {
    TrayWindows windows;
    QCOMPARE(windows.Item("put_in_tray")->text(), Utf8("&Убрать в трей"));
    QCOMPARE(windows.Item("restore_client")->text(), Utf8("&Восстановить"));
    QCOMPARE(windows.Item("exit")->text(), Utf8("В&ыход"));
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(windows.Item("put_in_tray")->text(), QString("&Put in tray"));
    QCOMPARE(windows.Item("restore_client")->text(), QString("&Restore"));
    QCOMPARE(windows.Item("exit")->text(), QString("E&xit"));
  }

  void ExitEndsTheProgramAlsoOutOfTheTray() {
    TrayWindows windows;
    windows.Item("put_in_tray")->trigger();
    QTRY_VERIFY(!windows.window->isVisible());
    QTimer::singleShot(0, windows.Item("exit"), &QAction::trigger);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(windows.Config().find("WMFrame0=") != Text::npos);
  }

  void TheEventsOfTheIconReachTheLogic() {
    TrayWindows windows;
    windows.desktop.SetTabVisible(4, true);
    windows.tab(4).LoginShown = true;
    windows.tray.LeftButtonUp(true);
    QTest::qWait(20);
    QVERIFY(windows.window->isVisible());
    windows.tray.LeftButtonUp(false);
    QTRY_VERIFY(!windows.window->isVisible());
    windows.tray.BalloonClicked({4});
    QVERIFY(windows.window->isVisible());
    QCOMPARE(windows.desktop.ActiveTab(), 4);
    windows.tray.LeftButtonUp(false);
    QTRY_VERIFY(!windows.window->isVisible());
    windows.tray.Gone();
    QVERIFY(windows.window->isVisible());
  }

  // A screen of tests has no tray.
  void WithoutATrayThereIsNoIcon() {
    QtTray tray;
    int gone = 0;
    tray.Gone = [&] { ++gone; };
    tray.Add(TrayIcon::kWindow, "x");
    tray.Modify(TrayIcon::kMention, "y");
    QTest::qWait(50);
    QVERIFY(!tray.Available());
    tray.Delete();
    QCOMPARE(gone, 0);
  }

  // Nor a server of notifications: it would have to be on a bus, and a test like this has none.
  void ABalloonWithoutAServerIsAWindow() {
    QtTray tray;
    std::vector<BalloonAbout> clicked;
    tray.BalloonClicked = [&](const BalloonAbout& about) { clicked.push_back(about); };
    tray.ShowBalloon({"Parlorwire", "one\r\ntwo", 0, {2}});
    QTRY_VERIFY(Balloon() != nullptr && Balloon()->isVisible());
    QCOMPARE(Balloon()->accessibleName(), QString("Parlorwire\none\ntwo"));
    tray.RemoveBalloon();
    QVERIFY(!Balloon()->isVisible());
    tray.ShowBalloon({"Parlorwire", "three", 0, {5}});
    QTRY_VERIFY(Balloon()->isVisible());
    QTest::mouseClick(Balloon(), Qt::LeftButton);
    QCOMPARE(clicked, std::vector<BalloonAbout>{{5}});
    QVERIFY(!Balloon()->isVisible());
    tray.ShowBalloon({"Parlorwire", "four", 0, {}});
    QTRY_VERIFY(Balloon()->isVisible());
    tray.Delete();
    QVERIFY(!Balloon()->isVisible());
  }

 private:
  static QWidget* Balloon() {
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->objectName() == "balloon") return top;
    return nullptr;
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::FormTrayTest)
#include "form_tray_test.moc"
