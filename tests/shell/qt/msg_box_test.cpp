#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QObject>

#include "session/wire_encoding.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

Text Escaped(Text text) {
  return UrlEncodeKoi(text);
}

// The box of tab 0, connected and with the focus.
struct Box {
  Box() {
    TabSession& tab = windows.tab(0);
    tab.Login = "Bob";
    tab.Channel = "home";
    tab.Ticket = "T";
    tab.Connected = true;
    tab.LoginShown = true;
    windows.desktop.SetTabVisible(0, true);
    windows.desktop.SetActiveTab(0);
    windows.desktop.SetTabControlsEnabled(0, true);
    windows.desktop.FocusMsg(0);
    msg = windows.Find<QLineEdit>("msg_0");
    if (!msg->hasFocus()) qFatal("msg has no focus");
  }
  // Types a line and sends it.
  void Say(const QString& line) {
    Type(msg, line);
    QTest::keyClick(msg, Qt::Key_Return);
  }
  void Key(Qt::Key key, Qt::KeyboardModifier modifier = Qt::NoModifier) {
    QTest::keyClick(msg, key, modifier);
  }
  // What went out on Winsock2 since the last connect.
  Text Sent() {
    windows.Winsock2().Accept();
    return windows.Winsock2().sent;
  }

  Windows windows;
  QLineEdit* msg = nullptr;
};

}  // namespace

class MsgBoxTest : public QObject {
  Q_OBJECT

