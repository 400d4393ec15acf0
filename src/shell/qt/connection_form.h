// The login dialog.
#pragma once

#include <QWidget>
#include <functional>

#include "shell/login_dialog.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace parlorwire {

class GraphicButton;
class LinkLabel;
class TextField;

// Not modal. It is hidden, not deleted, when it is closed or has connected.
class connection_form : public QWidget {
  Q_OBJECT

 public:
  connection_form(Client& client, QWidget* owner);

  // Fills the controls from the saved logins and comes up.
  void ShowLoginDialog();

  // The user wants to end the program.
  std::function<void()> Timer4;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void SetTexts();
  void ShowControls();  // the controls from dialog_
  void ReadFields();    // dialog_ from the controls
  void Connect();
  void ShowProxyForm();

  Client& client_;
  LoginDialog dialog_;
  bool showing_ = false;  // the controls are being set by the program

  QLabel *l_login_, *l_pass_, *l_room_, *l_channel_pwd_, *l_primechanie_, *l_primechanie1_;
  QComboBox* login_;
  TextField *pass_, *room_, *channel_pwd_input_;
  QCheckBox* save_pass_;
  LinkLabel* connect_param_;
  GraphicButton *button_connect_, *button_getAccount_;
};

}  // namespace parlorwire
