#include "shell/qt/connection_form.h"
#include "session/event_entry.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QWindow>

#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"
#include "shell/qt/first_line.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/link_label.h"
#include "shell/qt/sett_conn.h"
#include "shell/qt/text_field.h"

namespace parlorwire {
namespace {

constexpr int kLongestList = 12;  // entries that the combo shows at once

QLabel* NewLabel(QWidget* form) {
  auto* label = new QLabel(form);
  label->setFont(LabelFont());
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

connection_form::connection_form(Client& client, QWidget* owner)
    : QWidget(owner, Qt::Dialog), client_(client) {
  NameControl(this, "connection_form");
  Build();

  // The dialog is activated from another window of the program; a message box is none.
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
          [this, left = static_cast<QWindow*>(nullptr)](QWindow* entered) mutable {
            const bool from_main = left != nullptr && left == parentWidget()->windowHandle();
            if (from_main && entered != nullptr && entered == windowHandle()) login_->setFocus();
            left = entered;
          });
}

void connection_form::Build() {
  setPalette(PaletteOn(palette(), kDialogBackColor));
  FrameAsDialog(this);
  setAutoFillBackground(true);

  login_ = new QComboBox(this);
  login_->setEditable(true);
  login_->setInsertPolicy(QComboBox::NoInsert);
  login_->setCompleter(nullptr);
  login_->setValidator(new FirstLineOnly(login_));
  login_->setMaxVisibleItems(kLongestList);
  login_->setFont(LabelFont());
  login_->setMinimumWidth(210);
  // The toolkit selects an entry that is typed in full; here a typed nick stays typed.
  disconnect(login_->lineEdit(), &QLineEdit::editingFinished, login_, nullptr);
  disconnect(login_->lineEdit(), &QLineEdit::returnPressed, login_, nullptr);
  login_->installEventFilter(this);
  pass_ = new TextField(this);
  pass_->setEchoMode(QLineEdit::Password);
  room_ = new TextField(this);
  channel_pwd_input_ = new TextField(this);
  channel_pwd_input_->setEchoMode(QLineEdit::Password);
  save_pass_ = new QCheckBox(this);
  save_pass_->setFont(LabelFont());
  connect_param_ = new LinkLabel(this);
  button_connect_ = new GraphicButton(GraphicButton::Picture::kConnect, this);
  button_getAccount_ = new GraphicButton(GraphicButton::Picture::kAccount, this);
  for (QLabel** label :
       {&l_login_, &l_pass_, &l_room_, &l_channel_pwd_, &l_primechanie_, &l_primechanie1_})
    *label = NewLabel(this);
  l_login_->setBuddy(login_);
  l_pass_->setBuddy(pass_);
  l_room_->setBuddy(room_);
  l_channel_pwd_->setBuddy(channel_pwd_input_);

  NameControl(login_, "login");
  NameControl(pass_, "pass");
  NameControl(room_, "room");
  NameControl(channel_pwd_input_, "channel_pwd_input");
  NameControl(save_pass_, "save_pass");
  NameControl(connect_param_, "connect_param");
  NameControl(button_connect_, "button_connect");
  NameControl(button_getAccount_, "button_getAccount");
  NameControl(l_login_, "l_login");
  NameControl(l_pass_, "l_pass");
  NameControl(l_room_, "l_room");
  NameControl(l_channel_pwd_, "l_channel_pwd");
  NameControl(l_primechanie_, "l_primechanie");
  NameControl(l_primechanie1_, "l_primechanie1");

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 16, 16, 14);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(8);
  grid->addWidget(l_login_, 0, 0);
  grid->addWidget(login_, 0, 1);
  grid->addWidget(l_pass_, 1, 0);
  grid->addWidget(pass_, 1, 1);
  grid->addWidget(l_room_, 2, 0);
  grid->addWidget(room_, 2, 1);
  grid->addWidget(l_channel_pwd_, 3, 0);
  grid->addWidget(channel_pwd_input_, 3, 1);
  auto* options = new QHBoxLayout;
  options->addWidget(save_pass_);
  options->addStretch();
  options->addWidget(connect_param_);
  grid->addLayout(options, 4, 0, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(button_getAccount_);
  buttons->addStretch();
  buttons->addWidget(button_connect_);
  grid->addLayout(buttons, 5, 0, 1, 2);
  grid->addWidget(l_primechanie_, 6, 0, 1, 2);
  grid->addWidget(l_primechanie1_, 7, 0, 1, 2);
  layout()->setSizeConstraint(QLayout::SetFixedSize);

  const QList<QWidget*> order = {login_,     pass_,          room_,           channel_pwd_input_,
                                 save_pass_, connect_param_, button_connect_, button_getAccount_};
  for (qsizetype i = 1; i < order.size(); ++i)
    setTabOrder(order[i - 1], order[i]);

  connect(login_, &QComboBox::activated, this, [this](int index) {
    OnEvent(client_, "login_Click", [&] {
      ReadFields();
      ChooseLogin(client_, dialog_, index);
      ShowControls();
    });
  });
  connect(login_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    OnEvent(client_, "login_Change", [&] {
      ReadFields();
      EditLogin(client_, dialog_, FromQString(text));
      ShowControls();
    });
  });
  connect(save_pass_, &QCheckBox::clicked, this, [this](bool on) { save_pass_Click(dialog_, on); });
  pass_->Enter = [this] { room_->setFocus(); };
  room_->Enter = [this] { Connect(); };
  channel_pwd_input_->Enter = [this] { Connect(); };
  connect(button_connect_, &QAbstractButton::clicked, this, [this] { Connect(); });
  connect(button_getAccount_, &QAbstractButton::clicked, this,
          [this] { OnEvent(client_, "button_getAccount", [&] { button_getAccount(client_); }); });
  connect_param_->SetAction([this] { ShowProxyForm(); });
}

void connection_form::SetTexts() {
  const auto in_language = [this](const BothLanguages& text) {
    return ToQString(InLanguage(client_, text));
  };
  const auto set = [&](const ControlText& entry) {
    const QString text = in_language(entry.text);
    const auto name = QString::fromLatin1(entry.control.data(), qsizetype(entry.control.size()));
    if (auto* label = findChild<QLabel*>(name)) label->setText(text);
    if (auto* button = findChild<QAbstractButton*>(name)) {
      button->setText(text);
      SayControl(button, text);
    }
  };
  for (const ControlText& entry : kLoginDialogTexts)
    set(entry);
  setWindowTitle(in_language({W<"Вход в чат">, "Log in"}));
  button_connect_->setText(in_language({W<"&Подключиться">, "&Connect"}));
  button_getAccount_->setText(in_language({W<"П&олучить ник">, "&Get a nickname"}));
  SayControl(this, windowTitle());
  SayControl(button_connect_, button_connect_->text());
  SayControl(button_getAccount_, button_getAccount_->text());
  SayControl(login_, in_language({W<"Логин">, "Login"}));
  SayControl(login_->lineEdit(), login_->accessibleName());
  SayControl(pass_, in_language({W<"Пароль">, "Password"}));
  SayControl(room_, in_language({W<"Канал">, "Room"}));
  SayControl(channel_pwd_input_, in_language({W<"Пароль канала">, "Channel password"}));
  for (QLabel* label :
       {l_login_, l_pass_, l_room_, l_channel_pwd_, l_primechanie_, l_primechanie1_})
    SayControl(label, label->text());
  // The English notes say nothing.
  const bool english = client_.app.Language == UiLanguage::kEnglish;
  const auto explain = [english](QLabel* note, const char* meaning) {
    note->setToolTip(english ? QString::fromLatin1(meaning) : QString());
    if (english) SayControl(note, note->toolTip());
  };
  explain(l_primechanie_, "* If it is left empty, the list of channels is loaded");
  explain(l_primechanie1_, "** May be left empty");
}

void connection_form::ShowLoginDialog() {
  SetTexts();
  dialog_ = FillLoginDialog(client_);
  ShowControls();
  show();
  raise();
  activateWindow();
  login_->setFocus();
  login_->lineEdit()->selectAll();
}

void connection_form::ShowControls() {
  showing_ = true;
  const int caret = login_->lineEdit()->cursorPosition();
  const QSignalBlocker quiet(login_);
  bool same = login_->count() == static_cast<int>(dialog_.logins.size());
  for (int i = 0; same && i < login_->count(); ++i)
    same = login_->itemText(i) == ToQString(dialog_.logins[static_cast<std::size_t>(i)]);
  if (!same) {
    login_->clear();
    for (const Text& login : dialog_.logins)
      login_->addItem(ToQString(login));
  }
  const QString text = ToQString(dialog_.login);
  if (login_->currentIndex() != dialog_.selected) login_->setCurrentIndex(dialog_.selected);
  if (login_->currentText() != text) login_->setEditText(text);
  login_->lineEdit()->setCursorPosition(caret);
  const auto show = [](TextField* field, const Text& value) {
    if (field->text() != ToQString(value)) field->setText(ToQString(value));
  };
  show(pass_, dialog_.pass);
  show(room_, dialog_.room);
  show(channel_pwd_input_, dialog_.channel_pwd_input);
  save_pass_->setChecked(dialog_.save_pass);
  showing_ = false;
}

void connection_form::ReadFields() {
  dialog_.login = FromQString(login_->currentText());
  dialog_.pass = FromQString(pass_->text());
  dialog_.room = FromQString(room_->text());
  dialog_.channel_pwd_input = FromQString(channel_pwd_input_->text());
  dialog_.save_pass = save_pass_->isChecked();
}

void connection_form::Connect() {
  OnEvent(client_, "button_connect", [&] {
    ReadFields();
    const LoginOutcome outcome = ConnectByDialog(client_, dialog_);
    if (outcome.hide) {
      hide();
      parentWidget()->activateWindow();
      return;
    }
    if (outcome.focus == LoginField::kLogin) login_->setFocus();
    if (outcome.focus == LoginField::kPass) pass_->setFocus();
  });
}

void connection_form::ShowProxyForm() {
  sett_conn form(client_, this);
  form.exec();
  login_->setFocus();
}

bool connection_form::eventFilter(QObject* watched, QEvent* event) {
  if (watched == login_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      pass_->setFocus();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void connection_form::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

void connection_form::closeEvent(QCloseEvent* event) {
  event->accept();
  OnEvent(client_, "connection_form", [&] {
    if (CloseLoginDialog(client_) && Timer4) Timer4();
  });
}

}  // namespace parlorwire
