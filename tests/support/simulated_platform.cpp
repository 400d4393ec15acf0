#include "support/simulated_platform.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/socket_error.h"
#include "text/fault.h"
#include "users/posting.h"

namespace parlorwire {

// ---- time ----

LocalTime SimulatedTime::Now() const {
  using namespace std::chrono;
  const sys_seconds now{seconds(calendar_start_ + now_ / 1000)};
  const auto today = floor<days>(now);
  const year_month_day date(today);
  const hh_mm_ss clock(now - today);
  return {int(date.year()),           int(unsigned(date.month())),  int(unsigned(date.day())),
          int(clock.hours().count()), int(clock.minutes().count()), int(clock.seconds().count())};
}

void SimulatedTime::SetNow(const LocalTime& time) {
  using namespace std::chrono;
  const sys_days date = year(time.year) / month(unsigned(time.month)) / day(unsigned(time.day));
  const auto moment =
      sys_seconds(date) + hours(time.hour) + minutes(time.minute) + seconds(time.second);
  calendar_start_ = moment.time_since_epoch().count() - now_ / 1000;
}

void SimulatedTime::Advance(std::int64_t milliseconds) {
  const std::int64_t until = now_ + milliseconds;
  for (;;) {
    SimulatedTimer* next = nullptr;
    for (SimulatedTimer* timer : timers_) {
      if (!timer->Running() || timer->due_ > until) continue;
      if (!next || std::pair(timer->due_, timer->order_) < std::pair(next->due_, next->order_))
        next = timer;
    }
    if (!next) break;
    now_ = std::max(now_, next->due_);
    next->due_ += next->interval_;
    ++ticks_;
    if (next->Tick) next->Tick();
  }
  now_ = until;
}

std::unique_ptr<Timer> SimulatedTime::NewTimer() {
  return std::make_unique<SimulatedTimer>(*this);
}

SimulatedTimer::SimulatedTimer(SimulatedTime& time) : time_(time) {
  time_.timers_.push_back(this);
}

SimulatedTimer::~SimulatedTimer() {
  std::erase(time_.timers_, this);
}

void SimulatedTimer::StartPeriod() {
  due_ = time_.now_ + interval_;
  order_ = time_.next_order_++;
}

void SimulatedTimer::Interval(int milliseconds) {
  if (milliseconds < 0) throw Fault(fault::kInvalidProperty);
  interval_ = milliseconds;
  StartPeriod();
}

void SimulatedTimer::Enabled(bool on) {
  if (on && !enabled_) StartPeriod();
  enabled_ = on;
}

// ---- sockets ----

void SimulatedSocket::Connect(const Text& new_host, const Text& new_port) {
  Close();
  host = new_host;
  port = new_port;
  ++connects;
  sent.clear();
  sends = 0;
  state_ = SocketState::kConnecting;
}

void SimulatedSocket::Close() {
  state_ = SocketState::kClosed;
  waiting_.clear();
}

void SimulatedSocket::SendData(const Text& bytes) {
  if (state_ != SocketState::kConnected) return;
  sent += bytes;
  ++sends;
}

Text SimulatedSocket::GetData() {
  return std::exchange(waiting_, Text());
}

void SimulatedSocket::Accept() {
  if (state_ != SocketState::kConnecting) return;
  state_ = SocketState::kConnected;
  if (events.Connect) events.Connect();
}

void SimulatedSocket::Deliver(std::string_view bytes) {
  if (state_ != SocketState::kConnected || bytes.empty()) return;
  if (!events.DataArrival) return;
  waiting_ += bytes;
  events.DataArrival(waiting_.size());
}

void SimulatedSocket::PeerCloses() {
  if (state_ != SocketState::kConnected) return;
  state_ = SocketState::kClosing;
  if (events.Close) events.Close();
}

void SimulatedSocket::Fail(int number) {
  if (state_ != SocketState::kConnecting && state_ != SocketState::kConnected) return;
  state_ = SocketState::kError;
  if (events.Error) events.Error(number, SocketErrorDescription(number));
}

SimulatedSocket& Simulated(const std::unique_ptr<Winsock>& socket) {
  return static_cast<SimulatedSocket&>(*socket);
}

// ---- files ----

bool SimulatedFiles::Exists(const Text& name) const {
  return IsLegalFileName(name) && files.contains(name);
}

std::int64_t SimulatedFiles::Size(const Text& name) const {
  if (!IsLegalFileName(name)) throw Fault(fault::kBadFileName);
  const auto file = files.find(name);
  if (file == files.end()) throw Fault(fault::kFileNotFound);
  return static_cast<std::int64_t>(file->second.size());
}

Text SimulatedFiles::Read(const Text& name) const {
  Size(name);
  if (unreadable.contains(name)) throw Fault(fault::kPermissionDenied);
  return files.at(name);
}

Text& SimulatedFiles::Writable(const Text& name) {
  if (!IsLegalFileName(name)) throw Fault(fault::kBadFileName);
  if (write_fault) throw Fault(*write_fault);
  if (unwritable.contains(name)) throw Fault(fault::kPermissionDenied);
  const std::size_t folder_end = name.rfind('\\');
  if (folder_end != Text::npos && !folders.contains(name.substr(0, folder_end)))
    throw Fault(fault::kPathNotFound);
  ++writes;
  return files[name];
}

void SimulatedFiles::Replace(const Text& name, const Text& content) {
  Writable(name) = content;
}

void SimulatedFiles::WriteAt(const Text& name, std::int64_t at, const Text& bytes) {
  Text& file = Writable(name);
  if (at < 1) throw Fault(fault::kBadRecordNumber);
  const auto from = static_cast<std::size_t>(at - 1);
  file.resize(std::max(file.size(), from + bytes.size()));
  file.replace(from, bytes.size(), bytes);
}

void SimulatedFiles::Append(const Text& name, const Text& bytes) {
  Writable(name) += bytes;
}

void SimulatedFiles::MakeFolder(const Text& name) {
  if (!IsLegalFileName(name)) throw Fault(fault::kBadFileName);
  if (write_fault) throw Fault(*write_fault);
  const std::size_t parent_end = name.rfind('\\');
  if (parent_end != Text::npos && !folders.contains(name.substr(0, parent_end)))
    throw Fault(fault::kPathNotFound);
  folders.insert(name);
}

// ---- random ----

double SimulatedRandom::Next() {
  if (script.empty()) return 0.5;
  const double next = script.front();
  script.pop_front();
  return next;
}

// ---- desktop ----

void SimulatedDesktop::YieldToEvents() {
  ++yields;
  if (on_yield) on_yield();
}

void SimulatedDesktop::SetTabControlsEnabled(int tab, bool enabled) {
  at(tab).controls_enabled = enabled;
  shared_controls_enabled = enabled;
  close_tab_enabled = enabled;
  logoff_enabled = enabled;
}

void SimulatedDesktop::SetSharedLinksEnabled(bool enabled) {
  shared_links_enabled = enabled;
  logoff_enabled = enabled;
}

void SimulatedDesktop::SetActiveTab(int tab) {
  const int previous = active_tab;
  active_tab = tab;
  if (on_tab_click) on_tab_click(previous);
}

void SimulatedDesktop::SelectIntonacia(int tab, int index) {
  at(tab).intonacia_selected = index;
  at(tab).intonacia = Text(kTones.at(static_cast<std::size_t>(index)).label);
}

void SimulatedDesktop::SetUsersNumCaption(int tab, const Text& caption) {
  at(tab).users_num = caption;
  ++users_num_updates;
}

void SimulatedDesktop::SetSayUseOp(bool checked, bool enabled) {
  say_use_op = checked;
  say_use_op_enabled = enabled;
}

void SimulatedDesktop::MessageBox(const Text& text, BoxIcon icon) {
  boxes.push_back({text, icon});
}

bool SimulatedDesktop::AskYesNo(const Text& text, BoxIcon icon, BoxAnswer preselected) {
  boxes.push_back({text, icon, true, preselected});
  if (answers.empty()) return false;
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

void SimulatedDesktop::HideWindow() {
  window_visible = false;
  window_active = false;
}

void SimulatedDesktop::RestoreWindow(WindowState state) {
  ++restores;
  window_visible = true;
  window_active = true;
  window_state = state;
}

// ---- tray ----

void SimulatedTray::Add(TrayIcon new_icon, const Text& new_tip) {
  added = true;
  Modify(new_icon, new_tip);
}

void SimulatedTray::Modify(TrayIcon new_icon, const Text& new_tip) {
  if (!added) return;
  icon = new_icon;
  tip = new_tip;
  icons.push_back(new_icon);
}

void SimulatedTray::Delete() {
  added = false;
  balloon.reset();
}

void SimulatedTray::ShowBalloon(const Balloon& shown) {
  balloon = shown;
}

void SimulatedTray::RemoveBalloon() {
  balloon.reset();
  ++removals;
}

// ---- all of it ----

Platform SimulatedPlatform::Ports(Files& chosen_files, Desktop& chosen_desktop) {
  return {chosen_files,
          program_files,
          day_logs,
          time,
          random,
          clipboard,
          chosen_desktop,
          tray,
          [] { return std::make_unique<SimulatedSocket>(); },
          [this] { return time.NewTimer(); }};
}

}  // namespace parlorwire
