// The upward traffic of the program, on one page: what a lower room asks of a higher one. Each hook
// bears the name of the procedure that fills it. Assemble() in shell/assembly.cpp fills those
// of the core, and the main window its own; until then a hook does nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "pane/units.h"
#include "platform/tray.h"
#include "text/text.h"

namespace parlorwire {

template <class Signature>
class Hook;

// A std::function that may be called while it is empty.
template <class Result, class... Arguments>
class Hook<Result(Arguments...)> {
 public:
  template <class Procedure>
  Hook& operator=(Procedure procedure) {
    procedure_ = std::move(procedure);
    return *this;
  }
  Result operator()(Arguments... arguments) const {
    return procedure_ ? procedure_(static_cast<Arguments>(arguments)...) : Result();
  }

 private:
  std::function<Result(Arguments...)> procedure_;
};

struct Hooks {
  // display/parse_chat_line: a line of the frame is to be shown
  Hook<void(const Text& line, int tab)> ParseChatLine;
  // display/chat_log: a piece goes to the day log of a channel
  Hook<void(const Text& piece, const Text& channel)> LogChatLine;

  // users/user_frame: fetch the list of users anew
  Hook<void(int tab)> UpdateUsersFrame;
  // users/nick_menu: the menu of a nick comes up
  Hook<void(int tab, const Text& nick)> ShowNickMenu;

  // bot/bot_queue: say a command to the chat
  Hook<void(const Text& text, int tab)> SayBot;
  // bot/reactions: a system line is about to be shown
  Hook<void(const Text& line, int tab)> ClientAction;
  // bot/autokick: the reason for which the list of kicks names a nick or an address on a channel,
  // "" if it doesn't
  Hook<Text(const Text& who, const Text& channel, bool is_nick, const Text& nick)> FindAutoKick;
  // bot/reactions: the list of users is new; a fault in it reaches the caller
  Hook<void(int tab)> SayBotFunction;
  // bot/join_highlight: a line of the list was drawn; the highlight that waits for it may start
  Hook<void(int tab)> StartWaitingHighlight;

  // personal/pers_frm: a click on `pers` of a tab
  Hook<void(int tab)> pers;

  // shell/tray: a balloon with "Parlorwire" and `title` as its title, in the place of the last one;
  // a click on it brings up what it is about. An empty text takes it away
  Hook<void(const Text& title, const Text& text, int info_flags, const BalloonAbout& about)>
      ShowBalloon;
  // shell/tray: 1 a personal message waits, 2 a line concerns the user, 3 neither. With 1 and 2 the
  // icon blinks and the task bar flashes until the main window is the active one
  Hook<void(int mode)> SetTrayBlink;
  // shell/tray: the tip of the tray icon
  Hook<void(const Text& caption)> SetTabTitle;
  // shell/qt/open_url: a page in the user's browser
  Hook<void(const Text& url)> OpenUrl;
  // shell/qt/nick_menu_popup: nick_menu comes up as AppState::nick_menu says
  Hook<void()> PopUpNickMenu;
  // shell/qt/message_pane: menu_copy comes up for Rich of a tab as AppState::menu_copy says
  Hook<void(int tab)> PopUpMenuCopy;
  // shell/qt/nick_menu_popup: menu_copy_users comes up
  Hook<void()> PopUpMenuCopyUsers;
  // shell/qt/users_list: the list of users is about to be emptied and drawn anew; it has been
  Hook<void(int tab)> UsersListToBeDrawn;
  Hook<void(int tab)> UsersListDrawn;
  // shell/qt/bot_autokick: a nick was put on the list of kicks for a channel, or for "All"
  Hook<void(const Text& nick, const Text& channel)> AutoKickAdded;
  // shell/qt/pers_frm: a personal window has been opened, and is to be shown
  Hook<void(std::int32_t handle)> ShowPersWindow;
  // shell/qt/search_form: the search dialog comes up
  Hook<void()> ShowSearchDialog;
  // shell/qt/text_input: the prompt for a reason comes up, modal, and the call ends when it is
  // closed; it shows the durations if PromptWantsDuration is set
  Hook<void(const Text& prompt, const Text& title)> ShowTextInput;
  // shell/qt/connection_form: the login dialog comes up for the active tab
  Hook<void(int tab)> ShowLoginDialog;
};

}  // namespace parlorwire
