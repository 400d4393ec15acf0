// The menu of the main window.
#pragma once

#include <QObject>
#include <functional>

#include "platform/desktop.h"

class QAction;
class QMainWindow;
class QMenu;

namespace parlorwire {

struct Client;

// The items bear the names of their commands. They work on the client; `leave` ends the program.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  MainMenu(Client& client, QMainWindow* window, std::function<void()> leave);

  void SetLanguage(UiLanguage language);
  // The check marks, from the client.
  void ShowChecks();

 private:
  struct Caption;
  QAction* Item(QMenu* menu, const Caption& caption, std::function<void()> action,
                bool checkable = false);
  QMenu* Menu(QMenu* above, const Caption& caption);
  void BuildLanguage(QMenu* menu);
  void BuildFonts(QMenu* menu);
  void BuildColours(QMenu* menu);
  void BuildBot(QMenu* menu);

  Client& client_;
  QMainWindow* window_;
};

}  // namespace parlorwire
