#include "shell/qt/pers_frm.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <utility>

#include "pane/qt/rich_text_view.h"
#include "personal/pers_frm.h"
#include "personal/pers_posting.h"
#include "personal/save_log.h"
#include "platform/posix/posix_files.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/call_attention.h"
#include "shell/qt/caret_rest.h"
#include "shell/qt/control_names.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/link_label.h"
#include "shell/qt/message_box.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/pane_widget.h"
#include "shell/qt/personal_pane.h"
#include "shell/qt/text_field.h"

namespace parlorwire {
namespace {

constexpr QSize kPersonalSize{620, 420};  // pixels
constexpr double kMostOfTheScreen = 0.9;
constexpr int kDesktopsReaction = 500;  // ms

QFont InputFont() {
  return {QStringLiteral("verdana"), 9};
}

void ScrollPane(RichTextView& view, PaneStep step) {
  switch (step) {
    case PaneStep::kPageUp:
      return view.ScrollPages(-1);
    case PaneStep::kPageDown:
      return view.ScrollPages(1);
    case PaneStep::kStart:
      return view.ScrollToStart();
    case PaneStep::kEnd:
      return view.ScrollToEnd();
  }
}

}  // namespace

pers_frm::pers_frm(Client& client, std::shared_ptr<PersonalWindow> record, CaretRest& caret_rest)
    : client_(client), record_(std::move(record)) {
  NameControl(this, QStringLiteral("pers_frm"));
  setWindowTitle(ToQString(PersCaption(*record_)));
  setWindowIcon(QIcon(QStringLiteral(":/parlorwire/parlorwire.svg")));
  setPalette(PaletteOn(palette(), kMainBackColor));
  Build();
  ShowFields();
  Wire();
  caret_rest.Watch(msg_);
  caret_rest.Watch(send_nick_);
  FillHooks();
  SetLanguage(client_.app.Language);
  Focus(record_->send_nick.empty() ? PersonalField::kSendNick : PersonalField::kMsg);
}

pers_frm::~pers_frm() {
  record_->hooks = {};
}

void pers_frm::Build() {
  l_send_nick_ = new QLabel(this);
  l_send_nick_->setFont(LabelFont());
  send_nick_ = new TextField(this);
  send_nick_->setFont(InputFont());
  l_send_nick_->setBuddy(send_nick_);
  msg_ = new MsgBox(this);
  msg_->setFont(InputFont());
  button_say_ = new GraphicButton(GraphicButton::Picture::kSay, this);
  button_clear_ = new GraphicButton(GraphicButton::Picture::kClear, this);
  ActivateWhenMess_ = new QCheckBox(this);
  ActivateWhenMess_->setFont(LabelFont());
  ActivateWhenMess_->setChecked(record_->ActivateWhenMess);
  save_log_ = new LinkLabel(this);
  Rich_ = NewPaneWidget(record_->Rich, this);
  pane_ = new PersonalPane(client_, Rich_, record_);

  NameControl(l_send_nick_, QStringLiteral("l_send_nick"));
  NameControl(send_nick_, QStringLiteral("send_nick"));
  NameControl(msg_, QStringLiteral("msg"));
  NameControl(button_say_, QStringLiteral("button_say"));
  NameControl(button_clear_, QStringLiteral("button_clear"));
  NameControl(ActivateWhenMess_, QStringLiteral("ActivateWhenMess"));
  NameControl(save_log_, QStringLiteral("save_log"));
  NameControl(Rich_, QStringLiteral("Rich"));

  auto* first = new QHBoxLayout;
  first->addWidget(l_send_nick_);
  first->addWidget(send_nick_, 1);
  first->addSpacing(12);
  first->addWidget(ActivateWhenMess_);
  first->addSpacing(12);
  first->addWidget(save_log_);
  auto* second = new QHBoxLayout;
  second->addWidget(msg_, 1);
  second->addWidget(button_say_);
  second->addWidget(button_clear_);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(8, 8, 8, 8);
  whole->setSpacing(8);
  whole->addWidget(HolderOf(Rich_), 1);
  whole->addLayout(first);
  whole->addLayout(second);
  resize(kPersonalSize.boundedTo(screen()->availableSize() * kMostOfTheScreen));
}

void pers_frm::Wire() {
  // A box may have put its text right meanwhile: what counts is what stands in it.
  connect(send_nick_, &QLineEdit::textChanged, this,
          [this] { record_->send_nick = FromQString(send_nick_->text()); });
  connect(msg_, &QLineEdit::textChanged, this,
          [this] { record_->msg = FromQString(msg_->text()); });
  connect(ActivateWhenMess_, &QCheckBox::toggled, this,
          [this](bool ticked) { record_->ActivateWhenMess = ticked; });
  send_nick_->Enter = [this] { msg_->setFocus(); };
  msg_->Send = [this] {
    OnEvent(client_, "pers_frm_msg_KeyPress",
            [&] { pers_frm_button_say_MouseUp(client_, *record_); });
  };
  msg_->Browse = [this](bool up) {
    OnEvent(client_, "pers_frm_msg_KeyDown",
            [&] { BrowsePersHistory(*record_, up ? "up" : "down"); });
  };
  msg_->ScrollPane = [this](PaneStep step) { ScrollPane(*Rich_, step); };
  msg_->installEventFilter(this);
  connect(button_say_, &QAbstractButton::clicked, this, [this] {
    OnEvent(client_, "pers_frm_button_say",
            [&] { pers_frm_button_say_MouseUp(client_, *record_); });
  });
  connect(button_clear_, &QAbstractButton::clicked, this, [this] {
    OnEvent(client_, "pers_frm_button_clear", [&] { pers_frm_button_clear_MouseUp(*record_); });
  });
  save_log_->SetAction(
      [this] { OnEvent(client_, "save_log", [&] { save_log(client_, *record_); }); });
  // From the input box with nothing selected in it.
  auto* copy = new QShortcut(QKeySequence::Copy, this);
  connect(copy, &QShortcut::activated, Rich_, &RichTextView::Copy);
}

void pers_frm::FillHooks() {
  PersonalWindowHooks& hooks = record_->hooks;
  hooks.Raise = [this] { Raise(); };
  hooks.ComeUp = [this] { ComeUp(); };
  hooks.Focus = [this](PersonalField field) { Focus(field); };
  hooks.ShowFields = [this] { ShowFields(); };
  hooks.PopUpMenuCopy = [this](const CopyMenu& menu) { pane_->ShowMenuCopy(menu); };
  hooks.MessageBox = [this](const Text& text, BoxIcon icon) { ShowMessageBox(this, text, icon); };
  hooks.BrowseForFolder = [this](const Text& title) { return BrowseForFolder(title); };
}

void pers_frm::SetLanguage(UiLanguage language) {
  const bool english = language == UiLanguage::kEnglish;
  const auto say = [english](QWidget* control, const BothLanguages& words) {
    SayControl(control, ToQString(english ? words.english : words.russian));
  };
  const auto explain = [english, &say](QWidget* control, const BothLanguages& words) {
    say(control, words);
    control->setToolTip(english ? ToQString(words.english) : QString());
  };
  const auto show = [language](auto* control, const BothLanguages& words) {
    control->setText(ToQString(words.In(language)));
    SayControl(control, control->text());
  };
  const Text caption = PersCaption(*record_);
  const Text meaning = "Personal messages (" + record_->PersLogin + ") - Parlorwire";
  say(this, {caption, meaning});
  ActivateWhenMess_->setText(ToQString(kActivateWhenMessCaption));
  explain(ActivateWhenMess_, {kActivateWhenMessCaption, "Come up when a message arrives"});
  save_log_->setText(ToQString(kSaveLogCaption));
  explain(save_log_, {kSaveLogCaption, "Save the log"});
  show(l_send_nick_, {W<"К&ому:">, "&To:"});
  show(button_say_, {W<"Сказать">, "Say"});
  show(button_clear_, {W<"Стереть">, "Clear"});
  say(send_nick_, {W<"Кому">, "To"});
  say(msg_, {W<"Сообщение">, "Message"});
  say(button_clear_, {W<"Стереть сообщение">, "Clear the message"});
  say(Rich_, {W<"Персональные сообщения">, "Personal messages"});
  Rich_->SetRussian(!english);
}

void pers_frm::ShowRestored() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
}

