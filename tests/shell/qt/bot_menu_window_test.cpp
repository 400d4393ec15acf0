// The menu of the bot under real key and mouse events.
#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QObject>

#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct BotMenuWindow : Windows {
  explicit BotMenuWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    for (const int slot : {0, 2})
      desktop.SetTabVisible(slot, true);
    desktop.SetTabCaption(0, "lobby - alice");
    desktop.SetTabCaption(2, "R&D - bob");
    desktop.SetActiveTab(0);
  }
  QMenu* Menu(const char* name = "menu_bot") { return Find<QMenu>(name); }
  QAction* Item(const char* name) { return window->findChild<QAction*>(QLatin1String(name)); }
  void Open() {
    QMenuBar* bar = window->menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      bar->actionGeometry(Menu()->menuAction()).center());
    QVERIFY(Menu()->isVisible());
  }
  void Close() {
    while (QWidget* popup = QApplication::activePopupWidget())
      popup->close();
  }
  void Choose(const char* item, const char* menu = "menu_bot") {
    QMenu* in = Menu(menu);
    QTRY_VERIFY(in->isVisible());
    const QPoint at = in->actionGeometry(Item(item)).center();
    QTest::mouseMove(in, at);
    QTest::mouseClick(in, Qt::LeftButton, Qt::NoModifier, at);
  }
  // "x" ahead of what is ticked, "o" of what is not, "-" ahead of what can't be chosen.
  QStringList Shown(const char* menu = "menu_bot") {
    QStringList shown;
    for (const QAction* item : Menu(menu)->actions()) {
      if (!item->isVisible()) continue;
      const QString mark = !item->isCheckable() ? QString() : item->isChecked() ? "x " : "o ";
      shown << (item->isEnabled() ? "" : "-") + mark + item->text();
    }
    return shown;
  }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    QWidget* popup = QApplication::activePopupWidget();
    QWindow* to = (popup != nullptr ? popup : window.get())->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, text, false);
    QTest::simulateEvent(to, false, key, modifiers, text, false);
  }
};

}  // namespace

class BotMenuWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ItsItems() {
    BotMenuWindow windows;
    windows.Open();
    QCOMPARE(windows.Shown(), QStringList({Utf8("o &Автокик"), Utf8("Автокик-&лист"), "",
                                           Utf8("o &Говорить адреса и флаги"),
                                           Utf8("-x &Операторам в чат"), Utf8("-o Только &себе"),
                                           Utf8("На каналах"), "x lobby - alice", "x R&&D - bob"}));
    QCOMPARE(windows.Shown("akick"),
             QStringList({Utf8("Редактирование автокик-листа"), Utf8("Редактирование каналов")}));
    windows.Close();
  }

  void InEnglishItsRussianItemsAreExplained() {
    BotMenuWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.Open();
    QCOMPARE(windows.Shown(),
             QStringList({"o &Auto-kick", "Auto-kick &list", "", "o &Say addresses and flags",
                          "-x To the &operators in the chat", "-o To &me only", "On the channels",
                          "x lobby - alice", "x R&&D - bob"}));
    QCOMPARE(windows.Shown("akick"),
             QStringList({Utf8("Редактирование автокик-листа"), Utf8("Редактирование каналов")}));
    const auto said = [&](const char* item) {
      return QAccessible::queryAccessibleInterface(windows.Item(item))->text(QAccessible::Name);
    };
    QCOMPARE(windows.Item("akick_modify")->toolTip(), QString("Edit the auto-kick list"));
    QCOMPARE(said("akick_modify"), QString("Edit the auto-kick list"));
    QCOMPARE(windows.Item("channel_modif")->toolTip(), QString("Choose the channels"));
    QCOMPARE(said("channel_modif"), QString("Choose the channels"));
    QVERIFY(windows.Menu("akick")->toolTipsVisible());
    windows.Close();
    windows.Item("rus")->trigger();
    QCOMPARE(said("akick_modify"), Utf8("Редактирование автокик-листа"));
    QCOMPARE(windows.Item("akick_modify")->toolTip(), windows.Item("akick_modify")->text());
  }

  void WhereTheReportGoesHoldsForTheActiveTab() {
    BotMenuWindow windows;
    windows.Open();
    windows.Choose("say_in_client");  // can't be chosen yet
    QVERIFY(windows.tab(0).SayReportInChat);
    windows.Close();
    windows.Open();
    windows.Choose("say_ip_and_flags");
    QVERIFY(windows.client.app.SayIPAndFlags);
    windows.Open();
    windows.Choose("say_in_client");
    QVERIFY(!windows.tab(0).SayReportInChat);
    QVERIFY(windows.tab(2).SayReportInChat);
    windows.Open();
    QVERIFY(windows.Item("say_in_client")->isChecked());
    QVERIFY(!windows.Item("say_in_chat")->isChecked());
    windows.Close();
    windows.desktop.SetActiveTab(2);
    windows.Open();
    QVERIFY(!windows.Item("say_in_client")->isChecked());
    QVERIFY(windows.Item("say_in_chat")->isChecked());
    windows.Close();
    windows.desktop.SetActiveTab(0);
    windows.Open();
    windows.Choose("say_in_chat");
    QVERIFY(windows.tab(0).SayReportInChat);
  }

  void EachVisibleTabHasAnItem() {
    BotMenuWindow windows;
    windows.Open();
    windows.Choose("channel_3");
    QVERIFY(!windows.tab(2).SayReportOnTab);
    QVERIFY(windows.tab(0).SayReportOnTab);
    windows.desktop.SetTabVisible(0, false);
    windows.desktop.SetTabVisible(9, true);
    windows.desktop.SetTabCaption(9, "cellar - eve");
    windows.desktop.SetTabCaption(2, "attic - bob");
    windows.Open();
    QCOMPARE(windows.Shown().mid(6),
             QStringList({Utf8("На каналах"), "o attic - bob", "x cellar - eve"}));
    windows.Choose("channel_3");
    QVERIFY(windows.tab(2).SayReportOnTab);
    windows.Open();
    windows.Choose("channel_10");
    QVERIFY(!windows.tab(9).SayReportOnTab);
  }

  void WithoutATabNothingIsSaidOfChannels() {
    BotMenuWindow windows;
    for (const int slot : {0, 2})
      windows.desktop.SetTabVisible(slot, false);
    windows.Open();
    QCOMPARE(windows.Shown().last(), Utf8("-o Только &себе"));
    windows.Close();
  }

  void ByKeyboard() {
    BotMenuWindow windows;
    windows.Press(0x0411, Qt::AltModifier, Utf8("б"));
    QTRY_VERIFY(windows.Menu()->isVisible());
    windows.Press(Qt::Key_Down);  // behind akick_enabled
    if (windows.Menu()->activeAction() != windows.Menu("akick")->menuAction())
      windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Right);
    QTRY_VERIFY(windows.Menu("akick")->isVisible());
    windows.Press(Qt::Key_Return);
    QTRY_VERIFY(windows.Find("bot_autokick")->isVisible());
  }

  void TheEditorOpensByMouse() {
    BotMenuWindow windows;
    windows.Open();
    windows.Choose("akick_action");
    windows.Choose("akick_modify", "akick");
    QTRY_VERIFY(windows.Find("bot_autokick")->isVisible());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::BotMenuWindowTest)
#include "bot_menu_window_test.moc"
