#include <QAction>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <csignal>
#include <functional>
#include <map>

#include "session/connect.h"
#include "shell/qt/leave_on_signal.h"
#include "shell/qt/link_label.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/windows_fixture.h"
#include "shell/qt/zastavka.h"
#include "shell/tray.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Accepts or rejects the dialog of that type that comes up while `action` runs.
template <class Dialog, class Action>
void WithDialog(const std::function<void(Dialog&)>& answer, Action action) {
  bool seen = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    look.stop();
    seen = true;
    answer(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
  look.start(5);
  action();
  QVERIFY(seen);
}

}  // namespace

class ClientMainTest : public QObject {
  Q_OBJECT

 private slots:
  void StartsWithNothingConnectedAndNoTab() {
    Windows windows;
    QCOMPARE(windows.window->windowTitle(), Utf8("Неподключен - Parlorwire"));
    QVERIFY(!windows.Find("SSTab")->isVisible());
    for (int slot = 0; slot < kTabCount; ++slot)
      QVERIFY(!windows.desktop.TabVisible(slot));
    QVERIFY(!windows.Find("msg_0")->isVisible());
    QVERIFY(windows.Find("button_connect_main")->isVisible());
    QCOMPARE(windows.outside.files.files.count("config.ini"), std::size_t{1});
    QCOMPARE(windows.outside.files.files.count("error.log"), std::size_t{0});
  }

  void TakesTheDefaultSizeInTwips() {
    Windows windows;
    QCOMPARE(windows.window->size(), QSize(14000 / 15, 8000 / 15));
  }

  void TakesItsPlaceFromTheFile() {
    Windows windows("[Main]\r\nHeight=6000\r\nWidth=9000\r\nTop=300\r\nLeft=450\r\n");
    QCOMPARE(windows.window->size(), QSize(600, 400));
    QCOMPARE(windows.window->pos(), QPoint(30, 20));
  }

  void TheTabsHaveTheirColour() {
    Windows windows;
    for (int tab = 0; tab < kTabCount; ++tab)
      QCOMPARE(windows.window->controls.SSTab->tabTextColor(tab), QColor(0, 60, 116));
  }

  void TheGroundAboveTheUserListIsThatOfThePanes() {
    Windows windows("[Fonts]\r\nrFontStatus.BackColor=8388608\r\n");
    for (const TabControls& tab : windows.window->controls.tabs)
      QCOMPARE(tab.frame_button_update->palette().color(QPalette::Window), QColor(0, 0, 128));
  }

  void TheBannerSaysTheVersion() {
    Windows windows;
    QCOMPARE(
        windows.Find<QLabel>("panel_3")->text(),
        ToQString("Parlorwire SE build 25.7; Все пожелания и замеченные недостатки сообщайте на "
                  "канале или в перс"_w));
  }

  void NumbersAreReadOutByScreenReaders() {
    Windows windows;
    windows.desktop.SetUsersNumCaption(0, "Пользователей: 1/5"_w);
    QCOMPARE(windows.Find<QLabel>("users_num_0")->accessibleName(),
             ToQString("Пользователей: 1/5"_w));
    QCOMPARE(windows.Find<QLabel>("panel_2")->accessibleName(), ToQString("Табы: 0/10"_w));
  }

  void TakesAnyNumberForItsPlace_data() {
    QTest::addColumn<QString>("value");
    for (const char* value : {"0", "-5000", "1e30", "1e308", "99999999999", "nan", "x", ""})
      QTest::newRow(value) << value;
  }
  void TakesAnyNumberForItsPlace() {
    QFETCH(QString, value);
    const Text text = value.toStdString();
    Windows windows("[Main]\r\nHeight=" + text + "\r\nWidth=" + text + "\r\nTop=" + text +
                    "\r\nLeft=" + text + "\r\n");
    QVERIFY(windows.window->isVisible());
    QVERIFY(windows.window->width() <= 8000 && windows.window->height() <= 8000);
  }

