#include "platform/qt/qt_platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <QString>

#include "platform/posix/application_folder.h"
#include "platform/qt/qt_timer.h"
#include "platform/qt/qt_winsock.h"

namespace parlorwire {
namespace {

std::filesystem::path NativePath(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

}  // namespace

QtPlatform::QtPlatform(const std::filesystem::path& application_folder)
    : files(application_folder,
            [this](std::function<void()> action) {
              QMetaObject::invokeMethod(&context, std::move(action), Qt::QueuedConnection);
            }),
      program_files(ProgramFolder(NativePath(QCoreApplication::applicationDirPath()))),
      day_logs(application_folder / "Logs") {
  files.RemoveLeftovers();
}

Platform QtPlatform::Ports(Desktop& desktop, Tray& tray) {
  return {files,
          program_files,
          day_logs,
          clock,
          random,
          clipboard,
          desktop,
          tray,
          [] { return std::make_unique<QtWinsock>(); },
          [] { return std::make_unique<QtTimer>(); }};
}

std::filesystem::path DesktopApplicationFolder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return ApplicationFolder(NativePath(QCoreApplication::applicationDirPath()),
                           NativePath(data) / "parlorwire");
}

}  // namespace parlorwire
