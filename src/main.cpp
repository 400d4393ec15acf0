// The program: the system's ports, the core, and the windows, put together.

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/qt/one_client.h"
#include "platform/qt/qt_platform.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/assembly.h"
#include "shell/command_line.h"
#include "shell/qt/client_main.h"
#include "shell/qt/form_tray.h"
#include "shell/qt/leave_on_signal.h"
#include "shell/qt/qt_desktop.h"
#include "shell/qt/qt_tray.h"
#include "shell/tray.h"
#include "shell/version.h"

namespace {

// Reading it later is too late: the toolkit takes it away.
std::string ActivationToken() {
  for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
    if (const char* token = std::getenv(variable); token != nullptr && *token != 0) return token;
  return {};
}

int ShowTheFirst(parlorwire::OneClient& one_client, const std::string& token) {
  if (one_client.AskFirst(token)) return 0;
  std::fputs("parlorwire: another one works in this folder and does not answer\n", stderr);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace parlorwire;
  // No screen is needed for that.
  if (const auto answer =
          AnswerOnCommandLine({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)})) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }

  const std::string token = ActivationToken();
  QApplication application(argc, argv);
  QApplication::setApplicationName("parlorwire");
  QApplication::setApplicationVersion(kVersion);
  QGuiApplication::setDesktopFileName(kDesktopId);
  QApplication::setQuitOnLastWindowClosed(false);

  const std::filesystem::path folder = DesktopApplicationFolder();
  OneClient one_client(folder);
  if (!one_client.First()) return ShowTheFirst(one_client, token);

  QtDesktop desktop;
  QtPlatform platform(folder);
  QtTray tray;
  Client client(platform.Ports(desktop, tray));
  Assemble(client);

  client_main window(client, desktop);
  const Form_tray form_tray(client, tray, window);
  window.Load();
  // Not before the settings are read: leaving writes them back.
  LeaveOnSignal leave([&window] { window.Leave(); });
  QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                   [&window] { window.Leave(); });
  one_client.Asked = [&client](const std::string& its_token) {
    qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(its_token));
    OnEvent(client, "ShowClient", [&] { ShowClient(client); });
  };
  window.show();
  return QApplication::exec();
}
