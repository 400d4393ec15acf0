// The program: the system's ports, the core, and the windows, put together.

#include <QApplication>

#include "platform/qt/qt_platform.h"
#include "session/client.h"
#include "shell/assembly.h"
#include "shell/qt/client_main.h"
#include "shell/qt/leave_on_signal.h"
#include "shell/qt/qt_desktop.h"
#include "shell/version.h"

int main(int argc, char** argv) {
  using namespace parlorwire;
  QApplication application(argc, argv);
  QApplication::setApplicationName("parlorwire");
  QApplication::setApplicationVersion(kVersion);
  QApplication::setQuitOnLastWindowClosed(false);

  QtDesktop desktop;
  QtPlatform platform(DesktopApplicationFolder());
  Client client(platform.Ports(desktop));
  Assemble(client);

  client_main window(client, desktop);
  window.Load();
  // Not before the settings are read: leaving writes them back.
  LeaveOnSignal leave([&window] { window.close(); });
  QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                   [&window] { window.close(); });
  window.show();
  return QApplication::exec();
}
