// The chat service and clients of it in one process, with no socket and no clock of the system:
// what a client sends is read by the service's own request reader, and what the service writes is
// delivered as chunks. Virtual time moves for all of them together.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "personal/personal_window.h"
#include "service/inhabitants.h"
#include "service/site.h"
#include "session/client.h"
#include "support/simulated_platform.h"

namespace parlorwire {

// One client of the service, and the connections that it has.
struct Guest {
  explicit Guest(const Text& address);

  TabSession& tab(int index = 0) { return client.tab(index); }
  Text Pane(int index = 0) { return tab(index).Rich.Text(); }
  Text ErrorLog() { return platform.files.files["error.log"]; }

  Text address;
  SimulatedPlatform platform;
  Client client{platform.Ports()};
  // The personal windows that have been open: their sockets outlive them.
  std::vector<std::shared_ptr<PersonalWindow>> personal;
};

class Evening {
 public:
  Evening();
  virtual ~Evening() = default;
  Evening(const Evening&) = delete;
  Evening& operator=(const Evening&) = delete;

  // A client that connects in tab 0; what follows from it has happened when this returns.
  Guest& Come(const Text& nick, const Text& channel, const Text& password = "secret");

  // The user types a line into the box of a tab and says it.
  void Say(Guest& guest, const Text& text, int tab = 0);

  // Carries bytes in both directions until nobody has any more.
  void Settle();

  // Lets time pass, in steps of 100 ms.
  void Pass(std::int64_t milliseconds);

  service::Chat chat;
  service::Moment now{1'000'000, 1'795'262'400};
  std::uint64_t random = 0;
  std::vector<std::unique_ptr<Guest>> guests;

 protected:
  // A client has asked for a connection, and it stands now. False: nothing has happened, and it
  // goes on waiting.
  virtual bool Accept(SimulatedSocket& socket);

  // Brings bytes of the service to a client. False: they got lost, and so will a close behind them.
  virtual bool Carry(SimulatedSocket& socket, std::string_view bytes);

 private:
  struct Wire {
    int connects = 0;  // of the socket; another number is another connection
    bool answered = false;
    service::FrameId frame = 0;
  };

  bool ServeGuest(Guest& guest);
  bool Serve(Guest& guest, SimulatedSocket& socket);
  bool SendFrames();
  bool DropLostFrames();

  std::map<SimulatedSocket*, Wire> wires_;
  std::map<service::FrameId, SimulatedSocket*> frames_;
};

}  // namespace parlorwire