void pers_frm::Raise() {
  ShowRestored();
  activateWindow();
}

void pers_frm::ComeUp() {
  QWidget* active = QApplication::activeWindow();
  const bool restored = isMinimized();
  ShowRestored();
  if (active == nullptr) {
    came_up_ = true;
    activateWindow();
  } else if (active != this && restored) {
    // Desktops give the focus to a window that is restored.
    came_up_ = true;
    gives_back_to_ = active;
    gives_back_until_.setRemainingTime(kDesktopsReaction);
  }
  CallAttention(this);
}

void pers_frm::Focus(PersonalField field) {
  if (field == PersonalField::kMsg)
    msg_->setFocus();
  else
    send_nick_->setFocus();
}

void pers_frm::ShowFields() {
  msg_->Replace(ToQString(record_->msg));
  const QString nick = ToQString(record_->send_nick);
  if (send_nick_->text() != nick) send_nick_->setText(nick);
}

std::unique_ptr<Files> pers_frm::BrowseForFolder(const Text& title) {
  if (log_folder_.isEmpty())
    log_folder_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  QFileDialog dialog(this, ToQString(title), log_folder_);
  NameControl(&dialog, QStringLiteral("BrowseForFolder"));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return nullptr;
  log_folder_ = dialog.selectedFiles().first();
  return std::make_unique<PosixFiles>(QFile::encodeName(log_folder_).toStdString());
}

void pers_frm::closeEvent(QCloseEvent* event) {
  event->accept();
  if (record_->Closed) return;
  OnEvent(client_, "pers_frm_Unload", [&] { pers_frm_Unload(client_, *record_); });
  if (Closed) Closed();
}

void pers_frm::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || record_->Closed) return;
  if (!isActiveWindow()) {
    if (std::exchange(gave_back_, false)) QApplication::alert(this);
    return;
  }
  QWidget* back = std::exchange(gives_back_to_, nullptr);
  if (back != nullptr && !gives_back_until_.hasExpired()) {
    gave_back_ = true;
    return back->activateWindow();
  }
  OnEvent(client_, "pers_frm_Activate", [&] { pers_frm_Activate(client_, *record_); });
}

bool pers_frm::eventFilter(QObject*, QEvent* event) {
  return !TakesEnter(*event);
}

// A key that was pressed before the focus came sends nothing: Enter that is held down, and the
// first one in a window that has come up by itself, ahead of any other work in the box.
bool pers_frm::TakesEnter(const QEvent& event) {
  if (event.type() == QEvent::MouseButtonPress) came_up_ = false;
  if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) return true;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  const bool pressed = event.type() == QEvent::KeyPress;
  if (enter && pressed) return !key.isAutoRepeat() && !came_up_;
  if (!key.isAutoRepeat()) came_up_ = false;
  return true;
}

}  // namespace parlorwire
