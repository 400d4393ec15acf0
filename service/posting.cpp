#include "service/posting.h"

#include <algorithm>
#include <cstddef>
#include <functional>

#include "service/commands.h"
#include "service/names.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kLongestMessage = 2000;
constexpr std::size_t kPostsRemembered = 8;

Text OneLine(const Text& text) {
  Text line = text.substr(0, kLongestMessage);
  std::replace_if(line.begin(), line.end(), [](char c) { return !IsPrintable(c); }, ' ');
  return line;
}

bool WasPosted(Account& account, const Text& number, const Text& text) {
  if (number.empty()) return false;
  const std::size_t post = std::hash<Text>()(number + " " + text);
  auto& posts = account.recent_posts;
  if (std::find(posts.begin(), posts.end(), post) != posts.end()) return true;
  posts.push_back(post);
  if (posts.size() > kPostsRemembered) posts.pop_front();
  return false;
}

}  // namespace

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
    Broadcast(chat.frames, *channel, {0, LineForm::kAction, account.nick, {}, action}, now);
  } else {
    Broadcast(chat.frames, *channel, {0, LineForm::kMessage, account.nick, tone, heard}, now);
  }
  return Text(kMessageSent);
}

}  // namespace parlorwire::service
