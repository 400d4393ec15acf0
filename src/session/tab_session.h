// All state of one tab slot. There are ten slots for as long as the process lives, whether their
// tabs are shown or not; each owns its panes, sockets and timers.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "pane/rich_text_box.h"
#include "platform/timer.h"
#include "platform/winsock.h"
#include "session/backoff.h"
#include "session/user_records.h"
#include "text/text.h"

namespace parlorwire {

// What ConnectToChat gives its default again, all of it at once. Of what else a tab knows a connect
// changes nothing but `Connecting`, which it sets, and `SessionNumber`, which grows.
struct ConnectionState {
  bool Connecting = false;          // a connect sequence runs
  bool Authorized = false;          // the answer gave a ticket; Winsock1 carries the frame
  bool Connected = false;           // the frame is in the robots' style and is being read
  bool CloseHandled = false;        // the next close of Winsock1 is to be ignored
  bool IsChannelList = false;       // the frame answer is the page of channels
  bool IgnoreStream = false;        // every later chunk of this connection is dropped
  bool InScript = false;            // the lines are inside a script block
  bool ReconnectRequested = false;  // reconnect at once when the frame closes
  bool LogoffPending = false;       // a logoff request runs on Winsock5
  bool LeavePending = false;        // a leave request runs on Winsock5
  bool TabClosing = false;
  Text LogoffNick;                   // lower case; the nick of a logoff
  bool ClearPanesOnConnect = false;  // the next ConnectToChat empties Rich
  bool IsOperator = false;           // the own user line shows +a or +o
  bool ActionsArmed = false;         // Timer6 has passed: ClientAction may act
  bool LinesArmed = false;           // Timer26 has passed: mentions may raise balloons
  Text ReservedText;  // these two are reset, here and elsewhere, and claimed by nothing
  bool ReservedFlag = false;

  Text LoginAnswer;      // raw bytes of the login answer
  Text LineCarry;        // decoded tail of the frame without a line end yet
  bool LineCut = false;  // the rest of that line is dropped, up to its end
  Text ChannelListPage;  // decoded frame text; emptied at each pass that reads lines
  std::uint8_t WatchdogTicks = 0;

  Text JoinLines;             // nicks that joined since the last user frame, CR LF between
  std::deque<Text> BotQueue;  // the commands that are not said yet; the first is under way
  bool BotQueueFull = false;  // error.log has been told that there was no room for one
};

struct TabSession : ConnectionState {
  // ---- identity, set by the login dialog ----
  // Building a request escapes these in place, so a nick with "+" changes in memory at the first
  // request and grows at each further one. All who read them later see the grown value.
  Text Login;
  Text Password;
  Text Channel;  // "" means that the channel list is wanted
  Text ChannelPassword;
  Text Ticket;  // from the login answer; kept until the next answer replaces it

  // ---- what a new connect leaves as it is ----
  bool EverConnected = false;  // Connected at least once; socket errors then retry
  bool EjectSeen = false;      // the service told the client to go
  bool FixingFlagR = false;    // "/mo -R" was sent because of a flag +R
  // Grows with every ConnectToChat and every close of the tab. Who lets the event loop run in the
  // middle of something compares it behind: another number is another session.
  std::uint32_t SessionNumber = 0;

  // ---- users ----
  Text UsersBuffer;       // raw bytes of the user frame
  UserRecords UsersText;  // the records of the last user frame

  // ---- sending ----
  Text PostText;                     // the message being posted
  Text SendBuffer;                   // raw bytes of the answer to a post
  std::array<Text, 3> HistoryLines;  // 0 newest
  std::uint8_t HistoryPos = 0;       // the entry that Up shows next
  Text HistoryState = "none";        // "none", "up", "down" or "upoverflow"

  // ---- connects of the client's own accord ----
  Backoff Reconnects;   // of the session
  Backoff Fetches;      // of the user frame, because of a line of the frame
  Backoff FlagRepairs;  // of the user frame, because the own record lacks the flag -t
  Backoff BotRepairs;   // of Winsock4, for a command that repairs style or flags

  // ---- mentions that are told in another tab ----
  int MentionsThisSecond = 0;
  int MentionsHeld = 0;               // those among them that were not told
  PanePosition FirstMentionHeld = 0;  // where the first of these begins in Rich

  // ---- bot ----
  // The highlights of nicks that have just joined, by slot; slot 0 is never used. The lists of all
  // tabs have one size.
  std::int16_t JoinSlot = 0;                  // of the latest highlight
  std::vector<Text> JoinNick{Text()};         // "" when free
  std::vector<bool> JoinWaitsForList{false};  // for the next drawn user line
  std::vector<std::int16_t> JoinOffset{0};    // characters covered in the present sweep
  std::vector<std::int16_t> JoinSweeps{0};    // finished sweeps; 5 end the highlight
  // Grows with every list whose joins SayBotFunction treats.
  std::uint32_t ReportRun = 0;
  bool SayReportOnTab = true;
  bool SayReportInChat = true;

  // ---- shell ----
  bool LoginShown = false;     // the login dialog has been through for this tab
  Text TabSplitPercent;        // the splitter's place, in percent of the width of the tab, decimal
  bool PersRed = false;        // the phase in which pers blinks
  bool SayUseOpState = false;  // the state of SayUseOp while another tab is shown

  // ---- panes ----
  RichTextBox Rich;
  RichTextBox Rich_Users;
  RichTextBox Rich_Server;

  // ---- sockets ----
  std::unique_ptr<Winsock> Winsock1;  // login and frame
  std::unique_ptr<Winsock> Winsock2;  // the user's post
  std::unique_ptr<Winsock> Winsock3;  // user frame
  std::unique_ptr<Winsock> Winsock4;  // the bot's post
  std::unique_ptr<Winsock> Winsock5;  // leave and logoff
  std::array<std::unique_ptr<Winsock>*, 5> Sockets() {
    return {&Winsock1, &Winsock2, &Winsock3, &Winsock4, &Winsock5};
  }

  // ---- timers ----
  std::unique_ptr<Timer> Timer1;         // connects again
  std::unique_ptr<Timer> Timer2;         // pers blinks
  std::unique_ptr<Timer> Timer3;         // ReconnectDelayValue: the watchdog
  std::unique_ptr<Timer> Timer6;         // ActionDelayValue: sets ActionsArmed
  std::unique_ptr<Timer> Timer26;        // ActionDelayValue: sets LinesArmed
  std::unique_ptr<Timer> MentionSecond;  // 1000 ms from the first mention: tells of those held
  std::array<std::unique_ptr<Timer>, 5> AnswerTimers;  // kAnswerDeadline, in the order of Sockets
  std::array<std::unique_ptr<Timer>*, 15> Timers() {
    return {&Timer1,          &Timer2,          &Timer3,          &Timer6,
            &Timer26,         &Reconnects.Wait, &Fetches.Wait,    &FlagRepairs.Wait,
            &BotRepairs.Wait, &MentionSecond,   &AnswerTimers[0], &AnswerTimers[1],
            &AnswerTimers[2], &AnswerTimers[3], &AnswerTimers[4]};
  }
  // Timer7 (tab 0) to Timer16 (tab 9): an element for each slot of a highlight, made when it is
  // first needed.
  std::vector<std::unique_ptr<Timer>> JoinTimers;
};

}  // namespace parlorwire
