#include "shell/qt/sett_conn.h"
#include "session/event_entry.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "session/proxy_dialog.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"
#include "shell/qt/text_field.h"

namespace parlorwire {

sett_conn::sett_conn(Client& client, QWidget* owner) : QDialog(owner), client_(client) {
  NameControl(this, "sett_conn");
  FrameAsDialog(this);
  Build();
  SetTexts();
  const ProxyControls& controls = ProxyDialog(client_);
  proxy_addr_->setText(ToQString(controls.proxy_addr));
  proxy_port_->setText(ToQString(controls.proxy_port));
  proxy_login_->setText(ToQString(controls.proxy_login));
  proxy_pass_->setText(ToQString(controls.proxy_pass));
  ShowState();

  const auto bind = [this](TextField* field, Text ProxyControls::* value) {
    connect(field, &QLineEdit::textChanged, this, [this, value](const QString& text) {
      ProxyDialog(client_).*value = FromQString(text);
    });
  };
  bind(proxy_addr_, &ProxyControls::proxy_addr);
  bind(proxy_port_, &ProxyControls::proxy_port);
  bind(proxy_login_, &ProxyControls::proxy_login);
  bind(proxy_pass_, &ProxyControls::proxy_pass);
  proxy_port_->TakesTyped = ProxyPortTakes;
  connect(use_proxy_, &QCheckBox::clicked, this, [this](bool on) {
    OnEvent(client_, "use_proxy_Click", [&] {
      const bool focus = use_proxy_Click(client_, on);
      ShowState();
      if (focus) proxy_addr_->setFocus();
    });
  });
  connect(autentification_, &QCheckBox::clicked, this, [this](bool on) {
    OnEvent(client_, "autentification_Click", [&] {
      autentification_Click(client_, on);
      ShowState();
    });
  });
  connect(button_apply_, &QPushButton::clicked, this, [this] { Apply(); });
  connect(button_cancel_, &QPushButton::clicked, this, [this] { reject(); });
}

void sett_conn::Build() {
  setPalette(PaletteOn(palette(), kDialogBackColor));

  frame_ = new QGroupBox(this);
  frame_->setFont(LabelFont());
  const auto check = [this] {
    auto* box = new QCheckBox(frame_);
    box->setFont(LabelFont());
    return box;
  };
  const auto label = [this](QWidget* field) {
    auto* words = new QLabel(frame_);
    words->setFont(LabelFont());
    words->setBuddy(field);
    return words;
  };
  use_proxy_ = check();
  proxy_addr_ = new TextField(frame_);
  proxy_port_ = new TextField(frame_);
  autentification_ = check();
  proxy_login_ = new TextField(frame_);
  proxy_pass_ = new TextField(frame_);
  proxy_pass_->setEchoMode(QLineEdit::Password);
  proxy_port_->setMaximumWidth(70);
  l_proxy_addr_ = label(proxy_addr_);
  l_proxy_port_ = label(proxy_port_);
  l_proxy_login_ = label(proxy_login_);
  l_proxy_pass_ = label(proxy_pass_);
  button_apply_ = new QPushButton(this);
  button_cancel_ = new QPushButton(this);
  button_apply_->setDefault(true);
  for (TextField* field : {proxy_addr_, proxy_port_, proxy_login_, proxy_pass_})
    field->Enter = [this] { Apply(); };

  NameControl(frame_, "frame");
  NameControl(use_proxy_, "use_proxy");
  NameControl(proxy_addr_, "proxy_addr");
  NameControl(proxy_port_, "proxy_port");
  NameControl(autentification_, "autentification");
  NameControl(proxy_login_, "proxy_login");
  NameControl(proxy_pass_, "proxy_pass");
  NameControl(l_proxy_addr_, "l_proxy_addr");
  NameControl(l_proxy_port_, "l_proxy_port");
  NameControl(l_proxy_login_, "l_proxy_login");
  NameControl(l_proxy_pass_, "l_proxy_pass");
  NameControl(button_apply_, "button_apply");
  NameControl(button_cancel_, "button_cancel");

  auto* grid = new QGridLayout(frame_);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setVerticalSpacing(8);
  grid->addWidget(use_proxy_, 0, 0, 1, 4);
  grid->addWidget(l_proxy_addr_, 1, 0);
  grid->addWidget(proxy_addr_, 1, 1);
  grid->addWidget(l_proxy_port_, 1, 2);
  grid->addWidget(proxy_port_, 1, 3);
  grid->addWidget(autentification_, 2, 0, 1, 4);
  grid->addWidget(l_proxy_login_, 3, 0);
  grid->addWidget(proxy_login_, 3, 1, 1, 3);
  grid->addWidget(l_proxy_pass_, 4, 0);
  grid->addWidget(proxy_pass_, 4, 1, 1, 3);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(button_apply_);
  buttons->addWidget(button_cancel_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 14, 14, 14);
  column->setSpacing(12);
  column->addWidget(frame_);
  column->addLayout(buttons);
  setMinimumWidth(400);
}

void sett_conn::SetTexts() {
  const auto in_language = [this](const BothLanguages& text) {
    return ToQString(InLanguage(client_, text));
  };
  for (const ControlText& entry : kProxyFormTexts) {
    const QString text = in_language(entry.text);
    const auto name = QString::fromLatin1(entry.control.data(), qsizetype(entry.control.size()));
    if (name == QLatin1String("window")) setWindowTitle(text);
    if (name == QLatin1String("frame")) frame_->setTitle(text);
    if (auto* label = findChild<QLabel*>(name)) label->setText(text);
    if (auto* box = findChild<QCheckBox*>(name)) box->setText(text);
  }
  button_apply_->setText(in_language({W<"&Применить">, "&Apply"}));
  button_cancel_->setText(in_language({W<"&Отмена">, "&Cancel"}));
  SayControl(this, windowTitle());
  SayControl(frame_, frame_->title());
  for (auto* button : findChildren<QAbstractButton*>())
    SayControl(button, button->text());
  for (auto* label : findChildren<QLabel*>()) {
    SayControl(label, label->text());
    if (label->buddy() != nullptr) SayControl(label->buddy(), label->text());
  }
}

void sett_conn::ShowState() {
  const ProxyControls& controls = ProxyDialog(client_);
  const ProxyFormState state = StateOfProxyForm(controls);
  use_proxy_->setChecked(controls.use_proxy);
  autentification_->setChecked(controls.autentification);
  proxy_addr_->SetLocked(state.proxy_addr_locked);
  proxy_port_->SetLocked(state.proxy_port_locked);
  autentification_->setEnabled(state.autentification_enabled);
  proxy_login_->SetLocked(state.proxy_login_locked);
  proxy_pass_->SetLocked(state.proxy_pass_locked);
  l_proxy_addr_->setEnabled(!state.proxy_addr_locked);
  l_proxy_port_->setEnabled(!state.proxy_port_locked);
  l_proxy_login_->setEnabled(!state.proxy_login_locked);
  l_proxy_pass_->setEnabled(!state.proxy_pass_locked);
}

void sett_conn::Apply() {
  OnEvent(client_, "button_apply", [&] {
    if (ApplyProxyForm(client_)) {
      accept();
    } else {
      ShowState();
      (ProxyPortIsWrong(ProxyDialog(client_)) ? proxy_port_ : proxy_addr_)->setFocus();
    }
  });
}

void sett_conn::reject() {
  CancelProxyForm(client_);
  QDialog::reject();
}

}  // namespace parlorwire
