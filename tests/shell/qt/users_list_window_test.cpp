// The user list under real key and mouse events, and the menus that come out of it.
#include <QAccessible>
#include <QAction>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QMenu>
#include <QObject>
#include <QScreen>
#include <algorithm>

#include "bot/ask_reason.h"
#include "pane/qt/rich_text_view.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

// The main window with a tab on a channel and its list of users.
struct ListWindow : Windows {
  explicit ListWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    for (const int slot : {0, 1}) {
      tab(slot).LoginShown = true;
      tab(slot).Login = "alice";
      desktop.SetTabVisible(slot, true);
    }
    desktop.SetActiveTab(0);
    Draw(
        {"ann|[][10.0.0.1:]'at work'", "bob|[+o][10.0.0.2:]'R&D'", "alice|[-t][]''", "cid|[][]''"});
    view = Find<RichTextView>("Rich_Users_0");
    msg = Find<MsgBox>("msg_0");
    QTest::qWait(50);
  }

  void Draw(const std::vector<Text>& lines) {
    Text page = "HTTP/1.0 200 OK\r\n\r\none\ntwo\n\n.";
    for (const Text& line : lines)
      page += line + "\n";
    SimulatedSocket& socket = Simulated(tab(0).Winsock3);
    UpdateUsersFrame(client, 0);
    socket.Accept();
    socket.Deliver(page);
    socket.PeerCloses();
    QTest::qWait(30);
  }

  PanePosition At(const Text& text) {
    return static_cast<PanePosition>(tab(0).Rich_Users.Text().find(text));
  }
  QPoint PointAt(PanePosition position) { return view->CharacterRect(position).center(); }
  QPoint PointAt(const Text& text) { return PointAt(At(text)); }
  void Move(const Text& text) { QTest::mouseMove(view->viewport(), PointAt(text)); }
  void Click(const Text& text, Qt::MouseButton button) {
    Move(text);
    QTest::mouseClick(view->viewport(), button, Qt::NoModifier, PointAt(text));
  }
  // As the desktop sends it, to whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* popup = QApplication::activePopupWidget();
    QWindow* to = (popup != nullptr ? popup : window.get())->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, QString(), false);
    QTest::simulateEvent(to, false, key, modifiers, QString(), false);
  }
  PaneColour ColourOf(const Text& text) {
    return tab(0).Rich_Users.RunsBetween(At(text), At(text) + 1).front().format.colour;
  }
  QString Selected() {
    return ToQString(view->box().TextBetween(view->Selected().start, view->Selected().end));
  }

  QMenu* Menu(const char* name = "nick_menu") { return Find<QMenu>(name); }
  QAction* Item(const char* name) { return window->findChild<QAction*>(QLatin1String(name)); }
  QStringList Shown(const char* menu = "nick_menu") {
    QStringList shown;
    for (const QAction* item : Menu(menu)->actions())
      if (item->isVisible()) shown << (item->isSeparator() ? QStringLiteral("-") : item->text());
    return shown;
  }
  // Whether the menu stands below the point, moved to the side as far as the screen asks for.
  static bool ComesFrom(const QMenu* menu, QPoint point) {
    const QRect screen = menu->screen()->geometry();
    const int left = std::min(point.x(), screen.right() + 1 - menu->width());
    return menu->pos() == QPoint(left, point.y());
  }
  // The items on the way are chosen with the mouse, as a hand would.
  void Choose(const char* menu, const char* item) {
    QMenu* in = Menu(menu);
    QVERIFY(in->isVisible());
    const QRect place = in->actionGeometry(Item(item));
    QTest::mouseMove(in, place.center());
    QTest::mouseClick(in, Qt::LeftButton, Qt::NoModifier, place.center());
  }

  RichTextView* view = nullptr;
  MsgBox* msg = nullptr;
};

}  // namespace

class UsersListWindowTest : public QObject {
  Q_OBJECT

 private slots:
  // ---- a list that is drawn anew ----

