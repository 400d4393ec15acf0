#include "display/whois.h"

#include "session/client.h"

namespace parlorwire {

void OpenWhois(Client& client, std::string_view address) {
  client.hooks.OpenUrl("http://" + client.app.WhoisHost + "/serv/wwwwhois/nph-wwwtr.cgi?server=" +
                       Text(address) + "&resolve=ripe&submit=++OK++");
}

}  // namespace parlorwire
