#include "session/proxy_dialog.h"

#include "session/client.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSection = "ProxySettings";

// The state of a check box: 1 is on; 0, and what is no number, is off.
bool ReadCheck(Client& client, std::string_view key) {
  bool on = false;
  PassOverFault([&] { on = ToLong(ReadIni(client, kSection, key)) == 1; });
  return on;
}

}  // namespace

ProxyControls& ProxyDialog(Client& client) {
  ProxyControls& controls = client.app.sett_conn;
  if (!controls.loaded) {
    controls.use_proxy = ReadCheck(client, "Use_proxy");
    controls.proxy_addr = ReadIni(client, kSection, "Proxy_address");
    controls.proxy_port = ReadIni(client, kSection, "Proxy_port");
    controls.autentification = ReadCheck(client, "Autentification");
    controls.proxy_login = ReadIni(client, kSection, "Proxy_login");
    controls.proxy_pass = ReadIni(client, kSection, "Proxy_pass");
    controls.loaded = true;
  }
  return controls;
}

void UnloadProxyDialog(Client& client) {
  client.app.sett_conn = {};
}

void ConnectToService(Client& client, Winsock& socket) {
  const ProxyControls& proxy = ProxyDialog(client);
  if (proxy.use_proxy)
    socket.Connect(proxy.proxy_addr, proxy.proxy_port);
  else
    socket.Connect(client.app.ChatHost, client.app.ChatPort);
}

}  // namespace parlorwire
