// Personal windows on the screen: how they open, come up and close, and who has the focus.
#include <QAction>
#include <QObject>

#include "session/connect.h"
#include "session/leaving.h"
#include "session/personal_notice.h"
#include "shell/qt/link_label.h"
#include "shell/qt/personal_windows_fixture.h"
#include "support/qt/qt_test.h"
#include "text/cut.h"
#include "users/nick_menu.h"

namespace parlorwire {

class PersWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  // ---- opening ----

  void AClickOnPersOpensAWindowOfTheLogin() {
    PersonalDesktop windows;
    windows.ClickPers();
    QCOMPARE(windows.Shown().size(), 1U);
    QWidget* opened = windows.Shown().front();
    QCOMPARE(QApplication::activeWindow(), opened);
    QCOMPARE(opened->windowTitle(), Utf8("Персональные сообщения (alice) - Parlorwire"));
    QVERIFY(opened->parentWidget() == nullptr);
    QVERIFY(!opened->windowIcon().isNull());
    QCOMPARE(windows.record().Rich.Text(),
             "[12:00:00] Подключение к серверу персональных сообщений...\r\n"_w);
    QCOMPARE(Simulated(windows.record().W1).connects, 1);
    QVERIFY(opened->findChild<QCheckBox*>("ActivateWhenMess")->isChecked());
    QVERIFY(opened->findChild<QLineEdit*>("send_nick")->hasFocus());
  }

  void PersWorksByKeyboard() {
    PersonalDesktop windows;
    windows.Find("pers_0")->setFocus();
    PersonalDesktop::Press(Qt::Key_Return);
    QCOMPARE(windows.Shown().size(), 1U);
  }

  void ASecondClickRaisesTheWindow() {
    PersonalDesktop windows;
    windows.Open();
    windows.ActivateMain();
    windows.ClickPers();
    QCOMPARE(windows.Shown().size(), 1U);
    WaitUntilActive(windows.frm);
    windows.frm->showMinimized();
    windows.ActivateMain();
    windows.ClickPers();
    WaitUntilActive(windows.frm);
    QVERIFY(!windows.frm->isMinimized());
    QCOMPARE(Simulated(windows.record().W1).connects, 1);
  }

  void ASecondNickHasASecondWindow() {
    PersonalDesktop windows(std::nullopt, "bob");
    windows.Open(0);
    windows.ActivateMain();
    windows.Open(1);
    QCOMPARE(windows.Shown().size(), 2U);
    QCOMPARE(windows.Shown()[1]->windowTitle(), Utf8("Персональные сообщения (bob) - Parlorwire"));
    QCOMPARE(windows.client.app.PersWindows.front()->PersTicket, Text("T0"));
    QCOMPARE(windows.record().PersTicket, Text("T1"));
    // What is typed in one stays out of the other.
    windows.Say("eve", "secret");
    QVERIFY(Contains(windows.Posted(), "username=bob&ticket=T1&"));
    QCOMPARE(Simulated(windows.client.app.PersWindows.front()->W2).connects, 0);
    QCOMPARE(windows.client.app.PersWindows.front()->send_nick, Text());
  }

  void AClosedWindowIsGoneAndOpensAgain() {
    PersonalDesktop windows;
    const QPointer<pers_frm> first = &windows.Open();
    const Text login = windows.record().PersLogin;
    first->close();
    QCOMPARE(windows.Shown().size(), 0U);
    QCOMPARE(windows.client.app.OpenPersList, Text());
    QTRY_VERIFY(first.isNull());
    QVERIFY(windows.client.app.PersWindows.empty());
    windows.ActivateMain();
    windows.Open();
    QCOMPARE(windows.Shown().size(), 1U);
    QCOMPARE(windows.record().PersLogin, login);
    QCOMPARE(Simulated(windows.record().W1).connects, 1);
  }

  void AWindowThatIsClosedByWhatItsOwnEventLetsRunIsGoneWithoutHarm() {
    PersonalDesktop windows;
    const QPointer<pers_frm> opened = &windows.Open();
    // The look-up of a colour lets waiting events run.
    QMetaObject::invokeMethod(opened, [&] { opened->close(); }, Qt::QueuedConnection);
    Simulated(windows.record().W1)
        .Deliver(
            "&gt; [12:34:56] http://h/a?reqnum=1&pm_msgnum=2 bob one\n"
            "&gt; [12:34:56] http://h/a?reqnum=1&pm_msgnum=2 bob two\n");
    windows.outside.time.Advance(5);
    QTRY_VERIFY(opened.isNull());
    QCOMPARE(windows.client.app.OpenPersList, Text());
  }