  void TheSplashGoesWithTheFirstActivation() {
    SimulatedPlatform outside;
    QtDesktop desktop;
    Client client(outside.Ports(desktop));
    client_main window(client, desktop);
    window.Load();
    QPointer<QWidget> splash;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (qobject_cast<zastavka*>(top) != nullptr) splash = top;
    QVERIFY(splash != nullptr && splash->isVisible());
    QVERIFY(qAbs(splash->geometry().center().x() -
                 QGuiApplication::primaryScreen()->geometry().center().x()) <= 1);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(splash == nullptr || !splash->isVisible());
    QTRY_VERIFY(splash == nullptr);
  }

  void TheTrayIconComesWithTheFirstActivation() {
    SimulatedPlatform outside;
    QtDesktop desktop;
    Client client(outside.Ports(desktop));
    Assemble(client);
    client_main window(client, desktop);
    window.Load();
    QVERIFY(!outside.tray.added);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(outside.tray.added);
    QCOMPARE(outside.tray.tip, "Неподключен - Parlorwire"_w);
  }

  void TheActivationEndsABlinkAtOnce() {
    Windows windows;
    QWidget other;
    other.show();
    other.activateWindow();
    WaitUntilActive(&other);
    windows.client.hooks.SetTrayBlink(2);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    QVERIFY(!windows.client.app.Timer20->Enabled());
    QVERIFY(!windows.client.app.Timer25->Enabled());
  }

  void AMinimizedWindowGoesToTheTrayAndComesBackAsItWas_data() {
    QTest::addColumn<bool>("maximized");
    QTest::newRow("normal") << false;
    QTest::newRow("maximized") << true;
  }
  void AMinimizedWindowGoesToTheTrayAndComesBackAsItWas() {
    QFETCH(bool, maximized);
    Windows windows;
    Enter(windows);
    client_main& window = *windows.window;
    if (maximized) window.showMaximized();
    QTRY_COMPARE(window.isMaximized(), maximized);
    windows.Find("SSTab")->setFocus();
    window.showMinimized();
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(windows.client.app.SavedWindowState,
             maximized ? WindowState::kMaximized : WindowState::kNormal);
    Form_tray_LeftButtonUp(windows.client, false);
    QVERIFY(window.isVisible() && !window.isMinimized());
    QCOMPARE(window.isMaximized(), maximized);
    QTRY_COMPARE(window.focusWidget(), windows.Find("msg_0"));
  }

  void WithoutATrayAMinimizedWindowStaysSo() {
    Windows windows;
    windows.outside.tray.available = false;
    windows.window->showMinimized();
    QTRY_VERIFY(windows.window->isMinimized());
    QTest::qWait(20);
    QVERIFY(windows.window->isVisible());
  }

  void PutInTrayIsAnItemAndAKey() {
    Windows windows;
    QAction* item = windows.window->findChild<QAction*>("put_in_tray");
    QVERIFY(windows.window->findChild<QMenu*>("menu_file")->actions().contains(item));
    QCOMPARE(item->text(), Utf8("&Убрать в трей\tCtrl+H"));
    QTest::keyClick(windows.window.get(), Qt::Key_H, Qt::ControlModifier);
    QTRY_VERIFY(!windows.window->isVisible());
    ShowClient(windows.client);
    QVERIFY(windows.window->isVisible());
    item->trigger();
    QTRY_VERIFY(!windows.window->isVisible());
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(item->text(), QString("&Put in tray\tCtrl+H"));
  }

  void AHiddenWindowLeavesWhenItIsTold() {
    Windows windows;
    windows.window->showMinimized();
    QTRY_VERIFY(!windows.window->isVisible());
    QTimer::singleShot(0, windows.window.get(), &client_main::Leave);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(windows.Config().find("WMFrame0=") != Text::npos);
    QVERIFY(!windows.outside.tray.added);
  }

