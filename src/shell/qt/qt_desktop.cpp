#include "shell/qt/qt_desktop.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>

#include "platform/qt/text_conversion.h"
#include "shell/qt/call_attention.h"
#include "shell/qt/client_main.h"
#include "shell/qt/control_names.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/link_label.h"
#include "shell/qt/message_box.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/tone_box.h"

namespace parlorwire {
namespace {

using Now = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kLongTurn{5};

QWidget* BoxOwner(client_main* window) {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active : window;
}

}  // namespace

QtDesktop::QtDesktop() {
  const auto note = [this] { events_handled_ = Now::now(); };
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                   &context_, note);
  note();
}

void QtDesktop::YieldToEvents() {
  QCoreApplication::processEvents();
  events_handled_ = Now::now();
}

bool QtDesktop::EventsWaiting() const {
  return Now::now() - events_handled_ >= kLongTurn;
}

int QtDesktop::ActiveTab() const {
  return window_ ? window_->controls.SSTab->Tab() : 0;
}

void QtDesktop::SetActiveTab(int tab) {
  if (window_) window_->controls.SSTab->Tab(tab);
}

bool QtDesktop::TabVisible(int tab) const {
  return window_ && window_->controls.SSTab->TabVisible(tab);
}

void QtDesktop::SetTabVisible(int tab, bool visible) {
  if (!window_) return;
  window_->controls.SSTab->TabVisible(tab, visible);
  window_->ShowActiveSlot();
}

Text QtDesktop::TabCaption(int tab) const {
  return window_ ? window_->tab_captions[static_cast<std::size_t>(tab)] : Text();
}

void QtDesktop::SetTabCaption(int tab, const Text& caption) {
  if (!window_) return;
  window_->tab_captions[static_cast<std::size_t>(tab)] = caption;
  QString shown = ToQString(caption);
  window_->controls.SSTab->setTabToolTip(tab, PlainToolTip(shown));
  shown.replace(QLatin1Char('&'), QLatin1String("&&"));
  window_->controls.SSTab->setTabText(tab, shown);
  // The caption changes whenever a connect begins or ends, which the button shows.
  window_->controls.button_connect_main->update();
  window_->ShowTabCaption();
}

void QtDesktop::SetWindowCaption(const Text& caption) {
  if (window_) window_->setWindowTitle(ToQString(caption));
}

bool QtDesktop::IsActiveWindow() const {
  return window_ && window_->isActiveWindow();
}

bool QtDesktop::WindowVisible() const {
  return window_ && window_->isVisible();
}

bool QtDesktop::WindowMinimized() const {
  return window_ && window_->isMinimized();
}

// Not from the event that says so: the window system is still at work on the old state.
void QtDesktop::HideWindow() {
  if (window_) QMetaObject::invokeMethod(window_, &QWidget::hide, Qt::QueuedConnection);
}

void QtDesktop::MinimizeWindow() {
  if (window_) window_->showMinimized();
}

void QtDesktop::RestoreWindow(WindowState state) {
  if (window_) window_->Restore(state);
}

void QtDesktop::FlashWindow(bool on) {
  // The toolkit takes the mark away itself when the window becomes the active one.
  if (window_ && on) CallAttention(window_);
}

void QtDesktop::SetTabControlsEnabled(int tab, bool enabled) {
  if (!window_) return;
  EnableTabControls(window_->controls.tab(tab), enabled);
  SetSharedLinksEnabled(enabled);
  SetCloseTabEnabled(enabled);
}

void QtDesktop::SetCloseTabEnabled(bool enabled) {
  if (window_) window_->controls.close_tab->SetWanted(enabled);
}

void QtDesktop::SetSharedLinksEnabled(bool enabled) {
  if (!window_) return;
  const MainControls& c = window_->controls;
  for (LinkLabel* link : {c.logoff, c.logout, c.hist_topic, c.letogr, c.sp_bans, c.sp_opers})
    link->SetWanted(enabled);
}

bool QtDesktop::LogoffEnabled() const {
  return window_ && window_->controls.logoff->isEnabled();
}

bool QtDesktop::StopScroll(int tab) const {
  return window_ && window_->controls.tab(tab).StopScroll->isChecked();
}

void QtDesktop::SetStopScroll(int tab, bool ticked) {
  if (window_) window_->controls.tab(tab).StopScroll->setChecked(ticked);
}

Text QtDesktop::MsgText(int tab) const {
  return window_ ? FromQString(window_->controls.tab(tab).msg->text()) : Text();
}

void QtDesktop::SetMsgText(int tab, const Text& text) {
  if (window_) window_->controls.tab(tab).msg->Replace(ToQString(text));
}

void QtDesktop::FocusMsg(int tab) {
  if (window_ && window_->controls.tab(tab).msg->isVisible())
    window_->controls.tab(tab).msg->setFocus();
}

Text QtDesktop::IntonaciaText(int tab) const {
  return window_ ? FromQString(window_->controls.tab(tab).intonacia->currentText()) : Text();
}

void QtDesktop::SelectIntonacia(int tab, int index) {
  if (window_) window_->controls.tab(tab).intonacia->setCurrentIndex(index);
}

Text QtDesktop::UsersNumCaption(int tab) const {
  return window_ ? FromQString(window_->controls.tab(tab).users_num->text()) : Text();
}

void QtDesktop::SetUsersNumCaption(int tab, const Text& caption) {
  if (!window_) return;
  QLabel* label = window_->controls.tab(tab).users_num;
  label->setText(ToQString(caption));
  if (!caption.empty()) SayControl(label, label->text());  // the toolkit does not read the text
}

void QtDesktop::SetPersRed(int tab, bool red) {
  if (window_) window_->controls.tab(tab).pers->SetRed(red);
}

bool QtDesktop::SayUseOpChecked() const {
  return window_ && window_->controls.SayUseOp->isChecked();
}

void QtDesktop::SetSayUseOp(bool checked, bool enabled) {
  if (!window_) return;
  window_->controls.SayUseOp->setChecked(checked);
  window_->controls.SayUseOp->setEnabled(enabled);
}

void QtDesktop::MessageBox(const Text& text, BoxIcon icon) {
  if (window_) ShowMessageBox(BoxOwner(window_), text, icon);
}

bool QtDesktop::AskYesNo(const Text& text, BoxIcon icon, BoxAnswer preselected) {
  return window_ && AskInMessageBox(BoxOwner(window_), text, icon, preselected);
}

void QtDesktop::ShowLanguage(UiLanguage language) {
  if (window_) window_->ShowLanguage(language);
}

}  // namespace parlorwire