  void TheMainWindowTakesThemWithIt() {
    PersonalDesktop windows(std::nullopt, "bob");
    windows.Open(0);
    windows.ActivateMain();
    windows.Open(1);
    const auto record = windows.client.app.PersWindows.back();
    windows.window->close();
    QCOMPARE(windows.Shown().size(), 0U);
    QVERIFY(record->Closed);
    QCOMPARE(record->W1->State(), SocketState::kClosed);
    QCOMPARE(windows.client.app.OpenPersList, Text());
  }

  void ANewLoginOfTheTabLeavesThem() {
    PersonalDesktop windows;
    windows.Open();
    windows.tab(0).Login = "carol";
    ConnectToChat(windows.client, 0);
    QCOMPARE(windows.Shown().size(), 1U);
    windows.Receive("bob", "still here");
    QVERIFY(windows.At("still here") > 0);
    windows.Say("bob", "me too");
    QVERIFY(Contains(windows.Posted(), "username=alice&ticket=T0&"));
  }

  void TheMainWindowMayGoFirst() {
    PersonalDesktop windows;
    windows.Open();
    windows.window.reset();
    QCOMPARE(windows.Shown().size(), 0U);
    windows.record().hooks.ComeUp();
    windows.client.hooks.ShowPersWindow(windows.record().Handle);
    QCOMPARE(windows.Shown().size(), 0U);
  }

  // ---- the ways to it ----

  void TheBlinkStopsOnEveryTabOfTheLogin() {
    PersonalDesktop windows(std::nullopt, "ALICE");
    for (const int slot : {0, 1})
      NoticePersonalMessage(windows.client, slot);
    windows.outside.time.Advance(300);
    for (const char* name : {"pers_0", "pers_1"})
      QVERIFY(windows.Find<LinkLabel>(name)->Red());
    windows.ClickPers(1);
    windows.outside.time.Advance(300);
    for (const char* name : {"pers_0", "pers_1"})
      QVERIFY(!windows.Find<LinkLabel>(name)->Red());
  }

