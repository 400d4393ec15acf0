// A message pane under real key and mouse events, and the menus that come out of it.
#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QWindow>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/menu_that_is_up.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/chat.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// The main window with two tabs, each on a channel.
struct PaneWindow : Windows, MenuThatIsUp {
  explicit PaneWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    for (const int slot : {0, 1}) {
      tab(slot).LoginShown = true;
      tab(slot).Login = "alice";
      tab(slot).Channel = slot == 0 ? "lobby" : "hall";
      desktop.SetTabVisible(slot, true);
      ConnectToChat(client, slot);
      Winsock1(slot).Accept();
      Winsock1(slot).Deliver("<a href='/frame?a=1&ticket=T1'>");
      Winsock1(slot).PeerCloses();
      Winsock1(slot).Accept();
      Winsock1(slot).Deliver(Text(kGoodHeader) + "<pre>\n");
    }
    desktop.SetActiveTab(0);
    view = Find<RichTextView>("Rich_0");
    msg = Find<MsgBox>("msg_0");
    Line("[16:45:57]bob:() see www.a.ru now");
    QTest::qWait(60);
  }

  void Line(const Text& line, int slot = 0) { Winsock1(slot).Deliver(".." + Koi(line) + "\n"); }
  PanePosition At(const Text& text) {
    return static_cast<PanePosition>(view->box().Text().rfind(text));
  }
  QPoint PointAt(const Text& text) { return view->CharacterRect(At(text)).center(); }
  void Move(const Text& text) { QTest::mouseMove(view->viewport(), PointAt(text)); }
  void Click(const Text& text, Qt::MouseButton button = Qt::LeftButton) {
    Move(text);
    QTest::mouseClick(view->viewport(), button, Qt::NoModifier, PointAt(text));
  }
  // As the desktop sends it, to whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* popup = QApplication::activePopupWidget();
    const QPointer<QWindow> to = (popup != nullptr ? popup : window.get())->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, QString(), false);
    // A menu goes with the key that closes it.
    if (to) QTest::simulateEvent(to, false, key, modifiers, QString(), false);
  }
  void SelectText(const Text& text) {
    view->Select(At(text), At(text) + static_cast<PanePosition>(text.size()));
  }
  PaneColour ColourOf(const Text& text) {
    return view->box().RunsBetween(At(text), At(text) + 1).front().format.colour;
  }
  Qt::CursorShape Cursor() { return view->viewport()->cursor().shape(); }
  static QStringList CopyItems() {
    return {Utf8("Копировать"), Utf8("Перекодировать"), Utf8("Выделить все")};
  }

  RichTextView* view = nullptr;
  MsgBox* msg = nullptr;
};

}  // namespace

class MessagePaneTest : public QObject {
  Q_OBJECT

 public slots:
  void Open(const QUrl& url) { opened_ << url.toString(); }

 private slots:
  void initTestCase() { QDesktopServices::setUrlHandler("http", this, "Open"); }
  void cleanupTestCase() { QDesktopServices::unsetUrlHandler("http"); }
  void init() { opened_.clear(); }

  // ---- the mouse ----

  void TheNickUnderTheMouseIsTintedUntilTheMouseIsGone() {
    PaneWindow windows;
    const PaneColour tint = windows.client.app.rRichColors.NicksChoose;
    windows.Move("bob:");
    QCOMPARE(windows.ColourOf("bob:"), tint);
    QCOMPARE(windows.Cursor(), Qt::PointingHandCursor);
    windows.Move("see");
    QCOMPARE(windows.ColourOf("bob:"), windows.client.app.rRichColors.Nicks);
    QCOMPARE(windows.Cursor(), Qt::ArrowCursor);
    windows.Move("bob:");
    QTest::mouseMove(windows.msg, windows.msg->rect().center());
    QTRY_COMPARE(windows.ColourOf("bob:"), windows.client.app.rRichColors.Nicks);
  }

