#include "service/chat.h"

#include <algorithm>

#include "service/accounts.h"
#include "service/names.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kMostTickets = 32;

Text NewTicket(Chat& chat) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  Text ticket;
  std::uint64_t bits = chat.random();
  for (int i = 0; i < 16; ++i, bits >>= 4)
    ticket += kDigits[bits & 0xF];
  return ticket;
}

Text GiveTicket(Chat& chat, Account& account, const Text& channel) {
  // What is too long for a channel's name is told from none that is one.
  const Text key = NickKey(channel.substr(0, kLongestChannel + 1));
  const Text ticket = NewTicket(chat);
  auto& order = account.ticket_order;
  const auto held = std::find(order.begin(), order.end(), key);
  // A nick that goes from channel to channel keeps no heap of old tickets.
  const bool goes = held != order.end() || order.size() >= kMostTickets;
  if (goes) {
    const auto gone = held != order.end() ? held : order.begin();
    const auto old = account.tickets.find(*gone);
    chat.ticket_owners.erase(old->second);
    account.tickets.erase(old);
    order.erase(gone);
  }
  order.push_back(key);
  account.tickets[key] = ticket;
  chat.ticket_owners[ticket] = NickKey(account.nick);
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
            const Origin& origin, const Moment& now) {
  if (!NickIsAllowed(nick) || password.empty() || password.size() > kLongestPassword ||
      IsBanned(chat, nick, origin))
    return {LoginResult::kRefused, {}};
  if (chat.frames.open.size() >= chat.options.most_frames) return {LoginResult::kFull, {}};
  const Text& place = PlaceOf(origin);
  if (!Take(PlaceAt(chat, place, now).logins, chat.options.limits.logins, now.ms))
    return {LoginResult::kFull, {}};
  Account* account = FindNick(chat, nick);
  if (account == nullptr) {
    if (!MakeRoom(chat, place, now)) return {LoginResult::kFull, {}};
    account = &AddAccount(chat, nick, place);
    account->password = password;
    account->history = chat.options.history;
    account->last_place = place;
  }
  if (account->robot) return {LoginResult::kRefused, {}};
  // Guessing elsewhere doesn't keep the nick's owner waiting.
  Guesses& guesses =
      place == account->last_place ? account->guesses_there : account->guesses_elsewhere;
  if (now.ms < guesses.wait_until_ms) return {LoginResult::kWait, {}};
  if (account->password != password) {
    NoteWrong(guesses, chat.options.limits.free_guesses, chat.options.limits.longest_guess_wait_ms,
              now.ms);
    return {LoginResult::kWrongPassword, {}};
  }
  guesses = {};
  // One that only looks like the nick doesn't change how it is spelled.
  if (NickKey(nick) == NickKey(account->nick)) account->nick = nick;
  account->last_place = place;
  account->used_ms = now.ms;
  ++account->logins;
  return {LoginResult::kWelcome, GiveTicket(chat, *account, channel)};
}

Account* FindAccount(Chat& chat, const Text& nick, const Text& ticket) {
  const auto owner = chat.ticket_owners.find(ticket);
  if (owner == chat.ticket_owners.end()) return nullptr;
  Account* account = FindNick(chat, nick);
  return account != nullptr && NickKey(account->nick) == owner->second ? account : nullptr;
}

}  // namespace parlorwire::service
