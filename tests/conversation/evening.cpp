#include "conversation/evening.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "service/presence.h"
#include "service/presentation.h"
#include "session/connect.h"
#include "shell/assembly.h"
#include "text/charset.h"
#include "users/posting.h"

namespace parlorwire {

Guest::Guest(const Text& from) : address(from) {
  Assemble(client);
  client.app.ChatHost = "chat.example";
  platform.desktop.SetTabVisible(0, true);
}

Evening::Evening() {
  chat.random = [this] { return ++random; };
}

Guest& Evening::Come(const Text& nick, const Text& channel, const Text& password) {
  guests.push_back(std::make_unique<Guest>("10.0.0." + std::to_string(guests.size() + 1)));
  Guest& guest = *guests.back();
  guest.tab().Login = nick;
  guest.tab().Password = password;
  guest.tab().Channel = channel;
  ConnectToChat(guest.client, 0);
  Settle();
  return guest;
}

void Evening::Say(Guest& guest, const Text& text, int tab) {
  guest.platform.desktop.SetMsgText(tab, text);
  button_say_MouseUp(guest.client, tab);
  Settle();
}

void Evening::Settle() {
  for (bool busy = true; busy;) {
    busy = false;
    for (const auto& guest : guests)
      busy = ServeGuest(*guest) || busy;
    busy = DropLostFrames() || busy;
    busy = SendFrames() || busy;
  }
}

void Evening::Pass(std::int64_t milliseconds) {
  for (std::int64_t passed = 0; passed < milliseconds; passed += 100) {
    now.ms += 100;
    if (now.ms % 1000 == 0) ++now.local;
    for (const auto& guest : guests)
      guest->platform.time.Advance(100);
    service::Advance(chat, now);
    Settle();
  }
}

// One step of each of his connections; false if there is nothing to do.
bool Evening::ServeGuest(Guest& guest) {
  bool busy = false;
  for (TabSession& tab : guest.client.tabs) {
    for (const auto* socket : tab.Sockets())
      if (*socket) busy = Serve(guest, Simulated(*socket)) || busy;
  }
  for (const auto& window : guest.client.app.PersWindows)
    if (std::ranges::find(guest.personal, window) == guest.personal.end())
      guest.personal.push_back(window);
  // What happens in here may open another window.
  for (std::size_t i = 0; i < guest.personal.size(); ++i) {
    const auto window = guest.personal[i];
    for (const auto* socket : {&window->W1, &window->W2, &window->W3})
      busy = Serve(guest, Simulated(*socket)) || busy;
  }
  return busy;
}

// One step of one connection; false if there is nothing to do.
bool Evening::Serve(Guest& guest, SimulatedSocket& socket) {
  if (socket.State() == SocketState::kConnecting) {
    wires_[&socket] = {socket.connects, false, 0};
    return Accept(socket);
  }
  if (socket.State() != SocketState::kConnected) return false;
  Wire& wire = wires_[&socket];
  if (wire.answered || wire.connects != socket.connects) return false;
  service::RequestReader reader;
  if (Feed(reader, socket.sent) == service::RequestReader::State::kHead) return false;
  if (reader.state == service::RequestReader::State::kBody) return false;
  wire.answered = true;
  const service::Answer answer =
      reader.state == service::RequestReader::State::kDone
          ? service::Handle(chat, reader.request, {guest.address, ""}, now)
          : service::Answer{service::ErrorAnswer(reader.error), {}};
  if (answer.frame) {
    wire.frame = *answer.frame;
    frames_[wire.frame] = &socket;
    return true;
  }
  // The client may have connected anew from inside the delivery.
  if (Carry(socket, answer.bytes) && socket.connects == wire.connects) socket.PeerCloses();
  return true;
}

bool Evening::Accept(SimulatedSocket& socket) {
  socket.Accept();
  return true;
}

bool Evening::Carry(SimulatedSocket& socket, std::string_view bytes) {
  socket.Deliver(bytes);
  return true;
}

bool Evening::SendFrames() {
  bool sent = false;
  for (const service::FrameId id : std::exchange(chat.frames.touched, {})) {
    const auto found = chat.frames.open.find(id);
    if (found == chat.frames.open.end()) continue;
    service::Frame& frame = found->second;
    frame.touched = false;
    SimulatedSocket& socket = *frames_.at(id);
    const std::string bytes = std::exchange(frame.out, {});
    const service::FrameEnd end = frame.end;
    const int connects = socket.connects;
    sent = true;
    const bool carried = Carry(socket, bytes);
    if (end == service::FrameEnd::kNone) continue;
    frames_.erase(id);
    service::FrameIsGone(chat, id, now);
    if (!carried) continue;
    if (end == service::FrameEnd::kEject && socket.connects == connects)
      socket.Deliver(ConvertCharset(service::EjectMark(), Charset::kWindows1251, Charset::kKoi));
    if (socket.connects == connects) socket.PeerCloses();
  }
  return sent;
}

// The frames whose readers have closed, or have another connection by now.
bool Evening::DropLostFrames() {
  bool dropped = false;
  for (auto each = frames_.begin(); each != frames_.end();) {
    const auto& [id, socket] = *each;
    const Wire& wire = wires_.at(socket);
    if (wire.frame == id && socket->connects == wire.connects &&
        socket->State() == SocketState::kConnected) {
      ++each;
      continue;
    }
    service::FrameIsGone(chat, id, now);
    each = frames_.erase(each);
    dropped = true;
  }
  return dropped;
}

}  // namespace parlorwire
