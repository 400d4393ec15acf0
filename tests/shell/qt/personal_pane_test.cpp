// The pane of a personal window under real key and mouse events.
#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QObject>
#include <QUrl>

#include "shell/qt/personal_windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// A window with a message that holds a link and an address.
struct PersonalPaneWindow : PersonalDesktop {
  explicit PersonalPaneWindow(const Text& config = "") : PersonalDesktop(config) {
    Open();
    Receive("bob", "see www.a.ru or 10.0.*.* now");
  }
  Qt::CursorShape Cursor() { return Rich()->viewport()->cursor().shape(); }
  void SelectText(const Text& text) {
    Rich()->Select(At(text), At(text) + static_cast<PanePosition>(text.size()));
  }
};

}  // namespace

class PersonalPaneTest : public QObject {
  Q_OBJECT

 public slots:
  void Open(const QUrl& url) { opened_ << url.toString(); }

 private slots:
  void initTestCase() { QDesktopServices::setUrlHandler("http", this, "Open"); }
  void cleanupTestCase() { QDesktopServices::unsetUrlHandler("http"); }
  void init() { opened_.clear(); }

  void AClickOnALinkOpensIt() {
    PersonalPaneWindow windows;
    windows.Move("see");
    QCOMPARE(windows.Cursor(), Qt::ArrowCursor);
    windows.Move("www.a.ru");
    QCOMPARE(windows.Cursor(), Qt::PointingHandCursor);
    windows.Click("www.a.ru");
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
    QTest::mouseMove(windows.msg(), windows.msg()->rect().center());
    QTRY_COMPARE(windows.Cursor(), Qt::ArrowCursor);
  }

  void AClickOnAnAddressOpensThePageAboutIt() {
    PersonalPaneWindow windows("[Main]\r\nChatHostByName=chat.test\r\nChatPort=81\r\n");
    windows.Click("10.0.*.*");
    QCOMPARE(opened_, QStringList("http://chat.test:81/serv/wwwwhois/nph-wwwtr.cgi?server="
                                  "10.0.*.*&resolve=ripe&submit=++OK++"));
  }

  void AClickOnAnythingElseDoesNothing() {
    PersonalPaneWindow windows;
    for (const Text& text : {Text("bob:"), Text("34:56"), Text("see")})
      windows.Click(text);
    windows.Click("see", Qt::RightButton);
    QVERIFY(PersonalDesktop::Menu() == nullptr);
    QVERIFY(opened_.isEmpty());
    QCOMPARE(windows.msg()->text(), QString());
    QCOMPARE(windows.desktop.MsgText(0), Text());
  }

  void ADragFromALinkSelects() {
    PersonalPaneWindow windows;
    QWidget* port = windows.Rich()->viewport();
    windows.Move("www.a.ru");
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("www.a.ru"));
    QTest::mouseMove(port, windows.PointAt("now"));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("now"));
    QVERIFY(!windows.Rich()->Selected().empty());
    QVERIFY(opened_.isEmpty());
  }

  void ADoubleClickActsOnce() {
    PersonalPaneWindow windows;
    windows.Click("www.a.ru");
    QTest::mouseDClick(windows.Rich()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       windows.PointAt("www.a.ru"));
    QCOMPARE(opened_.size(), 1);
  }

  void ALinkHasItsItemsAheadOfTheCopyItem() {
    PersonalPaneWindow windows;
    windows.Click("www.a.ru", Qt::RightButton);
    QCOMPARE(PersonalDesktop::Items(),
             QStringList({Utf8("Открыть"), Utf8("Копировать ссылку"), "-",
                          Utf8("Копировать (grey)"), Utf8("Выделить все")}));
    windows.Choose("link_copy");
    QCOMPARE(windows.outside.clipboard.text, Text("www.a.ru"));
    windows.Click("www.a.ru", Qt::RightButton);
    windows.Choose("link_open");
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
  }

  void WhatIsSelectedIsCopied() {
    PersonalPaneWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.SelectText("see");
    windows.Click("see", Qt::RightButton);
    QCOMPARE(PersonalDesktop::Items(), QStringList({"Copy", "Select all"}));
    windows.Choose("text_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("see"));
    windows.Rich()->setFocus();
    PersonalDesktop::Press(Qt::Key_A, Qt::ControlModifier);
    PersonalDesktop::Press(Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().contains("bob: see www.a.ru"));
  }

  // What the program has written since is not what the reader has selected.
  void AMessageMeanwhileLeavesTheSelection() {
    PersonalPaneWindow windows;
    windows.SelectText("see");
    windows.Receive("bob", "more");
    windows.Click("see", Qt::RightButton);
    QVERIFY(PersonalDesktop::Menu() != nullptr);
    windows.Choose("text_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("see"));
  }

  void EnterActsAsALeftClickAtTheCaret() {
    PersonalPaneWindow windows;
    windows.Rich()->setFocus();
    windows.SelectText("www.a.ru");
    PersonalDesktop::Press(Qt::Key_Return);
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
    windows.SelectText("10.0.*.*");
    PersonalDesktop::Press(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(opened_.size(), 2);
    PersonalDesktop::Press(Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCOMPARE(opened_.size(), 2);
    QCOMPARE(windows.Cursor(), Qt::ArrowCursor);
  }

  void TheMenuKeyActsAsARightClickAtTheCaret() {
    PersonalPaneWindow windows;
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
      windows.Rich()->setFocus();
      windows.SelectText("see");
      PersonalDesktop::Press(key, modifiers);
      QVERIFY(PersonalDesktop::Menu() != nullptr);
      QCOMPARE(PersonalDesktop::Menu()->activeAction()->objectName(), QString("text_copy"));
      const QRect caret = windows.Rich()->CharacterRect(windows.Rich()->Caret());
      QCOMPARE(PersonalDesktop::Menu()->pos(),
               windows.Rich()->viewport()->mapToGlobal(caret.bottomLeft()));
      PersonalDesktop::Press(Qt::Key_Escape);
    }
  }

 private:
  QStringList opened_;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::PersonalPaneTest)
#include "personal_pane_test.moc"