 private slots:
  // The hands stay on the box while the eyes go through the pane.
  void PagesAndTheEndsOfThePaneAreKeysOfTheBox() {
    Box box;
    RichTextBox& pane = box.windows.tab(0).Rich;
    for (int line = 0; line < 500; ++line) {
      pane.ExSetSel(pane.Length(), pane.Length());
      pane.ReplaceSel("line " + std::to_string(line) + "\r\n");
    }
    pane.VScroll(PaneScroll::kBottom);
    const auto at_end = [&] {
      const PaneScrollInfo info = pane.GetScrollInfo();
      return info.pos + info.page >= info.max;
    };
    Type(box.msg, QStringLiteral("some words"));
    QVERIFY(at_end());
    const PanePosition bottom = pane.CharFromPos(2, 2);
    box.Key(Qt::Key_PageUp);
    const PanePosition up = pane.CharFromPos(2, 2);
    QVERIFY(up < bottom);
    box.Key(Qt::Key_PageUp);
    QVERIFY(pane.CharFromPos(2, 2) < up);
    box.Key(Qt::Key_PageDown);
    QCOMPARE(pane.CharFromPos(2, 2), up);
    box.Key(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(pane.CharFromPos(2, 2), PanePosition{0});
    QVERIFY(!at_end());
    box.Key(Qt::Key_End, Qt::ControlModifier);
    QVERIFY(at_end());
    QCOMPARE(box.msg->text(), QStringLiteral("some words"));
    QVERIFY(box.msg->hasFocus());
    // Without Ctrl, Home and End are the box's own; so they are with Shift.
    box.Key(Qt::Key_Home);
    QCOMPARE(box.msg->cursorPosition(), 0);
    box.Key(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(box.msg->selectedText(), QStringLiteral("some words"));
    QVERIFY(at_end());
  }

  void EnterPostsTheLineAndEmptiesTheBox_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter of the number block") << int(Qt::Key_Enter);
  }
  void EnterPostsTheLineAndEmptiesTheBox() {
    QFETCH(int, key);
    Box box;
    QTest::keyClicks(box.msg, "hi");
    box.Key(static_cast<Qt::Key>(key));
    QCOMPARE(box.msg->text(), QString());
    QCOMPARE(box.windows.Winsock2().connects, 1);
    QCOMPARE(box.windows.Winsock2().host, Text("localhost"));
    const Text sent = box.Sent();
    QVERIFY(sent.find("&msgtext=hi&msgtext0=hi&action=200") != Text::npos);
  }

  void TheButtonIsTheSamePathAsEnter() {
    Box box;
    QTest::keyClicks(box.msg, "hi");
    box.windows.Find<QCheckBox>("StopScroll_0")->setChecked(true);
    QTest::mouseClick(box.windows.Find("button_say_0"), Qt::LeftButton);
    QCOMPARE(box.windows.Winsock2().connects, 1);
    QVERIFY(box.msg->hasFocus());
    QVERIFY(!box.windows.Find<QCheckBox>("StopScroll_0")->isChecked());
  }

  void ARightClickOnTheButtonSaysNothing() {
    Box box;
    QTest::mouseClick(box.windows.Find("button_say_0"), Qt::RightButton);
    QCOMPARE(box.windows.Winsock2().connects, 0);
  }

  void RussianTextGoesOutInKoi() {
    Box box;
    box.Say(Utf8("привет"));
    const Text sent = box.Sent();
    QVERIFY(sent.find("msgtext=" + Escaped("привет"_w)) != Text::npos);
  }

  void EnterInALockedBoxDoesNothing() {
    Box box;
    QTest::keyClicks(box.msg, "hi");
    box.windows.desktop.SetTabControlsEnabled(0, false);
    QVERIFY(box.msg->isReadOnly());
    QVERIFY(!box.windows.Find("button_say_0")->isEnabled());
    box.Key(Qt::Key_Return);
    QTest::mouseClick(box.windows.Find("button_say_0"), Qt::LeftButton);
    QCOMPARE(box.windows.Winsock2().connects, 0);
    QCOMPARE(box.msg->text(), QString("hi"));
  }

  void UpWalksToTheOldestOfThreeLines() {
    Box box;
    for (const char* line : {"z", "a", "b", "c"})
      box.Say(line);
    for (const char* line : {"c", "b", "a", "a", "a"}) {
      box.Key(Qt::Key_Up);
      QCOMPARE(box.msg->text(), QString(line));
      QCOMPARE(box.msg->cursorPosition(), 1);
    }
  }

  void DownAfterUpShowsTheNewestLine() {
    Box box;
    for (const char* line : {"a", "b", "c"})
      box.Say(line);
    box.Key(Qt::Key_Up);
    box.Key(Qt::Key_Up);
    QCOMPARE(box.msg->text(), QString("b"));
    box.Key(Qt::Key_Down);
    QCOMPARE(box.msg->text(), QString("c"));
  }

  void UpWithNothingSentLeavesTheBox() {
    Box box;
    QTest::keyClicks(box.msg, "draft");
    box.Key(Qt::Key_Up);
    QCOMPARE(box.msg->text(), QString("draft"));
  }

  void CtrlBackspaceDeletesTheWordAheadOfTheCaret_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("after");
    QTest::newRow("the last word; the blank stays") << "one two" << 7 << "one ";
    QTest::newRow("the only word") << "one" << 3 << "";
    QTest::newRow("in the middle of a word") << "one two" << 5 << "one wo";
    QTest::newRow("right behind a blank") << "one two" << 4 << "one two";
    QTest::newRow("at the start") << "one" << 0 << "one";
    QTest::newRow("behind a character of two units")
        << QString::fromUtf8("a😀b c") << 6 << QString::fromUtf8("a😀b ");
    QTest::newRow("characters of two units go whole") << QString::fromUtf8("x 😀😀") << 6 << "x ";
  }
  void CtrlBackspaceDeletesTheWordAheadOfTheCaret() {
    QFETCH(QString, before);
    QFETCH(int, caret);
    QFETCH(QString, after);
    Box box;
    box.msg->setText(before);
    box.msg->setCursorPosition(caret);
    box.Key(Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(box.msg->text(), after);
  }

  void CtrlBackspaceCanBeUndone() {
    Box box;
    QTest::keyClicks(box.msg, "one two");
    box.Key(Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(box.msg->text(), QString("one "));
    box.Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box.msg->text(), QString("one two"));
  }

  // A keyboard without Latin letters tells the letter that stands on the key.
  void TheRussianLettersOfTheKeysEditTheBoxToo() {
    Box box;
    const auto control_and = [&](char16_t letter) {
      QTest::sendKeyEvent(QTest::Click, box.msg, Qt::Key(letter), QString(), Qt::ControlModifier);
    };
    QTest::keyClicks(box.msg, "one two");
    control_and(u'\u0424');  // of A
    QCOMPARE(box.msg->selectedText(), QString("one two"));
    QApplication::clipboard()->setText("old");
    control_and(u'\u0421');  // of C
    QCOMPARE(QApplication::clipboard()->text(), QString("one two"));
    control_and(u'\u0427');  // of X
    QCOMPARE(box.msg->text(), QString());
    control_and(u'\u041C');  // of V
    control_and(u'\u041C');
    QCOMPARE(box.msg->text(), QString("one twoone two"));
    control_and(u'\u042F');  // of Z
    QCOMPARE(box.msg->text(), QString("one two"));
    // Without Ctrl they are letters.
    Type(box.msg, Utf8("\u0444"));
    QCOMPARE(box.msg->text(), Utf8("one two\u0444"));
  }

  void APastedTextBecomesOneLine() {
    Box box;
    QApplication::clipboard()->setText("one\r\ntwo\nthree");
    box.Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box.msg->text(), QString("one two three"));
  }

