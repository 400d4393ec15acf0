#include "shell/qt/window_room.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "shell/qt/twips.h"
#include "shell/window_fit.h"

namespace parlorwire {
namespace {

constexpr QSize kLeastSize{520, 360};  // below it controls lie over each other
constexpr int kUnframedTitle = 30;     // pixels, of a window that the desktop has not framed yet

std::vector<QRect> RoomsOfScreens() {
  std::vector<QRect> rooms;
  for (const QScreen* screen : QGuiApplication::screens())
    rooms.push_back(screen->availableGeometry());
  return rooms;
}

Place PlaceOf(const QRect& rect) {
  return {Twips(rect.left()), Twips(rect.top()), Twips(rect.width()), Twips(rect.height())};
}

}  // namespace

WindowRoom::WindowRoom(QWidget* window) : WindowRoom(window, RoomsOfScreens) {}

WindowRoom::WindowRoom(QWidget* window, std::function<std::vector<QRect>()> rooms)
    : QObject(window), window_(window), rooms_(std::move(rooms)) {
  window_->installEventFilter(this);
  for (QScreen* screen : QGuiApplication::screens())
    Watch(screen);
  connect(qApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
    Watch(screen);
    FitSoon();
  });
  connect(qApp, &QGuiApplication::screenRemoved, this, &WindowRoom::FitSoon);
}

bool WindowRoom::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Show && !event->spontaneous()) FitSoon();
  return false;
}

void WindowRoom::Watch(QScreen* screen) {
  connect(screen, &QScreen::availableGeometryChanged, this, &WindowRoom::FitSoon);
}

// Several screens may change at once, and the toolkit itself moves windows then.
void WindowRoom::FitSoon() {
  if (std::exchange(soon_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        soon_ = false;
        Fit();
      },
      Qt::QueuedConnection);
}

void WindowRoom::Fit() {
  if (window_->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
    return;
  // A window has no frame yet while it is hidden.
  QRect frame = window_->frameGeometry();
  const QSize inner = window_->size();
  if (frame.size() == inner) frame.setHeight(frame.height() + kUnframedTitle);
  const QSize edges = frame.size() - inner;
  const int title = std::max(window_->geometry().top() - frame.top(), kUnframedTitle);

  std::vector<Place> rooms;
  for (const QRect& room : rooms_())
    rooms.push_back(PlaceOf(room));
  const QRect fitted = PixelsOf(FitWindow(PlaceOf(frame), Twips(title), rooms));
  QSize least = kLeastSize;
  for (const Place& room : rooms)
    least = least.boundedTo(PixelsOf(room).size() - edges).expandedTo({1, 1});
  window_->setMinimumSize(least);
  if (fitted.size() != frame.size()) window_->resize(fitted.size() - edges);
  if (fitted.topLeft() != frame.topLeft()) window_->move(fitted.topLeft());
}

}  // namespace parlorwire
