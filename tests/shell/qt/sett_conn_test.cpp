#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>

#include "session/proxy_dialog.h"
#include "shell/qt/sett_conn.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

const Text kFull =
    "[ProxySettings]\r\nUse_proxy=1\r\nProxy_address=proxy.example\r\nProxy_port=3128\r\n"
    "Autentification=1\r\nProxy_login=me\r\nProxy_pass=word\r\n";

// The proxy dialog, shown but not run, so that the test goes on beside it.
struct SettConnWindow {
  explicit SettConnWindow(const Text& config)
      : windows(config), form(windows.client, windows.window.get()) {
    form.show();
    form.activateWindow();
    WaitUntilActive(&form);
  }
  QLineEdit* Field(const char* name) { return windows.Find<QLineEdit>(name); }
  QCheckBox* Box(const char* name) { return windows.Find<QCheckBox>(name); }
  void Click(const char* name) { QTest::keyClick(windows.Find(name), Qt::Key_Space); }
  ProxyControls& Controls() { return ProxyDialog(windows.client); }

  // One letter a field in the order of the dialog: L locked, u unlocked; then whether
  // `autentification` can be used.
  QString Locks() {
    QString locks;
    for (const char* name : {"proxy_addr", "proxy_port", "proxy_login", "proxy_pass"})
      locks += Field(name)->isReadOnly() ? 'L' : 'u';
    return locks + (Box("autentification")->isEnabled() ? "+" : "-");
  }

  Windows windows;
  sett_conn form;
};

}  // namespace

class SettConnTest : public QObject {
  Q_OBJECT

 private slots:
  void ShowsWhatTheFileHas() {
    SettConnWindow dialog(kFull);
    QVERIFY(dialog.Box("use_proxy")->isChecked());
    QVERIFY(dialog.Box("autentification")->isChecked());
    QCOMPARE(dialog.Field("proxy_addr")->text(), QString("proxy.example"));
    QCOMPARE(dialog.Field("proxy_port")->text(), QString("3128"));
    QCOMPARE(dialog.Field("proxy_login")->text(), QString("me"));
    QCOMPARE(dialog.Field("proxy_pass")->text(), QString("word"));
    QCOMPARE(dialog.Field("proxy_pass")->echoMode(), QLineEdit::Password);
  }

