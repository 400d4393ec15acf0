#include "conversation/rough_evening.h"

#include <algorithm>
#include <utility>

#include "service/personal.h"
#include "service/presence.h"
#include "session/channel_list.h"
#include "session/connect.h"
#include "session/leaving.h"
#include "shell/hot_keys.h"
#include "shell/tabs.h"
#include "text/cut.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

constexpr std::int64_t kPatienceMs = 200'000;  // of a user with a tab that stands idle
constexpr std::int64_t kConnectTimeoutMs = 21'000;

Text NickOf(int tab) {
  if (tab < 4) return "alice";
  return tab < 7 ? "bob" : "carol";
}

Text ChannelOf(int tab) {
  return "room" + std::to_string(tab);
}

}  // namespace

RoughEvening::RoughEvening(std::uint32_t seed) : engine_(seed) {
  now.local = 1'795'303'800;  // half an hour ahead of midnight
  chat.options.history = 5;
  guests.push_back(std::make_unique<Guest>("10.0.0.1"));
  guest().platform.time.SetNow({2026, 11, 21, 23, 30, 0});
  for (int i = 0; i < kTabCount; ++i) {
    TabSession& session = tab(i);
    session.Login = NickOf(i);
    session.Password = "secret";
    session.Channel = ChannelOf(i);
    int number = 0;
    for (const auto* socket : session.Sockets())
      lines_[&Simulated(*socket)] = {i, ++number};
    guest().platform.desktop.SetTabVisible(i, true);
    watches_.at(static_cast<std::size_t>(i)) =
        std::make_unique<PaneWatch>(session.Rich, ExpectedOf(i));
    ConnectToChat(guest().client, i);
  }
  Settle();
}

void RoughEvening::Live(std::int64_t milliseconds) {
  for (std::int64_t passed = 0; passed < milliseconds; passed += 200)
    Step();
}

void RoughEvening::LiveInPeace(std::int64_t milliseconds) {
  trouble_ = false;
  if (!running_) StartService();
  Live(milliseconds);
  trouble_ = true;
}

void RoughEvening::Step() {
  if (!running_ && now.ms >= back_at_) StartService();
  if (running_) Talk();
  if (trouble_) MakeTrouble();
  Pass(200);
  TakeCare();
}

// ---- the network ----

bool RoughEvening::IsFrame(const Line& line, const SimulatedSocket& socket) const {
  return line.number == 1 && socket.sent.starts_with("POST /pframe ");
}

bool RoughEvening::Accept(SimulatedSocket& socket) {
  Line& line = lines_.at(&socket);
  if (line.decided == socket.connects) {
    if (now.ms < line.hangs_until) return false;
    socket.Fail(10060);
    return true;
  }
  line.decided = socket.connects;
  line.hangs_until = 0;
  if (!running_) {
    socket.Fail(10061);
  } else if (Happens(150) && Note("refused")) {
    socket.Fail(Dice(2) == 0 ? 10061 : 10065);
  } else if (Happens(100) && Note("connect hangs")) {
    line.hangs_until = now.ms + kConnectTimeoutMs;
    return false;
  } else {
    socket.Accept();
  }
  return true;
}

// One chunk; the witness sees it first.
void RoughEvening::DeliverChunk(Line& line, SimulatedSocket& socket, std::string_view bytes) {
  if (bytes.empty()) return;
  Expected& expected = ExpectedOf(line.tab);
  if (IsFrame(line, socket)) {
    if (std::exchange(expected.connects, socket.connects) != socket.connects)
      expected.witness.Begin();
    for (const Text& said_line : expected.witness.Chunk(bytes)) {
      ++expected.pane[said_line];
      ++expected.log[said_line];
      ++shown;
    }
  }
  socket.Deliver(bytes);
}

// Bytes in one chunk or, now and then, in many that are cut anywhere.
void RoughEvening::DeliverPart(Line& line, SimulatedSocket& socket, std::string_view bytes) {
  const int connects = socket.connects;
  const auto stands = [&] {
    return socket.connects == connects && socket.State() == SocketState::kConnected;
  };
  // The header comes in one piece nearly always, as clients count on.
  const auto head = bytes.find("<pre>\n");
  if (IsFrame(line, socket) && head != std::string_view::npos && !Happens(300)) {
    DeliverChunk(line, socket, bytes.substr(0, head + 6));
    bytes.remove_prefix(head + 6);
  }
  const bool whole = !trouble_ || Dice(2) == 0;
  while (!bytes.empty() && stands()) {
    const auto size =
        whole ? bytes.size() : static_cast<std::size_t>(1 + Dice(Dice(3) == 0 ? 4 : 90));
    DeliverChunk(line, socket, bytes.substr(0, size));
    bytes.remove_prefix(std::min(size, bytes.size()));
  }
}

