// What is typed goes to the input box wherever nothing else takes it; and who has the focus shows.
#include <QCheckBox>
#include <QListView>
#include <QObject>
#include <QWheelEvent>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/link_label.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/pane_widget.h"
#include "shell/qt/tone_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct TypeWindow : Windows {
  TypeWindow() {
    desktop.SetTabVisible(0, true);
    desktop.SetTabControlsEnabled(0, true);
    Find("SayUseOp")->setEnabled(true);
    msg = Find<MsgBox>("msg_0");
    tone = Find<ToneBox>("intonacia_0");
    QTest::qWait(50);  // the focus that a new tab gives to its box
  }
  // The window is activated as the desktop does it, so keys go to what has the focus.
  QWidget* Focus(const char* name) {
    auto* control = Find(name);
    control->setFocus();
    return control;
  }
  void Wheel(int angle) {
    const QPointF at = tone->rect().center();
    QWheelEvent event(at, tone->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(tone, &event);
  }

  MsgBox* msg = nullptr;
  ToneBox* tone = nullptr;
};

}  // namespace

class TypingForwardTest : public QObject {
  Q_OBJECT

 private slots:
  void ACharacterGoesToTheInputBoxWithTheFocus_data() {
    QTest::addColumn<QString>("control");
    for (const char* control :
         {"Rich_0", "Rich_Users_0", "Rich_Server_0", "StopScroll_0", "SayUseOp", "intonacia_0"})
      QTest::newRow(control) << control;
  }
  void ACharacterGoesToTheInputBoxWithTheFocus() {
    QFETCH(const QString, control);
    TypeWindow windows;
    windows.msg->setText("so ");
    QWidget* focus = windows.Focus(qPrintable(control));
    QVERIFY(focus->hasFocus());
    Type(focus, Utf8("ж"));
    QCOMPARE(windows.msg->text(), Utf8("so ж"));
    QVERIFY(windows.msg->hasFocus());
    QCOMPARE(windows.tone->currentIndex(), 0);
    windows.Focus(qPrintable(control));
    QTest::keyClick(focus, Qt::Key_Question, Qt::ShiftModifier);
    QCOMPARE(windows.msg->text(), Utf8("so ж?"));
  }

  void KeysThatAControlNeedsStayItsOwn() {
    TypeWindow windows;
    QWidget* pane = windows.Focus("Rich_0");
    QTest::keyClick(pane, Qt::Key_Space);
    QTest::keyClick(pane, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(pane, Qt::Key_PageUp);
    QTest::keyClick(pane, Qt::Key_Escape);
    QTest::keyClick(pane, Qt::Key_Delete);
    QVERIFY(pane->hasFocus());
    auto* box = qobject_cast<QCheckBox*>(windows.Focus("StopScroll_0"));
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(box->isChecked());
    windows.Focus("intonacia_0");
    QTest::keyClick(windows.tone, Qt::Key_Down);
    QCOMPARE(windows.tone->currentIndex(), 1);
    QVERIFY(windows.tone->hasFocus());
    QCOMPARE(windows.msg->text(), QString());
  }

  void ALockedBoxTakesNothing() {
    TypeWindow windows;
    windows.desktop.SetTabControlsEnabled(0, false);
    QWidget* pane = windows.Focus("Rich_0");
    QTest::keyClick(pane, Qt::Key_A);
    QCOMPARE(windows.msg->text(), QString());
    QVERIFY(pane->hasFocus());
  }

  // ---- the tones ----

  void AChosenToneGivesTheFocusBack() {
    TypeWindow windows;
    windows.Focus("intonacia_0");
    windows.tone->showPopup();
    QTest::qWait(50);
    QTest::keyClick(windows.tone->view(), Qt::Key_Down);
    QTest::keyClick(windows.tone->view(), Qt::Key_Return);
    QCOMPARE(windows.tone->currentIndex(), 1);
    QTRY_VERIFY(windows.msg->hasFocus());
  }

  void TheWheelOverTheTonesNeedsTheFocus() {
    TypeWindow windows;
    windows.msg->setFocus();
    windows.Wheel(-120);
    QCOMPARE(windows.tone->currentIndex(), 0);
    QVERIFY(windows.msg->hasFocus());
    windows.Focus("intonacia_0");
    windows.Wheel(-120);
    QCOMPARE(windows.tone->currentIndex(), 1);
  }

  // ---- the frame ----

  void APaneWithTheFocusHasAFrame() {
    TypeWindow windows;
    for (const char* name : {"Rich_0", "Rich_Users_0", "Rich_Server_0"}) {
      auto* view = windows.Find<RichTextView>(name);
      QWidget* holder = HolderOf(view);
      windows.msg->setFocus();
      QTest::qWait(20);
      const QColor without = OnScreen(holder).pixelColor(0, holder->height() / 2);
      view->setFocus();
      QTest::qWait(20);
      const QImage with = OnScreen(holder);
      QVERIFY(with.pixelColor(0, holder->height() / 2) != without);
      QCOMPARE(with.pixelColor(holder->width() / 2, holder->height() - 1),
               with.pixelColor(0, holder->height() / 2));
      windows.msg->setFocus();
      QTest::qWait(20);
      QCOMPARE(OnScreen(holder).pixelColor(0, holder->height() / 2), without);
    }
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::TypingForwardTest)
#include "typing_forward_test.moc"