  void AClickOnTheNoticeInAPaneOpensIt() {
    PersonalDesktop windows;
    NoticePersonalMessage(windows.client, 0);
    QTest::qWait(60);
    auto* view = windows.Find<RichTextView>("Rich_0");
    const auto at =
        static_cast<PanePosition>(view->box().Text().rfind("персональное_сообщение!"_w));
    QVERIFY(at > 0);
    const QPoint point = view->CharacterRect(at + 3).center();
    QTest::mouseMove(view->viewport(), point);
    QCOMPARE(view->viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    QCOMPARE(windows.Shown().size(), 1U);
    QVERIFY(!windows.tab(0).Timer2->Enabled());
  }

  void SendPersPutsTheNickIn() {
    PersonalDesktop windows;
    windows.client.app.MenuNick = "bob";
    send_pers(windows.client);
    windows.outside.time.Advance(20);
    QCOMPARE(windows.Shown().size(), 1U);
    windows.frm = windows.Shown().front();
    WaitUntilActive(windows.frm);
    windows.outside.time.Advance(5);
    QCOMPARE(windows.send_nick()->text(), QString("bob"));
    QVERIFY(windows.msg()->hasFocus());
    QCOMPARE(windows.client.app.PersTargetNick, Text());
    // An open window gets the next one.
    windows.msg()->setText("draft");
    windows.send_nick()->setFocus();
    windows.ActivateMain();
    windows.client.app.MenuNick = "eve";
    send_pers(windows.client);
    windows.outside.time.Advance(20);
    WaitUntilActive(windows.frm);
    windows.outside.time.Advance(5);
    QCOMPARE(windows.Shown().size(), 1U);
    QCOMPARE(windows.send_nick()->text(), QString("eve"));
    QCOMPARE(windows.record().send_nick, Text("eve"));
    QCOMPARE(windows.msg()->text(), QString("draft"));
    QVERIFY(windows.msg()->hasFocus());
  }

  // ---- a message comes ----

  void TheFirstDataLeadsToWhatIsWanted() {
    PersonalDesktop windows;
    windows.Open();
    QVERIFY(windows.send_nick()->hasFocus());
    windows.send_nick()->setText("bob");
    windows.Receive("bob", "hi");
    QVERIFY(windows.msg()->hasFocus());
  }

  void WhoTypesOnAChannelGoesOnTypingThere() {
    PersonalDesktop windows;
    windows.Open();
    windows.send_nick()->setText("bob");
    windows.ActivateMain();
    windows.desktop.FocusMsg(0);
    PersonalDesktop::Write("for all ");
    windows.Receive("bob", "psst");
    QTest::qWait(50);
    QCOMPARE(QApplication::activeWindow(), windows.window.get());
    PersonalDesktop::Write("of you");
    PersonalDesktop::Press(Qt::Key_Return);
    QCOMPARE(windows.tab(0).PostText, Text("for all of you"));
    QCOMPARE(windows.Winsock2().connects, 1);
    QCOMPARE(windows.Posts(), 0);
    QCOMPARE(windows.msg()->text(), QString());
  }

  void AMinimizedWindowComesBackWithoutTheFocus() {
    PersonalDesktop windows;
    windows.Open();
    windows.frm->showMinimized();
    windows.ActivateMain();
    windows.Receive("bob", "psst");
    QTest::qWait(50);
    QVERIFY(!windows.frm->isMinimized());
    QCOMPARE(QApplication::activeWindow(), windows.window.get());
  }

  void ADesktopThatActivatesWhatIsRestoredGivesTheFocusBack() {
    PersonalDesktop windows;
    windows.Open();
    windows.send_nick()->setText("bob");
    windows.frm->showMinimized();
    windows.ActivateMain();
    windows.Receive("bob", "psst");
    windows.frm->activateWindow();  // as such a desktop does
    QTest::qWait(50);
    QCOMPARE(QApplication::activeWindow(), windows.window.get());
    // But not from the user.
    windows.Activate(windows.frm);
    QTest::qWait(50);
    QCOMPARE(QApplication::activeWindow(), windows.frm);
  }

  void WhatTheUserRestoresLaterHasTheFocus() {
    PersonalDesktop windows;
    windows.Open();
    windows.frm->showMinimized();
    windows.ActivateMain();
    windows.Receive("bob", "psst");
    QTest::qWait(600);
    windows.Activate(windows.frm);
    QTest::qWait(50);
    QCOMPARE(QApplication::activeWindow(), windows.frm);
  }

  void WithNoOtherWindowActiveItGetsTheFocus() {
    PersonalDesktop windows;
    LeaveTheProgram(windows);
    windows.Receive("bob", "psst");
    WaitUntilActive(windows.frm);
    QVERIFY(windows.msg()->hasFocus());
  }

  void EnterThatCameTooSoonSaysNothing() {
    PersonalDesktop windows;
    LeaveTheProgram(windows);
    windows.msg()->setText("draft");
    windows.Receive("bob", "psst");
    WaitUntilActive(windows.frm);
    for (const bool repeated : {true, false})
      QTest::simulateEvent(windows.frm->windowHandle(), true, Qt::Key_Return, Qt::NoModifier, "\r",
                           repeated);
    QCOMPARE(windows.Posts(), 0);
    QCOMPARE(windows.msg()->text(), QString("draft"));
    // The hand has let it go; from now on it is Enter.
    QTest::simulateEvent(windows.frm->windowHandle(), false, Qt::Key_Return, Qt::NoModifier, "\r",
                         false);
    PersonalDesktop::Press(Qt::Key_Return);
    QCOMPARE(windows.Posts(), 1);
  }

  void WhatIsTypedOrClickedMakesEnterOne() {
    for (const bool typed : {true, false}) {
      PersonalDesktop windows;
      LeaveTheProgram(windows);
      windows.Receive("bob", "psst");
      WaitUntilActive(windows.frm);
      if (typed)
        PersonalDesktop::Write("x");
      else
        QTest::mouseClick(windows.msg(), Qt::LeftButton);
      PersonalDesktop::Press(Qt::Key_Return);
      QCOMPARE(windows.Posts(), 1);
    }
  }

  void WithoutTheTickItStaysWhereItIs() {
    PersonalDesktop windows;
    windows.Open();
    auto* tick = windows.In<QCheckBox>("ActivateWhenMess");
    QTest::mouseClick(tick, Qt::LeftButton, Qt::NoModifier, QPoint(8, tick->height() / 2));
    QVERIFY(!windows.record().ActivateWhenMess);
    windows.frm->showMinimized();
    windows.ActivateMain();
    windows.Receive("bob", "psst");
    QVERIFY(windows.frm->isMinimized());
    QVERIFY(windows.At("psst") > 0);
    tick->setFocus();
    QTest::keyClick(tick, Qt::Key_Space);
    QVERIFY(windows.record().ActivateWhenMess);
  }

 private:
  // A personal window with a nick in it, while the user works with another program.
  static void LeaveTheProgram(PersonalDesktop& windows) {
    windows.Open();
    windows.send_nick()->setText("bob");
    windows.ActivateMain();
    windows.window->hide();
    if (QApplication::activeWindow() != nullptr) QApplication::setActiveWindow(nullptr);
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() == nullptr; }))
      qFatal("a window of the program is active");
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::PersWindowsTest)
#include "pers_windows_test.moc"
