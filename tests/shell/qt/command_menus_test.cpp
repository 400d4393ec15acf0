// The menus that tell what can be done, and by which keys.
#include <QAction>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QObject>
#include <QTreeWidget>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/link_label.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct MenuWindow : Windows {
  explicit MenuWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {}

  void ShowTab() {
    tab(0).LoginShown = true;
    tab(0).Login = "alice";
    tab(0).Channel = "lobby";
    desktop.SetTabVisible(0, true);
    desktop.SetTabControlsEnabled(0, true);
  }
  QMenu* Menu(const char* name) { return Find<QMenu>(name); }
  // Opens the menu with the mouse, as a hand would.
  QMenu* Open(const char* name) {
    QMenuBar* bar = window->menuBar();
    QMenu* menu = Menu(name);
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      bar->actionGeometry(menu->menuAction()).center());
    return menu;
  }
  QAction* Item(const char* name) { return window->findChild<QAction*>(QLatin1String(name)); }
  void Choose(const char* menu, const char* item) {
    QMenu* in = Open(menu);
    QTRY_VERIFY(in->isVisible());
    const QPoint at = in->actionGeometry(Item(item)).center();
    QTest::mouseMove(in, at);
    QTest::mouseClick(in, Qt::LeftButton, Qt::NoModifier, at);
  }
  QStringList Items(const char* menu) {
    QStringList items;
    for (const QAction* item : Menu(menu)->actions())
      items << (item->isSeparator() ? QStringLiteral("-") : item->text().remove('&'));
    return items;
  }
  // The names of the items that can be used, with the menu open.
  QStringList Usable(const char* menu) {
    QStringList usable;
    for (const QAction* item : Open(menu)->actions())
      if (!item->isSeparator() && item->isEnabled()) usable << item->objectName();
    Menu(menu)->close();
    return usable;
  }
};

}  // namespace

class CommandMenusTest : public QObject {
  Q_OBJECT

 private slots:
  void StandInTheirOrder() {
    MenuWindow windows;
    QStringList titles;
    for (const QAction* menu : windows.window->menuBar()->actions())
      titles << menu->text().remove('&');
    QCOMPARE(titles, QStringList({Utf8("Файл"), Utf8("Правка"), Utf8("Канал"), Utf8("Таб"),
                                  Utf8("Настройки"), Utf8("Бот"), Utf8("Справка")}));
  }

  void EachItemHasItsKeyBesideIt() {
    MenuWindow windows("[Main]\r\nLanguage=English\r\n");
    QCOMPARE(windows.Items("menu_tab"),
             QStringList({"Add a tab\tCtrl+T", "Close the tab\tCtrl+W", "-", "Next\tCtrl+Tab",
                          "Previous\tCtrl+Shift+Tab"}));
    QCOMPARE(windows.Items("menu_channel"),
             QStringList({"Log in...", "Read anew\tF5", "Log in anew\tF6",
                          "Log in otherwise...\tF7", "Leave the channel", "Log off\tF8", "-",
                          "Operators", "Bans", "Changes of the topic", "Statistics"}));
    QCOMPARE(windows.Items("menu_edit"),
             QStringList({"Undo\tCtrl+Z", "-", "Copy\tCtrl+C", "Select all\tCtrl+A", "Recode", "-",
                          "Find...\tCtrl+F", "Find next\tF3", "Find previous\tShift+F3"}));
    QCOMPARE(windows.Items("menu_help"), QStringList({"Keys...", "About..."}));
  }

  void TheLanguageChangesThem() {
    MenuWindow windows;
    QCOMPARE(windows.Items("menu_tab").first(), Utf8("Добавить таб\tCtrl+T"));
    windows.Item("eng")->trigger();
    QCOMPARE(windows.Items("menu_tab").first(), QString("Add a tab\tCtrl+T"));
    QCOMPARE(windows.Menu("menu_help")->accessibleName(), QString("Help"));
  }

