#include <QLineEdit>
#include <QObject>
#include <QWindow>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/twips.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr QPoint kGrip(2, 50);  // on the splitter

// The main window at 900 by 500, with the splitter of slot 0.
struct SplitWindow : Windows {
  SplitWindow() {
    for (int slot = 0; slot < 2; ++slot) {
      tab(slot).LoginShown = true;
      desktop.SetTabVisible(slot, true);
    }
    desktop.SetActiveTab(0);
    desktop.SetTabControlsEnabled(0, true);
    window->resize(900, 500);
    // The switch of tabs brings the focus to msg a little later.
    if (QWidget* focus = QApplication::focusWidget()) focus->clearFocus();
    if (!QTest::qWaitFor([this] { return Find("msg_0")->hasFocus(); })) qFatal("msg has no focus");
    line = Find("line_razdel_0");
    rich = Find("Rich_0");
    users = Find("Rich_Users_0");
    frame = Find("frame_button_update_0");
    pict = Find("Pict");
  }

  // The mouse acts on the window, at so many pixels beside the grip.
  QPoint At(int beside) const { return line_at + QPoint(beside, 0); }
  void Press(Qt::MouseButton button = Qt::LeftButton) {
    line_at = line->mapTo(window.get(), kGrip);
    QTest::mousePress(window->windowHandle(), button, Qt::NoModifier, line_at);
  }
  void MoveBy(int beside) { QTest::mouseMove(window->windowHandle(), At(beside)); }
  void ReleaseAt(int beside) {
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, At(beside));
  }
  void Key(Qt::Key key) { QTest::keyClick(window->windowHandle(), key); }

  bool Whole() const {
    return users->isVisible() && frame->isVisible() && !pict->isVisible() &&
           line->geometry().left() ==
               rich->mapTo(line->parentWidget(), QPoint()).x() + rich->width() + Pixels(15);
  }

  QWidget *line, *rich, *users, *frame, *pict;
  QPoint line_at;
};

}  // namespace

class SplitterTest : public QObject {
  Q_OBJECT

 private slots:
  void ADragMovesTheSplitterAndThenThePanes() {
    SplitWindow split;
    const QRect place = split.line->geometry();
    const int rich = split.rich->width();
    const Text before = split.tab(0).TabSplitPercent;
    split.Press();
    QVERIFY(split.pict->isVisible());
    QCOMPARE(split.pict->geometry(), place);
    QCOMPARE(split.pict->palette().color(QPalette::Window), QColor(233, 235, 231));
    QVERIFY(!split.users->isVisible());
    QVERIFY(!split.frame->isVisible());
    QCOMPARE(split.tab(0).TabSplitPercent, before);

    split.MoveBy(-100);
    QCOMPARE(split.line->geometry(), place.translated(-100, 0));
    QCOMPARE(split.pict->geometry(), place);
    QCOMPARE(split.rich->width(), rich);
    QVERIFY(split.tab(0).TabSplitPercent != before);
    split.MoveBy(-150);
    QCOMPARE(split.line->geometry(), place.translated(-150, 0));

    split.ReleaseAt(-150);
    QVERIFY(split.Whole());
    QVERIFY(qAbs(split.rich->width() - (rich - 150)) <= 1);
    QVERIFY(qAbs(split.line->x() - (place.x() - 150)) <= 1);
    QVERIFY(qAbs(split.users->mapTo(split.line->parentWidget(), QPoint()).x() -
                 (split.line->geometry().right() + 1 + Pixels(15))) <= 1);
    QCOMPARE(split.frame->width(), split.users->width());
    QCOMPARE(split.tab(1).TabSplitPercent, before);
  }