  void ATintMovesNoViewAndNoSelection() {
    PaneWindow windows;
    for (int i = 0; i < 100; ++i)
      windows.Line("[16:45:58]dan:() line");
    windows.Line("[16:45:59]bob:() the last");
    QTest::qWait(60);
    windows.view->ScrollToStart();
    QTest::qWait(30);
    windows.Line("[16:45:59]bob:() beyond");
    windows.view->ScrollToStart();
    QTest::qWait(30);
    const PanePosition start = windows.view->CharFromPos(5, 5);
    windows.view->Select(start + 2, start + 9);
    const PaneRange selected = windows.view->Selected();
    const PanePosition seen = static_cast<PanePosition>(windows.view->box().Text().find("bob:"));
    const QPoint point = windows.view->CharacterRect(seen).center();
    QTest::mouseMove(windows.view->viewport(), point);
    QTest::qWait(30);
    QCOMPARE(windows.client.app.HoverNick, Text("bob:"));
    QCOMPARE(windows.view->Selected(), selected);
    QCOMPARE(windows.view->CharFromPos(5, 5), start);
  }

  void AClickOnANickPutsItIntoTheInputBox() {
    PaneWindow windows;
    windows.msg->setText("hello");
    windows.Click("bob:");
    QCOMPARE(windows.msg->text(), QString("bob: hello"));
    QCOMPARE(windows.msg->cursorPosition(), 10);
    QVERIFY(windows.msg->hasFocus());
  }

