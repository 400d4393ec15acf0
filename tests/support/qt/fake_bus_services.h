// What stands on the session's bus of a desktop, played on a connection of its own.
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <vector>

namespace parlorwire {

// One connection for all that a test plays. A test needs a bus of its own: dbus-run-session.
inline QDBusConnection FakesBus() {
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "fakes");
}

// A server of notifications.
class FakeNotifications : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  struct Shown {
    QString app_name;
    uint replaces_id = 0;
    QString icon, title, text;
    QStringList actions;
    QVariantMap hints;
    int timeout = 0;
  };

  FakeNotifications() {
    FakesBus().registerObject("/org/freedesktop/Notifications", this,
                              QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    if (!FakesBus().registerService("org.freedesktop.Notifications"))
      qFatal("no bus, or there is a server of notifications on it");
  }
  ~FakeNotifications() override {
    FakesBus().unregisterService("org.freedesktop.Notifications");
    FakesBus().unregisterObject("/org/freedesktop/Notifications");
  }

  QStringList capabilities = {"body", "actions"};
  bool refuses = false;
  std::vector<Shown> shown;
  std::vector<uint> closed;
  uint last_id = 40;

 public slots:
  QStringList GetCapabilities() { return capabilities; }
  uint Notify(const QString& app_name, uint replaces_id, const QString& icon, const QString& title,
              const QString& text, const QStringList& actions, const QVariantMap& hints,
              int timeout) {
    if (refuses) sendErrorReply(QDBusError::LimitsExceeded, "too many");
    shown.push_back({app_name, replaces_id, icon, title, text, actions, hints, timeout});
    return replaces_id != 0 ? replaces_id : ++last_id;
  }
  void CloseNotification(uint id) { closed.push_back(id); }

 signals:
  void ActionInvoked(uint id, const QString& action);
  void ActivationToken(uint id, const QString& token);
  void NotificationClosed(uint id, uint reason);
};

// The watcher of tray icons, and its host.
class FakeStatusNotifierWatcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HasHost)

 public:
  explicit FakeStatusNotifierWatcher(bool has_host) : has_host_(has_host) {
    FakesBus().registerObject(
        "/StatusNotifierWatcher", this,
        QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals);
    if (!FakesBus().registerService("org.kde.StatusNotifierWatcher"))
      qFatal("no bus, or there is a watcher on it");
  }
  ~FakeStatusNotifierWatcher() override {
    FakesBus().unregisterService("org.kde.StatusNotifierWatcher");
    FakesBus().unregisterObject("/StatusNotifierWatcher");
  }

  bool HasHost() {
    ++questions;
    return has_host_;
  }
  void SetHost(bool has_host) { has_host_ = has_host; }

  int questions = 0;

 signals:
  void StatusNotifierHostRegistered();
  void StatusNotifierHostUnregistered();

 private:
  bool has_host_;
};

}  // namespace parlorwire