  void TheReadersPlaceIsKeptByNick() {
    ListWindow windows;
    const auto user = [](int number) { return "user" + std::to_string(100 + number) + "|[][]''"; };
    std::vector<Text> list;
    for (int i = 0; i < 100; ++i)
      list.push_back(user(i));
    windows.Draw(list);
    const auto top = [&] {
      const RichTextBox& box = windows.view->box();
      const PaneLine line = box.LineByIndex(box.LineAt(windows.view->TopOfView().position));
      return box.TextBetween(line.start, line.start + 7);
    };
    windows.view->PutAtTop({windows.At("user140"), 5});
    QCOMPARE(top(), Text("user140"));
    list.insert(list.begin(), "newcomer|[][]''");
    windows.Draw(list);
    QCOMPARE(top(), Text("user140"));
    QCOMPARE(windows.view->TopOfView().pixels, 5);
    // He and the next one leave.
    list.erase(list.begin() + 41, list.begin() + 43);
    windows.Draw(list);
    QCOMPARE(top(), Text("user142"));
    windows.view->ScrollToStart();
    QTest::qWait(30);
    list.insert(list.begin(), "another|[][]''");
    windows.Draw(list);
    QVERIFY(windows.view->TopOfView().position <= windows.At("another"));
  }

  // ---- the mouse ----

  void TheNickUnderTheMouseIsTintedUntilTheMouseIsGone() {
    ListWindow windows;
    windows.Move("bob");
    QCOMPARE(windows.ColourOf("bob"), windows.client.app.rRichColors.NicksChoose);
    QCOMPARE(windows.view->viewport()->cursor().shape(), Qt::PointingHandCursor);
    windows.Move("at work");
    QCOMPARE(windows.ColourOf("bob"), 0xFFFF00U);
    QCOMPARE(windows.view->viewport()->cursor().shape(), Qt::ArrowCursor);
    windows.Move("10.0.0.1");
    QCOMPARE(windows.view->viewport()->cursor().shape(), Qt::PointingHandCursor);
    windows.Move("bob");
    QTest::mouseMove(windows.msg, windows.msg->rect().center());
    QTRY_VERIFY(windows.client.app.Timer17->Enabled());
    windows.outside.time.Advance(10);
    QCOMPARE(windows.ColourOf("bob"), 0xFFFF00U);
  }

  void WhoIsUnderARestingMouseInANewListIsTinted() {
    ListWindow windows;
    windows.Move("bob");
    QVERIFY(windows.view->viewport()->underMouse());
    windows.Draw({"ann|[][]''", "eve|[+o][]''", "fay|[][]''"});
    QCOMPARE(windows.ColourOf("eve"), windows.client.app.rRichColors.NicksChoose);
    windows.Draw({});
    QCOMPARE(windows.view->viewport()->cursor().shape(), Qt::ArrowCursor);
  }

  void ALeftClickPutsTheNickIntoTheInputBox() {
    ListWindow windows;
    windows.msg->setText("hello");
    windows.Click("bob", Qt::LeftButton);
    QCOMPARE(windows.msg->text(), "bob hello");
    QCOMPARE(windows.msg->cursorPosition(), 9);
    QVERIFY(windows.msg->hasFocus());
    QVERIFY(!windows.Menu()->isVisible());
  }

  void AClickOnAnAddressOpensThePageThatTellsWhoseItIs() {
    ListWindow windows;
    QStringList opened;
    windows.client.hooks.OpenUrl = [&](const Text& url) { opened << ToQString(url); };
    windows.Click("10.0.0.2", Qt::LeftButton);
    QCOMPARE(opened, QStringList("http://localhost/serv/wwwwhois/nph-wwwtr.cgi?server=10.0.0.2"
                                 "&resolve=ripe&submit=++OK++"));
  }

  void ARightClickOpensTheMenuOfTheNickAtThePointer() {
    ListWindow windows;
    windows.Click("bob", Qt::RightButton);
    QVERIFY(windows.Menu()->isVisible());
    QVERIFY(windows.ComesFrom(windows.Menu(), QCursor::pos()));
    QCOMPARE(windows.Shown(), QStringList({"bob", "-", QStringLiteral("Инфо пользователя"), "-",
                                           QStringLiteral("Добавить в автокик-лист"), "-",
                                           QStringLiteral("Отправить перс"), "-",
                                           QStringLiteral("Сменить цвет сообщений")}));
    QCOMPARE(windows.Shown("user_info"), QStringList({"10.0.0.2", "[+o]", "R&&D"}));
    QCOMPARE(windows.Shown("add_autokick"), QStringList({QStringLiteral("Только на этом канале"),
                                                         QStringLiteral("На всех каналах")}));
    windows.Press(Qt::Key_Escape);
    QVERIFY(!windows.Menu()->isVisible());
    QCOMPARE(windows.msg->text(), QString());
  }

