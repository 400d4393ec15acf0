#include "platform/qt/bus_tray_host.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace parlorwire {
namespace {

constexpr auto kWatcher = "org.kde.StatusNotifierWatcher";
constexpr auto kWatcherPath = "/StatusNotifierWatcher";
constexpr int kWatcherPatience = 2000;  // ms
constexpr int kAskAgain = 1000;         // ms
constexpr int kTimes = 10;

}  // namespace

BusTrayHost::BusTrayHost(const QDBusConnection& bus) : bus_(bus) {
  if (!bus_.isConnected()) {
    known_ = true;
    return;
  }
  auto* watcher =
      new QDBusServiceWatcher(kWatcher, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { WatcherChanged(); });
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
    bus_.connect(kWatcher, kWatcherPath, kWatcher, signal, this, SLOT(Ask()));
  again_.setSingleShot(true);
  again_.setInterval(kAskAgain);
  connect(&again_, &QTimer::timeout, this, &BusTrayHost::Ask);
  WatcherChanged();
}

void BusTrayHost::WatcherChanged() {
  times_left_ = kTimes;
  Ask();
}

void BusTrayHost::Ask() {
  QDBusMessage question = QDBusMessage::createMethodCall(kWatcher, kWatcherPath,
                                                         "org.freedesktop.DBus.Properties", "Get");
  question << QString(kWatcher) << QStringLiteral("IsStatusNotifierHostRegistered");
  question.setAutoStartService(false);
  auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question, kWatcherPatience), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, number = ++question_] {
    answer->deleteLater();
    if (number != question_) return;
    const QDBusMessage reply = answer->reply();
    if (answer->isError()) {
      times_left_ = 0;
      return Answered(false);
    }
    Answered(reply.arguments().value(0).value<QDBusVariant>().variant().toBool());
  });
}

void BusTrayHost::Answered(bool there) {
  const bool changed = !known_ || there != there_;
  known_ = true;
  there_ = there;
  if (!there && times_left_ > 0) {
    --times_left_;
    again_.start();
  }
  if (changed && Changed) Changed();
}

}  // namespace parlorwire
