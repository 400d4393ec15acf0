#include "shell/page_links.h"

#include "session/client.h"
#include "session/service_address.h"
#include "session/wire_encoding.h"

namespace parlorwire {
namespace {

// The fields are escaped in place, as for a request, and then every byte once more.
void OpenPage(Client& client, std::string_view path) {
  TabSession& tab = client.tab(client.platform.desktop.ActiveTab());
  const auto field = [](Text& text) { return PercentEncodeBytes(UrlEncodeKoi(text)); };
  Text url = ServiceAddress(client.app) + Text(path) + field(tab.Login);
  url += "&ticket=" + field(tab.Ticket);
  url += "&channel=" + field(tab.Channel);
  url += "&chpwd=" + field(tab.ChannelPassword);
  client.hooks.OpenUrl(url);
}

}  // namespace

void sp_bans(Client& client) {
  OpenPage(client, "/banlist?username=");
}

void sp_opers(Client& client) {
  OpenPage(client, "/oplist?username=");
}

void hist_topic(Client& client) {
  OpenPage(client, "/topic_hist?username=");
}

void letogr(Client& client) {
  client.hooks.OpenUrl(client.app.LetografUrl);
}

}  // namespace parlorwire
