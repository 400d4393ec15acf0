#include "shell/qt/form_tray.h"

#include <QAction>
#include <QEvent>
#include <functional>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/client_main.h"
#include "shell/qt/control_names.h"
#include "shell/qt/qt_tray.h"
#include "shell/tray.h"

namespace parlorwire {
namespace {

constexpr BothLanguages kRestore{W<"&Восстановить">, "&Restore"};

}  // namespace

Form_tray::Form_tray(Client& client, QtTray& tray, client_main& window)
    : client_(client), tray_(tray), window_(window), menu_(std::make_unique<QMenu>()) {
  NameControl(menu_.get(), "Form_tray");
  SayControl(menu_.get(), "Parlorwire");
  put_in_tray_ = Item("put_in_tray", [this] { put_in_tray(client_); });
  restore_client_ = Item("restore_client", [this] { restore_client(client_); });
  menu_->addSeparator();
  exit_ = Item("exit", [this] { window_.Leave(); });
  connect(menu_.get(), &QMenu::aboutToShow, this, &Form_tray::ShowMenu);
  ShowMenu();
  tray_.SetMenu(menu_.get());
  tray_.LeftButtonUp = [this](bool again) {
    OnEvent(client_, "Form_tray_MouseMove", [&] { Form_tray_LeftButtonUp(client_, again); });
  };
  tray_.BalloonClicked = [this](const BalloonAbout& about) {
    OnEvent(client_, "BalloonClicked", [&] { BalloonClicked(client_, about); });
  };
  tray_.Gone = [this] { OnEvent(client_, "TrayGone", [&] { TrayGone(client_); }); };
  window_.form_tray = this;
  window_.installEventFilter(this);
}

Form_tray::~Form_tray() {
  window_.form_tray = nullptr;
  tray_.SetMenu(nullptr);
  tray_.LeftButtonUp = nullptr;
  tray_.BalloonClicked = nullptr;
  tray_.Gone = nullptr;
}

QAction* Form_tray::Item(const char* name, const std::function<void()>& action) {
  QAction* item = menu_->addAction(QString());
  item->setObjectName(QString::fromLatin1(name));
  connect(item, &QAction::triggered, this,
          [this, name = Text(name), action] { OnEvent(client_, name, action); });
  return item;
}

// Some panels keep a copy of the menu and do not ask when they show it, so it is always up to date.
void Form_tray::ShowMenu() {
  const auto caption = [this](const BothLanguages& text) {
    return ToQString(InLanguage(client_, text));
  };
  put_in_tray_->setText(caption(kPutInTrayCaption));
  restore_client_->setText(caption(kRestore));
  exit_->setText(caption(kExitCaption));
  const TrayMenu shown = StateOfTrayMenu(client_);
  put_in_tray_->setVisible(shown.put_in_tray);
  restore_client_->setVisible(shown.restore_client);
}

bool Form_tray::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::Show || type == QEvent::Hide || type == QEvent::WindowStateChange)
    QMetaObject::invokeMethod(this, &Form_tray::ShowMenu, Qt::QueuedConnection);
  return QObject::eventFilter(watched, event);
}

}  // namespace parlorwire