  void NothingBringsTheWindowBackOnceTheProgramEnds() {
    Windows windows;
    windows.window->Unload();
    ShowClient(windows.client);
    QVERIFY(!windows.window->isVisible());
  }

  void EveryControlHasANameAndSaysIt() {
    Windows windows;
    windows.desktop.SetTabVisible(0, true);
    windows.desktop.SetActiveTab(0);
    for (const char* name : {"button_connect_main",
                             "AddTab",
                             "logout",
                             "logoff",
                             "close_tab",
                             "sp_opers",
                             "sp_bans",
                             "hist_topic",
                             "letogr",
                             "search_label",
                             "perecodirovka_label",
                             "SSTab",
                             "SayUseOp",
                             "Rich_0",
                             "Rich_Users_0",
                             "Rich_Server_0",
                             "line_razdel_0",
                             "frame_button_update_0",
                             "button_update_0",
                             "users_num_0",
                             "StopScroll_0",
                             "pers_0",
                             "intonacia_0",
                             "msg_0",
                             "button_say_0",
                             "button_clear_0",
                             "msg_9",
                             "Rich_9"}) {
      auto* control = windows.Find(name);
      QVERIFY2(!control->accessibleName().isEmpty(), name);
      QCOMPARE(control->accessibleDescription(), QString(name));
    }
    for (int number = 1; number <= 16; ++number)
      windows.Find(QString("Label1_%1").arg(number).toLatin1().constData());
  }

  void EverythingIsReachedByTab() {
    Windows windows;
    Enter(windows);
    QSet<QString> reached;
    QWidget* start = QApplication::focusWidget();
    QWidget* at = start;
    for (int i = 0; i < 200; ++i) {
      reached += at->objectName();
      QTest::keyClick(at, Qt::Key_Tab);
      at = QApplication::focusWidget();
      if (at == start) break;
    }
    for (const char* name :
         {"button_connect_main", "AddTab", "logout", "logoff", "SSTab", "Rich_0", "line_razdel_0",
          "button_update_0", "Rich_Users_0", "Rich_Server_0", "StopScroll_0", "intonacia_0",
          "msg_0", "button_say_0", "button_clear_0"})
      QVERIFY2(reached.contains(name), name);
    QVERIFY(!reached.contains("msg_1"));
  }

