#include "bot/bot_queue.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/socket_error.h"
#include "session/client.h"
#include "session/connect.h"
#include "session/error_log.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/status.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

constexpr std::string_view kStyleFix = "/set s 9";
// What the client says to put the style or a flag right.
constexpr std::array<std::string_view, 3> kRepairs = {kStyleFix, "/mo -R", "/mo -t"};

constexpr std::size_t kMostCommands = 1000;

bool IsRepair(const Text& text) {
  return std::ranges::find(kRepairs, text) != kRepairs.end();
}

void DropCommands(TabSession& session) {
  session.BotQueue.clear();
  session.BotQueueFull = false;
  session.BotRepairs.Wait->Enabled(false);
}

// A text that says nothing is not kept: it goes out when nothing else waits.
void Queue(Client& client, const Text& text, int tab) {
  TabSession& session = client.tab(tab);
  if (text.empty()) return;
  if (session.BotQueue.size() < kMostCommands) {
    session.BotQueue.push_back(text);
  } else if (!session.BotQueueFull) {
    session.BotQueueFull = true;
    WriteErrorLog(client, "Error: more than " + std::to_string(kMostCommands) +
                              " commands wait. Those that come now are dropped. Function: SayBot");
  }
}

// Connects for the first command. One that repairs waits if another was sent not long ago.
void ConnectForHead(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const bool repairs = !session.BotQueue.empty() && IsRepair(session.BotQueue.front());
  if (!repairs || ConnectsNow(session.BotRepairs, client.platform.clock))
    ConnectAfresh(client, *session.Winsock4);
}

}  // namespace

void SayBot(Client& client, const Text& text, int tab) {
  TabSession& session = client.tab(tab);
  const auto& queue = session.BotQueue;
  const bool waits = IsRepair(text) && std::ranges::find(queue, text) != queue.end();
  if (!waits) Queue(client, text, tab);
  const SocketState state = session.Winsock4->State();
  if (state == SocketState::kConnected || state == SocketState::kConnecting) return;
  GoOnAfterFault(client, ". Function: SayBot", [&] {
    if (IsRepair(text))
      ConnectForHead(client, tab);
    else
      ConnectAfresh(client, *session.Winsock4);
  });
}

void BotRepairs_Wait(Client& client, int tab) {
  NoteConnect(client.tab(tab).BotRepairs, client.platform.clock);
  ConnectAfresh(client, *client.tab(tab).Winsock4);
}

void Winsock4_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const Text text = session.BotQueue.empty() ? Text() : session.BotQueue.front();
  if (IsRepair(text)) NoteConnect(session.BotRepairs, client.platform.clock);
  PassOverFault([&] { SendRequest(client, *session.Winsock4, PostUrl(client, text, tab)); });
}

void Winsock4_Close(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (session.BotQueue.empty()) return;
  if (session.BotQueue.front() == kStyleFix) {
    StatusOk(client, tab);
    DropCommands(session);  // with the session
    ReconnectToChat(client, tab);
    return;
  }
  session.BotQueue.pop_front();
  if (session.BotQueue.empty())
    DropCommands(session);
  else
    ConnectForHead(client, tab);
}

void Winsock4_Error(Client& client, int tab, int number) {
  TabSession& session = client.tab(tab);
  if (number == kSocketTimedOut)
    ConnectAfresh(client, *session.Winsock4);
  else
    DropCommands(session);
}

}  // namespace parlorwire
