// Small words of help: what will not arrive, what Russian captions mean, and what fits where.
#include <QLabel>
#include <QObject>
#include <QToolTip>

#include "shell/qt/link_label.h"
#include "shell/qt/main_controls.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/tone_box.h"
#include "shell/qt/windows_fixture.h"
#include "shell/qt/wire_hint.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct HintWindow : Windows {
  explicit HintWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    desktop.SetTabVisible(0, true);
    desktop.SetTabControlsEnabled(0, true);
    msg = Find<MsgBox>("msg_0");
    msg->setFocus();
    QTest::qWait(30);
  }
  ~HintWindow() {
    QToolTip::hideText();
    QTest::qWait(400);
  }

  MsgBox* msg = nullptr;
};

}  // namespace

class HintsTest : public QObject {
  Q_OBJECT

 private slots:
  void WhatTheWireLacks() {
    QCOMPARE(LostOnTheWire(Utf8("привет, what? \u2014 \u00ab\u00bb")), QString());
    QCOMPARE(LostOnTheWire(Utf8("日x日本 \U0001F600")), Utf8("日本\U0001F600"));
  }

  void ACharacterThatWillNotArriveIsTold() {
    HintWindow windows;
    Type(windows.msg, "fine");
    QVERIFY(!QToolTip::isVisible());
    Type(windows.msg, Utf8("日"));
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), Utf8("В чат придут как «?»: 日"));
    QVERIFY(windows.msg->hasFocus());
    QCOMPARE(windows.msg->text(), Utf8("fine日"));
  }

  void EachIsToldOnce() {
    HintWindow windows("[Main]\r\nLanguage=English\r\n");
    Type(windows.msg, Utf8("日"));
    QCOMPARE(QToolTip::text(), Utf8("Will arrive as \"?\": 日"));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    Type(windows.msg, "a");
    QVERIFY(!QToolTip::isVisible());
    Type(windows.msg, Utf8("本"));
    QCOMPARE(QToolTip::text(), Utf8("Will arrive as \"?\": 日本"));
  }

  // ---- words for who reads no Russian ----

  void InEnglishRussianCaptionsSayWhatTheyMean() {
    HintWindow windows;
    for (const char* name : {"logout", "logoff", "sp_opers", "sp_bans", "hist_topic", "letogr",
                             "search_label", "perecodirovka_label"}) {
      auto* link = windows.Find<LinkLabel>(name);
      QCOMPARE(link->toolTip(), QString());
      QCOMPARE(link->accessibleName(), link->text());
    }
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(windows.Find("logout")->toolTip(), QString("Leave the channel"));
    QCOMPARE(windows.Find("logoff")->accessibleName(), QString("Log off from the chat"));
    auto* tones = windows.Find<ToneBox>("intonacia_0");
    QCOMPARE(tones->itemData(2, Qt::ToolTipRole).toString(), QString("Laughing"));
    QCOMPARE(tones->itemData(5, Qt::AccessibleTextRole).toString(), QString("Singing"));
    windows.window->findChild<QAction*>("rus")->trigger();
    QCOMPARE(windows.Find("logout")->toolTip(), QString());
    QVERIFY(!tones->itemData(2, Qt::ToolTipRole).isValid());
  }

  void HowAConnectIsGivenUpIsSaid() {
    HintWindow windows;
    windows.desktop.SetTabControlsEnabled(0, false);
    QVERIFY(!windows.Find("close_tab")->isEnabled());
    QCOMPARE(windows.Find("close_tab")->toolTip(),
             Utf8("Закрыть таб, и пока он соединяется: Ctrl+W"));
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(windows.Find("close_tab")->accessibleName(), QString("Close the tab"));
    QVERIFY(windows.Find("close_tab")->toolTip().contains("Ctrl+W"));
  }

  void TheTwoNumbersAboveTheListAreExplained() {
    HintWindow windows;
    QCOMPARE(windows.Find("users_num_0")->toolTip(),
             Utf8("Операторов на канале / всего пользователей"));
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(windows.Find("users_num_0")->toolTip(),
             QString("Operators on the channel / users in all"));
  }

  void TheEnglishNotesOfTheLoginAreExplained() {
    HintWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.client.hooks.ShowLoginDialog(0);
    auto* note = windows.Find<QLabel>("l_primechanie");
    QCOMPARE(note->text(), QString("* ???"));
    QCOMPARE(note->toolTip(), QString("* If it is left empty, the list of channels is loaded"));
    QCOMPARE(note->accessibleName(), note->toolTip());
    QCOMPARE(windows.Find("l_primechanie1")->toolTip(), QString("** May be left empty"));
  }

  // ---- what fits ----

  void NothingOnTheStatusRowIsClippedAt800Pixels() {
    for (const char* language : {"Russian", "English"}) {
      HintWindow windows(Text("[Main]\r\nLanguage=") + language + "\r\n");
      windows.window->resize(800, 500);
      QTest::qWait(30);
      for (const char* name : {"panel_1", "panel_2", "panel_3"}) {
        auto* panel = windows.Find<QLabel>(name);
        const int room = panel->contentsRect().width() - 2 * panel->margin();
        QVERIFY2(panel->fontMetrics().horizontalAdvance(panel->text()) <= room, name);
      }
      QCOMPARE(windows.Find("panel_3")->toolTip(), QString());
      windows.window->resize(560, 500);
      QTest::qWait(30);
      QCOMPARE(windows.Find("panel_3")->toolTip(), windows.Find<QLabel>("panel_3")->text());
    }
  }

  void ADragOfTheSplitterShowsNoWhitePage() {
    HintWindow windows;
    QWidget* splitter = windows.Find("line_razdel_0");
    QWidget* users = windows.Find("Rich_Users_0")->parentWidget();
    const QPoint middle = users->geometry().center();
    const QPoint grip = splitter->rect().center();
    QTest::mousePress(splitter, Qt::LeftButton, Qt::NoModifier, grip);
    QTest::qWait(30);
    QWidget* ground = windows.Find("ground");
    QCOMPARE(OnScreen(ground).pixelColor(middle), QColor(Qt::black));
    QTest::mouseRelease(splitter, Qt::LeftButton, Qt::NoModifier, grip);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::HintsTest)
#include "hints_test.moc"
