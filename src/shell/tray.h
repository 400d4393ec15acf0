// The tray icon, the flash of the task bar and the balloons: how the program calls the user when
// something happens while the window is not in front.
#pragma once

#include "platform/desktop.h"
#include "platform/tray.h"
#include "session/both_languages.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// First activation of `client_main`, and its unload step.
void AddTrayIcon(Client& client);
void DeleteTrayIcon(Client& client);

// The tip of the icon; the icon shows the window's own picture until the next tick of a blink.
void SetTabTitle(Client& client, const Text& caption);

// A balloon with "Parlorwire" and `title` as its title, for `Timer23`'s time. An empty text takes
// it away. Tip, title and text are cut to the lengths of the notify record.
void ShowBalloon(Client& client, const Text& title, const Text& text, int info_flags,
                 const BalloonAbout& about);

// 1: a personal message waits, unless 2 is on; 2: a line concerns the user; 3: neither. Anything
// else does nothing.
void SetTrayBlink(Client& client, int mode);

// The tick of the flash of the task bar: it ends everything that calls the user once `client_main`
// is the active window.
void Timer20_Timer(Client& client);
void Timer23_Timer(Client& client);
void Timer24_Timer(Client& client);
void Timer25_Timer(Client& client);

// `client_main` has become the active window.
void client_main_Activate(Client& client);

// The window has a new size or state. Minimized, it is hidden if there is a tray.
void client_main_Resize(Client& client, WindowState state);

// The left button was released on the icon. `window_in_front`: the window is the active one in
// spite of the click, as when the click belongs to one that has just brought it up; nothing
// happens then. A panel that takes no activation from the window does not make it so.
void Form_tray_LeftButtonUp(Client& client, bool window_in_front);

// Captions that two menus have, the tray's and the window's.
inline constexpr BothLanguages kPutInTrayCaption{W<"&Убрать в трей">, "&Put in tray"};
inline constexpr BothLanguages kExitCaption{W<"В&ыход">, "E&xit"};

// Items of the tray's menu. `put_in_tray` is also one of the window's: without a tray the window is
// minimized, never hidden.
void put_in_tray(Client& client);
void restore_client(Client& client);

struct TrayMenu {
  bool put_in_tray = false;     // shows
  bool restore_client = false;  // shows
};
TrayMenu StateOfTrayMenu(const Client& client);

// The window comes up as it was, if it isn't visible, and is the active one: the second start of
// the program asks for it.
void ShowClient(Client& client);

// There is no tray any more: a hidden window comes back.
void TrayGone(Client& client);

// A click on a balloon: the window comes up on the tab that it was about, or the personal window.
void BalloonClicked(Client& client, const BalloonAbout& about);

}  // namespace parlorwire
