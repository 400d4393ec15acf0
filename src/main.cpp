// The program: the system's ports, the core, and the windows, put together.

#include <QApplication>
#include <cstdio>

#include "platform/qt/qt_platform.h"
#include "session/client.h"
#include "shell/assembly.h"
#include "shell/command_line.h"
#include "shell/qt/client_main.h"
#include "shell/qt/leave_on_signal.h"
#include "shell/qt/qt_desktop.h"
#include "shell/version.h"

int main(int argc, char** argv) {
  using namespace parlorwire;
  // No screen is needed for that.
  if (const auto answer =
          AnswerOnCommandLine({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)})) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }

  QApplication application(argc, argv);
  QApplication::setApplicationName("parlorwire");
  QApplication::setApplicationVersion(kVersion);
  QGuiApplication::setDesktopFileName(kDesktopId);
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
