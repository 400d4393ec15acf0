// The chat: who is known, which channels there are, and the frames that are read. It knows no
// sockets, no clock and no randomness of its own. All text is Windows-1251.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "service/account.h"
#include "service/channel.h"
#include "service/frame.h"
#include "service/limits.h"
#include "service/moment.h"
#include "service/rate.h"
#include "text/text.h"

namespace parlorwire::service {

struct ChatOptions {
  int history = 20;  // lines that a newcomer is given unless he says otherwise
  std::int64_t keep_alive_ms = 30000;
  std::int64_t grace_ms = 3000;   // how long a nick stays on a channel after its frame broke
  std::int64_t kick_ms = 60000;   // how long a kicked nick is kept out
  bool form_b = false;            // the older form of the user frame
  std::size_t most_frames = 800;  // logins are turned away above that
  std::size_t most_accounts = 20000;
  std::vector<Text> banned;           // masks of nicks and addresses that nobody may log in with
  std::vector<Text> admins;           // nicks
  std::vector<Text> trusted_proxies;  // masks of addresses; what others say of whom they ask for
                                      // is not believed
  Limits limits;
};

// What is known of an address.
struct Place {
  Bucket logins;
  Bucket posts;
  std::vector<Text> nicks;  // keys of those that were made from there
};

struct Chat {
  ChatOptions options;
  std::function<std::uint64_t()> random;         // any 64 bits; must be set
  std::map<Text, Account> accounts;              // by NickKey
  std::map<Text, Channel> channels;              // by NickKey of the name
  std::unordered_map<Text, Text> skeletons;      // Skeleton of a nick: its key
  std::unordered_map<Text, Text> ticket_owners;  // a ticket: the key of its nick
  std::unordered_map<Text, Place> places;        // by address
  std::size_t places_tidied_at = 0;              // how many there may be until they are tidied up
  Frames frames;
};

// The channel of that name, in any case of letters; none if there is none.
Channel* FindChannel(Chat& chat, std::string_view name);

enum class LoginResult {
  kWelcome,
  kWrongPassword,
  kRefused,  // no nick, no password, more than 200 characters of it, banned, or an inhabitant
  kFull,     // too many frames are open, or nicks known, or logins come from that address
  kWait,     // wrong passwords came before; nobody has looked at this one
};

struct Login {
  LoginResult result = LoginResult::kRefused;
  Text ticket;  // of a welcome: 16 hexadecimal digits
};

// The first login of a nick registers it with its password. A new ticket voids the one that the
// nick had for the same channel, and the oldest of more than 32.
Login LogIn(Chat& chat, const Text& nick, const Text& password, const Text& channel,
            const Origin& origin, const Moment& now);

// Whose ticket it is; none if it isn't that nick's.
Account* FindAccount(Chat& chat, const Text& nick, const Text& ticket);

}  // namespace parlorwire::service
