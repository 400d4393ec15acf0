#include "service/accounts.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "service/names.h"
#include "service/skeleton.h"

namespace parlorwire::service {
namespace {

constexpr std::int64_t kJustBeenMs = 60000;
// Places without nicks are looked for when there are more than that.
constexpr std::size_t kFewPlaces = 1024;

bool IsInUse(const Chat& chat, const Account& account) {
  for (const auto& [key, channel] : chat.channels)
    for (const Member& member : channel.members)
      if (member.account == &account) return true;
  const Text key = NickKey(account.nick);
  return std::any_of(chat.frames.open.begin(), chat.frames.open.end(),
                     [&](const auto& frame) { return frame.second.account == key; });
}

// What goes first is less.
std::pair<bool, std::int64_t> Worth(const Account& account) {
  return {account.logins > 1, account.used_ms};
}

void Forget(Chat& chat, Account& account) {
  VoidTickets(chat, account);
  const Text key = NickKey(account.nick);
  for (auto& [name, channel] : chat.channels)
    channel.opers.erase(key);
  if (const auto place = chat.places.find(account.place); place != chat.places.end())
    std::erase(place->second.nicks, key);
  chat.skeletons.erase(Skeleton(key));
  chat.accounts.erase(key);
}

// Forgets the least of them that has been idle for so long and is not in use; false if there is
// none.
bool ForgetOne(Chat& chat, std::vector<Account*> accounts, std::int64_t idle_ms,
               const Moment& now) {
  std::erase_if(accounts, [&](const Account* account) {
    return account->robot || now.ms - account->used_ms < idle_ms;
  });
  std::sort(accounts.begin(), accounts.end(),
            [](const Account* a, const Account* b) { return Worth(*a) < Worth(*b); });
  const auto idle = std::find_if(accounts.begin(), accounts.end(),
                                 [&](const Account* account) { return !IsInUse(chat, *account); });
  if (idle == accounts.end()) return false;
  Forget(chat, **idle);
  return true;
}

}  // namespace

const Text& PlaceOf(const Origin& origin) {
  return origin.forwarded.empty() ? origin.address : origin.forwarded;
}

Place& PlaceAt(Chat& chat, const Text& address, const Moment& now) {
  if (chat.places.size() >= chat.places_tidied_at) {
    std::erase_if(chat.places, [&](const auto& each) {
      const Place& place = each.second;
      const std::int64_t empty_us = std::max(place.logins.empty_us, place.posts.empty_us);
      return place.nicks.empty() && empty_us <= now.ms * 1000;
    });
    chat.places_tidied_at = 2 * chat.places.size() + kFewPlaces;
  }
  return chat.places[address];
}

Account* FindNick(Chat& chat, const Text& nick) {
  if (nick.size() > kLongestNick) return nullptr;
  const auto key = chat.skeletons.find(Skeleton(nick));
  if (key == chat.skeletons.end()) return nullptr;
  const auto found = chat.accounts.find(key->second);
  return found == chat.accounts.end() ? nullptr : &found->second;
}

Account& AddAccount(Chat& chat, const Text& nick, const Text& place) {
  const Text key = NickKey(nick);
  Account& account = chat.accounts[key];
  account.nick = nick;
  account.place = place;
  chat.skeletons[Skeleton(nick)] = key;
  if (!place.empty()) chat.places[place].nicks.push_back(key);
  return account;
}

bool MakeRoom(Chat& chat, const Text& place, const Moment& now) {
  const auto& own = chat.places[place].nicks;
  if (own.size() >= chat.options.limits.accounts_of_address) {
    std::vector<Account*> accounts;
    accounts.reserve(own.size());
    for (const Text& key : own)
      accounts.push_back(&chat.accounts.at(key));
    return ForgetOne(chat, std::move(accounts), kJustBeenMs, now);
  }
  if (chat.accounts.size() < chat.options.most_accounts) return true;
  std::vector<Account*> accounts;
  accounts.reserve(chat.accounts.size());
  for (auto& [key, account] : chat.accounts)
    accounts.push_back(&account);
  return ForgetOne(chat, std::move(accounts), chat.options.limits.account_idle_ms, now);
}

void VoidTickets(Chat& chat, Account& account) {
  for (const auto& [channel, ticket] : account.tickets)
    chat.ticket_owners.erase(ticket);
  account.tickets.clear();
  account.ticket_order.clear();
}

bool HasRoomForFrame(const Chat& chat, const Account& account, const Text& channel,
                     const Origin& origin) {
  const Text key = NickKey(account.nick);
  const Text& place = PlaceOf(origin);
  std::size_t of_account = 0;
  std::size_t of_place = 0;
  bool replaces = false;
  for (const auto& [id, frame] : chat.frames.open) {
    if (frame.place == place) ++of_place;
    if (frame.account != key) continue;
    ++of_account;
    replaces = replaces || (!channel.empty() && frame.channel == channel);
  }
  return of_account < chat.options.limits.frames_of_account &&
         of_place < chat.options.limits.frames_of_address &&
         (replaces || chat.frames.open.size() < chat.options.most_frames);
}

}  // namespace parlorwire::service