  void ShowsItsTextsInBothLanguages_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("russian");
    QTest::addColumn<QString>("english");
    const auto row = [](const char* control, const char* russian, const char* english) {
      QTest::newRow(control) << QString(control) << QString::fromUtf8(russian) << QString(english);
    };
    row("sett_conn", "Дополнительные настройки подключения", "Advanced connection settings");
    row("frame", "Прокси-сервер", "Proxy");
    row("use_proxy", "Использовать прокси-сервер", "Use proxy");
    row("l_proxy_addr", "Адрес", "Adress");
    row("l_proxy_port", "Порт", "Port");
    row("autentification", "Аутентификация", "Autentification");
    row("l_proxy_login", "Логин", "Login");
    row("l_proxy_pass", "Пароль", "Password");
  }
  void ShowsItsTextsInBothLanguages() {
    QFETCH(QString, control);
    QFETCH(QString, russian);
    QFETCH(QString, english);
    for (const bool in_russian : {true, false}) {
      SettConnWindow dialog(in_russian ? "" : "[Main]\r\nLanguage=English\r\n");
      auto* widget = dialog.windows.Find(control.toLatin1().constData());
      QString shown = widget->windowTitle();
      if (const auto* label = qobject_cast<QLabel*>(widget)) shown = label->text();
      if (const auto* button = qobject_cast<QAbstractButton*>(widget)) shown = button->text();
      if (const auto* group = qobject_cast<QGroupBox*>(widget)) shown = group->title();
      QCOMPARE(shown, in_russian ? russian : english);
    }
  }

  void EnterIsApply_data() {
    QTest::addColumn<QString>("control");
    for (const char* control : {"proxy_addr", "proxy_port", "proxy_login", "proxy_pass",
                                "use_proxy", "autentification", "button_apply"})
      QTest::newRow(control) << control;
  }
  void EnterIsApply() {
    QFETCH(const QString, control);
    SettConnWindow dialog(kFull);
    dialog.Field("proxy_addr")->setText("other.example");
    QWidget* focus = dialog.windows.Find(qPrintable(control));
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_Return);
    QVERIFY(!dialog.form.isVisible());
    QVERIFY(dialog.windows.Config().find("Proxy_address=other.example") != Text::npos);
  }

  void EnterOnCancelIsCancel() {
    SettConnWindow dialog(kFull);
    dialog.Field("proxy_addr")->setText("other.example");
    QWidget* cancel = dialog.windows.Find("button_cancel");
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Return);
    QVERIFY(!dialog.form.isVisible());
    QVERIFY(dialog.windows.Config().find("other.example") == Text::npos);
  }

  void AWrongPortIsToldAndGetsTheFocus() {
    SettConnWindow dialog(kFull);
    dialog.Field("proxy_port")->setText("70000");
    const SeenBox box =
        EnterInBox([&] { QTest::keyClick(dialog.Field("proxy_addr"), Qt::Key_Return); });
    QCOMPARE(box.text, Utf8("Порт - число от 1 до 65535"));
    QVERIFY(dialog.form.isVisible());
    QCOMPARE(dialog.form.focusWidget(), static_cast<QWidget*>(dialog.Field("proxy_port")));
  }

  void CaptionsOfLockedFieldsLookDisabled() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    QVERIFY(dialog.windows.Find("l_proxy_addr")->isEnabled());
    QVERIFY(!dialog.windows.Find("l_proxy_login")->isEnabled());
    dialog.Click("autentification");
    QVERIFY(dialog.windows.Find("l_proxy_pass")->isEnabled());
    dialog.Click("use_proxy");
    for (const char* label : {"l_proxy_addr", "l_proxy_port", "l_proxy_login", "l_proxy_pass"})
      QVERIFY(!dialog.windows.Find(label)->isEnabled());
  }

  void ItsFrameHasNoButtonsToMinimizeOrMaximize() {
    SettConnWindow dialog(kFull);
    QVERIFY(dialog.form.windowFlags() & Qt::CustomizeWindowHint);
    QVERIFY(!(dialog.form.windowFlags() & Qt::WindowMinMaxButtonsHint));
    QVERIFY(dialog.form.windowFlags() & Qt::WindowCloseButtonHint);
  }

  void HasTheGroundOfTheDialogs() {
    SettConnWindow dialog(kFull);
    QCOMPARE(dialog.form.grab().toImage().pixelColor(2, 2), QColor(192, 198, 187));
  }

  void TheCheckBoxesLockTheFields_data() {
    QTest::addColumn<bool>("use_proxy");
    QTest::addColumn<bool>("autentification");
    QTest::addColumn<QString>("locks");
    QTest::newRow("neither") << false << false << "LLLL-";
    QTest::newRow("no proxy, but authentication") << false << true << "LLLL-";
    QTest::newRow("proxy") << true << false << "uuLL+";
    QTest::newRow("proxy with authentication") << true << true << "uuuu+";
  }
  void TheCheckBoxesLockTheFields() {
    QFETCH(bool, use_proxy);
    QFETCH(bool, autentification);
    QFETCH(QString, locks);
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=" + Text(use_proxy ? "1" : "0") +
                          "\r\nAutentification=" + Text(autentification ? "1" : "0") + "\r\n");
    QCOMPARE(dialog.Locks(), locks);
  }

  void TheCheckBoxesLockTheFieldsWhenClicked() {
    SettConnWindow dialog("");
    dialog.Click("use_proxy");
    QCOMPARE(dialog.Locks(), QString("uuLL+"));
    QVERIFY(dialog.Field("proxy_addr")->hasFocus());
    dialog.Click("autentification");
    QCOMPARE(dialog.Locks(), QString("uuuu+"));
    dialog.Click("use_proxy");
    QCOMPARE(dialog.Locks(), QString("LLLL-"));
    dialog.Click("use_proxy");
    QCOMPARE(dialog.Locks(), QString("uuuu+"));
  }

  void WhatIsTypedIsInForceAtOnce() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    QTest::keyClicks(dialog.Field("proxy_addr"), "p.example");
    QCOMPARE(dialog.Controls().proxy_addr, Text("p.example"));
    QVERIFY(dialog.windows.Config().find("p.example") == Text::npos);
  }

  void ALockedFieldTakesNoKeys() {
    SettConnWindow dialog("");
    QTest::keyClicks(dialog.Field("proxy_addr"), "p.example");
    QCOMPARE(dialog.Field("proxy_addr")->text(), QString());
  }

  void ThePortTakesDigitsAndBackspaceOnly() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    auto* port = dialog.Field("proxy_port");
    QTest::keyClicks(port, "8a0-8.0 9");
    QCOMPARE(port->text(), QString("80809"));
    QTest::keyClick(port, Qt::Key_Backspace);
    QCOMPARE(port->text(), QString("8080"));
  }

  void ACaptionThatIsDisabledCanBeRead() {
    SettConnWindow dialog("");
    auto* box = dialog.windows.Find<QCheckBox>("autentification");
    QVERIFY(!box->isEnabled());
    const QPalette look = box->palette();
    const int ink = look.color(QPalette::Disabled, QPalette::WindowText).lightness();
    QVERIFY(look.color(QPalette::Disabled, QPalette::Window).lightness() - ink > 60);
  }

  void PastingKeepsTheFirstLineOnly() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    QApplication::clipboard()->setText("first\r\nsecond");
    auto* address = dialog.Field("proxy_addr");
    address->setFocus();
    QTest::keyClick(address, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(address->text(), QString("first"));
  }

  void PastingFromTheMenuIntoAFieldKeepsTheFirstLineOnly_data() {
    QTest::addColumn<QString>("field");
    for (const char* field : {"proxy_addr", "proxy_login", "proxy_pass"})
      QTest::newRow(field) << field;
  }
  void PastingFromTheMenuIntoAFieldKeepsTheFirstLineOnly() {
    QFETCH(QString, field);
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\nAutentification=1\r\n");
    QApplication::clipboard()->setText("first\nsecond");
    auto* edit = dialog.Field(field.toLatin1().constData());
    edit->setFocus();
    edit->setText("<>");
    edit->setCursorPosition(1);
    QMenu* menu = ContextMenuOf(edit);
    QAction* paste = nullptr;
    for (QAction* item : menu->actions())
      if (item->text().endsWith("\tCtrl+V")) paste = item;
    QVERIFY(paste != nullptr);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(paste).center());
    QCOMPARE(edit->text(), QString("<first>"));
    QCOMPARE(edit->cursorPosition(), 6);
  }

  void EnteringAFieldSelectsItsText_data() {
    QTest::addColumn<QString>("field");
    for (const char* field : {"proxy_addr", "proxy_port", "proxy_login", "proxy_pass"})
      QTest::newRow(field) << field;
  }
  void EnteringAFieldSelectsItsText() {
    QFETCH(QString, field);
    SettConnWindow dialog(kFull);
    auto* edit = dialog.Field(field.toLatin1().constData());
    edit->deselect();
    edit->setFocus(Qt::TabFocusReason);
    QCOMPARE(edit->selectedText().size(), edit->text().size());
  }

  void ComingBackToAFieldLeavesItsTextAsItIs() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    auto* address = dialog.Field("proxy_addr");
    address->setFocus();
    QTest::keyClicks(address, "proxy");
    QWidget other;
    other.show();
    other.activateWindow();
    WaitUntilActive(&other);
    dialog.form.activateWindow();
    WaitUntilActive(&dialog.form);
    QVERIFY(address->hasFocus());
    QTest::keyClicks(address, ".ex");
    QTest::keyClick(ContextMenuOf(address), Qt::Key_Escape);
    QVERIFY(address->hasFocus());
    QTest::keyClicks(address, "ample");
    QCOMPARE(address->text(), QString("proxy.example"));
  }

  // The dialog gets the focus back only after it has given it to the field.
  void AnAddressThatIsNotToBeForgottenIsSelected() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\nProxy_address=proxy.example\r\n");
    dialog.Field("proxy_port")->setFocus();
    AnswerBox(QMessageBox::No, [&] { dialog.Click("button_apply"); });
    dialog.form.activateWindow();  // as a window manager would
    WaitUntilActive(&dialog.form);
    QCOMPARE(dialog.Field("proxy_addr")->selectedText(), QString("proxy.example"));
  }

  void ItsControlsAreWrittenInVerdana() {
    SettConnWindow dialog("");
    for (const char* name :
         {"use_proxy", "proxy_addr", "proxy_port", "autentification", "proxy_login", "proxy_pass",
          "l_proxy_addr", "l_proxy_port", "l_proxy_login", "l_proxy_pass"}) {
      QCOMPARE(dialog.windows.Find(name)->font().family(), QString("verdana"));
      QCOMPARE(dialog.windows.Find(name)->font().pointSize(), 8);
    }
  }

  void ApplyWritesTheSixKeysAndCloses() {
    SettConnWindow dialog("[ProxySettings]\r\nUse_proxy=1\r\n");
    QTest::keyClicks(dialog.Field("proxy_addr"), "p.example");
    QTest::keyClicks(dialog.Field("proxy_port"), "8080");
    dialog.Click("button_apply");
    QVERIFY(!dialog.form.isVisible());
    QCOMPARE(dialog.windows.Config(),
             Text("[ProxySettings]\r\nUse_proxy=1\r\nProxy_address=p.example\r\nProxy_port=8080\r\n"
                  "Autentification=0\r\nProxy_login=\r\nProxy_pass=\r\n"));
  }

  void ApplyWithAMissingAddressAsks_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("question");
    QTest::newRow("Russian") << "Russian"
                             << QString::fromUtf8(
                                    "Некоторые поля остались незаполненными. "
                                    "Отключить прокси-сервер?");
    QTest::newRow("English") << "English" << "Some fields are ...";
  }
  void ApplyWithAMissingAddressAsks() {
    QFETCH(QString, language);
    QFETCH(QString, question);
    SettConnWindow dialog(
        "[Main]\r\nLanguage=" + language.toStdString() +
        "\r\n[ProxySettings]\r\nUse_proxy=1\r\nProxy_address= \r\nProxy_port=80\r\n");
    const SeenBox no = AnswerBox(QMessageBox::No, [&] { dialog.Click("button_apply"); });
    QCOMPARE(no.title, QString("Parlorwire"));
    QCOMPARE(no.text, question);
    QCOMPARE(no.icon, QMessageBox::Warning);
    QCOMPARE(no.buttons, qsizetype(2));
    QVERIFY(dialog.form.isVisible());
    QVERIFY(dialog.Box("use_proxy")->isChecked());
    QCOMPARE(dialog.form.focusWidget()->objectName(), QString("proxy_addr"));

    // Enter presses the preselected answer, which is yes.
    EnterInBox([&] { dialog.Click("button_apply"); });
    QVERIFY(!dialog.form.isVisible());
    QVERIFY(dialog.windows.Config().find("Use_proxy=0") != Text::npos);
  }

  void CancelAndEscapeForgetWhatWasTyped_data() {
    QTest::addColumn<bool>("by_button");
    QTest::newRow("button_cancel") << true;
    QTest::newRow("Escape") << false;
  }
  void CancelAndEscapeForgetWhatWasTyped() {
    QFETCH(bool, by_button);
    SettConnWindow dialog(kFull);
    auto* address = dialog.Field("proxy_addr");
    address->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(address, "other");
    QCOMPARE(dialog.Controls().proxy_addr, Text("other"));
    if (by_button) {
      dialog.Click("button_cancel");
    } else {
      QTest::keyClick(address, Qt::Key_Escape);
    }
    QVERIFY(!dialog.form.isVisible());
    QCOMPARE(dialog.windows.Config(), kFull);
    QCOMPARE(dialog.Controls().proxy_addr, Text("proxy.example"));
  }

  void TheLinkInTheLoginDialogRunsItModal() {
    Windows windows;
    QTest::mouseClick(windows.Find("button_connect_main"), Qt::LeftButton);
    bool modal = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      QWidget* active = QApplication::activeModalWidget();
      if (active == nullptr) return;
      look.stop();
      modal = active->objectName() == "sett_conn";
      QTest::keyClick(active, Qt::Key_Escape);
    });
    look.start(5);
    auto* link = windows.Find("connect_param");
    QCOMPARE(link->cursor().shape(), Qt::PointingHandCursor);
    QTest::keyClick(link, Qt::Key_Return);
    QVERIFY(modal);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::SettConnTest)
#include "sett_conn_test.moc"
