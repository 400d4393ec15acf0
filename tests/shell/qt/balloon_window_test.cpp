#include "shell/qt/balloon_window.h"

#include <QLabel>
#include <QTest>

#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {

class BalloonWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ShowsItsTextsToTheLetter() {
    BalloonWindow balloon;
    balloon.ShowText("Parlorwire", Utf8("<b>& Ник:\nКанал"));
    const auto* text = balloon.findChild<QLabel*>("balloon_text");
    QCOMPARE(text->text(), Utf8("<b>& Ник:\nКанал"));
    QCOMPARE(text->textFormat(), Qt::PlainText);
    QCOMPARE(balloon.findChild<QLabel*>("balloon_title")->text(), QString("Parlorwire"));
    QCOMPARE(balloon.accessibleName(), Utf8("Parlorwire\n<b> Ник:\nКанал"));
  }

  void StandsOnTheScreenAlsoWithALongText() {
    BalloonWindow balloon;
    balloon.ShowText("Parlorwire", QString(255, 'W'));
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(screen.contains(balloon.geometry()));
    const int with_long_text = balloon.height();
    balloon.ShowText("Parlorwire", "short");
    QVERIFY(balloon.height() < with_long_text);
    QVERIFY(screen.bottom() - balloon.geometry().bottom() < 50);
  }

  void TakesNoFocus() {
    Windows windows;
    BalloonWindow balloon;
    balloon.ShowText("Parlorwire", "x");
    QTest::qWait(50);
    QCOMPARE(QApplication::activeWindow(), windows.window.get());
    QVERIFY(balloon.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
  }

  void AClickSaysSoAndClosesIt() {
    BalloonWindow balloon;
    int clicks = 0;
    balloon.Clicked = [&] { ++clicks; };
    balloon.ShowText("Parlorwire", "x");
    QTest::mouseClick(&balloon, Qt::LeftButton);
    QCOMPARE(clicks, 1);
    QVERIFY(!balloon.isVisible());
    balloon.ShowText("Parlorwire", "x");
    QTest::mouseClick(&balloon, Qt::RightButton);
    QCOMPARE(clicks, 1);
    QVERIFY(!balloon.isVisible());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::BalloonWindowTest)
#include "balloon_window_test.moc"
