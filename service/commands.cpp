#include "service/commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "service/ascii.h"
#include "service/names.h"
#include "service/presence.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

// Longest time that a command can name, in seconds.
constexpr std::int64_t kLongestPeriod = 1'000'000;
constexpr std::size_t kMostDigits = 9;
constexpr int kLongestHistory = 200;
constexpr std::size_t kMostBans = 500;
constexpr std::size_t kTopicsKept = 50;

Text NotOnChannel() {
  return "Вы не на канале"_w;
}

Text NotOperator() {
  return "Это может только оператор канала"_w;
}

// Takes the first word off.
Text TakeWord(std::string_view& rest) {
  rest = TrimView(rest);
  const auto end = std::min(rest.find(' '), rest.size());
  const Text word(rest.substr(0, end));
  rest = TrimView(rest.substr(end));
  return word;
}

Text Because(const Speaker& speaker, std::string_view reason) {
  Text text = " (" + speaker.account.nick;
  if (!reason.empty()) text += ": " + Text(reason);
  return text + ")";
}

Text Set(const Speaker& speaker, std::string_view rest) {
  const Text what = LCase(TakeWord(rest));
  const Text value = TakeWord(rest);
  const auto read = ReadNumber(value, kMostDigits);
  if (!read) return "Укажите число"_w;
  const auto number = static_cast<int>(*read);
  if (what == "s") {
    if (!StyleExists(number)) return "Такого стиля нет. Стили: 0, 1, 2, 4 и 9"_w;
    speaker.account.style = number;
    return "Установлен стиль "_w + value;
  }
  if (what == "h") {
    speaker.account.history = std::min(number, kLongestHistory);
    return "Строк истории при входе: "_w + std::to_string(speaker.account.history);
  }
  return "Можно установить s (стиль) и h (историю)"_w;
}

// Out with a member, in sight of all; the channel may be gone after it.
void Expel(Chat& chat, const Speaker& speaker, const Text& nick, const Text& words,
           std::string_view reason, FrameEnd end, const Moment& now) {
  BroadcastSystem(chat.frames, *speaker.channel, nick + " " + words + Because(speaker, reason),
                  now);
  PartMember(chat, *speaker.channel, nick, end, now);
}

void KeepOut(Channel& channel, Ban ban) {
  channel.bans.push_back(std::move(ban));
  if (channel.bans.size() > kMostBans) channel.bans.erase(channel.bans.begin());
}

Text Kick(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  const Text nick = TakeWord(rest);
  Member* target = FindMember(*speaker.channel, nick);
  if (target == nullptr) return "Нет такого ника на канале: "_w + nick;
  if (IsProtected(*target)) return "Этот ник под защитой"_w;
  const Text name = target->account->nick;
  if (chat.options.kick_ms > 0)
    KeepOut(*speaker.channel,
            {name, Text(rest), speaker.account.nick, now.local, now.ms + chat.options.kick_ms});
  Expel(chat, speaker, name, "удален с канала"_w, rest, FrameEnd::kClose, now);
  return name + " удален с канала"_w;
}

Text AddBan(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  const Text mask = TakeWord(rest);
  if (mask.empty()) return "Укажите ник или адрес"_w;
  KeepOut(*speaker.channel, {mask, Text(rest), speaker.account.nick, now.local, kForever});
  std::vector<Text> hit;
  for (const Member& member : speaker.channel->members)
    if ((MaskMatches(mask, member.account->nick) || MaskMatches(mask, member.address)) &&
        &member != speaker.member && !IsProtected(member))
      hit.push_back(member.account->nick);
  for (const Text& nick : hit)
    Expel(chat, speaker, nick, "заносится в бан-лист"_w, rest, FrameEnd::kClose, now);
  return mask + " в бан-листе"_w;
}

