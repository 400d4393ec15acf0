// The port to the windows: what the logic asks of them and tells them.
#pragma once

#include "text/text.h"

namespace parlorwire {

enum class UiLanguage { kRussian = 1, kEnglish = 2 };

// As the numbers of the window's state go.
enum class WindowState { kNormal = 0, kMinimized = 1, kMaximized = 2 };

enum class BoxIcon { kStop, kQuestion, kExclamation, kInformation };
enum class BoxAnswer { kYes, kNo };

// Tabs are slots 0..9. Nothing here throws.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Handles the events that are waiting, once. Returns at once if none is.
  virtual void YieldToEvents() = 0;

  // Whether events may be waiting by now. Cheap enough to be asked for each line of a long list.
  virtual bool EventsWaiting() const = 0;

  // The tab strip `SSTab`. SetActiveTab shows the tab as a click on it does.
  virtual int ActiveTab() const = 0;
  virtual void SetActiveTab(int tab) = 0;
  virtual bool TabVisible(int tab) const = 0;
  virtual void SetTabVisible(int tab, bool visible) = 0;
  virtual Text TabCaption(int tab) const = 0;
  virtual void SetTabCaption(int tab, const Text& caption) = 0;

  // The main window.
  virtual void SetWindowCaption(const Text& caption) = 0;
  virtual bool IsActiveWindow() const = 0;
  virtual bool WindowVisible() const = 0;  // not hidden; a minimized window is visible
  virtual bool WindowMinimized() const = 0;
  virtual void HideWindow() = 0;
  virtual void MinimizeWindow() = 0;
  // It is shown in this state, which is not kMinimized, in front and as the active window. `msg` of
  // the active tab gets the focus by `Timer5`, if `Rich` of that tab has a height.
  virtual void RestoreWindow(WindowState state) = 0;
  // Its button in the task bar calls for the user, or, once the window is active, stops that.
  virtual void FlashWindow(bool on) = 0;

  // Enables or disables what a tab without a connection can't use: `msg` (locked), `intonacia`,
  // `button_clear`, `button_say`, `pers`, `button_update` of the tab, and the shared labels
  // `logoff`, `logout`, `close_tab`, `hist_topic`, `letogr`, `sp_bans`, `sp_opers`.
  virtual void SetTabControlsEnabled(int tab, bool enabled) = 0;
  virtual void SetCloseTabEnabled(bool enabled) = 0;
  // The shared labels but `close_tab`.
  virtual void SetSharedLinksEnabled(bool enabled) = 0;
  virtual bool LogoffEnabled() const = 0;

  // The controls of a tab.
  virtual bool StopScroll(int tab) const = 0;
  virtual void SetStopScroll(int tab, bool ticked) = 0;
  virtual Text MsgText(int tab) const = 0;
  virtual void SetMsgText(int tab, const Text& text) = 0;  // the caret goes to the end
  virtual void FocusMsg(int tab) = 0;                      // if it can take the focus
  virtual Text IntonaciaText(int tab) const = 0;           // the label that is selected
  virtual void SelectIntonacia(int tab, int index) = 0;    // 0-based
  virtual Text UsersNumCaption(int tab) const = 0;
  virtual void SetUsersNumCaption(int tab, const Text& caption) = 0;
  virtual void SetPersRed(int tab, bool red) = 0;  // else its normal colour

  // The check box `SayUseOp`, one for all tabs.
  virtual bool SayUseOpChecked() const = 0;
  virtual void SetSayUseOp(bool checked, bool enabled) = 0;

  // A message box with the caption "Parlorwire" that waits for the user.
  virtual void MessageBox(const Text& text, BoxIcon icon) = 0;
  // The same with the answers yes and no, one of them preselected. True on yes.
  virtual bool AskYesNo(const Text& text, BoxIcon icon,
                        BoxAnswer preselected = BoxAnswer::kYes) = 0;

  // The language of the fixed texts.
  virtual void ShowLanguage(UiLanguage language) = 0;
};

}  // namespace parlorwire
