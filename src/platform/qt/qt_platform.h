// The ports of a real desktop, all but the windows.
#pragma once

#include <QObject>
#include <filesystem>

#include "platform/platform.h"
#include "platform/posix/posix_day_logs.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_random.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_clock.h"

namespace parlorwire {

// Owns what it hands out. Needs a QGuiApplication while it is used. At its start it removes what
// killed programs left in the application folder.
struct QtPlatform {
  // `application_folder` is what DesktopApplicationFolder gives, or any other that is to be used.
  explicit QtPlatform(const std::filesystem::path& application_folder);

  Platform Ports(Desktop& desktop, Tray& tray);
  Platform Ports(Desktop& desktop) { return Ports(desktop, no_tray); }

  QObject context;  // of what is called when an event is over
  PosixFiles files;
  PosixFiles program_files;
  PosixDayLogs day_logs;
  QtClock clock;
  SystemRandom random;
  QtClipboard clipboard;
  NoTray no_tray;
};

// The application folder of the running program. The user's data folder is "parlorwire" in
// $XDG_DATA_HOME, or in ~/.local/share without that.
std::filesystem::path DesktopApplicationFolder();

}  // namespace parlorwire
