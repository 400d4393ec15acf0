// The menus "Edit", "Channel", "Tab" and "Help".
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "session/both_languages.h"

class QMenu;
class QWidget;

namespace parlorwire {

struct Client;
class LinkLabel;
class client_main;

// They hold all that has a key or a label in the main window, each with its key beside it, and with
// those items grey that can't be used as the menu opens. F10 opens the first menu.
class CommandMenus : public QObject {
  Q_OBJECT

 public:
  // Ahead of the menu "Settings", and "Help" behind all. `focus_tab` gives the focus to a tab that
  // was shown.
  CommandMenus(Client& client, client_main& window, std::function<void()> focus_tab);

 private:
  QMenu* Menu(const char* name, const BothLanguages& caption);
  void Item(QMenu* menu, const char* name, const BothLanguages& caption, const char* key,
            std::function<void()> act, std::function<bool()> enabled = nullptr);
  void LinkItem(QMenu* menu, const char* name, const BothLanguages& caption, const char* key,
                LinkLabel* link);
  void BuildEdit();
  void BuildChannel();
  void BuildTab();
  void BuildHelp();
  void NoteFocus(QWidget* now);
  void Copy();
  bool CanCopy() const;
  void SelectAll();
  bool AnyTab() const;

  Client& client_;
  client_main& window_;
  std::function<void()> focus_tab_;
  QPointer<QWidget> focus_;  // of the window, the menu left aside
};

}  // namespace parlorwire