  void ADoubleClickActsOnce() {
    PaneWindow windows;
    QWidget* port = windows.view->viewport();
    windows.Click("bob:");
    QTest::mouseDClick(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("bob:"));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("bob:"));
    QCOMPARE(windows.msg->text(), QString("bob: "));
  }

  void ADragFromANickSelects() {
    PaneWindow windows;
    QWidget* port = windows.view->viewport();
    windows.Move("bob:");
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("bob:"));
    QTest::mouseMove(port, windows.PointAt("www.a.ru"));
    QCOMPARE(windows.ColourOf("bob:"), windows.client.app.rRichColors.Nicks);
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, windows.PointAt("www.a.ru"));
    QVERIFY(!windows.view->Selected().empty());
    QCOMPARE(windows.msg->text(), QString());
    QVERIFY(opened_.isEmpty());
  }

  void ARightClickOnANickOpensItsMenu() {
    PaneWindow windows;
    windows.Click("bob:", Qt::RightButton);
    QVERIFY(PaneWindow::Menu() != nullptr);
    QCOMPARE(PaneWindow::Menu()->objectName(), QString("nick_menu"));
    QCOMPARE(windows.client.app.MenuNick, Text("bob"));
    PaneWindow::Menu()->close();
  }

  void AClickOnATimeAppendsIt() {
    PaneWindow windows;
    windows.Click("45:57");
    QCOMPARE(windows.msg->text(), QString(" [16:45:57]"));
    windows.msg->clear();
    windows.Click("45:57", Qt::RightButton);
    QCOMPARE(windows.msg->text(), QString(" [16:45:57] bob: see www.a.ru now"));
    QVERIFY(PaneWindow::Menu() == nullptr);
  }

  void AClickOnANoticeLeadsToItsLine() {
    PaneWindow windows;
    for (int i = 0; i < 100; ++i)
      windows.Line("[16:45:58]bob:() line", 1);
    windows.Line("[16:46:00]bob:() look, alice", 1);
    for (int i = 0; i < 100; ++i)
      windows.Line("[16:46:01]bob:() line", 1);
    QTest::qWait(60);
    windows.Click("Перейти"_w);
    QCOMPARE(windows.desktop.ActiveTab(), 1);
    auto* other = windows.Find<RichTextView>("Rich_1");
    const auto line = static_cast<PanePosition>(other->box().Text().find(">[16:46:00] bob: look"));
    QTRY_VERIFY(!other->CharacterRect(line).isEmpty());
  }

  void ANoticeWhoseTabIsClosedSaysSo() {
    PaneWindow windows;
    windows.Line("[16:46:00]bob:() look, alice", 1);
    windows.desktop.SetTabVisible(1, false);
    QTest::qWait(60);
    const SeenBox box = EnterInBox([&] { windows.Click("Перейти"_w); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, Utf8("Невозможно перейти на канал hall, он не открыт в клиенте!"));
    QCOMPARE(box.icon, QMessageBox::Warning);
  }

  // ---- links ----

  void AClickOnALinkOpensIt() {
    PaneWindow windows;
    windows.Move("www.a.ru");
    QCOMPARE(windows.Cursor(), Qt::PointingHandCursor);
    windows.Click("www.a.ru");
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
  }

  void AClickOnAnAddressOpensThePageAboutIt() {
    PaneWindow windows("[Main]\r\nChatHostByName=chat.test\r\nChatPort=81\r\n");
    windows.Line("[16:45:58]bob is at 10.0.*.*");
    QTest::qWait(60);
    windows.Click("10.0.*.*");
    QCOMPARE(opened_, QStringList("http://chat.test:81/serv/wwwwhois/nph-wwwtr.cgi?server="
                                  "10.0.*.*&resolve=ripe&submit=++OK++"));
  }

  void ALinkHasItsItemsAheadOfTheCopyItem() {
    PaneWindow windows;
    windows.Click("www.a.ru", Qt::RightButton);
    QCOMPARE(
        PaneWindow::Items(),
        QStringList({Utf8("Открыть"), Utf8("Копировать ссылку"), "-", Utf8("Копировать (grey)"),
                     Utf8("Перекодировать (grey)"), Utf8("Выделить все")}));
    windows.Choose("link_copy");
    QCOMPARE(windows.outside.clipboard.text, Text("www.a.ru"));
    QVERIFY(opened_.isEmpty());
    windows.SelectText("see www.a.ru now");
    windows.Click("www.a.ru", Qt::RightButton);
    QCOMPARE(PaneWindow::Items().mid(3), PaneWindow::CopyItems());
    windows.Choose("link_open");
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
  }

  void ALinkThatWrapsIsOneLink() {
    PaneWindow windows;
    const Text link = "www.a.ru/" + Text(400, 'a') + "end";
    windows.Line("[16:45:58]bob:() " + link);
    QTest::qWait(60);
    windows.view->ScrollToEnd();
    QTest::qWait(60);
    windows.Click("aaaend");
    QCOMPARE(opened_, QStringList("http://" + ToQString(link)));
  }

  // ---- menu_copy ----

  void MenuCopyComesUpInASelectionAlone() {
    PaneWindow windows;
    windows.Click("see", Qt::RightButton);
    QVERIFY(PaneWindow::Menu() == nullptr);
    windows.SelectText("see");
    windows.Click("now", Qt::RightButton);
    QVERIFY(PaneWindow::Menu() == nullptr);
    windows.Click("see", Qt::RightButton);
    QCOMPARE(PaneWindow::Menu()->objectName(), QString("menu_copy"));
    QCOMPARE(PaneWindow::Items(), PaneWindow::CopyItems());
    windows.Choose("text_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("see"));
  }

  void MenuCopySelectsAll() {
    PaneWindow windows;
    windows.SelectText("see");
    windows.Click("see", Qt::RightButton);
    windows.Choose("select_all");
    QCOMPARE(windows.view->Selected(), (PaneRange{0, windows.view->box().Length()}));
    QCOMPARE(windows.view->box().SelLength(), windows.view->box().Length());
  }

  void TheSelectionIsTheReadersAlsoBehindNewLines() {
    PaneWindow windows;
    windows.SelectText("see");
    windows.Line("[16:45:58]bob:() *** waves");
    QTest::qWait(60);
    windows.Click("***", Qt::RightButton);
    QVERIFY(PaneWindow::Menu() == nullptr);
    windows.Click("see", Qt::RightButton);
    QVERIFY(PaneWindow::Menu() != nullptr);
    windows.Line("[16:45:58]bob:() *** waves again");
    windows.Choose("text_copy");
    QCOMPARE(QApplication::clipboard()->text(), QString("see"));
  }

  void ASelectionIsRecoded() {
    PaneWindow windows;
    windows.Line("[16:45:58]bob:() ghbdtn everybody");
    QTest::qWait(60);
    windows.SelectText("ghbdtn");
    windows.Click("ghbdtn", Qt::RightButton);
    windows.Line("[16:45:58]bob:() *** waves");
    windows.Choose("text_perecodirovka");
    QVERIFY(windows.At("bob: привет everybody"_w) > 0);
  }

  void ATintedNickThatIsRecodedKeepsNoTint() {
    PaneWindow windows;
    windows.view->Select(windows.At("bob:"), windows.At("now"));
    windows.Move("bob:");
    QTest::mouseClick(windows.view->viewport(), Qt::RightButton, Qt::NoModifier,
                      windows.PointAt("see"));
    windows.Choose("text_perecodirovka");
    QVERIFY(windows.At("ищиЖ"_w) > 0);
    QVERIFY(windows.ColourOf("ищиЖ"_w) != windows.client.app.rRichColors.NicksChoose);
  }

  void InEnglishTheMenuIsEnglish() {
    PaneWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.SelectText("see");
    windows.Click("see", Qt::RightButton);
    QCOMPARE(PaneWindow::Items(), QStringList({"Copy", "Recode", "Select all"}));
    PaneWindow::Menu()->close();
    windows.Click("www.a.ru", Qt::RightButton);
    QCOMPARE(PaneWindow::Items().first(), QString("Open"));
    QCOMPARE(PaneWindow::Items().at(1), QString("Copy link"));
    PaneWindow::Menu()->close();
  }

  // ---- the keyboard ----

  void EnterActsAsALeftClickAtTheCaret() {
    PaneWindow windows;
    windows.view->setFocus();
    windows.SelectText("www.a.ru");
    windows.Press(Qt::Key_Return);
    QCOMPARE(opened_, QStringList("http://www.a.ru"));
    windows.SelectText("bob:");
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.msg->text(), QString("bob: "));
    QVERIFY(windows.msg->hasFocus());
    QCOMPARE(windows.ColourOf("bob:"), windows.client.app.rRichColors.Nicks);
  }

  void TheMenuKeyActsAsARightClickAtTheCaret() {
    PaneWindow windows;
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
      windows.view->setFocus();
      windows.SelectText("see");
      windows.Press(key, modifiers);
      QVERIFY(PaneWindow::Menu() != nullptr);
      QCOMPARE(PaneWindow::Menu()->objectName(), QString("menu_copy"));
      QCOMPARE(PaneWindow::Menu()->activeAction()->objectName(), QString("text_copy"));
      const QRect caret = windows.view->CharacterRect(windows.view->Caret());
      QCOMPARE(PaneWindow::Menu()->pos(),
               windows.view->viewport()->mapToGlobal(caret.bottomLeft()));
      windows.Press(Qt::Key_Escape);
      windows.SelectText("bob:");
      windows.Press(key, modifiers);
      QCOMPARE(PaneWindow::Menu()->objectName(), QString("nick_menu"));
      windows.Press(Qt::Key_Escape);
    }
  }

  void TabLeavesThePane() {
    PaneWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Tab);
    QVERIFY(!windows.view->hasFocus());
  }

  void OtherKeysAreTheViews() {
    PaneWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(windows.view->Selected().end, windows.view->box().Length());
  }

 private:
  QStringList opened_;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::MessagePaneTest)
#include "message_pane_test.moc"
