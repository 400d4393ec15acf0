#include "shell/tray.h"

#include "personal/pers_frm.h"
#include "personal/personal_window.h"
#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// The fields of the notify record, without the zero at their end.
constexpr int kTipLength = 127;
constexpr int kTitleLength = 63;
constexpr int kTextLength = 255;

constexpr int kBalloonGoesNow = 10;  // ms

void ModifyIcon(Client& client, TrayIcon icon) {
  client.app.PictTray = icon;
  client.platform.tray.Modify(icon, Left(client.app.TrayTip, kTipLength));
}

void StartBalloonTime(Client& client, int milliseconds) {
  Timer& timer = *client.app.Timer23;
  timer.Enabled(false);
  timer.Interval(milliseconds);
  timer.Enabled(true);
}

void Blink(Client& client, TrayIcon icon) {
  bool& phase = client.app.TrayBlinkPhase;
  ModifyIcon(client, phase ? icon : TrayIcon::kWindow);
  phase = !phase;
}

// Also a window in the task bar, from before there was a tray, is to come up.
bool IsInSight(const Desktop& desktop) {
  return desktop.WindowVisible() && !desktop.WindowMinimized();
}

void ToggleWindow(Client& client) {
  Desktop& desktop = client.platform.desktop;
  if (!IsInSight(desktop)) {
    StartBalloonTime(client, kBalloonGoesNow);
    desktop.RestoreWindow(client.app.SavedWindowState);
  } else if (client.platform.tray.Available()) {
    desktop.HideWindow();
  } else {
    desktop.MinimizeWindow();
  }
}

}  // namespace

void AddTrayIcon(Client& client) {
  client.platform.tray.Add(client.app.PictTray, Left(client.app.TrayTip, kTipLength));
}

void DeleteTrayIcon(Client& client) {
  client.platform.tray.Delete();
}

void SetTabTitle(Client& client, const Text& caption) {
  client.app.TrayTip = caption;
  ModifyIcon(client, TrayIcon::kWindow);
}

void ShowBalloon(Client& client, const Text& title, const Text& text, int info_flags,
                 const BalloonAbout& about) {
  Tray& tray = client.platform.tray;
  if (text.empty()) {
    tray.RemoveBalloon();
    // Nothing is left to be taken away, so the time is not started.
    if (!client.app.Timer23->Enabled()) return;
  } else {
    tray.ShowBalloon(
        {Left("Parlorwire" + title, kTitleLength), Left(text, kTextLength), info_flags, about});
  }
  StartBalloonTime(client, kBalloonTime);
}

void SetTrayBlink(Client& client, int mode) {
  AppState& app = client.app;
  switch (mode) {
    case 1:
      if (app.Timer25->Enabled()) break;
      app.Timer24->Enabled(true);
      app.Timer20->Enabled(true);
      break;
    case 2:
      app.Timer20->Enabled(true);
      app.Timer25->Enabled(true);
      app.Timer24->Enabled(false);
      break;
    case 3:
      for (auto* timer : {&app.Timer20, &app.Timer24, &app.Timer25})
        (*timer)->Enabled(false);
      // The next blink begins with the window's picture: one that ends at its first tick is not
      // seen.
      app.TrayBlinkPhase = false;
      app.PictTray = TrayIcon::kWindow;
      break;
    default:
      return;
  }
  ModifyIcon(client, app.PictTray);
  if (app.Timer23->Enabled()) StartBalloonTime(client, kBalloonTime);
}

void Timer20_Timer(Client& client) {
  Desktop& desktop = client.platform.desktop;
  if (!desktop.IsActiveWindow()) return desktop.FlashWindow(true);
  client.app.Timer20->Enabled(false);
  desktop.FlashWindow(false);
  ShowBalloon(client, {}, {}, 0, {});
  SetTrayBlink(client, 3);
}

void Timer23_Timer(Client& client) {
  client.app.Timer23->Enabled(false);
  client.app.Timer23->Interval(kBalloonTime);
  ShowBalloon(client, {}, {}, 0, {});
}

void Timer24_Timer(Client& client) {
  Blink(client, TrayIcon::kPersonal);
}

void Timer25_Timer(Client& client) {
  Blink(client, TrayIcon::kMention);
}

void client_main_Activate(Client& client) {
  if (client.app.Timer20->Enabled()) Timer20_Timer(client);
}

void client_main_Resize(Client& client, WindowState state) {
  if (state == WindowState::kMinimized) {
    if (client.platform.tray.Available()) client.platform.desktop.HideWindow();
    return;
  }
  client.app.SavedWindowState = state;
  StartBalloonTime(client, kBalloonGoesNow);
}

void Form_tray_LeftButtonUp(Client& client, bool window_in_front) {
  if (!window_in_front) ToggleWindow(client);
}

void put_in_tray(Client& client) {
  ToggleWindow(client);
}

void restore_client(Client& client) {
  ToggleWindow(client);
}

TrayMenu StateOfTrayMenu(const Client& client) {
  const bool visible = IsInSight(client.platform.desktop);
  return {visible, !visible};
}

void ShowClient(Client& client) {
  StartBalloonTime(client, kBalloonGoesNow);
  client.platform.desktop.RestoreWindow(client.app.SavedWindowState);
}

void TrayGone(Client& client) {
  if (!client.platform.desktop.WindowVisible())
    client.platform.desktop.RestoreWindow(client.app.SavedWindowState);
}

void BalloonClicked(Client& client, const BalloonAbout& about) {
  if (const PersonalWindow* window = PersWindow(client, about.pers_window))
    return window->hooks.Raise();
  ShowClient(client);
  Desktop& desktop = client.platform.desktop;
  if (about.tab >= 0 && desktop.TabVisible(about.tab) && desktop.ActiveTab() != about.tab)
    desktop.SetActiveTab(about.tab);
}

}  // namespace parlorwire
