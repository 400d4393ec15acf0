// The ports a second time, with no outside: a virtual clock, scripted sockets, files in memory, and
// windows that only remember what they were told.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "session/client.h"
#include "support/memory_logs.h"

namespace parlorwire {

class SimulatedTimer;

// Virtual time. It starts at 2026-11-21 12:00:00 and moves only by Advance.
class SimulatedTime : public Clock {
 public:
  LocalTime Now() const override;

  // Moves on and lets the timers tick in the order of their times; timers due at one moment tick in
  // the order in which they were switched on.
  void Advance(std::int64_t milliseconds);
  // Sets the calendar to another moment without a tick.
  void SetNow(const LocalTime& time);

  std::int64_t Milliseconds() const override { return now_; }
  std::uint64_t ticks() const { return ticks_; }

  std::unique_ptr<Timer> NewTimer();

 private:
  friend class SimulatedTimer;
  std::int64_t now_ = 0;
  std::int64_t calendar_start_ = 1795262400;  // seconds since 1970 of the start, in local time
  std::uint64_t ticks_ = 0;
  std::uint64_t next_order_ = 0;
  std::vector<SimulatedTimer*> timers_;
};

class SimulatedTimer : public Timer {
 public:
  explicit SimulatedTimer(SimulatedTime& time);
  ~SimulatedTimer() override;

  void Interval(int milliseconds) override;
  int Interval() const override { return interval_; }
  void Enabled(bool on) override;
  bool Enabled() const override { return enabled_; }

 private:
  friend class SimulatedTime;
  bool Running() const { return enabled_ && interval_ > 0; }
  void StartPeriod();

  SimulatedTime& time_;
  int interval_ = 0;
  bool enabled_ = false;
  std::int64_t due_ = 0;
  std::uint64_t order_ = 0;
};

// A socket whose peer is the test.
class SimulatedSocket : public Winsock {
 public:
  // ---- the port ----
  void Connect(const Text& host, const Text& port) override;
  void Close() override;
  void SendData(const Text& bytes) override;
  Text GetData() override;
  SocketState State() const override { return state_; }

  // ---- the peer; each call is one event ----
  void Accept();                         // the connection stands
  void Deliver(std::string_view bytes);  // one chunk; nothing if the socket isn't connected
  void PeerCloses();                     // nothing if the socket isn't connected
  void Fail(int number);                 // with the classic description; nothing on a closed socket

  // ---- what happened ----
  Text host, port;   // of the last Connect
  int connects = 0;  // calls of Connect
  Text sent;         // since the last Connect
  int sends = 0;     // calls of SendData since the last Connect

 private:
  SocketState state_ = SocketState::kClosed;
  Text waiting_;
};

// Files in memory. Folders exist once made; the application folder always does.
class SimulatedFiles : public Files {
 public:
  bool Exists(const Text& name) const override;
  std::int64_t Size(const Text& name) const override;
  Text Read(const Text& name) const override;
  void Replace(const Text& name, const Text& content) override;
  void ReplaceUnflushed(const Text& name, const Text& content) override { Replace(name, content); }
  void WriteAt(const Text& name, std::int64_t at, const Text& bytes) override;
  void Append(const Text& name, const Text& bytes) override;
  void MakeFolder(const Text& name) override;

  std::map<Text, Text> files;
  std::set<Text> folders;
  std::set<Text> unreadable;       // files whose reading fails with 70
  std::set<Text> unwritable;       // files whose writing fails with 70
  std::optional<int> write_fault;  // every write and MakeFolder fails with this number
  int writes = 0;                  // that succeeded

 private:
  Text& Writable(const Text& name);
};

class SimulatedRandom : public Random {
 public:
  // The next number of the script; 0.5 when it is used up.
  double Next() override;
  std::deque<double> script;
};

class SimulatedClipboard : public Clipboard {
 public:
  void SetText(const Text& new_text) override { text = new_text; }
  Text GetText() const override { return text; }
  Text text;
};

// Windows that remember.
class SimulatedDesktop : public Desktop {
 public:
  struct Tab {
    bool visible = false;
    Text caption;
    bool controls_enabled = false;
    bool stop_scroll = false;
    Text msg;
    Text intonacia;
    int intonacia_selected = -1;
    Text users_num;
    bool pers_red = false;
  };
  struct Box {
    Text text;
    BoxIcon icon{};
    bool question = false;
    BoxAnswer preselected = BoxAnswer::kYes;  // of a question
    bool operator==(const Box&) const = default;
  };

