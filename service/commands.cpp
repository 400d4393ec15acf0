#include "service/commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "service/ascii.h"
#include "service/names.h"
#include "service/posting.h"
#include "service/presence.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kMostCommandDigits = 9;  // of a number in a command
constexpr int kLongestHistory = 200;
constexpr std::size_t kTopicsKept = 50;

Text NotOnChannel() {
  return "Вы не на канале"_w;
}

Text NotOperator() {
  return "Это может только оператор канала"_w;
}

Text Muted() {
  return "Вы лишены права голоса, сообщение не отправлено"_w;
}

// Takes the first word off.
Text TakeWord(std::string_view& rest) {
  rest = TrimView(rest);
  const auto end = std::min(rest.find(' '), rest.size());
  const Text word(rest.substr(0, end));
  rest = TrimView(rest.substr(end));
  return word;
}

Text Set(const Speaker& speaker, std::string_view rest) {
  const Text what = LCase(TakeWord(rest));
  const Text value = TakeWord(rest);
  const auto read = ReadNumber(value, kMostCommandDigits);
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
  const Text whom = TakeWord(rest);
  if (flag == "+b") return Ban(chat, speaker, whom, Text(rest), now);
  if (flag == "-b") return Unban(speaker, whom);
  if (flag == "+o" || flag == "-o") return SetOperator(chat, speaker, flag == "+o", whom, now);
  if (is_own) {
    const Member* target = FindMember(*speaker.channel, whom);
    if (target == nullptr) return NoSuchNick(whom);
    if (target != speaker.member && IsProtected(*target)) return IsProtectedSentence();
    return SetNickFlag(chat, *target->account, flag);
  }
  return "Такого флага нет: "_w + flag;
}

Text KickSomebody(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  const Text whom = TakeWord(rest);
  return Kick(chat, speaker, whom, Text(rest), now);
}

// "[seconds] nick [reason]"; without a number it is for good, 0 gives the right back. A nick of
// digits is meant where no other nick stands behind it.
Text TakeOrGive(Chat& chat, const Speaker& speaker, Right right, std::string_view rest,
                const Moment& now) {
  const Text first = TakeWord(rest);
  const auto seconds = ReadNumber(first, kMostCommandDigits);
  std::string_view behind = rest;
  const Text second = TakeWord(behind);
  const auto is_there = [&](const Text& nick) {
    return FindMember(*speaker.channel, nick) != nullptr;
  };
  if (!seconds || second.empty() || (!is_there(second) && is_there(first)))
    return TakeRight(chat, speaker, right, first, std::nullopt, Text(rest), now);
  if (*seconds == 0) return GiveRight(chat, speaker, right, second, now);
  return TakeRight(chat, speaker, right, second, seconds, Text(behind), now);
}

Text Mute(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  return TakeOrGive(chat, speaker, Right::kVoice, rest, now);
}

Text Lower(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  return TakeOrGive(chat, speaker, Right::kCapitals, rest, now);
}

Text EjectSomebody(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  const Text nick = TakeWord(rest);
  const bool oneself = nick.empty() || EqualsNoCase(nick, speaker.account.nick);
  if (!oneself && !IsOperator(*speaker.member)) return NotOperator();
  return Eject(chat, speaker, oneself ? speaker.account.nick : nick, Text(rest), now);
}

Text ChangeTopic(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  Channel& channel = *speaker.channel;
  const Text topic = Trim(rest);
  channel.topics.push_back({topic.substr(0, kLongestTopicKept), speaker.account.nick, now.local});
  if (channel.topics.size() > kTopicsKept) channel.topics.pop_front();
  BroadcastSystem(chat.frames, channel,
                  speaker.account.nick + " меняет тему канала на \""_w + topic + "\"", now);
  return "Тема изменена"_w;
}

Text SayToOperators(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  if (rest.empty()) return "Пустое сообщение не отправлено"_w;
  const Text key = NickKey(speaker.account.nick);
  if (speaker.channel->muted.contains(key)) return Muted();
  const Text said = speaker.channel->lowered.contains(key) ? LCase(rest) : Text(rest);
  Broadcast(chat.frames, *speaker.channel,
            {0, LineForm::kOperators, speaker.account.nick, {}, said}, now);
  return "Сообщение отправлено операторам"_w;
}

Text Act(Chat& chat, const Speaker& speaker, std::string_view rest, const Moment& now) {
  if (speaker.channel->muted.contains(NickKey(speaker.account.nick))) return Muted();
  const bool lowered = speaker.channel->lowered.contains(NickKey(speaker.account.nick));
  const Text& nick = speaker.account.nick;
  const Text action = nick + " " + (lowered ? LCase(rest) : Text(rest));
  Broadcast(chat.frames, *speaker.channel, {0, LineForm::kAction, nick, {}, action}, now);
  return Text(kMessageSent);
}

// A status shows on all channels where the nick is: whom one of them silences has none to say, and
// whom one makes write small letters writes it in them.
Text SetStatus(Chat& chat, const Speaker& speaker, std::string_view rest) {
  const Text key = NickKey(speaker.account.nick);
  bool lowered = false;
  for (auto& [name, channel] : chat.channels) {
    if (FindMember(channel, speaker.account.nick) == nullptr) continue;
    if (channel.muted.contains(key)) return Muted();
    lowered = lowered || channel.lowered.contains(key);
  }
  const std::string_view kept = rest.substr(0, kLongestStatus);
  speaker.account.status = lowered ? LCase(kept) : Text(kept);
  return "Статус установлен"_w;
}

// A command that needs a presence on the channel.
struct Command {
  std::string_view name;
  bool is_for_operators;
  Text (*run)(Chat&, const Speaker&, std::string_view rest, const Moment&);
};

constexpr std::array<Command, 7> kCommands = {{
    {"/op", false, SayToOperators},
    {"/me", false, Act},
    {"/eject", false, EjectSomebody},
    {"/k", true, KickSomebody},
    {"/mu", true, Mute},
    {"/l", true, Lower},
    {"/topic", true, ChangeTopic},
}};

}  // namespace

Text RunCommand(Chat& chat, const Speaker& speaker, const Text& text, const Moment& now) {
  std::string_view rest(text);
  const Text name = LCase(TakeWord(rest));
  // What concerns the nick alone needs no channel.
  if (name == "/set" || name == "/s") return Set(speaker, rest);
  if (name == "/mo") return Mode(chat, speaker, rest, now);
  if (name == "/status") return SetStatus(chat, speaker, rest);
  const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const Command& each) { return each.name == name; });
  if (command == kCommands.end()) return "Такой команды нет: "_w + name;
  if (speaker.member == nullptr) return NotOnChannel();
  if (command->is_for_operators && !IsOperator(*speaker.member)) return NotOperator();
  return command->run(chat, speaker, rest, now);
}

}  // namespace parlorwire::service
