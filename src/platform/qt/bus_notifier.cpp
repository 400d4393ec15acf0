#include "platform/qt/bus_notifier.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QStringList>
#include <QVariant>
#include <utility>

#include "platform/qt/text_conversion.h"

namespace parlorwire {
namespace {

constexpr auto kNotifications = "org.freedesktop.Notifications";
constexpr auto kNotificationsPath = "/org/freedesktop/Notifications";
constexpr auto kDefaultAction = "default";  // a click on the notification itself
constexpr int kPatience = 5000;             // ms; a server that has to be started takes a while
constexpr uchar kNormalUrgency = 1;

QDBusMessage MethodCall(const char* method) {
  return QDBusMessage::createMethodCall(kNotifications, kNotificationsPath, kNotifications, method);
}

QVariantMap Hints(const Balloon& balloon) {
  QVariantMap hints = {{"urgency", QVariant::fromValue(kNormalUrgency)},
                       {"category", QStringLiteral("im.received")},
                       {"desktop-entry", QGuiApplication::desktopFileName()}};
  if ((balloon.info_flags & kSilentBalloon) != 0) hints.insert("suppress-sound", true);
  return hints;
}

}  // namespace

BusNotifier::BusNotifier(const QDBusConnection& bus) : bus_(bus) {
  if (!bus_.isConnected()) return;
  const auto listen = [this](const char* signal, const char* slot) {
    bus_.connect(kNotifications, kNotificationsPath, kNotifications, signal, this, slot);
  };
  listen("ActionInvoked", SLOT(ActionInvoked(uint, QString)));
  listen("ActivationToken", SLOT(ActivationToken(uint, QString)));
  listen("NotificationClosed", SLOT(NotificationClosed(uint, uint)));
  auto* watcher =
      new QDBusServiceWatcher(kNotifications, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { ServerChanged(); });
}

void BusNotifier::Show(const Balloon& balloon) {
  next_ = balloon;
  wanted_ = true;
  Go();
}

void BusNotifier::Close() {
  next_.reset();
  wanted_ = false;
  Go();
}

// One question at a time: what is wanted may change until the answer.
void BusNotifier::Go() {
  if (busy_) return;
  if (!wanted_ && id_ != 0) {
    QDBusMessage close = MethodCall("CloseNotification");
    close << std::exchange(id_, 0);
    bus_.send(close);
  } else if (next_ && reads_markup_) {
    const Balloon balloon = *next_;
    next_.reset();
    Notify(balloon, *reads_markup_);
  } else if (next_) {
    AskCapabilities();
  }
}

void BusNotifier::AskCapabilities() {
  Call(MethodCall("GetCapabilities"), [this](const QDBusMessage* reply) {
    if (reply == nullptr) {
      if (next_) Refuse(*std::exchange(next_, std::nullopt));
      return;
    }
    reads_markup_ = reply->arguments().value(0).toStringList().contains("body-markup");
  });
}

void BusNotifier::Notify(const Balloon& balloon, bool reads_markup) {
  QString text = ToQString(balloon.text);
  text.replace("\r\n", "\n");
  if (reads_markup) text = text.toHtmlEscaped();
  QDBusMessage notify = MethodCall("Notify");
  notify << QStringLiteral("Parlorwire") << id_ << QGuiApplication::desktopFileName()
         << ToQString(balloon.title) << text << QStringList{kDefaultAction, "Parlorwire"}
         << Hints(balloon) << kBalloonTime;
  Call(notify, [this, balloon](const QDBusMessage* reply) {
    if (reply == nullptr) return Refuse(balloon);
    id_ = reply->arguments().value(0).toUInt();
    about_ = balloon.about;
  });
}

void BusNotifier::Call(const QDBusMessage& call,
                       const std::function<void(const QDBusMessage* reply)>& answered) {
  // Of a call that can't be made the toolkit never says that it is over.
  if (!bus_.isConnected()) return answered(nullptr);
  busy_ = true;
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call, kPatience), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, answered] {
    watcher->deleteLater();
    busy_ = false;
    const QDBusMessage reply = watcher->reply();
    answered(watcher->isError() ? nullptr : &reply);
    Go();
  });
}

void BusNotifier::Refuse(const Balloon& balloon) {
  reads_markup_.reset();
  if (!wanted_ || next_) return;
  wanted_ = false;
  if (Refused) Refused(balloon);
}

// What a server showed went with it; another one knows nothing of it.
void BusNotifier::ServerChanged() {
  id_ = 0;
  reads_markup_.reset();
}

void BusNotifier::ActionInvoked(uint id, const QString& action) {
  if (id_ == 0 || id != id_ || action != QLatin1String(kDefaultAction)) return;
  const BalloonAbout about = about_;
  Close();
  if (Clicked) Clicked(about);
}

// By this a desktop that guards the focus lets the window come up. It comes ahead of the action.
void BusNotifier::ActivationToken(uint id, const QString& token) {
  if (id_ != 0 && id == id_) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

void BusNotifier::NotificationClosed(uint id, uint) {
  if (id == id_) id_ = 0;
}

}  // namespace parlorwire
