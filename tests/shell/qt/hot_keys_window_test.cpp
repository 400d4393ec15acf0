#include <QClipboard>
#include <QLineEdit>
#include <QMouseEvent>
#include <QObject>
#include <QShortcut>
#include <QShortcutEvent>
#include <QWheelEvent>

#include "pane/qt/rich_text_view.h"
#include "session/connect.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Slots 0 to `count` - 1 shown, each past its login dialog; slot 0 is active.
void ShowTabs(Windows& windows, int count) {
  for (int slot = 0; slot < count; ++slot) {
    windows.tab(slot).LoginShown = true;
    windows.tab(slot).Login = "alice";
    windows.tab(slot).Password = "secret";
    windows.tab(slot).Channel = "lobby";
    windows.desktop.SetTabVisible(slot, true);
  }
  windows.desktop.SetActiveTab(0);
}

// The tab reads its channel.
void Enter(Windows& windows, int slot) {
  ConnectToChat(windows.client, slot);
  windows.Winsock1(slot).Accept();
  windows.Winsock1(slot).Deliver("<a href='/frame?a=1&ticket=T1'>");
  windows.Winsock1(slot).PeerCloses();
  windows.Winsock1(slot).Accept();
  windows.Winsock1(slot).Deliver("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n<pre>\n");
}

// A key goes to whatever has the focus, as the desktop sends it; held, it repeats.
void Press(Windows& windows, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           int repeats = 0) {
  QWindow* window = windows.window->windowHandle();
  for (int i = 0; i <= repeats; ++i)
    QTest::simulateEvent(window, true, key, modifiers, QString(), i > 0);
  QTest::simulateEvent(window, false, key, modifiers, QString(), false);
}

constexpr int kCyrillicT = 0x0415, kCyrillicW = 0x0426, kCyrillicC = 0x0421;

}  // namespace

class HotKeysWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ControlTAddsATabWhereverTheFocusIs_data() {
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key");
    for (const char* focus : {"msg_0", "Rich_0", "Rich_Users_0", "SSTab", "StopScroll_0"}) {
      QTest::addRow("%s", focus) << focus << static_cast<int>(Qt::Key_T);
      QTest::addRow("%s, Russian layout", focus) << focus << kCyrillicT;
    }
  }
  void ControlTAddsATabWhereverTheFocusIs() {
    QFETCH(QString, focus);
    QFETCH(int, key);
    Windows windows;
    ShowTabs(windows, 1);
    windows.client.hooks.ShowLoginDialog = [](int) {};
    windows.Find(focus.toLatin1().constData())->setFocus();
    Press(windows, key, Qt::ControlModifier);
    QVERIFY(windows.desktop.TabVisible(1));
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    QVERIFY(!windows.desktop.TabVisible(2));
  }

  void AHeldKeyActsOnce() {
    Windows windows;
    ShowTabs(windows, 4);
    Press(windows, Qt::Key_Tab, Qt::ControlModifier, 5);
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    for (const QShortcut* shortcut : windows.window->findChildren<QShortcut*>())
      QVERIFY(!shortcut->autoRepeat());
  }

  // A key of a Russian layout beside a Latin one stands for both letters.
  void AKeyThatStandsForBothLettersActsOnce() {
    Windows windows;
    ShowTabs(windows, 1);
    windows.client.hooks.ShowLoginDialog = [](int) {};
    for (QShortcut* shortcut : windows.window->findChildren<QShortcut*>()) {
      if (shortcut->key() != QKeySequence(Qt::CTRL | Qt::Key_T)) continue;
      QT_WARNING_PUSH
      QT_WARNING_DISABLE_DEPRECATED
      QShortcutEvent both(shortcut->key(), shortcut->id(), true);
      QT_WARNING_POP
      QCoreApplication::sendEvent(shortcut, &both);
    }
    QVERIFY(windows.desktop.TabVisible(1));
    QVERIFY(!windows.desktop.TabVisible(2));
  }

  void TheWheelOverTheStripSwitchesNoTab() {
    Windows windows;
    ShowTabs(windows, 3);
    auto* strip = windows.Find<SSTab>("SSTab");
    const QPointF at = strip->tabRect(0).center();
    QWheelEvent notch(at, strip->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(strip, &notch);
    QCOMPARE(windows.desktop.ActiveTab(), 0);
  }

  void AHotKeyPressedOnTheStripGivesTheInputBoxTheFocus() {
    Windows windows;
    ShowTabs(windows, 2);
    Enter(windows, 0);
    Enter(windows, 1);
    auto* strip = windows.Find<SSTab>("SSTab");
    QTRY_VERIFY(windows.Find("msg_0")->hasFocus());
    strip->setFocus();
    Press(windows, Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(windows.Find("msg_1")->hasFocus());
  }

  void ControlTabAndDigitsSwitchAndGiveTheInputBoxTheFocus() {
    Windows windows;
    ShowTabs(windows, 3);
    windows.Find("Rich_0")->setFocus();
    Press(windows, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    QTRY_VERIFY(windows.Find("msg_1")->hasFocus());
    Press(windows, Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 2);
    QTRY_VERIFY(windows.Find("msg_2")->hasFocus());
    Press(windows, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 0);
    Press(windows, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 2);
    Press(windows, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 0);
    Press(windows, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(windows.desktop.ActiveTab(), 0);
  }

  void AClickOnATabGivesItsInputBoxTheFocus() {
    Windows windows;
    ShowTabs(windows, 2);
    auto* strip = windows.Find<SSTab>("SSTab");
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(1).center());
    QTRY_VERIFY(windows.Find("msg_1")->hasFocus());
  }

  void WhoWalksAlongTheStripWithArrowsStaysOnIt() {
    Windows windows;
    ShowTabs(windows, 3);
    auto* strip = windows.Find<SSTab>("SSTab");
    QTRY_VERIFY(windows.Find("msg_0")->hasFocus());
    strip->setFocus();
    Press(windows, Qt::Key_Right);
    QTest::qWait(30);
    QVERIFY(strip->hasFocus());
    Press(windows, Qt::Key_Right);
    QCOMPARE(windows.desktop.ActiveTab(), 2);
  }

  void ControlWClosesTheTab_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Latin") << static_cast<int>(Qt::Key_W);
    QTest::newRow("Russian") << kCyrillicW;
  }
  void ControlWClosesTheTab() {
    QFETCH(int, key);
    Windows windows;
    ShowTabs(windows, 2);
    Enter(windows, 0);
    Enter(windows, 1);
    Press(windows, key, Qt::ControlModifier);
    QVERIFY(!windows.desktop.TabVisible(0));
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    QCOMPARE(windows.Winsock1(0).State(), SocketState::kClosed);
    QTRY_VERIFY(windows.Find("msg_1")->hasFocus());
  }

  void TheLabelClosesTheTabAndTheQuestionEndsTheProgram() {
    Windows windows;
    ShowTabs(windows, 1);
    Enter(windows, 0);
    const SeenBox no = AnswerBox(
        QMessageBox::No, [&] { QTest::mouseClick(windows.Find("close_tab"), Qt::LeftButton); });
    QCOMPARE(no.title, QString("Parlorwire"));
    QCOMPARE(no.text, ToQString("Вы не подключены ни к одному каналу. Выйти из программы?"_w));
    QVERIFY(windows.desktop.TabVisible(0));
    QVERIFY(windows.window->isVisible());
    windows.window->activateWindow();  // as a window manager would
    WaitUntilActive(windows.window.get());
    AnswerBox(QMessageBox::Yes, [&] { Press(windows, Qt::Key_W, Qt::ControlModifier); });
    QTRY_VERIFY(!windows.window->isVisible());
  }

  void F5ReadsTheChannelFromTheStart() {
    Windows windows;
    ShowTabs(windows, 1);
    Enter(windows, 0);
    const int connects = windows.Winsock1().connects;
    windows.Find("Rich_0")->setFocus();
    Press(windows, Qt::Key_F5);
    QCOMPARE(windows.Winsock1().connects, connects + 1);
  }

  void F6LogsInAfresh() {
    Windows windows;
    ShowTabs(windows, 1);
    Enter(windows, 0);
    Press(windows, Qt::Key_F6);
    QVERIFY(windows.tab(0).ReconnectRequested);
    QCOMPARE(Simulated(windows.tab(0).Winsock5).connects, 1);
  }

  void F7ShowsTheLoginDialogWhileConnecting() {
    Windows windows;
    ShowTabs(windows, 1);
    ConnectToChat(windows.client, 0);
    Press(windows, Qt::Key_F7);
    QVERIFY(windows.Find("connection_form")->isVisible());
  }

  void F8LogsOffOnlyWhereTheLabelMay() {
    Windows windows;
    ShowTabs(windows, 1);
    Press(windows, Qt::Key_F8);
    QCOMPARE(Simulated(windows.tab(0).Winsock5).connects, 0);
    Enter(windows, 0);
    Press(windows, Qt::Key_F8);
    QCOMPARE(Simulated(windows.tab(0).Winsock5).connects, 1);
    QVERIFY(windows.tab(0).LogoffPending);
  }

  void ControlFAsksForTheSearchDialog() {
    Windows windows;
    ShowTabs(windows, 1);
    int asked = 0;
    windows.client.hooks.ShowSearchDialog = [&asked] { ++asked; };
    windows.Find("msg_0")->setFocus();
    Press(windows, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(asked, 1);
  }

  void ControlCCopiesFromThePaneThatWasClicked_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Latin") << static_cast<int>(Qt::Key_C);
    QTest::newRow("Russian") << kCyrillicC;
  }
  void ControlCCopiesFromThePaneThatWasClicked() {
    QFETCH(int, key);
    Windows windows;
    ShowTabs(windows, 1);
    windows.tab(0).Rich.ReplaceSel("words of the pane");
    windows.tab(0).Rich_Users.ReplaceSel("words of the list");
    auto* rich = windows.Find<RichTextView>("Rich_0");
    auto* users = windows.Find<RichTextView>("Rich_Users_0");
    auto* msg = windows.Find<QLineEdit>("msg_0");
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText("before");

    QTest::mouseClick(rich->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QCOMPARE(windows.client.app.LastClickedWindow.kind, ClickedPane::Kind::kRich);
    rich->Select(0, 5);
    users->Select(9, 17);
    msg->setFocus();
    Press(windows, key, Qt::ControlModifier);
    QCOMPARE(clipboard->text(), QString("words"));

    QTest::mouseClick(users->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    users->Select(9, 17);
    msg->setFocus();
    Press(windows, key, Qt::ControlModifier);
    QCOMPARE(clipboard->text(), QString("the list"));

    // After a click elsewhere, and with nothing selected, the clipboard stays.
    QTest::mouseClick(msg, Qt::LeftButton);
    rich->Select(0, 5);
    Press(windows, key, Qt::ControlModifier);
    QCOMPARE(clipboard->text(), QString("the list"));
    QTest::mouseClick(rich->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    rich->Select(3, 3);
    msg->setFocus();
    Press(windows, key, Qt::ControlModifier);
    QCOMPARE(clipboard->text(), QString("the list"));
  }

  void WhatIsSelectedInTheInputBoxIsCopiedFirst_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Latin") << static_cast<int>(Qt::Key_C);
    QTest::newRow("Russian") << kCyrillicC;
  }
  void WhatIsSelectedInTheInputBoxIsCopiedFirst() {
    QFETCH(int, key);
    Windows windows;
    ShowTabs(windows, 1);
    windows.tab(0).Rich.ReplaceSel("words of the pane");
    auto* rich = windows.Find<RichTextView>("Rich_0");
    QTest::mouseClick(rich->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    rich->Select(0, 5);
    auto* msg = windows.Find<QLineEdit>("msg_0");
    msg->setText("typed");
    msg->setFocus();
    msg->selectAll();
    Press(windows, key, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("typed"));
  }

  void AClickOnTheListOfChannelsEntersOne() {
    Windows windows;
    ShowTabs(windows, 1);
    TabSession& tab = windows.tab(0);
    tab.Rich.ReplaceSel("Канал: home\r\n\r\n"_w);
    tab.IsChannelList = true;
    auto* rich = windows.Find<RichTextView>("Rich_0");
    QCoreApplication::processEvents();
    const QPoint name = rich->CharacterRect(8).center();
    QTest::mouseMove(rich->viewport(), name);
    QTRY_COMPARE(rich->viewport()->cursor().shape(), Qt::PointingHandCursor);
    // The hand trembles in the click.
    QTest::mousePress(rich->viewport(), Qt::LeftButton, Qt::NoModifier, name);
    const QPointF beside = name + QPoint(2, 1);
    QMouseEvent tremble(QEvent::MouseMove, beside, rich->viewport()->mapToGlobal(beside),
                        Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(rich->viewport(), &tremble);
    QTest::mouseRelease(rich->viewport(), Qt::LeftButton, Qt::NoModifier, name);
    QCOMPARE(tab.Channel, Text("home"));
    QCOMPARE(windows.Winsock1().connects, 1);
  }

  void AClickActsOnWhatStandsThereNow() {
    Windows windows;
    ShowTabs(windows, 1);
    TabSession& tab = windows.tab(0);
    tab.Rich.ReplaceSel("Канал: home\r\n\r\n"_w);
    tab.IsChannelList = true;
    auto* rich = windows.Find<RichTextView>("Rich_0");
    QCoreApplication::processEvents();
    const QPoint name = rich->CharacterRect(8).center();
    QMouseEvent move(QEvent::MouseMove, name, rich->viewport()->mapToGlobal(name), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(rich->viewport(), &move);
    QCOMPARE(windows.client.app.HoverChannel, Text("home"));
    tab.Rich.Text("nothing to enter here");
    QCoreApplication::processEvents();
    QTest::mouseClick(rich->viewport(), Qt::LeftButton, Qt::NoModifier, name);
    QCOMPARE(windows.Winsock1().connects, 0);
  }

  void ADragAcrossTheListOfChannelsSelectsAndEntersNone() {
    Windows windows;
    ShowTabs(windows, 1);
    TabSession& tab = windows.tab(0);
    tab.Rich.ReplaceSel("Канал: homestead\r\n\r\n"_w);
    tab.IsChannelList = true;
    auto* rich = windows.Find<RichTextView>("Rich_0");
    QCoreApplication::processEvents();
    const QPoint from = rich->CharacterRect(7).center();
    const QPoint to = rich->CharacterRect(14).center();
    QTest::mouseMove(rich->viewport(), from);
    QTRY_COMPARE(windows.client.app.HoverChannel, Text("homestead"));
    QTest::mousePress(rich->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent drag(QEvent::MouseMove, to, rich->viewport()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(rich->viewport(), &drag);
    QTest::mouseRelease(rich->viewport(), Qt::LeftButton, Qt::NoModifier, to);
    QCOMPARE(windows.Winsock1().connects, 0);
    QVERIFY(!rich->Selected().empty());
  }

  void AClickOnTheActiveTabRaisesTheDialogAgain() {
    Windows windows;
    ShowTabs(windows, 1);
    windows.tab(0).LoginShown = false;
    auto* strip = windows.Find<SSTab>("SSTab");
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(0).center());
    QVERIFY(windows.Find("connection_form")->isVisible());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::HotKeysWindowTest)
#include "hot_keys_window_test.moc"
