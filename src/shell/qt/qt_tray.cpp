#include "shell/qt/qt_tray.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include "platform/qt/text_conversion.h"
#include "shell/qt/balloon_window.h"

namespace parlorwire {
namespace {

QString Drawing(TrayIcon icon) {
  switch (icon) {
    case TrayIcon::kPersonal:
      return QStringLiteral(":/parlorwire/tray_personal.svg");
    case TrayIcon::kMention:
      return QStringLiteral(":/parlorwire/tray_mention.svg");
    case TrayIcon::kWindow:
      break;
  }
  return QStringLiteral(":/parlorwire/parlorwire.svg");
}

// Trays take pictures, and ask for them in these sizes.
QIcon Rendered(TrayIcon icon) {
  QSvgRenderer drawing(Drawing(icon));
  QIcon rendered;
  for (const int size : {16, 22, 24, 32, 44, 48, 64}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    rendered.addPixmap(picture);
  }
  return rendered;
}

const QIcon& Icon(TrayIcon icon) {
  static const std::array icons = {Rendered(TrayIcon::kWindow), Rendered(TrayIcon::kPersonal),
                                   Rendered(TrayIcon::kMention)};
  return icons[icon == TrayIcon::kPersonal ? 1 : icon == TrayIcon::kMention ? 2 : 0];
}

bool HasPlacesForWindows() {
  return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

}  // namespace

QtTray::QtTray() : bus_(QDBusConnection::sessionBus()), host_(bus_), notifier_(bus_) {
  host_.Changed = [this] { TraysChanged(); };
  xembed_.Changed = [this] { TraysChanged(); };
  notifier_.Clicked = [this](const BalloonAbout& about) {
    if (BalloonClicked) BalloonClicked(about);
  };
  notifier_.Refused = [this](const Balloon& balloon) { ShowWithoutServer(balloon); };
}

QtTray::~QtTray() = default;

bool QtTray::Available() const {
  if (!added_) return false;
  return kind_ == Kind::kBus ? host_.There() : kind_ == Kind::kXEmbed && xembed_.There();
}

void QtTray::TraysChanged() {
  MakeIcon();
  const bool available = Available();
  const bool gone = was_available_ && !available;
  was_available_ = available;
  if (gone && added_ && Gone) Gone();
}

// The toolkit takes a tray on the bus if there is one, so that is what counts first.
void QtTray::MakeIcon() {
  if (!added_ || icon_ || !host_.Known()) return;
  if (!host_.There() && !xembed_.There()) return;
  kind_ = host_.There() ? Kind::kBus : Kind::kXEmbed;
  icon_ = std::make_unique<QSystemTrayIcon>();
  icon_->setContextMenu(menu_);
  connect(icon_.get(), &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason != QSystemTrayIcon::Trigger) return;
            const bool again = since_click_.isValid() &&
                               !since_click_.hasExpired(QApplication::doubleClickInterval());
            since_click_.start();
            if (LeftButtonUp) LeftButtonUp(again);
          });
  connect(icon_.get(), &QSystemTrayIcon::messageClicked, this, [this] { ClickedBalloon(); });
  ShowIcon();
  icon_->show();
}

void QtTray::ShowIcon() {
  if (!icon_) return;
  icon_->setIcon(Icon(shown_));
  icon_->setToolTip(tip_);
}

void QtTray::Add(TrayIcon icon, const Text& tip) {
  added_ = true;
  Modify(icon, tip);
  TraysChanged();
}

void QtTray::Modify(TrayIcon icon, const Text& tip) {
  if (!added_) return;
  const bool same = icon == shown_ && ToQString(tip) == tip_;
  shown_ = icon;
  tip_ = ToQString(tip);
  if (!same) ShowIcon();
}

void QtTray::Delete() {
  RemoveBalloon();
  added_ = false;
  was_available_ = false;
  icon_.reset();
}

void QtTray::SetMenu(QMenu* menu) {
  menu_ = menu;
  if (icon_) icon_->setContextMenu(menu);
}

void QtTray::ShowBalloon(const Balloon& balloon) {
  if (about_) RemoveBalloon();
  notifier_.Show(balloon);
}

void QtTray::RemoveBalloon() {
  notifier_.Close();
  if (!about_) return;
  about_.reset();
  if (window_) window_->hide();
  // An empty message takes the one at the icon away.
  if (icon_ && kind_ == Kind::kXEmbed) icon_->showMessage({}, {}, QSystemTrayIcon::NoIcon, 1);
}

void QtTray::ShowWithoutServer(const Balloon& balloon) {
  about_ = balloon.about;
  QString text = ToQString(balloon.text);
  text.replace("\r\n", "\n");
  if (icon_ && kind_ == Kind::kXEmbed && xembed_.There()) {
    icon_->showMessage(ToQString(balloon.title), text, Icon(TrayIcon::kWindow), kBalloonTime);
  } else if (HasPlacesForWindows()) {
    if (!window_) {
      window_ = std::make_unique<BalloonWindow>();
      window_->Clicked = [this] { ClickedBalloon(); };
    }
    window_->ShowText(ToQString(balloon.title), text);
  }
}

void QtTray::ClickedBalloon() {
  if (!about_) return;
  const BalloonAbout about = *about_;
  about_.reset();
  // The balloon's tip lies on the icon, which may then be told of the same click.
  since_click_.start();
  if (BalloonClicked) BalloonClicked(about);
}

}  // namespace parlorwire