std::string RoughEvening::Garbage() {
  std::string garbage;
  for (int i = 0; i < 64; ++i)
    garbage += static_cast<char>(Dice(256));
  return garbage;
}

bool RoughEvening::Carry(SimulatedSocket& socket, std::string_view bytes) {
  Line& line = lines_.at(&socket);
  const int connects = socket.connects;
  if (line.stalled == connects) return false;
  if (bytes.empty() || !Happens(IsFrame(line, socket) ? 20 : 400)) {
    DeliverPart(line, socket, bytes);
    return true;
  }
  const auto half = static_cast<std::size_t>(Dice(static_cast<int>(bytes.size())));
  DeliverPart(line, socket, bytes.substr(0, half));
  if (socket.connects != connects) return true;
  switch (Dice(garbage ? 4 : 3)) {
    case 0:
      Note("cut within");
      socket.PeerCloses();
      return true;
    case 1:
      Note("reset within");
      socket.Fail(10054);
      return false;
    case 2:
      Note("stalled within");
      line.stalled = connects;
      return false;
    default:
      Note("garbage within");
      DeliverChunk(line, socket, Garbage());
      DeliverPart(line, socket, bytes.substr(half));
      return true;
  }
}

// ---- the service and the people ----

void RoughEvening::StopService() {
  running_ = false;
  back_at_ = now.ms + 60'000 + Dice(180) * 1000;
  for (TabSession& session : guest().client.tabs) {
    for (const auto* socket : session.Sockets()) {
      if (Dice(3) == 0)
        Simulated(*socket).Fail(10054);
      else
        Simulated(*socket).PeerCloses();
    }
  }
  Settle();
  const service::ChatOptions options = chat.options;
  chat = service::Chat();
  chat.options = options;
  chat.random = [this] { return ++random; };
}

void RoughEvening::StartService() {
  running_ = true;
}

// Somebody says a line on some channel; now and then it is the user.
void RoughEvening::Talk() {
  const int at = Dice(kTabCount);
  if (Dice(8) == 0 && tab(at).Connected) {
    Say(guest(), NumberedLine(++said), at);
    return;
  }
  service::Channel* channel = service::FindChannel(chat, ChannelOf(at));
  if (channel == nullptr) return;
  for (int lines = 1 + Dice(3); lines > 0; --lines)
    service::Broadcast(chat.frames, *channel,
                       {0, service::LineForm::kMessage, "dave", "", NumberedLine(++said)}, now);
}

void RoughEvening::MakeTrouble() {
  if (!running_ || Dice(10) != 0) return;  // each two seconds
  const int at = Dice(kTabCount);
  SimulatedSocket& frame = Winsock1(at);
  Line& line = lines_.at(&frame);
  const auto account = chat.accounts.find(NickOf(at));
  service::Channel* channel = service::FindChannel(chat, ChannelOf(at));
  const bool reads = tab(at).Connected && frame.State() == SocketState::kConnected;
  switch (Dice(40)) {
    case 0:
      if (reads && Note("closed")) frame.PeerCloses();
      break;
    case 1:
      if (reads && Note("reset")) frame.Fail(10054);
      break;
    case 2:
      if (reads && Note("timed out")) frame.Fail(10060);
      break;
    case 3:
      if (reads && Note("stalled")) line.stalled = frame.connects;
      break;
    case 4:
      if (reads && garbage && line.stalled != frame.connects && Note("garbage"))
        DeliverChunk(line, frame, Garbage());
      break;
    case 5: {
      constexpr std::array<int, 4> kStyles = {0, 1, 2, 4};
      if (account != chat.accounts.end() && Note("wrong style"))
        account->second.style = kStyles.at(static_cast<std::size_t>(Dice(4)));
      break;
    }
    case 6:
      if (account != chat.accounts.end() && Note("flag +R")) account->second.reload = true;
      break;
    case 7:
      if (channel != nullptr && Note("ejected"))
        service::PartMember(chat, *channel, NickOf(at), service::FrameEnd::kEject, now);
      break;
    case 8:
      if (channel != nullptr && Note("kicked"))
        service::PartMember(chat, *channel, NickOf(at), service::FrameEnd::kClose, now);
      break;
    case 9:
      PressKeys(at);
      break;
    case 10:
      if (account != chat.accounts.end() && Note("personal message"))
        service::SendPersonal(chat, account->second, NickOf(Dice(kTabCount)), "psst", now);
      break;
    case 11:
      if (Dice(6) == 0 && Note("service gone")) StopService();
      break;
    default:
      return;
  }
  Settle();
}