Text RemoveBan(const Speaker& speaker, std::string_view rest) {
  const Text mask = TakeWord(rest);
  const auto removed = std::erase_if(speaker.channel->bans,
                                     [&](const Ban& ban) { return EqualsNoCase(ban.mask, mask); });
  return removed == 0 ? "Нет в бан-листе: "_w + mask : mask + " больше не в бан-листе"_w;
}

Text SetOperator(Chat& chat, const Speaker& speaker, bool on, std::string_view rest,
                 const Moment& now) {
  const Text nick = TakeWord(rest);
  Member* target = FindMember(*speaker.channel, nick);
  if (target == nullptr) return "Нет такого ника на канале: "_w + nick;
  const Text key = NickKey(nick);
  if (on)
    speaker.channel->opers.insert(key);
  else
    speaker.channel->opers.erase(key);
  if (target->oper != on) {
    target->oper = on;
    BroadcastSystem(chat.frames, *speaker.channel,
                    target->account->nick +
                        (on ? " стал оператором канала"_w : " больше не оператор канала"_w) +
                        Because(speaker, {}),
                    now);
  }
  return "Готово"_w;
}

// The flags of a nick itself. Without +R the frame begins anew, so that its page loses the script.
Text SetNickFlag(Chat& chat, Account& account, const Text& flag) {
  const bool on = flag[0] == '+';
  if (flag[1] == 't') {
    account.timer = on;
  } else {
    const bool was = account.reload;
    account.reload = on;
    if (was && !on) {
      for (auto& [key, channel] : chat.channels) {
        const Member* member = FindMember(channel, account.nick);
        if (member != nullptr && member->frame != nullptr)
          End(chat.frames, *member->frame, FrameEnd::kClose);
      }
    }
  }
  return "Установлен флаг "_w + flag;
}

Text Mode(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  const Text flag = TakeWord(rest);
  const bool is_own = flag == "+t" || flag == "-t" || flag == "+R" || flag == "-R";
  if (is_own && rest.empty()) return SetNickFlag(chat, speaker.account, flag);
  if (speaker.member == nullptr) return NotOnChannel();
  if (!IsOperator(*speaker.member)) return NotOperator();
  if (flag == "+b") return AddBan(chat, speaker, rest, now);
  if (flag == "-b") return RemoveBan(speaker, rest);
  if (flag == "+o" || flag == "-o") return SetOperator(chat, speaker, flag == "+o", rest, now);
  if (is_own) {
    const Text nick = TakeWord(rest);
    Member* target = FindMember(*speaker.channel, nick);
    if (target == nullptr) return "Нет такого ника на канале: "_w + nick;
    return SetNickFlag(chat, *target->account, flag);
  }
  return "Такого флага нет: "_w + flag;
}

struct Restriction {
  std::map<Text, std::int64_t> Channel::* until;
  Text begins;
  Text ends;
};

// "[seconds] nick [reason]"; without a number it is for good, 0 takes it back.
Text Restrict(Chat& chat, const Speaker& speaker, std::string_view rest,
              const Restriction& restriction, const Moment& now) {
  Text nick = TakeWord(rest);
  std::int64_t seconds = -1;
  if (const auto number = ReadNumber(nick, kMostDigits); number && !rest.empty()) {
    seconds = std::min(*number, kLongestPeriod);
    nick = TakeWord(rest);
  }
  Channel& channel = *speaker.channel;
  const Member* target = FindMember(channel, nick);
  if (target == nullptr) return "Нет такого ника на канале: "_w + nick;
  if (IsProtected(*target)) return "Этот ник под защитой"_w;
  const Text key = NickKey(nick);
  auto& until = channel.*restriction.until;
  if (seconds == 0) {
    if (until.erase(key) != 0)
      BroadcastSystem(chat.frames, channel, target->account->nick + " " + restriction.ends, now);
    return "Готово"_w;
  }
  until[key] = seconds < 0 ? kForever : now.ms + seconds * 1000;
  BroadcastSystem(chat.frames, channel,
                  target->account->nick + " " + restriction.begins + Because(speaker, rest), now);
  return "Готово"_w;
}

