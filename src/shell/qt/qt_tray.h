// The tray icon and the balloons on the desktop, whichever kinds of them it has.
#pragma once

#include <QElapsedTimer>
#include <QIcon>
#include <QObject>
#include <QSystemTrayIcon>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "platform/qt/bus_notifier.h"
#include "platform/qt/bus_tray_host.h"
#include "platform/qt/xembed_tray.h"
#include "platform/tray.h"

class QMenu;

namespace parlorwire {

class BalloonWindow;

// The toolkit's icon is made only once there is a tray: it settles for a kind of tray when it is
// made. A balloon goes to the desktop's server of notifications; if there is none, to a tray of the
// older kind, which shows it at the icon; else it is a window of our own.
class QtTray : public QObject, public Tray {
  Q_OBJECT

 public:
  // Needs a QApplication.
  QtTray();
  ~QtTray() override;

  bool Available() const override;
  void Add(TrayIcon icon, const Text& tip) override;
  void Modify(TrayIcon icon, const Text& tip) override;
  void Delete() override;
  void ShowBalloon(const Balloon& balloon) override;
  void RemoveBalloon() override;

  // Comes up with the right button. It outlives the icon, or is taken back with nullptr.
  void SetMenu(QMenu* menu);

  // `again`: the click is too close to the one ahead of it to be one of its own.
  std::function<void(bool again)> LeftButtonUp;
  std::function<void(const BalloonAbout& about)> BalloonClicked;
  std::function<void()> Gone;  // there is no tray any more

 private:
  enum class Kind { kNone, kBus, kXEmbed };

  void TraysChanged();
  void MakeIcon();
  void ShowIcon();
  void ShowWithoutServer(const Balloon& balloon);
  void ClickedBalloon();

  QDBusConnection bus_;
  BusTrayHost host_;
  XEmbedTray xembed_;
  BusNotifier notifier_;
  std::unique_ptr<QSystemTrayIcon> icon_;
  std::unique_ptr<BalloonWindow> window_;
  Kind kind_ = Kind::kNone;  // of the tray that the icon was made for
  bool added_ = false;
  bool was_available_ = false;
  TrayIcon shown_ = TrayIcon::kWindow;
  QString tip_;
  QMenu* menu_ = nullptr;
  std::optional<BalloonAbout> about_;  // of the balloon that we show ourselves
  QElapsedTimer since_click_;
};

}  // namespace parlorwire
