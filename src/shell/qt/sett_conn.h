// The dialog of the proxy settings.
#pragma once

#include <QDialog>

#include "shell/proxy_form.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace parlorwire {

class TextField;

// What is typed goes into ProxyDialog(client) at once and is in force at once.
class sett_conn : public QDialog {
  Q_OBJECT

 public:
  sett_conn(Client& client, QWidget* owner);

  void reject() override;  // button_cancel, Escape, or closed by the window's frame

 private:
  void Build();
  void SetTexts();
  void ShowState();
  void Apply();

  Client& client_;
  QGroupBox* frame_;
  QCheckBox *use_proxy_, *autentification_;
  QLabel *l_proxy_addr_, *l_proxy_port_, *l_proxy_login_, *l_proxy_pass_;
  TextField *proxy_addr_, *proxy_port_, *proxy_login_, *proxy_pass_;
  QPushButton *button_apply_, *button_cancel_;
};

}  // namespace parlorwire
