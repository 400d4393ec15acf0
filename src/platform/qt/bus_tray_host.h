// Whether the desktop has a tray of the newer kind, which finds its icons on the session's bus.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <functional>

namespace parlorwire {

// Asks org.kde.StatusNotifierWatcher and nobody else: the toolkit asks once in its life, so it must
// not be asked ahead of the tray. Nothing here waits for an answer.
class BusTrayHost : public QObject {
  Q_OBJECT

 public:
  explicit BusTrayHost(const QDBusConnection& bus);

  bool Known() const { return known_; }  // the first answer has come
  bool There() const { return there_; }

  std::function<void()> Changed;  // either of the two

 private slots:
  void Ask();

 private:
  void WatcherChanged();
  void Answered(bool there);

  QDBusConnection bus_;
  bool known_ = false;
  bool there_ = false;
  int question_ = 0;  // counts them; what answers an older one is dropped
  // Not every watcher tells that a host has come. So one that has just come itself is asked once a
  // second for a while.
  QTimer again_;
  int times_left_ = 0;
};

}  // namespace parlorwire
