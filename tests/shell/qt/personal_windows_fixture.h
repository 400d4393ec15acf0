// Personal windows over a main window with two tabs on channels; the test plays the service.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <utility>
#include <vector>

#include "pane/qt/rich_text_view.h"
#include "personal/personal_window.h"
#include "shell/qt/menu_that_is_up.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/pers_frm.h"
#include "shell/qt/windows_fixture.h"
#include "support/chat.h"

namespace parlorwire {

struct PersonalDesktop : Windows, MenuThatIsUp {
  explicit PersonalDesktop(const std::optional<Text>& config = std::nullopt,
                           const Text& second_login = "alice")
      : Windows(config) {
    for (const int slot : {0, 1}) {
      tab(slot).LoginShown = true;
      tab(slot).Login = slot == 0 ? "alice" : second_login;
      tab(slot).Channel = slot == 0 ? "lobby" : "hall";
      desktop.SetTabVisible(slot, true);
      ConnectToChat(client, slot);
      Winsock1(slot).Accept();
      Winsock1(slot).Deliver("<a href='/frame?a=1&ticket=T" + std::to_string(slot) + "'>");
      Winsock1(slot).PeerCloses();
      Winsock1(slot).Accept();
      Winsock1(slot).Deliver(Text(kGoodHeader) + "<pre>\n");
    }
    desktop.SetActiveTab(0);
    QTest::qWait(60);
  }

  // The windows that are to be seen, the oldest first.
  static std::vector<pers_frm*> Shown() {
    std::vector<pers_frm*> shown;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (auto* window = qobject_cast<pers_frm*>(top); window != nullptr && window->isVisible())
        shown.push_back(window);
    std::ranges::sort(shown, {}, [](const pers_frm* window) { return window->windowTitle(); });
    return shown;
  }
  void ClickPers(int slot = 0) {
    desktop.SetActiveTab(slot);
    QTest::mouseClick(Find(QString("pers_%1").arg(slot).toLatin1().constData()), Qt::LeftButton);
    const bool came = QTest::qWaitFor(
        [] { return qobject_cast<pers_frm*>(QApplication::activeWindow()) != nullptr; });
    if (!came) qFatal("no personal window is active");
  }
  // By a click on `pers`, its frame with header and page head there, and the window up.
  pers_frm& Open(int slot = 0) {
    ClickPers(slot);
    auto* opened = qobject_cast<pers_frm*>(QApplication::activeWindow());
    Simulated(record().W1).Accept();
    Chunk(Text(kGoodHeader) + "<html>\n<body>\n<br>\n");
    frm = opened;
    return *frm;
  }
  PersonalWindow& record() { return *client.app.PersWindows.back(); }
  // What comes on the frame of the window that was opened last, and what follows from it.
  void Chunk(const Text& text) {
    Simulated(record().W1).Deliver(Koi(text));
    outside.time.Advance(5);
    QTest::qWait(60);
  }
  void Receive(const Text& nick, const Text& text) {
    Chunk("&gt; [12:34:56] http://h/pm_ack?reqnum=1&pm_msgnum=2 " + nick + " " + text + "\n");
  }

  template <class Control = QWidget>
  Control* In(const char* name) {
    auto* control = frm->findChild<Control*>(QLatin1String(name));
    if (control == nullptr) qFatal("no control named %s in the window", name);
    return control;
  }
  MsgBox* msg() { return In<MsgBox>("msg"); }
  QLineEdit* send_nick() { return In<QLineEdit>("send_nick"); }
  RichTextView* Rich() { return In<RichTextView>("Rich"); }

  void ActivateMain() { Activate(window.get()); }
  static void Activate(QWidget* wanted) {
    wanted->activateWindow();
    WaitUntilActive(wanted);
  }
  // As the desktop sends it, to whatever has the focus.
  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = QString(), bool repeated = false) {
    const QWidget* popup = QApplication::activePopupWidget();
    const QPointer<QWindow> to =
        (popup != nullptr ? popup : QApplication::activeWindow())->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, text, repeated);
    if (to && !repeated) QTest::simulateEvent(to, false, key, modifiers, text, false);
  }
  static void Write(const QString& text) {
    for (const QChar letter : text)
      Press(Qt::Key_unknown, Qt::NoModifier, QString(letter));
  }
  // To the nick, by keyboard.
  void Say(const QString& nick, const QString& text) {
    send_nick()->setFocus();
    send_nick()->clear();
    Write(nick);
    msg()->setFocus();
    Write(text);
    Press(Qt::Key_Return);
  }
  // What W2 sends, which has been told to connect.
  Text Posted() {
    Simulated(record().W2).Accept();
    const Text& sent = Simulated(record().W2).sent;
    return sent.substr(sent.find("\r\n\r\n") + 4);
  }
  int Posts() { return Simulated(record().W2).connects; }

  PanePosition At(const Text& text) {
    return static_cast<PanePosition>(record().Rich.Text().rfind(text));
  }
  QPoint PointAt(const Text& text) { return Rich()->CharacterRect(At(text)).center(); }
  void Move(const Text& text) { QTest::mouseMove(Rich()->viewport(), PointAt(text)); }
  void Click(const Text& text, Qt::MouseButton button = Qt::LeftButton) {
    Move(text);
    QTest::mouseClick(Rich()->viewport(), button, Qt::NoModifier, PointAt(text));
  }

  pers_frm* frm = nullptr;
};

}  // namespace parlorwire
