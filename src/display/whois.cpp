#include "display/whois.h"

#include "session/client.h"
#include "session/service_address.h"

namespace parlorwire {

void OpenWhois(Client& client, std::string_view address) {
  const AppState& app = client.app;
  const Text gateway = app.WhoisHost.empty() ? ServiceAddress(app) : "http://" + app.WhoisHost;
  client.hooks.OpenUrl(gateway + "/serv/wwwwhois/nph-wwwtr.cgi?server=" + Text(address) +
                       "&resolve=ripe&submit=++OK++");
}

}  // namespace parlorwire
