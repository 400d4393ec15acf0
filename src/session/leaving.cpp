#include "session/leaving.h"

#include "session/both_languages.h"
#include "session/channel_list.h"
#include "session/client.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/http_answer.h"
#include "session/status.h"
#include "session/wire_encoding.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
void LogoffChat(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.LogoffPending = true;
  session.LogoffNick = LCase(session.Login);
  ConnectAfresh(client, *session.Winsock5);
}

void LeaveChannel(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.LeavePending = true;
  ConnectAfresh(client, *session.Winsock5);
}

void Winsock5_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.ChannelListPage.clear();
  Text url;
  if (session.LogoffPending)
    url = "/logoff?username=" + UrlEncodeKoi(session.Login) + "&ticket=" + session.Ticket;
  if (session.LeavePending)  // overrules a logoff; the nick is escaped once more then
    url = "/leave?username=" + UrlEncodeKoi(session.Login) + "&ticket=" + session.Ticket +
          "&channel=" + UrlEncodeKoi(session.Channel);
  SendRequest(client, *session.Winsock5, url);
}

void Winsock5_DataArrival(Client& client, int tab, std::size_t bytes_total) {
  if (bytes_total == 0) return;
  TabSession& session = client.tab(tab);
  TakeAnswer(session.ChannelListPage, DecodeKoi(session.Winsock5->GetData()));
}

void Winsock5_Close(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (session.ChannelListPage.empty()) return;
  if (session.LeavePending) {
    const std::uint32_t session_number = session.SessionNumber;
    GoOnAfterFault(client, ". Function: Winsock5_Close", [&] { ShowChannelList(client, tab); });
    if (session.SessionNumber != session_number) return;
    ShowTabCaption(client, tab, InLanguage(client, {W<"Список каналов">, "Channel list"}));
    session.IsChannelList = true;
  }
  if (session.LogoffPending) StatusOut(client, "Вы вышли из чата"_w, tab);
  client.platform.desktop.SetCloseTabEnabled(true);
  session.ChannelListPage.clear();
  client.platform.desktop.SetUsersNumCaption(tab, "");
}

}  // namespace parlorwire
