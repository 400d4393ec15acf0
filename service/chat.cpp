#include "service/chat.h"

#include <algorithm>
#include <array>
#include <string>

#include "service/commands.h"
#include "service/personal.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kLongestNick = 30;
constexpr std::size_t kLongestChannel = 60;
constexpr std::size_t kLongestPassword = 200;
constexpr std::size_t kLongestMessage = 2000;
constexpr std::size_t kPostsRemembered = 8;

bool IsPrintable(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte != 0x7F && byte != 0xA0;
}

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

// Line ends and other control characters would break the lines of a frame.
Text OneLine(const Text& text) {
  Text line = text.substr(0, kLongestMessage);
  std::replace_if(line.begin(), line.end(), [](char c) { return !IsPrintable(c); }, ' ');
  return line;
}

bool WasPosted(Account& account, const Text& number, const Text& text) {
  if (number.empty()) return false;
  const Text post = number + " " + text;
  auto& posts = account.recent_posts;
  if (std::find(posts.begin(), posts.end(), post) != posts.end()) return true;
  posts.push_back(post);
  if (posts.size() > kPostsRemembered) posts.pop_front();
  return false;
}

}  // namespace

Text NickKey(std::string_view nick) {
  return LCase(nick);
}

bool NickIsAllowed(std::string_view nick) {
  constexpr std::string_view kSpecial = " :|()[]'\"%+*?,/=#;\\";
  return !nick.empty() && nick.size() <= kLongestNick &&
         std::all_of(nick.begin(), nick.end(), IsPrintable) &&
         nick.find_first_of(kSpecial) == std::string_view::npos;
}

bool ChannelIsAllowed(std::string_view name) {
  return !TrimView(name).empty() && name.size() <= kLongestChannel &&
         std::all_of(name.begin(), name.end(), IsPrintable) &&
         name.find(':') == std::string_view::npos;
}

bool MaskMatches(std::string_view mask, std::string_view text) {
  std::size_t at = 0;
  std::size_t place = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (place < text.size()) {
    if (at < mask.size() && mask[at] == '*') {
      star = at++;
      resume = place;
    } else if (at < mask.size() &&
               (mask[at] == '?' || EqualsNoCase(mask.substr(at, 1), text.substr(place, 1)))) {
      ++at;
      ++place;
    } else if (star != std::string_view::npos) {
      at = star + 1;
      place = ++resume;
    } else {
      return false;
    }
  }
  while (at < mask.size() && mask[at] == '*')
    ++at;
  return at == mask.size() && !(text.empty() && !mask.empty());
}

Login LogIn(Chat& chat, const Text& nick, const Text& password, const Text& channel,
            const Origin& origin) {
  if (!NickIsAllowed(nick) || password.empty() || password.size() > kLongestPassword ||
      IsBanned(chat, nick, origin))
    return {LoginResult::kRefused, {}};
  if (chat.frames.size() >= chat.options.most_frames) return {LoginResult::kFull, {}};
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
  if (account.tickets.size() >= 32) account.tickets.erase(account.tickets.begin());
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

Text Post(Chat& chat, Account& account, const Text& channel_name, const Text& text,
          const Text& tone, const Text& number, const Moment& now) {
  const Text said = OneLine(text);
  if (TrimView(said).empty()) return "Пустое сообщение не отправлено"_w;
  Channel* channel = FindChannel(chat, channel_name);
  Member* member = channel == nullptr ? nullptr : FindMember(*channel, account.nick);
  if (said[0] == '/') return RunCommand(chat, {account, channel, member}, said, now);
  if (member == nullptr) return "Вы не на канале, сообщение не отправлено"_w;
  if (WasPosted(account, number, said)) return "Это сообщение уже отправлено"_w;
  const Text key = NickKey(account.nick);
  if (channel->muted.contains(key)) return "Вы лишены права голоса, сообщение не отправлено"_w;
  const Text heard = channel->lowered.contains(key) ? LCase(said) : said;
  if (heard.starts_with("***")) {
    const Text action = account.nick + " " + Trim(heard.substr(3));
    Broadcast(chat, *channel, {0, LineForm::kAction, account.nick, {}, action}, now);
  } else {
    Broadcast(chat, *channel, {0, LineForm::kMessage, account.nick, tone, heard}, now);
  }
  return "Сообщение отправлено"_w;
}

void LogOff(Chat& chat, Account& account, const Moment& now) {
  std::vector<Text> names;
  for (auto& [key, channel] : chat.channels)
    if (FindMember(channel, account.nick) != nullptr) names.push_back(key);
  for (const Text& name : names)
    PartMember(chat, *FindChannel(chat, name), account.nick, FrameEnd::kClose, now);
  for (const FrameId id : account.personal_frames)
    if (const auto frame = chat.frames.find(id); frame != chat.frames.end())
      End(chat, frame->second, FrameEnd::kClose);
  account.personal_frames.clear();
  for (const auto& [channel, ticket] : account.tickets)
    chat.ticket_owners.erase(ticket);
  account.tickets.clear();
}

}  // namespace parlorwire::service
