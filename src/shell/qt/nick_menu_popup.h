// The menus of the user list: nick_menu, for a nick, and menu_copy_users, for what is selected.
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

class QAction;
class QMenu;
class QWidget;

namespace parlorwire {

struct Client;

// They come up at the pointer when the core asks for them. The items bear the names of their
// commands. A Russian caption stands in both languages; in English its item has an English tool tip
// and spoken name.
class NickMenuPopup : public QObject {
  Q_OBJECT

 public:
  NickMenuPopup(Client& client, QWidget* window);
  ~NickMenuPopup() override;

  // What opens a menu in `open` opens it there and not at the pointer; a point of the screen.
  void At(QPoint place, const std::function<void()>& open);

  // A menu of another tab than the active one goes away: its commands work on the active tab.
  void CloseUnlessOfActiveTab();

 private:
  void BuildNickMenu();
  void BuildCopyMenu();
  void ShowNickMenu();
  void ShowCopyMenu();
  void Open(QMenu* menu);
  void Act(std::string_view name);
  void ChangeMessageColor();

  Client& client_;
  QWidget* window_;
  QMenu* nick_menu_;
  QMenu* menu_copy_users_;
  std::map<std::string_view, QAction*> items_;  // of nick_menu
  std::optional<QPoint> place_;
};

}  // namespace parlorwire
