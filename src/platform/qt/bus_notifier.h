// Balloons shown by the desktop's own server of notifications.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/tray.h"

class QDBusMessage;
class QDBusPendingCall;

namespace parlorwire {

// The server is org.freedesktop.Notifications on the session's bus; it may be started by the first
// balloon, and may go and come. Nothing here waits for it, and nothing is asked of it while there
// is no balloon.
class BusNotifier : public QObject {
  Q_OBJECT

 public:
  explicit BusNotifier(const QDBusConnection& bus);

  // In the place of the last one. The server is given plain text, escaped if it reads markup.
  void Show(const Balloon& balloon);
  void Close();

  std::function<void(const BalloonAbout& about)> Clicked;
  // There is no server, or it doesn't take the balloon that is still wanted.
  std::function<void(const Balloon& balloon)> Refused;

 private slots:
  void ActionInvoked(uint id, const QString& action);
  void ActivationToken(uint id, const QString& token);
  void NotificationClosed(uint id, uint reason);

 private:
  void Go();
  void AskCapabilities();
  void Notify(const Balloon& balloon, bool reads_markup);
  void Refuse(const Balloon& balloon);
  void ServerChanged();
  // Calls a method of the server; `answered` gets what it said, or nothing if it failed.
  void Call(const QDBusMessage& call,
            const std::function<void(const QDBusMessage* reply)>& answered);

  QDBusConnection bus_;
  std::optional<Balloon> next_;  // is to be shown, and the server doesn't know of it yet
  bool wanted_ = false;          // a balloon is to be there
  bool busy_ = false;            // an answer is awaited
  std::optional<bool> reads_markup_;
  std::uint32_t id_ = 0;  // that the server gave; 0 if it shows none
  BalloonAbout about_;    // of that one
};

}  // namespace parlorwire
