// The windows over a simulated outside: real widgets and real key and mouse events; files, sockets,
// timers and the clock are simulated.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "shell/assembly.h"
#include "shell/qt/client_main.h"
#include "shell/qt/qt_desktop.h"
#include "support/simulated_platform.h"

namespace parlorwire {

inline QString Utf8(const char* text) {
  return QString::fromUtf8(text);
}

struct Windows {
  // `config` is the text of config.ini; without one there is no such file.
  explicit Windows(const std::optional<Text>& config = std::nullopt) {
    if (config) outside.files.files["config.ini"] = *config;
    Assemble(client);
    window = std::make_unique<client_main>(client, desktop);
    window->Load();
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) qFatal("the window is not active");
  }

  // The control of that name, wherever it is; it must exist.
  template <class Control = QWidget>
  Control* Find(const char* name) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == QLatin1String(name))
        if (auto* control = qobject_cast<Control*>(top)) return control;
      if (auto* control = top->findChild<Control*>(QLatin1String(name))) return control;
    }
    qFatal("no control named %s", name);
  }

  Text Config() { return outside.files.files["config.ini"]; }
  TabSession& tab(int index) { return client.tab(index); }
  SimulatedSocket& Winsock1(int index = 0) { return Simulated(client.tab(index).Winsock1); }
  SimulatedSocket& Winsock2(int index = 0) { return Simulated(client.tab(index).Winsock2); }

  SimulatedPlatform outside;
  QtDesktop desktop;
  Client client{outside.Ports(desktop)};
  std::unique_ptr<client_main> window;
};

// Waits until the window is the active one itself, not only by an owner that is.
inline void WaitUntilActive(QWidget* window) {
  if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }))
    qFatal("the window is not active");
}

// What a message box showed.
struct SeenBox {
  QString title, text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  qsizetype buttons = 0;
  QWidget* owner = nullptr;
};

// Answers the message box that comes up while `action` runs: with Enter, or with one of its
// buttons. Fails if none comes up.
template <class Action>
SeenBox AnswerBox(QMessageBox::StandardButton button, Action action) {
  std::optional<SeenBox> seen;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    look.stop();
    seen = SeenBox{box->windowTitle(), box->text(), box->icon(), box->buttons().size(),
                   box->parentWidget()};
    if (button == QMessageBox::NoButton) {
      QTest::keyClick(box, Qt::Key_Return);
    } else {
      QTest::mouseClick(box->button(button), Qt::LeftButton);
    }
  });
  look.start(5);
  action();
  for (int i = 0; i < 200 && !seen; ++i)
    QTest::qWait(5);
  if (!seen) {
    QTest::qFail("no message box came up", __FILE__, __LINE__);
    return {};
  }
  return *seen;
}

template <class Action>
SeenBox EnterInBox(Action action) {
  return AnswerBox(QMessageBox::NoButton, action);
}

// What is on the screen of a control; a repaint of its window brings it up to date. A grab of the
// control would paint it afresh.
inline QImage OnScreen(const QWidget* control) {
  const QWidget* window = control->window();
  const QRect place(control->mapTo(window, QPoint()), control->size());
  return window->screen()
      ->grabWindow(window->winId(), place.x(), place.y(), place.width(), place.height())
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

// Brings up the context menu of a control.
inline QMenu* ContextMenuOf(QWidget* control) {
  const QPoint middle = control->rect().center();
  QContextMenuEvent event(QContextMenuEvent::Mouse, middle, control->mapToGlobal(middle));
  QApplication::sendEvent(control, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) qFatal("no context menu came up");
  return menu;
}

// Types a text that may hold Cyrillic letters.
inline void Type(QWidget* control, const QString& text) {
  for (const QChar letter : text)
    QTest::sendKeyEvent(QTest::Click, control, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

}  // namespace parlorwire
