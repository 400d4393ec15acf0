// The port to the tray icon and its balloons.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace parlorwire {

// The pictures of the tray icon, by the numbers of the program's resources.
enum class TrayIcon { kWindow = 0, kPersonal = 101, kMention = 102 };

// Whom a balloon speaks of, which is what a click on it brings up: a tab, or a personal window by
// its handle. Neither: the main window as it is.
struct BalloonAbout {
  int tab = -1;                  // 0..9
  std::int32_t pers_window = 0;  // PersonalWindow::Handle
  bool operator==(const BalloonAbout&) const = default;
};

// NIIF_NOSOUND: a balloon that comes without a sound.
inline constexpr int kSilentBalloon = 16;

// How long a balloon is shown, in ms; the interval of `Timer23`.
inline constexpr int kBalloonTime = 8000;

struct Balloon {
  Text title;
  Text text;  // lines are separated by CR LF; nothing in it is markup
  int info_flags = 0;
  BalloonAbout about;
  bool operator==(const Balloon&) const = default;
};

// One icon and one balloon at most. Nothing here throws, and no result is told.
class Tray {
 public:
  virtual ~Tray() = default;

  // Whether the user sees the icon, or would if it were added, at this moment.
  virtual bool Available() const = 0;

  // The icon is shown as soon as there is a tray, whenever that is.
  virtual void Add(TrayIcon icon, const Text& tip) = 0;
  virtual void Modify(TrayIcon icon, const Text& tip) = 0;  // nothing until it is added
  // The balloon goes with the icon.
  virtual void Delete() = 0;

  // Takes the place of the last one. It needs no tray.
  virtual void ShowBalloon(const Balloon& balloon) = 0;
  // Ours, and nobody else's; nothing if there is none.
  virtual void RemoveBalloon() = 0;
};

// Where there is none.
class NoTray : public Tray {
 public:
  bool Available() const override { return false; }
  void Add(TrayIcon, const Text&) override {}
  void Modify(TrayIcon, const Text&) override {}
  void Delete() override {}
  void ShowBalloon(const Balloon&) override {}
  void RemoveBalloon() override {}
};

}  // namespace parlorwire
