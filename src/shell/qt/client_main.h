// The main window: it owns the ten tab slots' controls, and everything that the user does in them
// becomes a call of the core.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <QTranslator>
#include <array>
#include <functional>
#include <memory>

#include "display/pane_search.h"
#include "session/client.h"
#include "shell/qt/main_controls.h"
#include "shell/qt/main_layout.h"

namespace parlorwire {

class CaretRest;
class Form_tray;
class MainMenu;
class MessagePane;
class NickMenuPopup;
class MenuSmilesShow;
class PersWindows;
class QtDesktop;
class SmilesMenu;
class TypingForward;
class UsersList;
class WindowRoom;
class bot_autokick;
class connection_form;
class log_search_form;
class search_form;
class zastavka;

class client_main : public QMainWindow {
  Q_OBJECT

 public:
  // Attaches itself to the desktop, whose client is `client`.
  client_main(Client& client, QtDesktop& desktop);
  ~client_main() override;

  // The load step, behind the splash. The window takes its place, and is to be shown next. The
  // splash goes with the window's first activation.
  void Load();

  // The unload step, once; the program is over then. A second call does nothing.
  void Unload();

  // Ends the program: the unload step, and the end of the event loop. Also of a hidden window.
  void Leave();

  // How others ask for the end of the program from inside an event.
  void Timer4();

  // The label close_tab, and its hot key.
  void CloseTab();

  // Ctrl+F; and F3 and Shift+F3, which open the dialog if there is nothing to search for.
  void ShowSearchDialog();
  void FindOn(SearchDirection direction);

  // Ctrl+Shift+F.
  void ShowLogSearch();

  // ---- for the port ----
  void Restore(WindowState state);
  void ShowActiveSlot();
  void ShowLanguage(UiLanguage language);
  void ShowTabCaption();  // of the active tab, where another window bears it
  MainControls controls;
  Form_tray* form_tray = nullptr;  // what there is of the tray
  std::array<Text, kTabCount> tab_captions;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WireShared();
  void WireLinks();
  void WireTab(int slot);
  void WireSmiles();
  void WireReading(int slot);
  void FillHooks();
  void ShowLoginDialog();
  void FillMenu();
  void PlaceControls();
  void FirstActivation();
  void EndSplash();
  void TellState();

  Client& client_;
  QtDesktop& desktop_;
  MainLayout layout_;
  MainMenu* menu_;
  NickMenuPopup* nick_menus_;
  CaretRest* caret_rest_;
  WindowRoom* room_;
  TypingForward* typing_forward_;
  SmilesMenu* smiles_menu_;
  PersWindows* pers_windows_;
  std::array<MessagePane*, kTabCount> message_panes_{};
  std::array<UsersList*, kTabCount> users_lists_{};
  std::unique_ptr<connection_form> connection_form_;
  std::unique_ptr<bot_autokick> bot_autokick_;
  std::unique_ptr<search_form> search_form_;
  std::unique_ptr<log_search_form> log_search_form_;
  std::unique_ptr<MenuSmilesShow> MenuSmilesShow_;
  std::unique_ptr<zastavka> zastavka_;
  QTranslator toolkit_russian_;
  QTimer Timer5_;  // the focus goes to msg of the tab that has been shown
  bool activated_ = false;
  bool unloaded_ = false;
};

}  // namespace parlorwire
