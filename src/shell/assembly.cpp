#include "shell/assembly.h"

#include "bot/bot_queue.h"
#include "display/chat_log.h"
#include "display/parse_chat_line.h"
#include "session/connect.h"
#include "session/fault_trap.h"
#include "session/frame_end.h"
#include "session/leaving.h"
#include "users/posting.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

// The entry of every event.
template <class Procedure>
auto AtEntry(Client& client, Procedure procedure) {
  return [&client, procedure](const auto&... arguments) {
    GoOnAfterFault(client, ". Function: event", [&] { procedure(arguments...); });
  };
}

void FillHooks(Client& client) {
  Hooks& hooks = client.hooks;
  hooks.ParseChatLine = [&client](const Text& line, int tab) { ParseChatLine(client, line, tab); };
  hooks.LogChatLine = [&client](const Text& piece, const Text& channel) {
    LogChatLine(client, piece, channel);
  };
  hooks.UpdateUsersFrame = [&client](int tab) { UpdateUsersFrame(client, tab); };
  hooks.SayBot = [&client](const Text& text, int tab) { SayBot(client, text, tab); };
}

void WireSockets(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  // An event of a socket becomes a call of procedure(client, tab, the event's own arguments).
  const auto event = [&client, tab](auto procedure) {
    return AtEntry(client, [&client, tab, procedure](const auto&... arguments) {
      procedure(client, tab, arguments...);
    });
  };
  session.Winsock1->events = {event(Winsock1_Connect), event(Winsock1_DataArrival),
                              event(Winsock1_Close), event(Winsock1_Error)};
  session.Winsock2->events = {event(Winsock2_Connect), event(Winsock2_DataArrival),
                              event(Winsock2_Close), nullptr};
  session.Winsock3->events = {event(Winsock3_Connect), event(Winsock3_DataArrival),
                              event(Winsock3_Close), nullptr};
  session.Winsock4->events = {event(Winsock4_Connect), nullptr, event(Winsock4_Close),
                              event(Winsock4_Error)};
  session.Winsock5->events = {event(Winsock5_Connect), event(Winsock5_DataArrival),
                              event(Winsock5_Close), nullptr};
  session.Timer1->Tick = event(Timer1_Timer);
  session.Timer2->Tick = event(Timer2_Timer);
  session.Timer3->Tick = event(Timer3_Timer);
  session.Timer6->Tick = event(Timer6_Timer);
  session.Timer26->Tick = event(Timer26_Timer);
}

}  // namespace

void Assemble(Client& client) {
  FillHooks(client);
  for (int tab = 0; tab < kTabCount; ++tab)
    WireSockets(client, tab);
}

}  // namespace parlorwire
