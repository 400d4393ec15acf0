#include "personal/pers_frm.h"

#include <algorithm>
#include <memory>

#include "personal/open_pers_list.h"
#include "personal/pers_messages.h"
#include "personal/pers_posting.h"
#include "personal/pers_queue.h"
#include "personal/pers_status.h"
#include "personal/personal_window.h"
#include "session/answer_deadline.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "session/exchange.h"
#include "session/personal_notice.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr int kComeUpDelay = 2;  // ms

void WirePersWindow(Client& client, PersonalWindow& window) {
  // An event becomes a call of procedure(client, window, the event's own arguments).
  const auto event = [&client, &window](const char* name, auto procedure) {
    return [&client, &window, name, procedure](const auto&... arguments) {
      const RunningEvent running(window);
      OnEvent(client, name, [&] { procedure(client, window, arguments...); });
    };
  };
  const auto w3_error = [](Client& c, PersonalWindow& w, int number, const Text&) {
    W3_Error(c, w, number);
  };
  window.W1->events = {event("W1_Connect", W1_Connect), event("W1_DataArrival", W1_DataArrival),
                       nullptr, nullptr};
  window.W2->events = {event("W2_Connect", W2_Connect), event("W2_DataArrival", W2_DataArrival),
                       event("W2_Close", W2_Close), nullptr};
  window.W3->events = {event("W3_Connect", W3_Connect), nullptr, event("W3_Close", W3_Close),
                       event("W3_Error", w3_error)};
  window.Timer1->Tick = event("Timer1_Timer", pers_frm_Timer1_Timer);
  const auto always = [] { return true; };
  WatchAnswers(*window.W2, *window.PostTimer, always);
  WatchAnswers(*window.W3, *window.LinkTimer, always);
}

void StopBlinkingOfLogin(Client& client, int tab) {
  StopPersonalNotice(client, tab);
  const Text& login = client.tab(tab).Login;
  for (int other = 0; other < kTabCount; ++other)
    if (client.tab(other).Timer2->Enabled() && EqualsNoCase(client.tab(other).Login, login))
      StopPersonalNotice(client, other);
}

void RaisePersWindow(Client& client, std::string_view login) {
  const std::int32_t handle = ListedHandle(client.app.OpenPersList, login);
  PersonalWindow* window = PersWindow(client, handle);
  if (window == nullptr)
    throw Fault(fault::kSubscript, "There is no personal window " + std::to_string(handle));
  window->hooks.Raise();
}

void DropClosedWindows(Client& client) {
  std::erase_if(client.app.PersWindows, [](const std::shared_ptr<PersonalWindow>& window) {
    return window->Closed && window->RunningEvents == 0;
  });
}

PersonalWindow& NewPersWindow(Client& client, int tab) {
  AppState& app = client.app;
  PersonalWindow& window = *app.PersWindows.emplace_back(std::make_shared<PersonalWindow>());
  window.Handle = ++app.LastPersHandle;
  window.PersLogin = client.tab(tab).Login;
  window.PersTicket = client.tab(tab).Ticket;
  window.ListedAs = window.PersLogin + "_" + std::to_string(window.Handle);
  window.Rich.BackColor(0);
  window.send_nick = app.PersTargetNick;
  for (auto* socket : {&window.W1, &window.W2, &window.W3})
    *socket = client.platform.NewWinsock();
  for (auto* timer : {&window.Timer1, &window.PostTimer, &window.LinkTimer})
    *timer = client.platform.NewTimer();
  window.Timer1->Interval(kComeUpDelay);
  WirePersWindow(client, window);
  return window;
}

void OpenPersWindow(Client& client, int tab) {
  DropClosedWindows(client);
  PersonalWindow& window = NewPersWindow(client, tab);
  PersStatusOut(client, window, "Подключение к серверу персональных сообщений..."_w,
                StatusMode::kLine);
  ConnectAfresh(client, *window.W1);
  client.hooks.ShowPersWindow(window.Handle);
  client.app.OpenPersList = WithEntry(client.app.OpenPersList, window.ListedAs);
}

void CloseSockets(PersonalWindow& window) {
  window.Timer1->Enabled(false);
  for (auto* socket : {&window.W1, &window.W2, &window.W3})
    (*socket)->Close();
}

}  // namespace

Text PersCaption(const PersonalWindow& window) {
  return "Персональные сообщения ("_w + window.PersLogin + ") - Parlorwire";
}

void pers_Click(Client& client, int tab) {
  const Text login = client.tab(tab).Login;
  if (login.empty()) return;
  StopBlinkingOfLogin(client, tab);
  if (IsListed(client.app.OpenPersList, login))
    GoOnAfterFault(client, ". Function: pers_Click", [&] { RaisePersWindow(client, login); });
  else
    OpenPersWindow(client, tab);
}

PersonalWindow* PersWindow(Client& client, std::int32_t handle) {
  for (const auto& window : client.app.PersWindows)
    if (window->Handle == handle && !window->Closed) return window.get();
  return nullptr;
}

void pers_frm_Activate(Client& client, PersonalWindow& window) {
  Text& nick = client.app.PersTargetNick;
  if (nick.empty()) return;
  window.send_nick = nick;
  window.hooks.ShowFields();
  window.Timer1->Enabled(true);
  nick.clear();
}

void pers_frm_Unload(Client& client, PersonalWindow& window) {
  window.Closed = true;
  CloseSockets(window);
  client.app.OpenPersList = WithoutEntry(client.app.OpenPersList, window.ListedAs);
  DropClosedWindows(client);
}

void CloseAllPersWindows(Client& client) {
  for (const auto& window : client.app.PersWindows) {
    window->Closed = true;
    CloseSockets(*window);
  }
  client.app.OpenPersList.clear();
  DropClosedWindows(client);
}

void W1_Connect(Client& client, PersonalWindow& window) {
  PersStatusOut(client, window, {}, StatusMode::kOk);
  PersStatusOut(client, window, "Получение списка сообщений..."_w, StatusMode::kLine);
  SendRequest(client, *window.W1,
              "/mframe_pm?username=" + window.PersLogin + "&ticket=" + window.PersTicket);
}

void W1_DataArrival(Client& client, PersonalWindow& window, std::size_t bytes_total) {
  if (bytes_total == 0) return;
  Text data = window.W1->GetData();
  if (!window.PersGotData) {
    PersStatusOut(client, window, {}, StatusMode::kOk);
    window.PersGotData = true;
    window.Timer1->Enabled(true);
  }
  Personal_messages(client, window, DecodeKoi(std::move(data)));
}

void pers_frm_Timer1_Timer(Client& /*client*/, PersonalWindow& window) {
  window.Timer1->Enabled(false);
  window.hooks.ComeUp();
  window.hooks.Focus(window.send_nick.empty() ? PersonalField::kSendNick : PersonalField::kMsg);
}

}  // namespace parlorwire