// The user leaves, refreshes, logs off or closes a tab.
void RoughEvening::PressKeys(int index) {
  Client& client = guest().client;
  client.platform.desktop.SetActiveTab(index);
  if (!tab(index).Connected) return;
  ++ExpectedOf(index).clears_allowed;
  switch (Dice(5)) {
    case 0:
      Note("F5");
      return RefreshTab(client);
    case 1:
      Note("F6");
      return LogInAfresh(client);
    case 2:
      Note("F8");
      return LogoffChat(client, index);
    case 3:
      Note("left");
      return LeaveChannel(client, index);
    default:
      Note("tab closed");
      close_tab(client);
  }
}

void RoughEvening::ConnectAsUser(int index) {
  TabSession& session = tab(index);
  ++ExpectedOf(index).clears_allowed;
  guest().platform.desktop.SetTabVisible(index, true);
  if (session.IsChannelList) return EnterListedChannel(guest().client, index, ChannelOf(index));
  session.Login = NickOf(index);
  session.Password = "secret";
  session.Channel = ChannelOf(index);
  ConnectToChat(guest().client, index);
}

// A user looks after tabs that have stood idle for minutes, and logs in again there.
void RoughEvening::TakeCare() {
  for (int i = 0; i < kTabCount; ++i) {
    Expected& expected = ExpectedOf(i);
    if (tab(i).Connected) expected.idle_since = now.ms;
    if (now.ms - expected.idle_since < kPatienceMs) continue;
    expected.idle_since = now.ms;
    Note("idle tab");
    ConnectAsUser(i);
    Settle();
  }
}

// ---- what came of it ----

void RoughEvening::PaneWatch::TextChanged(const TextChange& change) {
  if (change.start != 0 || change.removed == 0 || change.inserted != 0) return;
  ++expected_.clears;
  expected_.pane.clear();
}

Text RoughEvening::WrongInPane(int tab) {
  const Expected& expected = ExpectedOf(tab);
  if (expected.clears > expected.clears_allowed) return "emptied unasked";
  return Difference(expected.pane, CountNumbered(guest().Pane(tab)));
}

Text RoughEvening::WrongInLog(int tab) {
  LineCounts found;
  const Text folder = "Logs\\" + ChannelOf(tab) + "\\";
  for (const auto& [name, content] : guest().platform.files.files)
    if (name.starts_with(folder)) Add(CountNumbered(content), found);
  return Difference(ExpectedOf(tab).log, found);
}

void RoughEvening::ClearAll() {
  for (int i = 0; i < kTabCount; ++i) {
    TabSession& session = tab(i);
    ++ExpectedOf(i).clears_allowed;
    session.Rich.Text("");
    // What a text has once grown to is no leak.
    for (Text* text : {&session.ChannelListPage, &session.LoginAnswer, &session.LineCarry,
                       &session.UsersBuffer, &session.SendBuffer, &session.PostText})
      text->shrink_to_fit();
    for (const auto* socket : session.Sockets())
      Simulated(*socket).sent.shrink_to_fit();
    ExpectedOf(i) = Expected{};
  }
  guest().platform.files.files.clear();
}

std::string RoughEvening::WrongState(int index) {
  const TabSession& session = tab(index);
  const SocketState frame = session.Winsock1->State();
  const bool open = frame == SocketState::kConnecting || frame == SocketState::kConnected;
  const bool waits = session.Timer1->Enabled();
  const bool watched = session.Timer3->Enabled();
  if (!guest().platform.desktop.TabVisible(index) && (open || waits || watched))
    return "a closed tab that does something";
  if (session.Connected) {
    if (!session.Authorized || session.Connecting || session.IgnoreStream) return "flags";
    if (!session.EverConnected || (session.IsChannelList && !session.LeavePending))
      return "more flags";
    // An error leaves the tab Connected until it connects again.
    if (frame == SocketState::kConnected ? !watched || waits : open || watched || !waits)
      return "a channel without a watchdog, or an error without a retry";
  }
  if (session.Connecting && !open) return "connecting without a connection";
  if (waits && (open || watched || session.Connecting)) return "a retry beside a connection";
  if (watched && (frame != SocketState::kConnected || !session.Authorized))
    return "a watchdog without a frame";
  if (watched && session.Timer3->Interval() != guest().client.app.ReconnectDelayValue)
    return "another period of the watchdog";
  if (session.WatchdogTicks > 1) return "ticks";
  if (session.ActionsArmed && session.Timer6->Enabled()) return "Timer6 beyond its tick";
  if (session.LinesArmed == session.Timer26->Enabled()) return "LinesArmed and Timer26";
  if (!session.Timer2->Enabled() && session.PersRed) return "pers red without a blink";
  if (session.BotQueue.size() > 1000) return "queue";
  return {};
}

}  // namespace parlorwire
