// Process-wide state.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "pane/units.h"
#include "platform/desktop.h"
#include "platform/resources.h"
#include "platform/timer.h"
#include "platform/tray.h"
#include "session/nick_colours.h"
#include "session/search_form.h"
#include "session/smile_names.h"
#include "text/text.h"

namespace parlorwire {

struct PersonalWindow;

inline constexpr int kTabCount = 10;
inline constexpr int kMaxLogins = 100;

// What holds without a setting, in ms.
inline constexpr std::int16_t kActionDelay = 3000;
inline constexpr std::int32_t kReconnectDelay = 60000;

constexpr PaneColour Rgb(unsigned red, unsigned green, unsigned blue) {
  return red + 256 * green + 65536 * blue;
}

// The font of chat lines.
struct FontMain {
  std::int32_t Charset = 204;
  bool Bold = true;      // of the nick
  bool TimeBold = true;  // of the time
  Text Name = "Times New Roman";
  std::int32_t Size = 12;  // points
  PaneColour ColorMyNick = 0xFF00;
};

// The font of action and system lines.
struct FontSystem {
  std::int32_t Charset = 204;
  bool Italic = true;
  bool Bold = false;
  Text Name = "Times New Roman";
  std::int32_t Size = 10;
  PaneColour TextColor = 0xFFFFFF;
};

// The font of the client's own messages and of the bars of framed notices.
struct FontStatus {
  std::int32_t Charset = 204;
  bool Italic = false;
  bool Bold = false;
  Text Name = "Times New Roman";
  std::int32_t Size = 10;
  PaneColour BackColor = 0;
  PaneColour TextColor = 0xE0E0E0;
};

struct RichColors {
  PaneColour Nicks = Rgb(207, 207, 255);
  PaneColour NicksChoose = 0xFF00;
  PaneColour Symbols = 0xFFFF;
  PaneColour TextColor = 0xC0C0C0;
  PaneColour Times = Rgb(207, 207, 255);
};

// The controls of the proxy dialog. They are the store of the proxy settings for the whole program:
// whatever stands in them is in force, typed or applied. Read them through ProxyDialog().
struct ProxyControls {
  bool loaded = false;  // the six values were read from the file since the dialog was last unloaded
  bool use_proxy = false;
  Text proxy_addr;
  Text proxy_port;
  bool autentification = false;
  Text proxy_login;
  Text proxy_pass;
};

// A message pane or a user list of a tab.
struct ClickedPane {
  enum class Kind { kNone, kRich, kRich_Users };
  Kind kind = Kind::kNone;
  int tab = 0;
};

// What nick_menu shows. A sub-item with an empty caption is hidden.
struct NickMenu {
  int tab = 0;             // where the nick was clicked
  Text nickname;           // the nick
  bool user_info = false;  // the sub-menu is shown, and line4 with it
  Text user_ip;
  Text user_flags;
  Text user_inf;               // the status
  bool oper_commands = false;  // the sub-menu is shown, and line7 with it
};

// What is under the mouse in a user list, and what it has tinted.
struct ListHover {
  Text Nick;  // "" for none
  Text IP;    // "" for none
  int TintedTab = 0;
  Text TintedNick;  // "" for none
  PanePosition TintedStart = 0;
};

// What menu_copy shows.
struct CopyMenu {
  Text Link;            // the link that was clicked; "" for none
  bool Copies = false;  // something is selected where it was clicked
};

struct AppState {
  UiLanguage Language = UiLanguage::kRussian;

  // The endpoint of the chat service, used for every connect without a proxy and in every Host
  // line.
  Text ChatHost;
  Text ChatPort = "80";
  Text ChatHostByName = "localhost";
  Text ChatHostByAddress = "127.0.0.1";

  Text WhoisHost;  // the gateway that tells whose an address is; "" for the chat service itself
  bool HoldWhileReading = true;  // a pane that is read back stays where it is
  Text LetografUrl;              // a page of a statistics site; "" for none

  Text ProxyAuthBasic;  // base64 of proxy login, ":" and proxy password; renewed by every connect
  ProxyControls sett_conn;

  std::int16_t ActionDelayValue = kActionDelay;        // ms; interval of Timer6 and Timer26
  std::int32_t ReconnectDelayValue = kReconnectDelay;  // ms; interval of Timer3

  FontMain rFontMain;
  FontSystem rFontSystem;
  FontStatus rFontStatus;
  RichColors rRichColors;

  NickColours CmIniText;      // the text of CM.ini: the colours of nicks
  bool CmIniUnknown = false;  // the file could not be read, so it is not written either

