#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QObject>

#include "shell/qt/connection_form.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

const Text kTwoLogins =
    "[Main]\r\nLogins=2\r\nlastIndex=1\r\n"
    "Login0=Alice\r\nPassw0=secret\r\nChannel0=home\r\nChPwd0=door\r\n"
    "Login1=Bob\r\nPassw1=hush\r\nChannel1=work\r\nChPwd1=\r\n";

// The login dialog as it stands after a click on the button of the main window.
struct Dialog {
  explicit Dialog(const Text& config) : windows(config) {
    QTest::mouseClick(windows.Find("button_connect_main"), Qt::LeftButton);
    form = windows.Find<connection_form>("connection_form");
    WaitUntilActive(form);
  }
  QComboBox* login() { return windows.Find<QComboBox>("login"); }
  QLineEdit* Field(const char* name) { return windows.Find<QLineEdit>(name); }
  QString Text(const char* name) { return Field(name)->text(); }
  void Retype(QLineEdit* field, const QString& text) {
    field->selectAll();
    Type(field, text);
  }

  Windows windows;
  connection_form* form = nullptr;
};

}  // namespace

class ConnectionFormTest : public QObject {
  Q_OBJECT

 private slots:
  void OpensWithTheLastLoginFilledIn() {
    Dialog dialog(kTwoLogins);
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.login()->count(), 2);
    QCOMPARE(dialog.login()->currentText(), QString("Bob"));
    QCOMPARE(dialog.Text("pass"), QString("hush"));
    QCOMPARE(dialog.Text("room"), QString("work"));
    QCOMPARE(dialog.Text("channel_pwd_input"), QString());
    QVERIFY(dialog.windows.Find<QCheckBox>("save_pass")->isChecked());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(dialog.login()));
  }

  void TheLoginIsSelectedWithTheCaretAtItsEnd() {
    Dialog dialog(kTwoLogins);
    QCOMPARE(dialog.login()->lineEdit()->selectedText(), QString("Bob"));
    QCOMPARE(dialog.login()->lineEdit()->cursorPosition(), 3);
  }

  void EnterInThePasswordOfTheChannelConnects() {
    Dialog dialog(kTwoLogins);
    dialog.Field("channel_pwd_input")->setFocus();
    Type(dialog.Field("channel_pwd_input"), "key");
    QTest::keyClick(dialog.Field("channel_pwd_input"), Qt::Key_Return);
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(dialog.windows.tab(0).Connecting);
    QCOMPARE(dialog.windows.tab(0).ChannelPassword, parlorwire::Text("key"));
  }

  void ItsFrameHasNoButtonsToMinimizeOrMaximize() {
    Dialog dialog(kTwoLogins);
    QVERIFY(dialog.form->windowFlags() & Qt::CustomizeWindowHint);
    QVERIFY(!(dialog.form->windowFlags() & Qt::WindowMinMaxButtonsHint));
    QVERIFY(dialog.form->windowFlags() & Qt::WindowCloseButtonHint);
    QVERIFY(dialog.form->isWindow());
  }

  void IsNotModal() {
    Dialog dialog(kTwoLogins);
    QVERIFY(!dialog.form->isModal());
  }

  void ShowsItsTextsInBothLanguages_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("russian");
    QTest::addColumn<QString>("english");
    const auto row = [](const char* control, const char* russian, const char* english) {
      QTest::newRow(control) << QString(control) << QString::fromUtf8(russian) << QString(english);
    };
    row("l_login", "Логин:", "Login:");
    row("l_pass", "Пароль:", "Password:");
    row("l_room", "Канал*:", "Room*:");
    row("l_channel_pwd", "Пароль канала**:", "Channel passw**:");
    row("save_pass", "Запомнить пароль", "Save the password");
    row("connect_param", "Дополнительно", "Advanced");
    row("l_primechanie", "* При пустом поле загрузится список каналов", "* ???");
    row("l_primechanie1", "** Необязательное поле", "** ???");
  }
  void ShowsItsTextsInBothLanguages() {
    QFETCH(QString, control);
    QFETCH(QString, russian);
    QFETCH(QString, english);
    for (const bool in_russian : {true, false}) {
      Dialog dialog(in_russian ? "" : "[Main]\r\nLanguage=English\r\n");
      auto* widget = dialog.windows.Find(control.toLatin1().constData());
      const auto* label = qobject_cast<QLabel*>(widget);
      const auto* button = qobject_cast<QAbstractButton*>(widget);
      const QString shown = label != nullptr ? label->text() : button->text();
      QCOMPARE(shown, in_russian ? russian : english);
      // What says nothing is explained to a screen reader.
      if (!shown.contains("???")) QCOMPARE(widget->accessibleName(), shown);
    }
  }

  void EnterWalksToPassToRoomAndConnects() {
    Dialog dialog("");
    QTest::keyClicks(QApplication::focusWidget(), "Bob");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(dialog.Field("pass")));
    QTest::keyClicks(QApplication::focusWidget(), "hush");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(dialog.Field("room")));
    Type(QApplication::focusWidget(), QString::fromUtf8("дом"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

    QVERIFY(!dialog.form->isVisible());
    const TabSession& tab = dialog.windows.tab(0);
    QCOMPARE(tab.Login, Text("Bob"));
    QCOMPARE(tab.Password, Text("hush"));
    QCOMPARE(tab.Channel, "дом"_w);
    QVERIFY(tab.Connecting);
    QCOMPARE(dialog.windows.Winsock1().host, Text("localhost"));
    QCOMPARE(dialog.windows.Winsock1().port, Text("80"));
    QVERIFY(dialog.windows.Config().find("Login0=Bob\r\n") != Text::npos);
    QVERIFY(dialog.windows.Config().find("Channel0=" + "дом"_w) != Text::npos);
    // The box was not ticked, so the password is not kept.
    QVERIFY(dialog.windows.Config().find("Passw0") == Text::npos);
  }

  void TheFirstConnectShowsTheTabAndGivesMsgTheFocus() {
    Dialog dialog(kTwoLogins);
    auto* msg = dialog.windows.Find<QLineEdit>("msg_0");
    QVERIFY(!msg->isVisible());
    QTest::mouseClick(dialog.windows.Find("button_connect"), Qt::LeftButton);
    WaitUntilActive(dialog.windows.window.get());
    QVERIFY(msg->isVisible());
    QVERIFY(msg->hasFocus());
    QVERIFY(!dialog.windows.Find("msg_1")->isVisible());
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.windows.Winsock1().connects, 1);
  }

  void ConnectNeedsTheLeftButtonLetGoInside() {
    Dialog dialog(kTwoLogins);
    auto* button = dialog.windows.Find("button_connect");
    QTest::mouseClick(button, Qt::RightButton);
    QCOMPARE(dialog.windows.Winsock1().connects, 0);
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseMove(button, QPoint(-30, -30));
    QTest::mouseRelease(button, Qt::LeftButton, Qt::NoModifier, QPoint(-30, -30));
    QCOMPARE(dialog.windows.Winsock1().connects, 0);
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(dialog.windows.Winsock1().connects, 1);
  }

  void ChoosingAnEntryFillsTheFields() {
    Dialog dialog(kTwoLogins);
    QTest::keyClick(dialog.login(), Qt::Key_Up);
    QCOMPARE(dialog.login()->currentText(), QString("Alice"));
    QCOMPARE(dialog.Text("pass"), QString("secret"));
    QCOMPARE(dialog.Text("room"), QString("home"));
    QCOMPARE(dialog.Text("channel_pwd_input"), QString("door"));
  }

  void TypingANickEmptiesTheFields() {
    Dialog dialog(kTwoLogins);
    QTest::keyClick(dialog.login()->lineEdit(), Qt::Key_End);
    QTest::keyClicks(dialog.login()->lineEdit(), "by");
    QCOMPARE(dialog.login()->currentText(), QString("Bobby"));
    QCOMPARE(dialog.Text("pass"), QString());
    QCOMPARE(dialog.Text("room"), QString());
    QCOMPARE(dialog.Text("channel_pwd_input"), QString());
  }

  void TypingKeepsTheCaretWhereItIs() {
    Dialog dialog(kTwoLogins);
    QTest::keyClick(dialog.login()->lineEdit(), Qt::Key_Home);
    QTest::keyClicks(dialog.login()->lineEdit(), "xy");
    QCOMPARE(dialog.login()->currentText(), QString("xyBob"));
  }

  void ATypedNickInAnotherCaseIsTheSavedEntry() {
    Dialog dialog("[Main]\r\nLogins=1\r\nLogin0=bob\r\n");
    dialog.Retype(dialog.login()->lineEdit(), "Bob");
    QTest::keyClicks(dialog.Field("pass"), "new");
    QTest::mouseClick(dialog.windows.Find("button_connect"), Qt::LeftButton);
    QVERIFY(dialog.windows.Config().find("Login1") == Text::npos);
    QVERIFY(dialog.windows.Config().find("Logins=1") != Text::npos);
    QCOMPARE(dialog.windows.tab(0).Login, Text("Bob"));
  }

  // Leaving the box must not turn a nick typed in full into the entry of that name.
  void ATypedNickStaysTypedWhenTheFocusGoes() {
    Dialog dialog(kTwoLogins);
    dialog.Retype(dialog.login()->lineEdit(), "Alice");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.Text("pass"), QString());
    dialog.login()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(dialog.Text("pass"), QString());
  }

  void WithAHundredNicksTypingIsRefused_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::newRow("Russian") << "Russian" << QString::fromUtf8("Максимальное число ников - 100");
    QTest::newRow("English") << "English" << "Maximum number of nicks - 100";
  }
  void WithAHundredNicksTypingIsRefused() {
    QFETCH(QString, language);
    QFETCH(QString, message);
    Text config = "[Main]\r\nLanguage=" + language.toStdString() + "\r\nLogins=100\r\n";
    for (int i = 0; i < 100; ++i)
      config += "Login" + std::to_string(i) + "=nick" + std::to_string(i) + "\r\n";
    Dialog dialog(config);
    QCOMPARE(dialog.login()->count(), 100);
    dialog.login()->setFocus();
    QTest::keyClick(dialog.login(), Qt::Key_Down);
    QCOMPARE(dialog.login()->currentIndex(), 1);
    const SeenBox box = EnterInBox([&] { QTest::keyClick(dialog.login()->lineEdit(), Qt::Key_X); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, message);
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(dialog.login()->currentIndex(), 0);
    QCOMPARE(dialog.login()->currentText(), QString("nick0"));
  }

  void AMissingNickOrPasswordIsAskedForWithTheFocusOnIt_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("login");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const auto row = [](const char* name, const char* language, const char* login,
                        const char* message, const char* focus) {
      QTest::newRow(name) << language << login << QString::fromUtf8(message) << focus;
    };
    row("no nick, Russian", "Russian", " ", "Пожалуйста, введите Ваш ник", "login");
    row("no nick, English", "English", " ", "Please, enter your nickname", "login");
    row("no password, Russian", "Russian", "Bob", "Пожалуйста, введите Ваш пароль", "pass");
    row("no password, English", "English", "Bob", "Please, enter your password", "pass");
  }
  void AMissingNickOrPasswordIsAskedForWithTheFocusOnIt() {
    QFETCH(QString, language);
    QFETCH(QString, login);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    Dialog dialog("[Main]\r\nLanguage=" + language.toStdString() + "\r\n");
    QTest::keyClicks(dialog.login()->lineEdit(), login);
    auto* room = dialog.Field("room");
    room->setFocus();
    const SeenBox box = EnterInBox([&] { QTest::keyClick(room, Qt::Key_Return); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, message);
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.windows.Winsock1().connects, 0);
    QCOMPARE(dialog.form->focusWidget()->objectName(), focus);
  }

  void EscapeAsksWhetherToQuit_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("question");
    QTest::newRow("Russian") << "Russian"
                             << QString::fromUtf8(
                                    "Вы не подключены ни к одному каналу. Выйти из программы?");
    QTest::newRow("English") << "English" << "You don't connected. Quit the programm?";
  }
  void EscapeAsksWhetherToQuit() {
    QFETCH(QString, language);
    QFETCH(QString, question);
    Dialog dialog("[Main]\r\nLanguage=" + language.toStdString() + "\r\n");
    const SeenBox box =
        EnterInBox([&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, question);
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, qsizetype(2));
    // Enter presses the preselected answer, which is no.
    QVERIFY(!dialog.form->isVisible());
    QTest::qWait(150);
    QVERIFY(dialog.windows.window->isVisible());
  }

  void EscapeWhileConnectedAsksNothing() {
    Dialog dialog(kTwoLogins);
    dialog.windows.tab(0).Connected = true;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
  }

  void EnteringAFieldSelectsItsText_data() {
    QTest::addColumn<QString>("field");
    for (const char* field : {"pass", "room", "channel_pwd_input"})
      QTest::newRow(field) << field;
  }
  void EnteringAFieldSelectsItsText() {
    QFETCH(QString, field);
    Dialog dialog(
        "[Main]\r\nLogins=1\r\nLogin0=Bob\r\nPassw0=hush\r\nChannel0=work\r\nChPwd0=door\r\n");
    auto* edit = dialog.Field(field.toLatin1().constData());
    edit->deselect();
    QTest::mouseClick(edit, Qt::LeftButton);
    QTRY_COMPARE(edit->selectedText().size(), edit->text().size());
  }

  // Half a password, a look at another window, and the rest of it.
  void ComingBackToAFieldLeavesItsTextAsItIs() {
    Dialog dialog("");
    auto* pass = dialog.Field("pass");
    QTest::keyClick(dialog.login(), Qt::Key_Return);
    QVERIFY(pass->hasFocus());
    QTest::keyClicks(pass, "sec");
    QWidget other;
    other.show();
    other.activateWindow();
    WaitUntilActive(&other);
    dialog.form->activateWindow();
    WaitUntilActive(dialog.form);
    QVERIFY(pass->hasFocus());
    QTest::keyClicks(pass, "r");
    QTest::keyClick(ContextMenuOf(pass), Qt::Key_Escape);
    QVERIFY(pass->hasFocus());
    QTest::keyClicks(pass, "et");
    QCOMPARE(pass->text(), QString("secret"));
  }

  void OnActivationFromTheMainWindowTheFocusGoesToLogin() {
    Dialog dialog(kTwoLogins);
    dialog.Field("room")->setFocus();
    dialog.windows.window->activateWindow();
    WaitUntilActive(dialog.windows.window.get());
    dialog.form->activateWindow();
    WaitUntilActive(dialog.form);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(dialog.login()));
  }

  void SavePassStaysTickedWhileTheNickIsTypedAndCorrected() {
    Dialog dialog("");
    auto* save_pass = dialog.windows.Find<QCheckBox>("save_pass");
    QTest::keyClick(save_pass, Qt::Key_Space);
    QLineEdit* login = dialog.login()->lineEdit();
    QTest::keyClicks(login, "Bop");
    QTest::keyClick(login, Qt::Key_Backspace);
    QTest::keyClicks(login, "b");
    QVERIFY(save_pass->isChecked());
    QTest::keyClicks(dialog.Field("pass"), "hush");
    QTest::mouseClick(dialog.windows.Find("button_connect"), Qt::LeftButton);
    QVERIFY(dialog.windows.Config().find("Login0=Bob\r\n") != Text::npos);
    QVERIFY(dialog.windows.Config().find("Passw0=hush\r\n") != Text::npos);
  }

  // It says that the password of that login is kept; nobody has asked for it with another nick.
  void TheTickOfASavedLoginGoesWithIt() {
    Dialog dialog(kTwoLogins);
    auto* save_pass = dialog.windows.Find<QCheckBox>("save_pass");
    QVERIFY(save_pass->isChecked());
    QTest::keyClick(dialog.login()->lineEdit(), Qt::Key_End);
    QTest::keyClicks(dialog.login()->lineEdit(), "by");
    QVERIFY(!save_pass->isChecked());
  }

  void ItsControlsAreWrittenInVerdana() {
    Dialog dialog("");
    for (const char* name : {"l_login", "l_pass", "l_room", "l_channel_pwd", "l_primechanie",
                             "l_primechanie1", "login", "pass", "room", "channel_pwd_input"}) {
      QCOMPARE(dialog.windows.Find(name)->font().family(), QString("verdana"));
      QCOMPARE(dialog.windows.Find(name)->font().pointSize(), 8);
    }
  }

  void ThePasswordsAreNotReadable() {
    Dialog dialog(kTwoLogins);
    QCOMPARE(dialog.Field("pass")->echoMode(), QLineEdit::Password);
    QCOMPARE(dialog.Field("channel_pwd_input")->echoMode(), QLineEdit::Password);
  }

  void PastingSeveralLinesKeepsTheFirstInEveryField_data() {
    QTest::addColumn<QString>("field");
    for (const char* field : {"login", "pass", "room", "channel_pwd_input"})
      QTest::newRow(field) << field;
  }
  void PastingSeveralLinesKeepsTheFirstInEveryField() {
    QFETCH(QString, field);
    Dialog dialog("");
    QApplication::clipboard()->setText("Bob\r\nLogins=50");
    QLineEdit* edit = field == "login" ? dialog.login()->lineEdit()
                                       : dialog.windows.Find<QLineEdit>(field.toLatin1());
    edit->clear();
    edit->paste();
    QCOMPARE(edit->text(), QString("Bob"));
    QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit->text(), QString("BobBob"));
  }

  void TheBackgroundIsTheDialogs() {
    Dialog dialog("");
    QCOMPARE(dialog.form->palette().color(QPalette::Window), QColor(192, 198, 187));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ConnectionFormTest)
#include "connection_form_test.moc"