  void WhatCanNotBeUsedIsGrey() {
    MenuWindow windows;
    QCOMPARE(windows.Usable("menu_tab"), QStringList("tab_add"));
    QCOMPARE(windows.Usable("menu_channel"), QStringList("channel_enter"));
    windows.ShowTab();
    windows.tab(0).Connected = true;
    QCOMPARE(windows.Usable("menu_tab"),
             QStringList({"tab_add", "tab_close", "tab_next", "tab_previous"}));
    QCOMPARE(
        windows.Usable("menu_channel"),
        QStringList({"channel_enter", "channel_read_anew", "channel_log_in_anew", "channel_leave",
                     "channel_logoff", "channel_opers", "channel_bans", "channel_topics"}));
    windows.desktop.SetTabControlsEnabled(0, false);
    windows.tab(0).Connected = false;
    windows.tab(0).Connecting = true;
    QCOMPARE(windows.Usable("menu_channel"),
             QStringList({"channel_enter", "channel_log_in_otherwise"}));
    // That is how a connect is given up.
    QVERIFY(windows.Usable("menu_tab").contains("tab_close"));
  }

  void AnItemDoesWhatItsLabelDoes() {
    MenuWindow windows;
    windows.ShowTab();
    windows.Choose("menu_edit", "edit_search");
    QVERIFY(windows.Find("search_form")->isVisible());
  }

  void TheTabMenuAddsAndClosesTabs() {
    MenuWindow windows;
    windows.ShowTab();
    windows.tab(0).Connected = true;
    windows.Choose("menu_tab", "tab_add");
    QTRY_VERIFY(windows.desktop.TabVisible(1));
    windows.Find("connection_form")->hide();
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Choose("menu_tab", "tab_next");
    QCOMPARE(windows.desktop.ActiveTab(), 0);
  }

  void CopyAndSelectAllWorkOnWhatHadTheFocus() {
    MenuWindow windows;
    windows.ShowTab();
    auto* view = windows.Find<RichTextView>("Rich_0");
    windows.tab(0).Rich.ReplaceSel("some words\r\n");
    auto* msg = windows.Find<MsgBox>("msg_0");
    msg->setText("typed");
    msg->setFocus();
    QTest::qWait(30);
    windows.Choose("menu_edit", "edit_select_all");
    QCOMPARE(msg->selectedText(), QString("typed"));
    windows.Choose("menu_edit", "edit_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("typed"));
    view->setFocus();
    windows.Choose("menu_edit", "edit_select_all");
    windows.Choose("menu_edit", "edit_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("some words\n"));
  }

  void F10OpensTheMenu() {
    MenuWindow windows;
    windows.ShowTab();
    windows.Find("msg_0")->setFocus();
    QTest::keyClick(windows.window->windowHandle(), Qt::Key_F10);
    QTRY_VERIFY(windows.Menu("menu_file")->isVisible());
    QTest::keyClick(windows.Menu("menu_file"), Qt::Key_Right);
    QTRY_VERIFY(windows.Menu("menu_edit")->isVisible());
    windows.Menu("menu_edit")->close();
  }

  void HelpTellsTheKeys() {
    MenuWindow windows;
    bool seen = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
      QWidget* keys = QApplication::activeModalWidget();
      if (keys == nullptr) return;
      look.stop();
      const auto* list = keys->findChild<QTreeWidget*>("help_keys_list");
      seen = list != nullptr && list->findItems("F5", Qt::MatchExactly).size() == 1 &&
             list->findItems("F10", Qt::MatchExactly).size() == 1;
      QTest::keyClick(keys, Qt::Key_Escape);
    });
    look.start(10);
    windows.Choose("menu_help", "help_keys");
    QTRY_VERIFY(seen);
  }

  void AboutTellsVersionAndLicence() {
    MenuWindow windows("[Main]\r\nLanguage=English\r\n");
    const SeenBox box = EnterInBox([&] { windows.Choose("menu_help", "help_about"); });
    QVERIFY(box.text.startsWith("Parlorwire "));
    QVERIFY(box.text.contains("MIT"));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::CommandMenusTest)
#include "command_menus_test.moc"
