#include "bot/bot_queue.h"

#include <algorithm>
#include <vector>

#include "platform/socket_error.h"
#include "session/client.h"
#include "session/connect.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/status.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

constexpr std::string_view kStyleFix = "/set s 9";

// The first command that waits; the list's end if none does.
std::vector<Text>::iterator Head(std::vector<Text>& queue) {
  return std::find_if(queue.begin(), queue.end(), [](const Text& text) { return !text.empty(); });
}

void ResetQueue(TabSession& session) {
  session.BotQueue.assign(1, Text());
}

}  // namespace

void SayBot(Client& client, const Text& text, int tab) {
  TabSession& session = client.tab(tab);
  session.BotQueue.push_back(text);
  const SocketState state = session.Winsock4->State();
  if (state == SocketState::kConnected || state == SocketState::kConnecting) return;
  GoOnAfterFault(client, ". Function: SayBot", [&] { ConnectAfresh(client, *session.Winsock4); });
}

void Winsock4_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const auto head = Head(session.BotQueue);
  const Text text = head == session.BotQueue.end() ? Text() : *head;
  PassOverFault([&] { SendRequest(client, *session.Winsock4, PostUrl(client, text, tab)); });
}

void Winsock4_Close(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const auto head = Head(session.BotQueue);
  if (head != session.BotQueue.end()) {
    if (*head != kStyleFix) {
      head->clear();
    } else {
      StatusOk(client, tab);
      ConnectToChat(client, tab);  // empties the queue
    }
  }
  if (Head(session.BotQueue) != session.BotQueue.end())
    ConnectAfresh(client, *session.Winsock4);
  else
    ResetQueue(session);
}

void Winsock4_Error(Client& client, int tab, int number) {
  TabSession& session = client.tab(tab);
  if (number == kSocketTimedOut)
    ConnectAfresh(client, *session.Winsock4);
  else
    ResetQueue(session);
}

}  // namespace parlorwire