  void AFaceThatTheCodePageLacksGoesOutAsOneQuestionMark() {
    Box box;
    box.msg->setText(Utf8("a😀b"));
    box.Key(Qt::Key_Return);
    QVERIFY(box.Sent().find("msgtext=" + Escaped("a?b")) != Text::npos);
  }

  void EachToneSendsItsValueOnce_data() {
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("action");
    const char* labels[] = {"Обычным тоном", "Внутренним голосом", "Смеется", "Задумчиво",
                            "Уныло",         "Напевает",           "Ворчливо"};
    for (int entry = 0; entry < 7; ++entry)
      QTest::newRow(labels[entry]) << entry << Utf8(labels[entry]) << 200 + entry;
  }
  void EachToneSendsItsValueOnce() {
    QFETCH(int, entry);
    QFETCH(QString, label);
    QFETCH(int, action);
    Box box;
    auto* intonacia = box.windows.Find<QComboBox>("intonacia_0");
    QCOMPARE(intonacia->itemText(entry), label);
    intonacia->setFocus();
    QTest::keyClick(intonacia, Qt::Key_Home);
    for (int i = 0; i < entry; ++i)
      QTest::keyClick(intonacia, Qt::Key_Down);
    QCOMPARE(intonacia->currentIndex(), entry);
    box.Say("hi");
    QVERIFY(box.Sent().find("&action=" + std::to_string(action)) != Text::npos);
    QCOMPARE(intonacia->currentIndex(), 0);
    box.Say("hi");
    QVERIFY(box.Sent().find("&action=200") != Text::npos);
  }

  void SayUseOpPutsOpAhead() {
    Box box;
    box.windows.desktop.SetSayUseOp(false, true);
    auto* say_use_op = box.windows.Find<QCheckBox>("SayUseOp");
    QTest::keyClick(say_use_op, Qt::Key_Space);
    QVERIFY(box.windows.tab(0).SayUseOpState);
    box.Say("hi");
    const Text op = Escaped("/op hi");
    QVERIFY(box.Sent().find("&msgtext=" + op + "&msgtext0=" + op + "&") != Text::npos);
  }

  void ButtonClearEmptiesTheBoxAndGivesItTheFocus() {
    Box box;
    QTest::keyClicks(box.msg, "hi");
    QTest::mouseClick(box.windows.Find("button_clear_0"), Qt::LeftButton);
    QCOMPARE(box.msg->text(), QString());
    QVERIFY(box.msg->hasFocus());
  }

  void AClickOnStopScrollGivesMsgTheFocus() {
    Box box;
    auto* stop = box.windows.Find<QCheckBox>("StopScroll_0");
    stop->setFocus();
    QTest::keyClick(stop, Qt::Key_Space);
    QVERIFY(stop->isChecked());
    QVERIFY(box.windows.desktop.StopScroll(0));
    QVERIFY(box.msg->hasFocus());
  }

  void ButtonUpdateFetchesTheUsers() {
    Box box;
    QTest::mouseClick(box.windows.Find("button_update_0"), Qt::LeftButton);
    QCOMPARE(Simulated(box.windows.tab(0).Winsock3).connects, 1);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::MsgBoxTest)
#include "msg_box_test.moc"
