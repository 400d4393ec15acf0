// A personal window: the personal messages of one login, on three sockets of its own. The window on
// the screen, `pers_frm`, shows what stands in the record.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "pane/rich_text_box.h"
#include "platform/desktop.h"
#include "platform/timer.h"
#include "platform/winsock.h"
#include "session/hooks.h"
#include "text/text.h"

namespace parlorwire {

class Files;
struct CopyMenu;

enum class PersonalField { kMsg, kSendNick };

// What the logic asks of the window on the screen, which fills them.
struct PersonalWindowHooks {
  // It is shown, restored if it is minimized, brought to the front and made the active window.
  Hook<void()> Raise;
  // It is shown, brought to the front, and asks for attention. It becomes the active window only if
  // no other window of the program is: who is typing goes on typing where he is.
  Hook<void()> ComeUp;
  // The field that the keys go to while the window is active.
  Hook<void(PersonalField field)> Focus;
  // The logic has changed `msg` or `send_nick`; the caret goes to the end.
  Hook<void()> ShowFields;
  // menu_copy comes up for Rich.
  Hook<void(const CopyMenu& menu)> PopUpMenuCopy;
  // A message box over the window, as that of Desktop.
  Hook<void(const Text& text, BoxIcon icon)> MessageBox;
  // The user is asked for a folder, and the call ends when he has answered: the files in it; null
  // if he chose none.
  Hook<std::unique_ptr<Files>(const Text& title)> BrowseForFolder;
};

struct PersonalWindow {
  std::int32_t Handle = 0;  // a number that no other window of this run has had
  Text ListedAs;            // its entry in OpenPersList: login, "_" and handle
  bool Closed = false;
  int RunningEvents = 0;  // the record lives until they are over

  // ---- the login, as it was when the window opened ----
  Text PersLogin;   // grows with the requests for links (see UrlEncodeKoi)
  Text PersTicket;  // never refreshed

  // ---- the frame ----
  Text PersLineCarry;        // its last line, incomplete
  bool PersLineCut = false;  // the rest of that line is dropped, up to its end
  bool PersGotData = false;  // its first data has arrived

  // ---- the links of the messages, each to be requested once ----
  std::int32_t PersQueueTop = 0;        // the highest index used so far; a reset leaves it
  std::vector<Text> PersQueue{Text()};  // from index 0, which is never used; "" is done
  std::int32_t PersQueuePos = 0;        // the index that W3 is working on, 0 = none
  std::int32_t CountedLines = 0;        // lines of Rich that lie ahead of CountedUpTo
  PanePosition CountedUpTo = 0;         // the start of a line

  // ---- the post ----
  Text PersOutText;          // the message being posted
  Text PersOutNick;          // send_nick when it was sent
  Text PersPostAnswer;       // all answers so far, never cleared; at most kLargestAnswer
  bool PersRefused = false;  // a refusal was among them
  std::array<Text, 3> PersHistory;
  std::uint8_t PersHistoryPos = 0;  // 0 to 2
  Text PersHistoryDir = "none";     // "none", "up", "down" or "upoverflow"

  // ---- the window's controls; what is typed and ticked is written here ----
  Text msg;
  Text send_nick;
  bool ActivateWhenMess = true;
  RichTextBox Rich;

  // ---- under the mouse ----
  bool MouseSelecting = false;  // the left button went down on text
  Text HoverLink;
  Text HoverIP;  // an address mask

  // The smiles that stand in Rich, by their codes.
  std::map<Text, std::shared_ptr<const PanePicture>> Smiles;

  std::unique_ptr<Winsock> W1;                  // the frame
  std::unique_ptr<Winsock> W2;                  // the post
  std::unique_ptr<Winsock> W3;                  // the requests for links
  std::unique_ptr<Timer> Timer1;                // 2 ms: the window comes up
  std::unique_ptr<Timer> PostTimer, LinkTimer;  // kAnswerDeadline, for W2 and W3

  PersonalWindowHooks hooks;
};

// While one lives, an event of the window runs.
struct RunningEvent {
  explicit RunningEvent(PersonalWindow& of) : window(of) { ++window.RunningEvents; }
  ~RunningEvent() { --window.RunningEvents; }
  RunningEvent(const RunningEvent&) = delete;
  RunningEvent& operator=(const RunningEvent&) = delete;
  PersonalWindow& window;
};

}  // namespace parlorwire
