#include "service/chat.h"

#include <algorithm>

#include "service/names.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kLongestPassword = 200;
constexpr std::size_t kMostTickets = 32;

Text NewTicket(Chat& chat) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  Text ticket;
  std::uint64_t bits = chat.random();
  for (int i = 0; i < 16; ++i, bits >>= 4)
    ticket += kDigits[bits & 0xF];
  return ticket;
}

bool IsBanned(const Chat& chat, const Text& nick, const Origin& origin) {
  return std::any_of(chat.options.banned.begin(), chat.options.banned.end(), [&](const Text& mask) {
    return MaskMatches(mask, nick) || MaskMatches(mask, origin.address) ||
           MaskMatches(mask, origin.forwarded);
  });
}

}  // namespace

Channel* FindChannel(Chat& chat, std::string_view name) {
  const auto found = chat.channels.find(NickKey(name));
  return found == chat.channels.end() ? nullptr : &found->second;
}

Login LogIn(Chat& chat, const Text& nick, const Text& password, const Text& channel,
            const Origin& origin) {
  if (!NickIsAllowed(nick) || password.empty() || password.size() > kLongestPassword ||
      IsBanned(chat, nick, origin))
    return {LoginResult::kRefused, {}};
  if (chat.frames.open.size() >= chat.options.most_frames) return {LoginResult::kFull, {}};
  const Text key = NickKey(nick);
  auto found = chat.accounts.find(key);
  if (found == chat.accounts.end()) {
    if (chat.accounts.size() >= chat.options.most_accounts) return {LoginResult::kFull, {}};
    found = chat.accounts.try_emplace(key).first;
    found->second.password = password;
    found->second.history = chat.options.history;
  }
  Account& account = found->second;
  if (account.robot) return {LoginResult::kRefused, {}};
  if (account.password != password) return {LoginResult::kWrongPassword, {}};
  account.nick = nick;
  const Text ticket = NewTicket(chat);
  // A nick that goes from channel to channel keeps no heap of old tickets.
  if (account.tickets.size() >= kMostTickets) account.tickets.erase(account.tickets.begin());
  Text& held = account.tickets[NickKey(channel)];
  chat.ticket_owners.erase(held);
  held = ticket;
  chat.ticket_owners[ticket] = key;
  return {LoginResult::kWelcome, ticket};
}

Account* FindAccount(Chat& chat, const Text& nick, const Text& ticket) {
  const auto owner = chat.ticket_owners.find(ticket);
  if (owner == chat.ticket_owners.end() || owner->second != NickKey(nick)) return nullptr;
  return &chat.accounts.at(owner->second);
}

}  // namespace parlorwire::service
