#include "session/http_request.h"

#include "session/client.h"
#include "session/proxy_dialog.h"
#include "session/wire_encoding.h"
#include "text/cut.h"

namespace parlorwire {

Text BuildRequest(Client& client, std::string_view url) {
  const Position question = InStr(url, "?");
  Text path = Left(url, question - 1);
  const Text body = Mid(url, question + 1);
  if (path == "/newmsg") path = "/";  // the login goes to the service's root

  const AppState& app = client.app;
  const ProxyControls& proxy = ProxyDialog(client);
  const bool with_credentials = proxy.use_proxy && proxy.autentification;
  const Text address = app.ChatHost + ":" + app.ChatPort;

  Text request = "POST ";
  if (proxy.use_proxy) request += "http://" + address;
  request += path + " HTTP/1.0\r\n";
  if (with_credentials) request += "Proxy-Authorization: Basic " + app.ProxyAuthBasic + "\r\n";
  request += "Host: " + address + "\r\n";
  request += "Referer: Localhost\r\n";
  request += "User-Agent: Parlorwire SE\r\n";
  request += "Content-Type: application/x-www-form-urlencoded\r\n";
  request += "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n";
  return request + body;
}

Text SessionQuery(TabSession& tab) {
  Text query = "username=" + UrlEncodeKoi(tab.Login);
  query += "&ticket=" + tab.Ticket;
  query += "&channel=" + UrlEncodeKoi(tab.Channel);
  query += "&chpwd=" + UrlEncodeKoi(tab.ChannelPassword);
  return query;
}

Text EightDigitNumber(Client& client) {
  return std::to_string(static_cast<int>(client.platform.random.Next() * 88888889 + 11111111));
}

}  // namespace parlorwire
