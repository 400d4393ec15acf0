// The menu of the main window.
#pragma once

#include <QObject>
#include <array>
#include <functional>

#include "platform/desktop.h"
#include "session/app_state.h"

class QAction;
class QMainWindow;
class QMenu;

namespace parlorwire {

struct BothLanguages;
struct Client;

// The captions of an item of the window's menus, or of a menu's own item, in both languages:
// MainMenu shows the one of the language.
void KeepCaptions(QObject* item, const BothLanguages& text);

// The items bear the names of their commands. They work on the client; `leave` ends the program.
// The items of `menu_bot` are brought up to date whenever it opens.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  MainMenu(Client& client, QMainWindow* window, std::function<void()> leave);

  void SetLanguage(UiLanguage language);
  // The check marks, from the client.
  void ShowChecks();

  // The windows behind some items.
  std::function<void()> akick_modify;
  std::function<void()> channel_modif;
  std::function<void()> search_logs;
  std::function<void()> log_folder;

 private:
  struct Caption;
  QAction* Item(QMenu* menu, const Caption& caption, std::function<void()> action,
                bool checkable = false);
  QMenu* Menu(QMenu* above, const Caption& caption);
  QString TitleOf(const BothLanguages& kind, const BothLanguages& caption) const;
  void BuildLanguage(QMenu* menu);
  void BuildFonts(QMenu* menu);
  void BuildColours(QMenu* menu);
  void BuildBot(QMenu* menu);
  void BuildLists(QMenu* menu);
  void BuildReports(QMenu* menu);
  void Explain(QAction* item, const char* meaning);
  void ShowBot();

  Client& client_;
  QMainWindow* window_;
  QAction* section_ = nullptr;                  // the line ahead of the channels
  std::array<QAction*, kTabCount> channels_{};  // channel_1 first
};

}  // namespace parlorwire
