// Whatever the program does to what is typed can be taken back.
#include <QClipboard>
#include <QObject>

#include "shell/qt/msg_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"
#include "users/recode_layout.h"

namespace parlorwire {
namespace {

struct UndoBox {
  UndoBox() {
    TabSession& tab = windows.tab(0);
    tab.Connected = true;
    tab.LoginShown = true;
    windows.desktop.SetTabVisible(0, true);
    windows.desktop.SetTabControlsEnabled(0, true);
    windows.desktop.FocusMsg(0);
    msg = windows.Find<MsgBox>("msg_0");
    QTest::qWait(30);
    Type(msg, Utf8("a draft"));
  }
  QString Undone() {
    QTest::keyClick(msg, Qt::Key_Z, Qt::ControlModifier);
    return msg->text();
  }

  Windows windows;
  MsgBox* msg = nullptr;
};

}  // namespace

class MsgUndoTest : public QObject {
  Q_OBJECT

 private slots:
  void TheClearButton() {
    UndoBox box;
    QTest::mouseClick(box.windows.Find("button_clear_0"), Qt::LeftButton);
    QCOMPARE(box.msg->text(), QString());
    QCOMPARE(box.Undone(), QString("a draft"));
    QVERIFY(box.msg->hasFocus());
  }

  void TheHistory() {
    UndoBox box;
    box.windows.tab(0).HistoryLines[0] = "an earlier line";
    QTest::keyClick(box.msg, Qt::Key_Up);
    QVERIFY(box.msg->text() != QString("a draft"));
    QCOMPARE(box.Undone(), QString("a draft"));
  }

  void ANickThatIsPutIn() {
    UndoBox box;
    box.windows.desktop.SetMsgText(0, "bob: a draft");
    QCOMPARE(box.msg->cursorPosition(), 12);
    QCOMPARE(box.Undone(), QString("a draft"));
  }

  void Recoding() {
    UndoBox box;
    QTest::mouseClick(box.windows.Find("perecodirovka_label"), Qt::LeftButton);
    QCOMPARE(box.msg->text(), Utf8("ф вкфае"));
    box.msg->setFocus();
    QCOMPARE(box.Undone(), QString("a draft"));
  }

  void ALineThatWasSaid() {
    UndoBox box;
    QTest::keyClick(box.msg, Qt::Key_Return);
    QCOMPARE(box.msg->text(), QString());
    QCOMPARE(box.Undone(), QString("a draft"));
  }

  void APasteOfSeveralLines() {
    UndoBox box;
    QApplication::clipboard()->setText(" of\r\nthree\nlines");
    QTest::keyClick(box.msg, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box.msg->text(), QString("a draft of three lines"));
    QCOMPARE(box.msg->cursorPosition(), 22);
    QCOMPARE(box.Undone(), QString("a draft"));
  }

  void ThereIsNothingSelectedAfterwards() {
    UndoBox box;
    box.windows.desktop.SetMsgText(0, "another");
    QVERIFY(!box.msg->hasSelectedText());
    box.msg->selectAll();
    box.windows.desktop.SetMsgText(0, "another");
    QVERIFY(!box.msg->hasSelectedText());
    QCOMPARE(box.msg->cursorPosition(), 7);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::MsgUndoTest)
#include "msg_undo_test.moc"
