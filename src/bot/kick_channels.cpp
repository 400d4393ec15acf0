#include "bot/kick_channels.h"

#include <algorithm>

#include "session/client.h"
#include "session/ini.h"
#include "text/cut.h"

namespace parlorwire {

std::vector<KickChannel> OpenKickChannels(const Client& client) {
  std::vector<KickChannel> boxes;
  for (const TabSession& session : client.tabs) {
    const Text& channel = session.Channel;
    if (!session.Connected || channel.empty()) continue;
    const bool seen = std::ranges::any_of(
        boxes, [&](const KickChannel& box) { return EqualsNoCase(box.channel, channel); });
    if (seen) continue;
    const bool disabled =
        ContainsNoCase(" " + client.app.DisableKickChannels + " ", " " + channel + " ");
    boxes.push_back({channel, !disabled});
  }
  return boxes;
}

void ConfirmKickChannels(Client& client, const std::vector<KickChannel>& boxes) {
  Text disabled;
  for (const KickChannel& box : boxes) {
    if (box.ticked)
      disabled = Trim(Replace(" " + disabled + " ", " " + box.channel + " ", " "));
    else
      disabled += (disabled.empty() ? "" : " ") + box.channel;
  }
  client.app.DisableKickChannels = disabled;
  WriteIni(client, "DisableKickChannels", "channels", disabled);
}

}  // namespace parlorwire
