#include <QCheckBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QObject>
#include <QTextDocumentFragment>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Slots 0 to `count` - 1 shown, each past its login dialog.
void ShowNamedTabs(Windows& windows, int count) {
  for (int slot = 0; slot < count; ++slot) {
    windows.tab(slot).LoginShown = true;
    windows.desktop.SetTabCaption(slot, "tab " + std::to_string(slot));
    windows.desktop.SetTabVisible(slot, true);
  }
  windows.desktop.SetActiveTab(0);
}

QWidget* Control(Windows& windows, const char* family, int slot) {
  return windows.Find(QString("%1_%2").arg(family).arg(slot).toLatin1().constData());
}

RichTextView& PaneOf(Windows& windows, int slot) {
  return *qobject_cast<RichTextView*>(Control(windows, "Rich", slot));
}

// The left button goes down on the pane's third character, and is still down when this returns.
void DragOver(RichTextView& pane) {
  const QPoint from = pane.CharacterRect(2).center();
  const QPoint to = pane.CharacterRect(9).center();
  QTest::mousePress(pane.viewport(), Qt::LeftButton, Qt::NoModifier, from);
  QMouseEvent move(QEvent::MouseMove, to, pane.viewport()->mapToGlobal(to), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(pane.viewport(), &move);
}

}  // namespace

class TabsWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void OnlyTheActiveSlotsControlsAreShown() {
    Windows windows;
    ShowNamedTabs(windows, 3);
    for (int active = 0; active < 3; ++active) {
      windows.desktop.SetActiveTab(active);
      for (int slot = 0; slot < kTabCount; ++slot)
        for (const char* family : {"Rich", "Rich_Users", "Rich_Server", "line_razdel",
                                   "frame_button_update", "button_update", "users_num", "msg",
                                   "intonacia", "button_clear", "button_say", "StopScroll", "pers"})
          QCOMPARE(Control(windows, family, slot)->isVisible(), slot == active);
    }
  }

  void APaneThatIsWrittenToStaysHiddenWithItsTab() {
    Windows windows;
    ShowNamedTabs(windows, 2);
    windows.tab(1).Rich.Visible(false);
    windows.tab(1).Rich.Visible(true);
    QVERIFY(!Control(windows, "Rich", 1)->isVisible());
    windows.desktop.SetActiveTab(1);
    QVERIFY(Control(windows, "Rich", 1)->isVisible());
  }

  void WhileTheMouseSelectsLinesLeaveTheSelectionsOfAllTabsAlone() {
    Windows windows;
    ShowNamedTabs(windows, 2);
    for (const int slot : {0, 1})
      windows.client.hooks.ParseChatLine("..[16:45:57]alice:() to be selected", slot);
    windows.desktop.SetActiveTab(1);
    RichTextView& other = PaneOf(windows, 1);
    DragOver(other);
    QTest::mouseRelease(other.viewport(), Qt::LeftButton);
    const PaneRange shown = other.Selected();
    QVERIFY(!shown.empty());
    windows.desktop.SetActiveTab(0);
    RichTextView& pane = PaneOf(windows, 0);
    DragOver(pane);
    const PaneRange dragged = pane.Selected();
    QVERIFY(!dragged.empty());
    for (const int slot : {0, 1})
      windows.client.hooks.ParseChatLine("..[16:45:58]bob:() one more line", slot);
    QCOMPARE(pane.Selected(), dragged);
    QCOMPARE(other.Selected(), shown);
    QTest::mouseRelease(pane.viewport(), Qt::LeftButton);
    QCOMPARE(pane.box().SelStart(), pane.Selected().start);
  }

  void AClickOnATabSwitchesToIt() {
    Windows windows;
    ShowNamedTabs(windows, 3);
    windows.tab(2).Connected = true;
    windows.tab(2).Channel = "home";
    windows.tab(2).IsOperator = true;
    windows.tab(2).SayUseOpState = true;
    auto* strip = windows.Find<SSTab>("SSTab");
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(2).center());
    QCOMPARE(windows.desktop.ActiveTab(), 2);
    QCOMPARE(windows.client.app.LastTab, 0);
    QCOMPARE(windows.window->windowTitle(), QString("home - Parlorwire"));
    auto* say_use_op = windows.Find<QCheckBox>("SayUseOp");
    QVERIFY(say_use_op->isEnabled() && say_use_op->isChecked());
    QVERIFY(windows.Find("logoff")->isEnabled());
    QVERIFY(windows.Find("logout")->isEnabled());

    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(1).center());
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    QCOMPARE(windows.client.app.LastTab, 2);
    QCOMPARE(windows.window->windowTitle(), QString("tab 1 - Parlorwire"));
    QVERIFY(!say_use_op->isEnabled() && !say_use_op->isChecked());
    QVERIFY(!windows.Find("logoff")->isEnabled());
  }

  void ArrowsSwitchTabs() {
    Windows windows;
    ShowNamedTabs(windows, 2);
    QTest::keyClick(windows.Find("SSTab"), Qt::Key_Right);
    QCOMPARE(windows.desktop.ActiveTab(), 1);
  }

  void ATabThatWasNeverLoggedInRaisesTheDialogEachTime() {
    Windows windows;
    ShowNamedTabs(windows, 2);
    windows.tab(1).LoginShown = false;
    auto* strip = windows.Find<SSTab>("SSTab");
    for (int i = 0; i < 2; ++i) {
      QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(1).center());
      QVERIFY(windows.Find("connection_form")->isVisible());
      windows.Find("connection_form")->hide();
      QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(0).center());
    }
  }

  void AddTabTakesTheFirstHiddenSlot() {
    Windows windows;
    ShowNamedTabs(windows, 1);
    windows.desktop.SetTabVisible(2, true);
    windows.desktop.SetMsgText(1, "old");
    windows.tab(1).Rich.Text("old");
    QTest::keyClick(windows.Find("AddTab"), Qt::Key_Return);
    QVERIFY(windows.desktop.TabVisible(1));
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    QCOMPARE(windows.desktop.TabCaption(1), "Неподключен"_w);
    QCOMPARE(windows.window->windowTitle(), ToQString("Неподключен - Parlorwire"_w));
    QCOMPARE(windows.desktop.MsgText(1), Text());
    QCOMPARE(windows.tab(1).Rich.Length(), PanePosition{0});
    QVERIFY(windows.Find("connection_form")->isVisible());
  }

  void AnEleventhTabIsRefused_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::newRow("Russian") << "Russian"
                             << QString::fromUtf8(
                                    "Вы достигли предела максимально возможных открытых табов!");
    QTest::newRow("English") << "English" << "Cant't add Tab";
  }
  void AnEleventhTabIsRefused() {
    QFETCH(QString, language);
    QFETCH(QString, message);
    Windows windows("[Main]\r\nLanguage=" + language.toStdString() + "\r\n");
    ShowNamedTabs(windows, 10);
    windows.desktop.SetActiveTab(4);
    const SeenBox box =
        EnterInBox([&] { QTest::mouseClick(windows.Find("AddTab"), Qt::LeftButton); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, message);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(windows.desktop.ActiveTab(), 4);
  }

  void TheUpdateButtonFetchesTheListOnTheLeftRelease() {
    Windows windows;
    ShowNamedTabs(windows, 1);
    windows.desktop.SetTabControlsEnabled(0, true);
    QWidget* button = Control(windows, "button_update", 0);
    SimulatedSocket& socket = Simulated(windows.tab(0).Winsock3);
    QTest::mouseClick(button, Qt::RightButton);
    QTest::mousePress(button, Qt::LeftButton);
    QCOMPARE(socket.connects, 0);
    QTest::mouseRelease(button, Qt::LeftButton);
    QCOMPARE(socket.connects, 1);
    QCOMPARE(windows.tab(0).Rich_Users.Text(), "\r\n\r\n Обновление фрейма..."_w);
  }

  void TheConnectButtonAddsATabWhileConnected() {
    Windows windows;
    ShowNamedTabs(windows, 1);
    windows.tab(0).Connected = true;
    QTest::mouseClick(windows.Find("button_connect_main"), Qt::LeftButton);
    QVERIFY(windows.desktop.TabVisible(1));
  }

  void HidingTheActiveTabKeepsItActive() {
    Windows windows;
    ShowNamedTabs(windows, 3);
    windows.desktop.SetTabVisible(0, false);
    QCOMPARE(windows.desktop.ActiveTab(), 0);
    windows.desktop.SetTabVisible(0, true);
    QCOMPARE(windows.Find<SSTab>("SSTab")->currentIndex(), 0);
  }

  void ACaptionIsShownToTheLetter() {
    Windows windows;
    ShowNamedTabs(windows, 1);
    windows.desktop.SetTabCaption(0, "R&B - €Bob"_w);
    QCOMPARE(windows.desktop.TabCaption(0), "R&B - €Bob"_w);
    QCOMPARE(windows.Find<SSTab>("SSTab")->tabText(0), QString::fromUtf8("R&&B - €Bob"));
  }

  void TheToolTipOfATabShowsMarkupToTheLetter() {
    Windows windows;
    ShowNamedTabs(windows, 1);
    windows.desktop.SetTabCaption(0, "<b>R</b>&amp; - Bob");
    QCOMPARE(
        QTextDocumentFragment::fromHtml(windows.Find<SSTab>("SSTab")->tabToolTip(0)).toPlainText(),
        QStringLiteral("<b>R</b>&amp; - Bob"));
    windows.desktop.SetTabCaption(0, "R & B - Bob");
    QCOMPARE(windows.Find<SSTab>("SSTab")->tabToolTip(0), QStringLiteral("R & B - Bob"));
  }

  void EnablingFollowsTheTable() {
    Windows windows("[Main]\r\nLetografUrl=http://stat.example/\r\n");
    ShowNamedTabs(windows, 2);
    for (const bool enabled : {true, false}) {
      windows.desktop.SetTabControlsEnabled(0, enabled);
      QCOMPARE(windows.Find<QLineEdit>("msg_0")->isReadOnly(), !enabled);
      for (const char* name :
           {"intonacia_0", "button_clear_0", "button_say_0", "button_update_0", "logoff", "logout",
            "close_tab", "hist_topic", "letogr", "sp_bans", "sp_opers"})
        QVERIFY2(windows.Find(name)->isEnabled() == enabled, name);
      QVERIFY(windows.Find<QLineEdit>("msg_1")->isReadOnly());
    }
  }

  void NothingOverlaps_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("language");
    for (const QSize size : {QSize(638, 400), QSize(800, 560), QSize(933, 533), QSize(1280, 740)})
      for (const char* language : {"Russian", "English"})
        QTest::newRow(qPrintable(QString("%1 %2").arg(language).arg(size.width())))
            << size << language;
  }
  void NothingOverlaps() {
    QFETCH(QSize, size);
    QFETCH(QString, language);
    Windows windows("[Main]\r\nLanguage=" + language.toStdString() + "\r\n");
    ShowNamedTabs(windows, 1);
    windows.window->resize(size);
    QTest::qWait(20);
    QList<QWidget*> controls;
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
                             "SSTab",
                             "Rich_0",
                             "Rich_Server_0",
                             "line_razdel_0",
                             "frame_button_update_0",
                             "Rich_Users_0",
                             "StopScroll_0",
                             "SayUseOp",
                             "pers_0",
                             "perecodirovka_label",
                             "intonacia_0",
                             "msg_0",
                             "button_say_0",
                             "button_clear_0"})
      controls += windows.Find(name);
    auto* ground = windows.Find("ground");
    const auto place = [&](QWidget* control) {
      return QRect(control->mapTo(ground, QPoint()), control->size());
    };
    for (qsizetype i = 0; i < controls.size(); ++i) {
      QVERIFY2(ground->rect().contains(place(controls[i])), qPrintable(controls[i]->objectName()));
      for (qsizetype k = 0; k < i; ++k)
        QVERIFY2(!place(controls[i]).intersects(place(controls[k])),
                 qPrintable(controls[i]->objectName() + " " + controls[k]->objectName()));
    }
    // No words are cut off.
    for (QWidget* control : controls)
      if (qobject_cast<QAbstractButton*>(control) != nullptr)
        QVERIFY2(control->width() >= control->minimumSizeHint().width() - 12,
                 qPrintable(control->objectName()));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::TabsWindowTest)
#include "tabs_window_test.moc"