  void FixedCaptionsAreRussianInBothLanguages_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* control, const char* caption) {
      QTest::newRow(control) << QString(control) << Utf8(caption);
    };
    row("logoff", "Выход из чата");
    row("logout", "Выход с канала");
    row("close_tab", "Закрыть таб");
    row("sp_bans", "Баны");
    row("sp_opers", "Операторы");
    row("letogr", "Летограф");
    row("hist_topic", "История смены тем");
    row("search_label", "Поиск");
    row("perecodirovka_label", "Перекодировка");
  }
  void FixedCaptionsAreRussianInBothLanguages() {
    QFETCH(QString, control);
    QFETCH(QString, caption);
    Windows windows;
    auto* link = windows.Find<QAbstractButton>(control.toLatin1().constData());
    QCOMPARE(link->text(), caption);
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(link->text(), caption);
  }

  void TheLanguageChangesAtOnceAndIsWritten() {
    Windows windows;
    QAction* rus = windows.window->findChild<QAction*>("rus");
    QAction* eng = windows.window->findChild<QAction*>("eng");
    QVERIFY(rus->isChecked() && !eng->isChecked());
    for (int slot = 0; slot < kTabCount; ++slot) {
      QCOMPARE(Caption(windows, "StopScroll", slot), Utf8("Остановить прокрутку"));
      QCOMPARE(Caption(windows, "pers", slot), Utf8("Перс"));
    }
    QCOMPARE(windows.window->findChild<QMenu*>("menu_file")->title(), Utf8("&Файл"));

    eng->trigger();
    QVERIFY(eng->isChecked() && !rus->isChecked());
    QVERIFY(windows.Config().find("Language=English\r\n") != Text::npos);
    for (int slot = 0; slot < kTabCount; ++slot) {
      QCOMPARE(Caption(windows, "StopScroll", slot), QString("Stop scrolling"));
      QCOMPARE(Caption(windows, "pers", slot), QString("Personal messages"));
    }
    QCOMPARE(windows.window->findChild<QMenu*>("menu_file")->title(), QString("&File"));

    rus->trigger();
    QVERIFY(rus->isChecked() && !eng->isChecked());
    QVERIFY(windows.Config().find("Language=Russian\r\n") != Text::npos);
    QCOMPARE(Caption(windows, "StopScroll", 9), Utf8("Остановить прокрутку"));
  }

  void TheToolkitsButtonsSpeakTheLanguage() {
    Windows windows;
    const auto yes = [&] {
      QString text;
      QTimer look;
      QObject::connect(&look, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        look.stop();
        text = box->button(QMessageBox::Yes)->text().remove('&');
        QTest::keyClick(box, Qt::Key_Escape);
      });
      look.start(5);
      windows.desktop.AskYesNo("?", BoxIcon::kQuestion, BoxAnswer::kNo);
      return text;
    };
    QCOMPARE(yes(), Utf8("Да"));
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(yes(), QString("Yes"));
  }

  void ReadsTheCheckMarks() {
    Windows windows(
        "[Main]\r\nLanguage=English\r\n[Bot]\r\nAutoKick=True\r\nSayIPAndFlags=False\r\n"
        "[Fonts]\r\nrFontMain.Bold=False\r\n");
    const auto checked = [&](const char* name) {
      return windows.window->findChild<QAction*>(name)->isChecked();
    };
    QVERIFY(checked("eng"));
    QVERIFY(checked("akick_enabled"));
    QVERIFY(!checked("say_ip_and_flags"));
    QVERIFY(!checked("bold_nicks"));
    QVERIFY(checked("bold_time"));
  }

  void CheckItemsToggle_data() {
    QTest::addColumn<QString>("item");
    for (const char* item : {"akick_enabled", "say_ip_and_flags", "bold_nicks", "bold_time"})
      QTest::newRow(item) << item;
  }
  void CheckItemsToggle() {
    QFETCH(QString, item);
    Windows windows;
    auto* action = windows.window->findChild<QAction*>(item);
    const AppState& app = windows.client.app;
    const auto state = [&] {
      if (item == "akick_enabled") return app.AutoKick;
      if (item == "say_ip_and_flags") return app.SayIPAndFlags;
      return item == "bold_nicks" ? app.rFontMain.Bold : app.rFontMain.TimeBold;
    };
    const bool before = state();
    action->trigger();
    QCOMPARE(state(), !before);
    QCOMPARE(action->isChecked(), !before);
    action->trigger();
    QCOMPARE(state(), before);
    QCOMPARE(action->isChecked(), before);
  }

  void ColourCommandsEditTheirField_data() {
    QTest::addColumn<QString>("item");
    for (const char* item : {"color_my_nick", "color_system", "color_client", "color_myself",
                             "color_nicks", "color_choose_nicks", "color_symbols", "color_time"})
      QTest::newRow(item) << item;
  }
  void ColourCommandsEditTheirField() {
    QFETCH(QString, item);
    Windows windows;
    AppState& app = windows.client.app;
    const std::map<QString, PaneColour*> fields = {
        {"color_my_nick", &app.rFontMain.ColorMyNick},
        {"color_system", &app.rFontSystem.TextColor},
        {"color_client", &app.rFontStatus.TextColor},
        {"color_myself", &app.rRichColors.TextColor},
        {"color_nicks", &app.rRichColors.Nicks},
        {"color_choose_nicks", &app.rRichColors.NicksChoose},
        {"color_symbols", &app.rRichColors.Symbols},
        {"color_time", &app.rRichColors.Times}};
    PaneColour& field = *fields.at(item);
    const PaneColour before = field;
    auto* action = windows.window->findChild<QAction*>(item);
    WithDialog<QColorDialog>(
        [&](QColorDialog& dialog) {
          dialog.setCurrentColor(QColor(1, 2, 3));
          dialog.reject();
        },
        [&] { action->trigger(); });
    QCOMPARE(field, before);
    WithDialog<QColorDialog>(
        [&](QColorDialog& dialog) {
          const auto part = [before](unsigned shift) { return int(before >> shift & 0xFF); };
          QCOMPARE(dialog.currentColor(), QColor(part(0), part(8), part(16)));
          dialog.setCurrentColor(QColor(1, 2, 3));
          dialog.accept();
        },
        [&] { action->trigger(); });
    QCOMPARE(field, PaneColour{0x030201});
  }

  void FontCommandsEditTheirRecord() {
    Windows windows;
    AppState& app = windows.client.app;
    // Opens the dialog, which shows `bold` and `italic`, and chooses bold DejaVu Sans.
    const auto choose = [&](const char* item, bool bold, bool italic) {
      WithDialog<QFontDialog>(
          [&](QFontDialog& dialog) {
            QCOMPARE(dialog.currentFont().bold(), bold);
            QCOMPARE(dialog.currentFont().italic(), italic);
            QFont font("DejaVu Sans", 17);
            font.setStyleName("Bold");
            dialog.setCurrentFont(font);
            dialog.accept();
          },
          [&] { windows.window->findChild<QAction*>(item)->trigger(); });
    };
    app.rFontMain.Bold = false;
    app.rFontSystem.Name = "DejaVu Sans";
    app.rFontSystem.Bold = true;
    app.rFontSystem.Italic = false;
    choose("font_main", false, false);
    QCOMPARE(app.rFontMain.Name, Text("DejaVu Sans"));
    QCOMPARE(app.rFontMain.Size, 17);
    QVERIFY(!app.rFontMain.Bold);
    choose("font_system", true, false);
    QCOMPARE(app.rFontSystem.Size, 17);
    QVERIFY(app.rFontSystem.Bold);
    QVERIFY(!app.rFontSystem.Italic);
    choose("font_client", false, false);
    QCOMPARE(app.rFontStatus.Name, Text("DejaVu Sans"));
    QCOMPARE(app.rFontStatus.Size, 17);
    QVERIFY(app.rFontStatus.Bold);
    QVERIFY(!app.rFontStatus.Italic);
  }

  void CancellingAFontChangesNothing() {
    Windows windows;
    AppState& app = windows.client.app;
    app.rFontStatus.Name = "DejaVu Sans";
    WithDialog<QFontDialog>(
        [&](QFontDialog& dialog) {
          dialog.setCurrentFont(QFont("DejaVu Sans", 33));
          dialog.reject();
        },
        [&] { windows.window->findChild<QAction*>("font_client")->trigger(); });
    QCOMPARE(app.rFontStatus.Name, Text("DejaVu Sans"));
    QCOMPARE(app.rFontStatus.Size, 10);
  }

  void ClosingSavesAndEndsTheProcess() {
    Windows windows("[Main]\r\nLogins=1\r\nLogin0=Bob\r\n");
    windows.client.app.LoginCount = 1;
    windows.window->resize(700, 450);
    windows.tab(3).TabSplitPercent = "42";
    windows.window->findChild<QAction*>("akick_enabled")->trigger();
    windows.Winsock1(2).Connect("h", "1");
    QTest::qWait(10);
    QTimer::singleShot(0, windows.window.get(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    const Text config = windows.Config();
    for (const char* line :
         {"Height=6750\r\n", "Width=10500\r\n", "WMFrame3=42\r\n", "AutoKick=True\r\n",
          "SayIPAndFlags=False\r\n", "lastIndex=0\r\n", "Logins=1\r\n", "rFontMain.Size=12\r\n"})
      QVERIFY2(config.find(line) != Text::npos, line);
    QCOMPARE(windows.Winsock1(2).State(), SocketState::kClosed);
    QVERIFY(windows.outside.files.files.count("CM.ini") == 1);
    QVERIFY(!windows.window->isVisible());
  }

  void ClosingTwiceSavesOnce() {
    Windows windows;
    windows.window->Unload();
    const int writes = windows.outside.files.writes;
    windows.window->Unload();
    QCOMPARE(windows.outside.files.writes, writes);
  }

  void ClosingWhileMinimizedKeepsThePlace() {
    const Text place = "Height=6000\r\nWidth=9000\r\nTop=300\r\nLeft=450\r\n";
    Windows windows("[Main]\r\n" + place);
    windows.window->showMinimized();
    QTRY_VERIFY(windows.window->isMinimized());
    windows.window->Unload();
    QVERIFY(windows.Config().find(place) != Text::npos);
  }

  void TheExitItemCloses() {
    Windows windows;
    QTimer::singleShot(0, windows.window->findChild<QAction*>("exit"), &QAction::trigger);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(windows.Config().find("Height=") != Text::npos);
  }

  void YesToTheQuestionEndsTheProgramByTimer4() {
    Windows windows;
    QTest::mouseClick(windows.Find("button_connect_main"), Qt::LeftButton);
    AnswerBox(QMessageBox::Yes, [&] { windows.Find("connection_form")->close(); });
    QVERIFY(windows.window->isVisible());
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(windows.Config().find("Height=") != Text::npos);
  }

  void ClosingUnderAnOpenBoxEndsTheProgram() {
    Windows windows;
    bool answer = true;
    QTimer::singleShot(
        0, [&] { answer = windows.desktop.AskYesNo("?", BoxIcon::kQuestion, BoxAnswer::kNo); });
    QTimer::singleShot(50, windows.window.get(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!answer);
    QVERIFY(windows.Config().find("Height=") != Text::npos);
  }

  void ASignalToGoSavesAndEndsTheProgram_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGINT") << SIGINT;
  }
  void ASignalToGoSavesAndEndsTheProgram() {
    QFETCH(int, number);
    Windows windows;
    LeaveOnSignal leave([&] { windows.window->close(); });
    QTimer::singleShot(0, [number] { std::raise(number); });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(windows.Config().find("Height=") != Text::npos);
  }

  void YieldingHandlesWhatWaitsAndReturnsAtOnceWithoutAny() {
    Windows windows;
    bool handled = false;
    QMetaObject::invokeMethod(windows.window.get(), [&] { handled = true; }, Qt::QueuedConnection);
    windows.desktop.YieldToEvents();
    QVERIFY(handled);
    windows.desktop.YieldToEvents();
  }

  void LabelsWithoutAnActionCannotBeUsed() {
    Windows windows;
    Enter(windows);
    QVERIFY(!windows.Find("letogr")->isEnabled());
  }

  void TheBusyButtonFollowsConnecting() {
    Windows windows;
    auto* button = windows.Find("button_connect_main");
    windows.window->repaint();
    const QImage idle = OnScreen(button);
    windows.tab(0).Connecting = true;
    windows.desktop.SetTabCaption(0, "x");
    QTRY_VERIFY(OnScreen(button) != idle);
    windows.tab(0).Connecting = false;
    windows.desktop.SetTabCaption(0, "y");
    QTRY_COMPARE(OnScreen(button), idle);
  }

 private:
  // Slot 0 connected, with its tab shown.
  static void Enter(Windows& windows) {
    windows.tab(0).LoginShown = true;
    windows.tab(0).Connected = true;
    windows.desktop.SetTabVisible(0, true);
    windows.desktop.SetActiveTab(0);
    windows.desktop.SetTabControlsEnabled(0, true);
    windows.desktop.FocusMsg(0);
  }
  static QString Caption(Windows& windows, const char* family, int slot) {
    return windows
        .Find<QAbstractButton>(QString("%1_%2").arg(family).arg(slot).toLatin1().constData())
        ->text();
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ClientMainTest)
#include "client_main_test.moc"
