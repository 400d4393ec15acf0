// The port to the windows, on the main window.
#pragma once

#include <QObject>
#include <chrono>

#include "platform/desktop.h"

namespace parlorwire {

class client_main;

// It is built ahead of the client, and the main window behind it. Until the window is attached, it
// answers as if there were none: nothing is visible, and every question is answered with no.
class QtDesktop : public Desktop {
 public:
  // Needs a QApplication.
  QtDesktop();

  void Attach(client_main* window) { window_ = window; }

  void YieldToEvents() override;
  // The toolkit can't be asked. So they may be once a turn of the event loop has gone on for 5 ms.
  bool EventsWaiting() const override;

  int ActiveTab() const override;
  void SetActiveTab(int tab) override;
  bool TabVisible(int tab) const override;
  void SetTabVisible(int tab, bool visible) override;
  Text TabCaption(int tab) const override;
  void SetTabCaption(int tab, const Text& caption) override;

  void SetWindowCaption(const Text& caption) override;
  bool IsActiveWindow() const override;
  bool WindowVisible() const override;
  bool WindowMinimized() const override;
  void HideWindow() override;
  void MinimizeWindow() override;
  void RestoreWindow(WindowState state) override;
  void FlashWindow(bool on) override;

  void SetTabControlsEnabled(int tab, bool enabled) override;
  void SetCloseTabEnabled(bool enabled) override;
  void SetSharedLinksEnabled(bool enabled) override;
  bool LogoffEnabled() const override;

  bool StopScroll(int tab) const override;
  void SetStopScroll(int tab, bool ticked) override;
  Text MsgText(int tab) const override;
  void SetMsgText(int tab, const Text& text) override;
  void FocusMsg(int tab) override;
  Text IntonaciaText(int tab) const override;
  void SelectIntonacia(int tab, int index) override;
  Text UsersNumCaption(int tab) const override;
  void SetUsersNumCaption(int tab, const Text& caption) override;
  void SetPersRed(int tab, bool red) override;

  bool SayUseOpChecked() const override;
  void SetSayUseOp(bool checked, bool enabled) override;

  void MessageBox(const Text& text, BoxIcon icon) override;
  bool AskYesNo(const Text& text, BoxIcon icon, BoxAnswer preselected) override;

  void ShowLanguage(UiLanguage language) override;

 private:
  client_main* window_ = nullptr;
  QObject context_;
  std::chrono::steady_clock::time_point events_handled_;  // or the turn began
};

}  // namespace parlorwire
