// What belongs to the tray icon: its menu, and what its events do.
#pragma once

#include <QMenu>
#include <QObject>
#include <memory>

namespace parlorwire {

struct Client;
class QtTray;
class client_main;

// The menu has `put_in_tray` or `restore_client`, whichever makes sense, and `exit`.
class Form_tray : public QObject {
  Q_OBJECT

 public:
  // The window tells it of a change of language.
  Form_tray(Client& client, QtTray& tray, client_main& window);
  ~Form_tray() override;

  // The menu as the window and the language are now.
  void ShowMenu();

  QMenu* menu() const { return menu_.get(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* Item(const char* name, const std::function<void()>& action);

  Client& client_;
  QtTray& tray_;
  client_main& window_;
  std::unique_ptr<QMenu> menu_;
  QAction* put_in_tray_;
  QAction* restore_client_;
  QAction* exit_;
};

}  // namespace parlorwire