  // Saved logins, by the number in their keys. The list of nicks that the dialog shows skips empty
  // nicks, so its positions and these numbers may part.
  std::array<Text, kMaxLogins> SavedPassword;
  std::array<Text, kMaxLogins> SavedChannel;
  std::array<Text, kMaxLogins> SavedChannelPassword;
  std::int16_t LoginCount = 0;
  std::int16_t LastLoginIndex = 0;

  bool AutoKick = false;       // the menu item akick_enabled is checked
  bool SayIPAndFlags = false;  // the menu item say_ip_and_flags is checked
  Text DisableKickChannels;    // channels separated by blanks
  Text AutoKickText;           // the whole of AutoKick.lst
  Text IpLogText;              // the whole of IPlog.log
  // A file that is there and could not be read is never written.
  bool AutoKickUnknown = false;
  bool IpLogUnknown = false;
  bool AutoKickYields = false;  // waiting events run in the middle of a look-up in AutoKickText

  // The prompt `text_input`: what was typed and chosen, and what the dialog shows.
  Text PromptText;                   // the reason
  Text PromptDuration;               // seconds, or "Надолго"
  bool PromptWantsDuration = false;  // the list of durations is shown
  bool PromptCancelled = false;

  // Spam rules: a line fires on SpamHost with its scheme, and on SpamDomain without the one
  // subdomain that is allowed.
  Text SpamHost = "spam.example";
  Text SpamDomain = "flood.example";
  Text SpamDomainAllowed = "rules.flood.example";

  int LastTab = 0;          // the tab left at the last switch
  bool ClosingTab = false;  // close_tab waits for the tab's connections to end

  // The pane that the left mouse button went down on last, whatever got the focus since. Anything
  // else that was clicked makes it kNone.
  ClickedPane LastClickedWindow;

  // Under the mouse, whichever pane it is in.
  bool MouseSelecting = false;     // the left button went down on text in a pane
  PanePosition MouseDownChar = 0;  // where
  int MouseDownTab = 0;            // in the pane of which tab
  Text HoverChannel;               // the name of the channel on a list of channels
  Text HoverLink;                  // a link
  Text HoverIP;                    // an address mask
  Text HoverNick;                  // a nick, with its colon
  Text HoverTime;                  // the line whose time it is
  bool JumpArmed = false;          // the word of a notice that leads to its line
  PanePosition JumpChar = 0;       // where
  bool PersonalArmed = false;      // the notice of a personal message
  // The nick that is tinted, "" for none, and its place in Rich of a tab.
  Text HoverNickSaved;
  PanePosition HoverNickStart = 0;
  PanePosition HoverNickEnd = 0;
  int HoverNickTab = 0;
  ListHover UsersHover;

  // The channels whose log of a day could not be written, as error.log has been told.
  Text UnwritableDay;  // the day, as in the name of the log
  std::set<Text> UnwritableLogs;

  // Smiles, out of the library "smiles.dll": each line of the table stands behind a CR LF and holds
  // the names of one picture, with blanks between. Split at CR LF, element j (1-based) is that of
  // the picture LoadResourceBitmap(resources, 101 + j); element 0 is empty. "" without a library.
  Resources resources;
  Text SmileTable;
  std::int16_t SmileCount = 0;
  SmileNames smile_names;  // of SmileTable

  SearchForm search_form;

  // The menus of nicks.
  NickMenu nick_menu;
  Text MenuNick;  // whom nick_menu was opened for last, without a colon
  CopyMenu menu_copy;
  Text MenuCopyText;    // what was selected in the list when menu_copy_users came up
  Text PersTargetNick;  // whom the personal window is for that opens or is activated next

  // The personal windows (personal/personal_window.h). OpenPersList has an entry "login_handle" for
  // each that is open, with blanks between.
  Text OpenPersList;
  std::vector<std::shared_ptr<PersonalWindow>> PersWindows;
  std::int32_t LastPersHandle = 0;

  // The tray icon.
  Text TrayTip;                           // the window's caption
  TrayIcon PictTray = TrayIcon::kWindow;  // what it shows
  bool TrayBlinkPhase = false;            // the next tick of a blink shows the other picture
  WindowState SavedWindowState = WindowState::kNormal;  // the last that was not kMinimized

  // ---- timers ----
  std::unique_ptr<Timer> Timer17;  // 10 ms: a tinted nick gets its colour back
  std::unique_ptr<Timer> Timer20;  // 500 ms: the task bar flashes until the window is active
  std::unique_ptr<Timer> Timer21;  // 10 ms: the personal window of the active tab comes up
  std::unique_ptr<Timer> Timer23;  // 8000 ms: the balloon goes
  std::unique_ptr<Timer> Timer24;  // 500 ms: the icon blinks for a personal message
  std::unique_ptr<Timer> Timer25;  // 500 ms: the icon blinks for a line that concerns the user
};

}  // namespace parlorwire
