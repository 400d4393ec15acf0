#include "bot/autokick_adding.h"

#include <optional>

#include "bot/autokick.h"
#include "session/client.h"
#include "text/cut.h"
#include "text/one_line.h"

namespace parlorwire {
namespace {

// Where the channels of an entry stand in the list.
struct Channels {
  std::size_t start = 0;  // 0-based
  std::size_t length = 0;
};

std::optional<Channels> ChannelsOf(const Text& list, const Text& nick) {
  const Position line = InStrNoCase("\r\n" + list, "\r\n" + nick + "\t");
  if (line == 0) return std::nullopt;
  const Position start = line + Len(nick) + 1;
  Position end = MinNonZero3(InStr(start, list, "\t"), InStr(start, list, "\r\n"), 0);
  if (end == 0) end = Len(list) + 1;
  return Channels{static_cast<std::size_t>(start - 1), static_cast<std::size_t>(end - start)};
}

void Append(Text& list, const Text& nick, std::string_view channels) {
  if (!list.empty()) list += "\r\n";
  list.append(nick).append("\t").append(channels).append("\t").append(kDefaultReason);
}

void Tell(Client& client, const Text& message, BoxIcon icon) {
  client.platform.desktop.MessageBox(message, icon);
}

void TellOfAll(Client& client, const Text& nick) {
  Tell(client, nick + " уже находится в автокик-листе с пометкой All (кикать со всех каналов)"_w,
       BoxIcon::kExclamation);
}

}  // namespace

void AddToAutoKickAllChannels(Client& client) {
  Text& list = client.app.AutoKickText;
  const Text nick = OneLine(client.app.MenuNick);
  if (const auto found = ChannelsOf(list, nick)) {
    if (Lists(list.substr(found->start, found->length), kAllChannels))
      return TellOfAll(client, nick);
    list.replace(found->start, found->length, kAllChannels);
    client.hooks.AutoKickAdded(nick, Text(kAllChannels));
    Tell(client, nick + " уже находился в автокик-листе; список каналов заменен на All"_w,
         BoxIcon::kInformation);
  } else {
    Append(list, nick, kAllChannels);
    client.hooks.AutoKickAdded(nick, Text(kAllChannels));
    Tell(client, nick + " успешно добавлен в автокик-лист"_w, BoxIcon::kInformation);
  }
  SaveAutoKick(client);
}

void AddToAutoKickThisChannel(Client& client) {
  Text& list = client.app.AutoKickText;
  const Text nick = OneLine(client.app.MenuNick);
  const Text channel = OneLine(client.tab(client.platform.desktop.ActiveTab()).Channel);
  if (const auto found = ChannelsOf(list, nick)) {
    const Text channels = list.substr(found->start, found->length);
    if (Lists(channels, kAllChannels)) return TellOfAll(client, nick);
    if (Lists(channels, channel))
      return Tell(client,
                  nick + " уже находится в автокик-листе на этом канале ("_w + channel + ")",
                  BoxIcon::kExclamation);
    list.insert(found->start + found->length, ";" + channel);
    client.hooks.AutoKickAdded(nick, channel);
    Tell(client,
         nick + " уже находился в автокик-листе; канал "_w + channel +
             " успешно добавлен в черный список"_w,
         BoxIcon::kInformation);
  } else {
    Append(list, nick, channel);
    client.hooks.AutoKickAdded(nick, channel);
    Tell(client, nick + " успешно добавлен в автокик-лист на канале "_w + channel,
         BoxIcon::kInformation);
  }
  SaveAutoKick(client);
}

}  // namespace parlorwire