  void AnOperatorHasTheCommandsInIt() {
    ListWindow windows;
    windows.tab(0).IsOperator = true;
    windows.Click("cid", Qt::RightButton);
    QCOMPARE(windows.Shown().mid(0, 3),
             QStringList({"cid", "-", QStringLiteral("Комады оператора")}));
    QCOMPARE(windows.Shown("oper_commands"),
             QStringList({"Lower", "UnLower", "-", "Kick", "Ban", "-", "Mute", "UnMute"}));
    windows.Press(Qt::Key_Escape);
    windows.tab(0).IsOperator = false;
    windows.Click("cid", Qt::RightButton);
    QCOMPARE(windows.Shown().mid(0, 3),
             QStringList({"cid", "-", QStringLiteral("Добавить в автокик-лист")}));
  }

  void BesideTheNicksNoMenuComesUp() {
    ListWindow windows;
    windows.Click("10.0.0.1", Qt::RightButton);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    // Nor the menu that panes have by themselves.
    const QPoint at = windows.PointAt("10.0.0.1");
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
      QTimer::singleShot(50, [] {
        if (auto* menu = QApplication::activePopupWidget()) {
          menu->close();
          QFAIL("a menu came up");
        }
      });
      QContextMenuEvent event(reason, at, windows.view->viewport()->mapToGlobal(at));
      QApplication::sendEvent(windows.view->viewport(), &event);
      QTest::qWait(100);
    }
  }

  // ---- the items ----

  void ItemsThatCopyPutTheirTextAheadInTheInputBox() {
    ListWindow windows;
    windows.Click("bob", Qt::RightButton);
    windows.Choose("nick_menu", "nickname");
    QCOMPARE(windows.msg->text(), "bob ");
    QVERIFY(windows.msg->hasFocus());
    for (const char* item : {"user_ip", "user_flags", "user_inf"}) {
      windows.Click("bob", Qt::RightButton);
      windows.Choose("nick_menu", "user_info_action");
      QTRY_VERIFY(windows.Menu("user_info")->isVisible());
      windows.Choose("user_info", item);
    }
    QCOMPARE(windows.msg->text(), "R&D [+o] 10.0.0.2 bob ");
  }

  void TheMenuIsOfTheNickThatWasClickedWhateverBecomesOfTheList() {
    ListWindow windows;
    windows.Click("bob", Qt::RightButton);
    windows.Draw({"dan|[][]''", "eve|[][]''"});
    QVERIFY(windows.Menu()->isVisible());
    QCOMPARE(windows.Shown("user_info"), QStringList({"10.0.0.2", "[+o]", "R&&D"}));
    windows.Choose("nick_menu", "send_pers");
    QCOMPARE(windows.client.app.PersTargetNick, Text("bob"));
    QVERIFY(windows.client.app.Timer21->Enabled());
  }

  void AClickIsForTheNickThatWasPressedEvenIfTheListIsNewBeforeTheRelease() {
    ListWindow windows;
    windows.Move("bob");
    const QPoint at = windows.PointAt("bob");
    QTest::mousePress(windows.view->viewport(), Qt::RightButton, Qt::NoModifier, at);
    windows.Draw({"ann|[][]''", "eve|[+o][]''", "fay|[][]''"});
    QTest::mouseRelease(windows.view->viewport(), Qt::RightButton, Qt::NoModifier, at);
    QCOMPARE(windows.client.app.MenuNick, Text("bob"));
  }

  void AMenuGoesWithItsTab() {
    ListWindow windows;
    windows.Click("bob", Qt::RightButton);
    windows.desktop.SetActiveTab(1);
    QVERIFY(!windows.Menu()->isVisible());
  }

  void EachCommandActsOnTheNick() {
    ListWindow windows;
    QStringList said;
    windows.tab(0).IsOperator = true;
    windows.tab(0).Connected = true;
    windows.client.hooks.SayBot = [&](const Text& line, int) { said << ToQString(line); };
    windows.client.hooks.ShowTextInput = [&](const Text&, const Text&) {
      windows.client.app.MenuNick = "somebody";  // asked for anew while the prompt is open
      ConfirmTextInput(windows.client, "reason", 2);
    };
    for (const char* item : {"lower", "unlower", "kick", "ban", "mute", "unmute"}) {
      windows.Click("bob", Qt::RightButton);
      windows.Choose("nick_menu", "oper_commands_action");
      QTRY_VERIFY(windows.Menu("oper_commands")->isVisible());
      windows.Choose("oper_commands", item);
    }
    QCOMPARE(said, QStringList({"/l 60 bob reason", "/l 0 bob", "/k bob reason",
                                "/mo +b bob reason", "/mu 60 bob reason", "/mu 0 bob"}));
  }

  void ANickIsAddedToTheListOfKicks() {
    ListWindow windows;
    windows.tab(0).Channel = "lobby";
    for (const char* item : {"this_channel", "all_channels"}) {
      windows.Click("bob", Qt::RightButton);
      windows.Choose("nick_menu", "add_autokick_action");
      QTRY_VERIFY(windows.Menu("add_autokick")->isVisible());
      EnterInBox([&] { windows.Choose("add_autokick", item); });
      QCOMPARE(windows.client.app.AutoKickText,
               QLatin1String(item) == "this_channel"
                   ? "bob\tlobby\tДоступ с Вашего ника или IP запрещен"_w
                   : "bob\tAll\tДоступ с Вашего ника или IP запрещен"_w);
    }
  }

  void ANewColourForTheNicksMessages() {
    ListWindow windows;
    windows.client.app.CmIniText.Assign("bob=255");
    windows.Click("bob", Qt::RightButton);
    bool seen = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      look.stop();
      seen = dialog->currentColor() == QColor(255, 0, 0);
      dialog->setCurrentColor(QColor(1, 2, 3));
      dialog->accept();
    });
    look.start(5);
    windows.Choose("nick_menu", "change_message_color");
    QTRY_VERIFY(seen);
    QTRY_COMPARE(windows.client.app.CmIniText.text(), "bob=" + std::to_string(Rgb(1, 2, 3)));
    QCOMPARE(windows.outside.files.files["CM.ini"], "bob=" + std::to_string(Rgb(1, 2, 3)));
    QCOMPARE(windows.window->focusWidget(), windows.msg);
  }

  void ACancelledColourChangesNothing() {
    ListWindow windows;
    windows.Click("bob", Qt::RightButton);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      look.stop();
      dialog->reject();
    });
    look.start(5);
    windows.Choose("nick_menu", "change_message_color");
    QTRY_VERIFY(!look.isActive());
    QCOMPARE(windows.client.app.CmIniText.text(), Text());
  }

  void WhatIsSelectedIsCopiedByAMenuOfItsOwn() {
    ListWindow windows;
    const PanePosition start = windows.At("at work");
    windows.view->Select(start, start + 7);
    windows.Click("at work", Qt::RightButton);
    QVERIFY(windows.Menu("menu_copy_users")->isVisible());
    QCOMPARE(windows.Shown("menu_copy_users"), QStringList(QStringLiteral("Копировать")));
    windows.Draw({"dan|[][]''"});
    windows.Choose("menu_copy_users", "text_copy_users");
    QCOMPARE(windows.outside.clipboard.text, Text("at work"));
  }

  void DraggingTheMouseSelectsAndClicksNobody() {
    ListWindow windows;
    const QPoint from = windows.PointAt("ann"), to = windows.PointAt("cid");
    QTest::mouseMove(windows.view->viewport(), from);
    QTest::mousePress(windows.view->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, windows.view->viewport()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(windows.view->viewport(), &move);
    QTest::mouseRelease(windows.view->viewport(), Qt::LeftButton, Qt::NoModifier, to);
    QVERIFY(windows.Selected().contains("10.0.0.2"));
    QCOMPARE(windows.msg->text(), QString());
    QVERIFY(!windows.client.app.MouseSelecting);
  }

  // ---- captions ----

  void InEnglishTheCaptionsStayAndAreExplained() {
    ListWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.Click("bob", Qt::RightButton);
    QCOMPARE(windows.Shown().mid(2, 1), QStringList(QStringLiteral("Инфо пользователя")));
    const auto spoken = [&](const char* item) {
      return QAccessible::queryAccessibleInterface(windows.Item(item))->text(QAccessible::Name);
    };
    struct Case {
      const char* item;
      const char* english;
    };
    for (const Case& c :
         {Case{"user_info_action", "About the user"}, Case{"this_channel", "Only on this channel"},
          Case{"send_pers", "Send a personal message"}}) {
      QCOMPARE(windows.Item(c.item)->toolTip(), QLatin1String(c.english));
      QCOMPARE(spoken(c.item), QLatin1String(c.english));
    }
    QCOMPARE(windows.Menu("add_autokick")->accessibleName(), "Add to the auto-kick list");
    windows.Press(Qt::Key_Escape);

    windows.client.app.Language = UiLanguage::kRussian;
    windows.Click("bob", Qt::RightButton);
    QCOMPARE(spoken("send_pers"), QStringLiteral("Отправить перс"));
    QVERIFY(windows.Item("send_pers")->toolTip() != "Send a personal message");
    QCOMPARE(windows.Menu("add_autokick")->accessibleName(),
             QStringLiteral("Добавить в автокик-лист"));
  }

  void AScreenReaderFindsItsWayThroughTheMenu() {
    ListWindow windows("[Main]\r\nLanguage=English\r\n");
    windows.Click("bob", Qt::RightButton);
    QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(windows.Menu());
    QAccessibleInterface* item =
        QAccessible::queryAccessibleInterface(windows.Item("user_info_action"));
    QCOMPARE(menu->child(2), item);
    QCOMPARE(item->parent(), menu);
    QCOMPARE(item->role(), QAccessible::MenuItem);
    QCOMPARE(item->childCount(), 1);
    QCOMPARE(item->child(0), QAccessible::queryAccessibleInterface(windows.Menu("user_info")));
    QCOMPARE(item->indexOfChild(item->child(0)), 0);
    QVERIFY(!item->state().invisible && !item->state().focused);
    QVERIFY(windows.Menu()->geometry().contains(item->rect()));
    item->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(item->state().focused);

    item = QAccessible::queryAccessibleInterface(windows.Item("send_pers"));
    item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(windows.client.app.PersTargetNick, Text("bob"));
  }

  void LongAndOddCaptionsAreShownInOneLineAndWholeInTheToolTip() {
    ListWindow windows;
    const Text status = "<b>a\tb</b> & " + Text(500, 'x');
    windows.Draw({"ann|[][]'" + status + "'"});
    windows.Click("ann", Qt::RightButton);
    const QAction* item = windows.Item("user_inf");
    QVERIFY(item->text().startsWith("<b>a b</b> && xxx"));
    QVERIFY(item->text().size() < 200);
    QCOMPARE(item->toolTip(), "<qt>" + ToQString(status).toHtmlEscaped() + "</qt>");
    windows.Choose("nick_menu", "user_info_action");
    QTRY_VERIFY(windows.Menu("user_info")->isVisible());
    windows.Choose("user_info", "user_inf");
    QVERIFY(windows.msg->text().startsWith("<b>a"));
    QVERIFY(windows.msg->text().contains(QString(500, 'x')));
  }

  // ---- the keyboard ----

  void ArrowsGoFromNickToNick() {
    ListWindow windows;
    windows.view->setFocus();
    struct Case {
      Qt::Key key;
      const char* nick;
    };
    for (const Case& c :
         {Case{Qt::Key_Down, "ann"}, Case{Qt::Key_Down, "bob"}, Case{Qt::Key_Up, "ann"},
          Case{Qt::Key_Up, "ann"}, Case{Qt::Key_End, "cid"}, Case{Qt::Key_Down, "cid"},
          Case{Qt::Key_Home, "ann"}}) {
      windows.Press(c.key);
      QCOMPARE(windows.Selected(), QLatin1String(c.nick));
    }
    QCOMPARE(windows.msg->text(), QString());
  }

  void AScreenReaderIsAtTheNickThatWasReached() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Down);
    auto* text = QAccessible::queryAccessibleInterface(windows.view)->textInterface();
    int start = 0, end = 0;
    QCOMPARE(text->textAtOffset(text->cursorPosition(), QAccessible::WordBoundary, &start, &end),
             "bob");
    QVERIFY(text->textAtOffset(text->cursorPosition(), QAccessible::LineBoundary, &start, &end)
                .startsWith("bob [+o] 10.0.0.2"));
    QCOMPARE(start, text->cursorPosition());
  }

  void EnterDoesWhatALeftClickDoes() {
    ListWindow windows;
    windows.msg->setText("hello");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      windows.view->setFocus();
      windows.Press(Qt::Key_End);
      windows.Press(key);
      QVERIFY(windows.msg->hasFocus());
    }
    QCOMPARE(windows.msg->text(), "cid cid hello");
  }

  void TheMenuKeyAndShiftF10OpenTheMenuBesideTheNick_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::newRow("menu") << static_cast<int>(Qt::Key_Menu) << false;
    QTest::newRow("Shift+F10") << static_cast<int>(Qt::Key_F10) << true;
  }
  void TheMenuKeyAndShiftF10OpenTheMenuBesideTheNick() {
    QFETCH(int, key);
    QFETCH(bool, shift);
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Down);
    windows.Press(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(windows.Menu()->isVisible());
    QCOMPARE(windows.client.app.MenuNick, Text("bob"));
    const QRect nick = windows.view->CharacterRect(windows.At("bob"));
    QVERIFY(windows.ComesFrom(windows.Menu(),
                              windows.view->viewport()->mapToGlobal(nick.bottomLeft())));
    // And by keyboard on: the nick is chosen, below it the sub-menu with the address.
    QCOMPARE(windows.Menu()->activeAction(), windows.Item("nickname"));
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Right);
    QTRY_VERIFY(windows.Menu("user_info")->isVisible());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.msg->text(), "10.0.0.2 ");
  }

  void WithoutAWalkItIsTheNickOfTheLineWithTheCaret() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    QTest::mouseClick(windows.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      windows.PointAt("[+o]"));
    windows.Press(Qt::Key_Menu);
    QCOMPARE(windows.client.app.MenuNick, Text("bob"));
  }

  void KeysThatPutTheCaretElsewhereEndAWalk() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_PageDown, Qt::ShiftModifier);
    windows.Press(Qt::Key_Menu);
    QVERIFY(!windows.Menu()->isVisible());
    windows.Press(Qt::Key_Home);
    windows.Press(Qt::Key_Down, Qt::ShiftModifier);
    windows.Press(Qt::Key_Menu);
    QCOMPARE(windows.client.app.MenuNick, Text("bob"));
    windows.Press(Qt::Key_Escape);
    windows.Press(Qt::Key_Home);
    windows.Press(Qt::Key_A, Qt::ControlModifier);
    windows.Press(Qt::Key_Menu);
    QVERIFY(!windows.Menu()->isVisible());
  }

  void OnALineWithoutANickNoMenuComesUp() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Menu);
    QVERIFY(!windows.Menu()->isVisible());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.msg->text(), QString());
  }

  void AWalkGoesOnInANewList() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Down);
    windows.Draw({"zoe|[][]''", "ann|[][]''", "amy|[][]''", "bob|[][]''", "cid|[][]''"});
    QCOMPARE(windows.Selected(), "bob");
    windows.Press(Qt::Key_Up);
    QCOMPARE(windows.Selected(), "amy");
  }

  void InPlaceOfANickThatLeftTheNextIsShownFirst() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_Down);
    windows.tab(0).ActionsArmed = true;
    windows.client.hooks.ClientAction("bob покидает нас"_w, 0);
    windows.Press(Qt::Key_Menu);
    QVERIFY(!windows.Menu()->isVisible());
    QCOMPARE(windows.Selected(), "alice");
    windows.Press(Qt::Key_Menu);
    QVERIFY(windows.Menu()->isVisible());
    QCOMPARE(windows.client.app.MenuNick, Text("alice"));
  }

  void OtherKeysAreThePanes() {
    ListWindow windows;
    windows.view->setFocus();
    windows.Press(Qt::Key_Down);
    windows.Press(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(windows.Selected().contains("10.0.0.1"));
    windows.Press(Qt::Key_Home);
    windows.Press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(windows.Selected(), "nn");
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::UsersListWindowTest)
#include "users_list_window_test.moc"