Text Eject(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  Text nick = TakeWord(rest);
  const bool oneself = nick.empty() || EqualsNoCase(nick, speaker.account.nick);
  if (oneself) nick = speaker.account.nick;
  if (!oneself && !IsOperator(*speaker.member)) return NotOperator();
  const Member* target = FindMember(*speaker.channel, nick);
  if (target == nullptr) return "Нет такого ника на канале: "_w + nick;
  if (!oneself && IsProtected(*target)) return "Этот ник под защитой"_w;
  const Text name = target->account->nick;
  Expel(chat, speaker, name, "катапультируется"_w, rest, FrameEnd::kEject, now);
  return name + " катапультируется"_w;
}

Text ChangeTopic(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  Channel& channel = *speaker.channel;
  const Text topic = Trim(rest);
  channel.topics.push_back({topic, speaker.account.nick, now.local});
  if (channel.topics.size() > kTopicsKept) channel.topics.pop_front();
  BroadcastSystem(chat.frames, channel,
                  speaker.account.nick + " меняет тему канала на \""_w + topic + "\"", now);
  return "Тема изменена"_w;
}

Text SayToOperators(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  if (rest.empty()) return "Пустое сообщение не отправлено"_w;
  Broadcast(chat.frames, *speaker.channel,
            {0, LineForm::kOperators, speaker.account.nick, {}, Text(rest)}, now);
  return "Сообщение отправлено операторам"_w;
}

Text Act(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  if (speaker.channel->muted.contains(NickKey(speaker.account.nick)))
    return "Вы лишены права голоса, сообщение не отправлено"_w;
  const bool lowered = speaker.channel->lowered.contains(NickKey(speaker.account.nick));
  const Text& nick = speaker.account.nick;
  const Text action = nick + " " + (lowered ? LCase(rest) : Text(rest));
  Broadcast(chat.frames, *speaker.channel, {0, LineForm::kAction, nick, {}, action}, now);
  return "Сообщение отправлено"_w;
}

}  // namespace

Text RunCommand(Chat& chat, const Speaker& speaker, const Text& text, const Moment& now) {
  std::string_view rest(text);
  const Text command = LCase(TakeWord(rest));
  // What concerns the nick alone needs no channel.
  if (command == "/set" || command == "/s") return Set(speaker, rest);
  if (command == "/mo") return Mode(chat, speaker, rest, now);
  if (command == "/status") {
    speaker.account.status = Text(rest);
    return "Статус установлен"_w;
  }
  const std::array<std::string_view, 3> for_all = {"/op", "/me", "/eject"};
  const std::array<std::string_view, 4> for_operators = {"/k", "/l", "/mu", "/topic"};
  const bool is_for_operators =
      std::find(for_operators.begin(), for_operators.end(), command) != for_operators.end();
  if (!is_for_operators && std::find(for_all.begin(), for_all.end(), command) == for_all.end())
    return "Такой команды нет: "_w + command;
  if (speaker.member == nullptr) return NotOnChannel();
  if (is_for_operators && !IsOperator(*speaker.member)) return NotOperator();
  if (command == "/op") return SayToOperators(chat, speaker, rest, now);
  if (command == "/me") return Act(chat, speaker, rest, now);
  if (command == "/eject") return Eject(chat, speaker, rest, now);
  if (command == "/k") return Kick(chat, speaker, rest, now);
  if (command == "/topic") return ChangeTopic(chat, speaker, rest, now);
  if (command == "/mu")
    return Restrict(chat, speaker, rest,
                    {&Channel::muted, "лишается права голоса"_w, "получает право голоса"_w}, now);
  return Restrict(
      chat, speaker, rest,
      {&Channel::lowered, "переходит на строчные буквы"_w, "снова пишет любыми буквами"_w}, now);
}

}  // namespace parlorwire::service