  void TheDroppedSplitterStandsByItsPercentage() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-120);
    split.ReleaseAt(-120);
    const int w = Twips(split.Find("ground")->width()) + 20;
    const double percent = std::stod(split.tab(0).TabSplitPercent);
    QVERIFY(qAbs(w * percent / 100 - split.tab(0).Rich.Width()) <= 1);
    const int at = split.line->x();
    split.window->resize(900, 520);
    QTest::qWait(20);
    QCOMPARE(split.line->x(), at);
    split.window->Unload();
    QVERIFY(split.Config().find("WMFrame0=" + split.tab(0).TabSplitPercent + "\r\n") != Text::npos);
  }

  void BeyondTheLimitsNothingMoves() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-50);
    const int at = split.line->x();
    const Text percent = split.tab(0).TabSplitPercent;
    for (const int beside : {-660, 240, -560, 100}) {
      split.MoveBy(beside);
      QCOMPARE(split.line->x(), at);
      QCOMPARE(split.tab(0).TabSplitPercent, percent);
    }
    split.MoveBy(20);
    QVERIFY(split.line->x() > at);
    split.ReleaseAt(20);
    QVERIFY(split.Whole());
  }

  void APressAloneMovesNothing() {
    SplitWindow split;
    const QRect place = split.line->geometry();
    const Text percent = split.tab(0).TabSplitPercent;
    split.Press();
    split.ReleaseAt(0);
    QVERIFY(split.Whole());
    QCOMPARE(split.line->geometry(), place);
    QCOMPARE(split.tab(0).TabSplitPercent, percent);
  }

  void OnlyTheLeftButtonDrags() {
    SplitWindow split;
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
      split.Press(button);
      QVERIFY(split.Whole());
      QTest::mouseRelease(split.window->windowHandle(), button, Qt::NoModifier, split.At(0));
    }
  }

  void TheFocusStaysWhereItWas_data() {
    QTest::addColumn<QString>("focus");
    for (const char* name : {"msg_0", "Rich_Users_0", "button_update_0", "Rich_0"})
      QTest::newRow(name) << name;
  }
  void TheFocusStaysWhereItWas() {
    QFETCH(QString, focus);
    SplitWindow split;
    QWidget* control = split.Find(focus.toLatin1().constData());
    control->setFocus();
    split.Press();
    split.MoveBy(-60);
    split.ReleaseAt(-60);
    QCOMPARE(QApplication::focusWidget(), control);
  }

  void EscapeTakesTheDragBack() {
    SplitWindow split;
    split.desktop.SetMsgText(0, "text");
    const QRect place = split.line->geometry();
    const Text percent = split.tab(0).TabSplitPercent;
    split.Press();
    split.MoveBy(-100);
    split.Key(Qt::Key_Escape);
    QVERIFY(split.Whole());
    QCOMPARE(split.line->geometry(), place);
    QCOMPARE(split.tab(0).TabSplitPercent, percent);
    QCOMPARE(split.desktop.MsgText(0), Text("text"));
    split.MoveBy(-150);
    split.ReleaseAt(-150);
    QVERIFY(split.Whole());
    QCOMPARE(split.line->geometry(), place);
  }

  void TypingGoesOnDuringADrag() {
    SplitWindow split;
    split.Press();
    QTest::keyClick(split.window->windowHandle(), Qt::Key_A);
    QCOMPARE(split.desktop.MsgText(0), Text("a"));
    QVERIFY(!split.users->isVisible());
    split.ReleaseAt(0);
  }

  void AnotherWindowEndsTheDrag() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(split.Whole());
    QVERIFY(split.rich->width() < 600);
    split.ReleaseAt(-100);
  }

  void AReleaseThatNobodySawEndsTheDrag() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    const int at = split.line->x();
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), split.Find("msg_0")->mapToGlobal(QPoint()),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(split.Find("msg_0"), &move);
    QVERIFY(split.Whole());
    QVERIFY(qAbs(split.line->x() - at) <= 1);
    split.ReleaseAt(-100);
  }

  void SwitchingTheTabEndsTheDrag() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    const Text percent = split.tab(0).TabSplitPercent;
    split.desktop.SetActiveTab(1);
    QVERIFY(!split.pict->isVisible());
    QVERIFY(!split.users->isVisible());
    QVERIFY(split.Find("Rich_Users_1")->isVisible());
    QVERIFY(split.Find("frame_button_update_1")->isVisible());
    split.ReleaseAt(-100);
    QVERIFY(!split.users->isVisible());
    split.desktop.SetActiveTab(0);
    QVERIFY(split.Whole());
    QCOMPARE(split.tab(0).TabSplitPercent, percent);
  }

  void AResizeDuringADragKeepsItGoing() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    split.window->resize(1000, 520);
    QTest::qWait(20);
    QVERIFY(!split.users->isVisible());
    split.ReleaseAt(-100);
    QVERIFY(split.Whole());
  }

  void ClosingTheWindowDuringADragIsNoTrouble() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    const Text percent = split.tab(0).TabSplitPercent;
    split.window->close();
    QVERIFY(split.Config().find("WMFrame0=" + percent + "\r\n") != Text::npos);
  }

  void AWindowThatGoesDuringADragIsNoTrouble() {
    SplitWindow split;
    split.Press();
    split.MoveBy(-100);
    const Text percent = split.tab(0).TabSplitPercent;
    split.window.reset();
    QApplication::processEvents();
    QCOMPARE(split.tab(0).TabSplitPercent, percent);
  }

  void KeysMoveTheFocusedSplitter() {
    SplitWindow split;
    QTRY_VERIFY(split.Find("msg_0")->hasFocus());
    split.line->setFocus();
    const int at = split.line->x();
    split.Key(Qt::Key_Left);
    QVERIFY(qAbs(split.line->x() - (at - 16)) <= 1);
    QVERIFY(split.Whole());
    split.Key(Qt::Key_Right);
    QVERIFY(qAbs(split.line->x() - at) <= 1);
    split.Key(Qt::Key_End);
    const int end = split.line->x();
    QVERIFY(end > at);
    split.Key(Qt::Key_Right);
    QCOMPARE(split.line->x(), end);
    split.Key(Qt::Key_Home);
    const int home = split.line->x();
    QVERIFY(home < at);
    split.Key(Qt::Key_Left);
    QCOMPARE(split.line->x(), home);
    QVERIFY(std::stod(split.tab(0).TabSplitPercent) > 18);
    QVERIFY(split.Whole());
    QCOMPARE(QApplication::focusWidget(), split.line);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::SplitterTest)
#include "splitter_test.moc"
