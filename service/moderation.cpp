#include "service/moderation.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "service/limits.h"
#include "service/names.h"
#include "service/presence.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

// Longest time that a right can be taken for, in seconds.
constexpr std::int64_t kLongestPeriod = 1'000'000;

Text TooMany() {
  return "Слишком много"_w;
}

Text Because(const Speaker& speaker, const Text& reason) {
  Text text = " (" + speaker.account.nick;
  if (!reason.empty()) text += ": " + reason;
  return text + ")";
}

// Out with a member, in sight of all.
void Expel(Chat& chat, const Speaker& speaker, const Text& nick, const Text& words,
           const Text& reason, FrameEnd end, const Moment& now) {
  BroadcastSystem(chat.frames, *speaker.channel, nick + " " + words + Because(speaker, reason),
                  now);
  PartMember(chat, *speaker.channel, nick, end, now);
}

void KeepOut(const Speaker& speaker, const Text& mask, const Text& reason, std::int64_t until_ms,
             const Moment& now) {
  auto& bans = speaker.channel->bans;
  // Said again, it is one ban, and none becomes shorter by it.
  std::erase_if(bans, [&](const Penalty& ban) {
    if (!EqualsNoCase(ban.of, mask)) return false;
    until_ms = std::max(until_ms, ban.until_ms);
    return true;
  });
  bans.push_back(
      {mask, reason.substr(0, kLongestReasonKept), speaker.account.nick, now.local, until_ms});
  if (bans.size() > kMostBans) bans.erase(bans.begin());
}

// The nicks of the others whom a test finds, but for those who are under protection.
template <class Test>
std::vector<Text> Others(const Speaker& speaker, Test is_meant) {
  std::vector<Text> nicks;
  for (const Member& member : speaker.channel->members)
    if (&member != speaker.member && !IsProtected(member) && is_meant(member))
      nicks.push_back(member.account->nick);
  return nicks;
}

Text KickAddress(Chat& chat, const Speaker& speaker, const Text& address, const Text& reason,
                 const Moment& now) {
  const std::vector<Text> nicks = Others(speaker, [&](const Member& member) {
    return member.address == address || member.via == address;
  });
  if (nicks.empty()) return "На канале нет никого с адреса "_w + address;
  if (chat.options.kick_ms > 0)
    KeepOut(speaker, address, reason, now.ms + chat.options.kick_ms, now);
  for (const Text& nick : nicks)
    Expel(chat, speaker, nick, "удален с канала"_w, reason, FrameEnd::kClose, now);
  return "Удалены с канала все с адреса "_w + address;
}

}  // namespace

Text IsProtectedSentence() {
  return "Этот ник под защитой"_w;
}

Text NoSuchNick(const Text& nick) {
  return "Нет такого ника на канале: "_w + nick;
}

Text Kick(Chat& chat, const Speaker& speaker, const Text& whom, const Text& reason,
          const Moment& now) {
  const Member* target = FindMember(*speaker.channel, whom);
  if (target == nullptr && IsAddress(whom)) return KickAddress(chat, speaker, whom, reason, now);
  if (target == nullptr) return NoSuchNick(whom);
  if (IsProtected(*target)) return IsProtectedSentence();
  const Text nick = target->account->nick;
  if (chat.options.kick_ms > 0) KeepOut(speaker, nick, reason, now.ms + chat.options.kick_ms, now);
  Expel(chat, speaker, nick, "удален с канала"_w, reason, FrameEnd::kClose, now);
  return nick + " удален с канала"_w;
}

Text Ban(Chat& chat, const Speaker& speaker, const Text& mask, const Text& reason,
         const Moment& now) {
  if (mask.empty() || mask.size() > kLongestMask) return "Укажите ник или адрес"_w;
  const Member* named = FindMember(*speaker.channel, mask);
  if (named != nullptr && IsProtected(*named)) return IsProtectedSentence();
  KeepOut(speaker, mask, reason, kForever, now);
  const auto is_meant = [&](const Member& member) { return Means(mask, member); };
  for (const Text& nick : Others(speaker, is_meant))
    Expel(chat, speaker, nick, "заносится в бан-лист"_w, reason, FrameEnd::kClose, now);
  return mask + " в бан-листе"_w;
}

Text Unban(const Speaker& speaker, const Text& mask) {
  const auto removed = std::erase_if(
      speaker.channel->bans, [&](const Penalty& ban) { return EqualsNoCase(ban.of, mask); });
  return removed == 0 ? "Нет в бан-листе: "_w + mask : mask + " больше не в бан-листе"_w;
}

Text Eject(Chat& chat, const Speaker& speaker, const Text& nick, const Text& reason,
           const Moment& now) {
  const Member* target = FindMember(*speaker.channel, nick);
  if (target == nullptr) return NoSuchNick(nick);
  if (target != speaker.member && IsProtected(*target)) return IsProtectedSentence();
  const Text name = target->account->nick;
  Expel(chat, speaker, name, "катапультируется"_w, reason, FrameEnd::kEject, now);
  return name + " катапультируется"_w;
}

Text TakeRight(Chat& chat, const Speaker& speaker, Right right, const Text& nick,
               std::optional<std::int64_t> seconds, const Text& reason, const Moment& now) {
  Channel& channel = *speaker.channel;
  const Member* target = FindMember(channel, nick);
  if (target == nullptr) return NoSuchNick(nick);
  if (IsProtected(*target)) return IsProtectedSentence();
  const Text& name = target->account->nick;
  const std::int64_t until =
      seconds ? now.ms + std::min(*seconds, kLongestPeriod) * 1000 : kForever;
  auto& taken = TakenFrom(channel, right);
  const Text key = NickKey(nick);
  if (taken.size() >= kMostPenalties && !taken.contains(key)) return TooMany();
  taken[key] = {name, reason.substr(0, kLongestReasonKept), speaker.account.nick, now.local, until};
  const Text words =
      right == Right::kVoice ? " лишается права голоса"_w : " переходит на строчные буквы"_w;
  BroadcastSystem(chat.frames, channel, name + words + Because(speaker, reason), now);
  return "Готово"_w;
}

Text GiveRight(Chat& chat, const Speaker& speaker, Right right, const Text& nick,
               const Moment& now) {
  const bool was_taken = GiveBack(chat.frames, *speaker.channel, right, nick, now);
  const bool is_there = FindMember(*speaker.channel, nick) != nullptr;
  return was_taken || is_there ? "Готово"_w : NoSuchNick(nick);
}

Text SetOperator(Chat& chat, const Speaker& speaker, bool on, const Text& nick, const Moment& now) {
  Channel& channel = *speaker.channel;
  Member* target = FindMember(channel, nick);
  if (target == nullptr) return NoSuchNick(nick);
  if (!on && IsProtected(*target)) return IsProtectedSentence();
  if (on && channel.opers.size() >= kMostOperators) return TooMany();
  if (on)
    channel.opers.insert(NickKey(nick));
  else
    channel.opers.erase(NickKey(nick));
  if (target->oper == on) return "Готово"_w;
  target->oper = on;
  const Text words = on ? " стал оператором канала"_w : " больше не оператор канала"_w;
  BroadcastSystem(chat.frames, channel, target->account->nick + words + Because(speaker, {}), now);
  return "Готово"_w;
}

}  // namespace parlorwire::service