  void YieldToEvents() override;
  bool EventsWaiting() const override { return events_waiting; }
  int ActiveTab() const override { return active_tab; }
  void SetActiveTab(int tab) override;
  bool TabVisible(int tab) const override { return at(tab).visible; }
  void SetTabVisible(int tab, bool visible) override { at(tab).visible = visible; }
  Text TabCaption(int tab) const override { return at(tab).caption; }
  void SetTabCaption(int tab, const Text& caption) override { at(tab).caption = caption; }
  void SetWindowCaption(const Text& caption) override { window_caption = caption; }
  bool IsActiveWindow() const override { return window_active; }
  bool WindowVisible() const override { return window_visible; }
  bool WindowMinimized() const override { return window_state == WindowState::kMinimized; }
  void HideWindow() override;
  void MinimizeWindow() override { window_state = WindowState::kMinimized; }
  void RestoreWindow(WindowState state) override;
  void FlashWindow(bool on) override { flashes.push_back(on); }
  void SetTabControlsEnabled(int tab, bool enabled) override;
  void SetCloseTabEnabled(bool enabled) override { close_tab_enabled = enabled; }
  void SetSharedLinksEnabled(bool enabled) override;
  bool LogoffEnabled() const override { return logoff_enabled; }
  bool StopScroll(int tab) const override { return at(tab).stop_scroll; }
  void SetStopScroll(int tab, bool ticked) override { at(tab).stop_scroll = ticked; }
  Text MsgText(int tab) const override { return at(tab).msg; }
  void SetMsgText(int tab, const Text& text) override { at(tab).msg = text; }
  void FocusMsg(int tab) override { focused_msg = tab; }
  Text IntonaciaText(int tab) const override { return at(tab).intonacia; }
  void SelectIntonacia(int tab, int index) override;
  Text UsersNumCaption(int tab) const override { return at(tab).users_num; }
  void SetUsersNumCaption(int tab, const Text& caption) override;
  void SetPersRed(int tab, bool red) override { at(tab).pers_red = red; }
  bool SayUseOpChecked() const override { return say_use_op; }
  void SetSayUseOp(bool checked, bool enabled) override;
  void MessageBox(const Text& text, BoxIcon icon) override;
  bool AskYesNo(const Text& text, BoxIcon icon, BoxAnswer preselected) override;
  void ShowLanguage(UiLanguage language) override { shown_language = language; }

  Tab& at(int tab) { return tabs.at(static_cast<std::size_t>(tab)); }
  const Tab& at(int tab) const { return tabs.at(static_cast<std::size_t>(tab)); }

  std::array<Tab, kTabCount> tabs;
  int active_tab = 0;
  Text window_caption;
  bool window_active = true;
  bool window_visible = true;
  WindowState window_state = WindowState::kNormal;
  int restores = 0;
  std::vector<bool> flashes;
  bool shared_controls_enabled = false;  // by SetTabControlsEnabled
  bool shared_links_enabled = false;     // by SetSharedLinksEnabled
  bool close_tab_enabled = false;
  bool logoff_enabled = false;  // by either
  int focused_msg = -1;
  bool say_use_op = false;
  bool say_use_op_enabled = false;
  std::vector<Box> boxes;
  std::deque<bool> answers;  // to AskYesNo, in order; false when used up
  std::optional<UiLanguage> shown_language;
  bool events_waiting = false;
  int yields = 0;
  int users_num_updates = 0;
  std::function<void()> on_yield;  // what happens in the event loop when the logic yields
  std::function<void(int previous)> on_tab_click;  // after SetActiveTab
};

// A tray that remembers.
class SimulatedTray : public Tray {
 public:
  bool Available() const override { return available; }
  void Add(TrayIcon new_icon, const Text& new_tip) override;
  void Modify(TrayIcon new_icon, const Text& new_tip) override;
  void Delete() override;
  void ShowBalloon(const Balloon& shown) override;
  void RemoveBalloon() override;

  bool available = true;
  bool added = false;
  TrayIcon icon = TrayIcon::kWindow;
  Text tip;
  std::vector<TrayIcon> icons;     // that each Add and Modify showed
  std::optional<Balloon> balloon;  // that is shown
  int removals = 0;                // calls of RemoveBalloon
};

// A client on the simulated platform.
class SimulatedPlatform {
 public:
  SimulatedTime time;
  SimulatedFiles files;
  SimulatedFiles program_files;
  MemoryLogs day_logs;
  SimulatedRandom random;
  SimulatedClipboard clipboard;
  SimulatedDesktop desktop;
  SimulatedTray tray;

  Platform Ports() { return Ports(files, desktop); }
  // The same with other files, and with other windows.
  Platform Ports(Files& other_files) { return Ports(other_files, desktop); }
  Platform Ports(Desktop& other_desktop) { return Ports(files, other_desktop); }

 private:
  Platform Ports(Files& chosen_files, Desktop& chosen_desktop);
};

// The socket behind a port of the simulated platform.
SimulatedSocket& Simulated(const std::unique_ptr<Winsock>& socket);

}  // namespace parlorwire
