#include "service/channel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "service/names.h"
#include "service/presentation.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kHistoryKept = 200;

std::size_t SizeOf(const Line& line) {
  return line.nick.size() + line.tone.size() + line.text.size();
}

// One line in the looks that are asked for, each made once.
class Presented {
 public:
  Presented(const Line& line, std::int64_t today) : line_(line), today_(today) {}

  const Text& In(const Look& look) {
    auto& made = made_[static_cast<std::size_t>(look.style) * 2 + (look.reload ? 1 : 0)];
    if (!made)
      made = ConvertCharset(PresentLine(look, line_, today_), Charset::kWindows1251, Charset::kKoi);
    return *made;
  }

 private:
  const Line& line_;
  std::int64_t today_;
  std::array<std::optional<Text>, 20> made_;
};

}  // namespace

Member* FindMember(Channel& channel, std::string_view nick) {
  const auto found =
      std::find_if(channel.members.begin(), channel.members.end(),
                   [&](const Member& member) { return EqualsNoCase(member.account->nick, nick); });
  return found == channel.members.end() ? nullptr : &*found;
}

bool HasPeople(const Channel& channel) {
  return std::any_of(channel.members.begin(), channel.members.end(),
                     [](const Member& member) { return !member.account->robot; });
}

bool IsOperator(const Member& member) {
  return member.oper || member.admin;
}

bool IsProtected(const Member& member) {
  return member.admin || (member.oper && member.account->robot);
}

Text FlagsOf(const Channel& channel, const Member& member) {
  const Account& account = *member.account;
  const Text key = NickKey(account.nick);
  Text flags = "[";
  if (member.oper) flags += account.robot ? "+O" : "+o";
  if (member.admin) flags += "+A";
  if (!account.timer) flags += "-t";
  if (account.reload) flags += "+R";
  if (channel.muted.contains(key)) flags += "-v";
  if (channel.lowered.contains(key)) flags += "+l";
  return flags + "]";
}

bool IsKeptOut(const Channel& channel, const Account& account, const Origin& origin,
               const Moment& now) {
  return std::any_of(channel.bans.begin(), channel.bans.end(), [&](const Penalty& ban) {
    return ban.until_ms > now.ms && !EqualsNoCase(ban.by, account.nick) &&
           (MaskMatches(ban.of, account.nick) || MaskMatches(ban.of, origin.address) ||
            MaskMatches(ban.of, origin.forwarded));
  });
}

void Broadcast(Frames& frames, Channel& channel, Line line, const Moment& now) {
  line.local = now.local;
  Presented presented(line, now.local);
  for (Member& member : channel.members) {
    if (member.frame == nullptr) continue;
    const Account& account = *member.account;
    if (line.form == LineForm::kOperators && !IsOperator(member) && account.nick != line.nick)
      continue;
    WriteWire(frames, *member.frame, presented.In({account.style, account.reload}), now);
  }
  if (line.form == LineForm::kOperators) return;
  channel.history_held += SizeOf(line);
  channel.history.push_back(std::move(line));
  while (channel.history.size() > kHistoryKept || channel.history_held > channel.history_bytes) {
    channel.history_held -= SizeOf(channel.history.front());
    channel.history.pop_front();
  }
}

void BroadcastSystem(Frames& frames, Channel& channel, const Text& text, const Moment& now) {
  Broadcast(frames, channel, {0, LineForm::kSystem, {}, {}, text}, now);
}

Text HistoryOf(const Channel& channel, const Account& account, const Moment& now) {
  const Look look{account.style, account.reload};
  const auto count = std::min(channel.history.size(), static_cast<std::size_t>(account.history));
  std::vector<Text> lines;  // the newest first
  std::size_t size = 0;
  for (auto line = channel.history.rbegin(); line != channel.history.rend() && lines.size() < count;
       ++line) {
    lines.push_back(PresentLine(look, *line, now.local));
    size += lines.back().size();
    if (size > channel.history_bytes) break;
  }
  if (size > channel.history_bytes) lines.pop_back();
  Text joined;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line)
    joined += *line;
  return joined;
}

bool MayRead(Channel& channel, std::string_view nick, const Text& password) {
  return channel.password.empty() || channel.password == password ||
         FindMember(channel, nick) != nullptr;
}

bool Means(std::string_view mask, const Member& member) {
  return MaskMatches(mask, member.account->nick) || MaskMatches(mask, member.address) ||
         MaskMatches(mask, member.via);
}

std::map<Text, Penalty>& TakenFrom(Channel& channel, Right right) {
  return right == Right::kVoice ? channel.muted : channel.lowered;
}

bool GiveBack(Frames& frames, Channel& channel, Right right, std::string_view nick,
              const Moment& now) {
  if (TakenFrom(channel, right).erase(NickKey(nick)) == 0) return false;
  const Text words =
      right == Right::kVoice ? " получает право голоса"_w : " снова пишет любыми буквами"_w;
  if (const Member* member = FindMember(channel, nick))
    BroadcastSystem(frames, channel, member->account->nick + words, now);
  return true;
}

void EndPeriods(Frames& frames, Channel& channel, const Moment& now) {
  std::erase_if(channel.bans, [&](const Penalty& ban) { return ban.until_ms <= now.ms; });
  for (const Right right : {Right::kVoice, Right::kCapitals}) {
    std::vector<Text> ended;
    for (const auto& [nick, penalty] : TakenFrom(channel, right))
      if (penalty.until_ms <= now.ms) ended.push_back(nick);
    for (const Text& nick : ended)
      GiveBack(frames, channel, right, nick, now);
  }
}

std::int64_t NextEndOfPeriod(const Channel& channel) {
  std::int64_t next = kForever;
  for (const auto* penalties : {&channel.muted, &channel.lowered})
    for (const auto& [nick, penalty] : *penalties)
      next = std::min(next, penalty.until_ms);
  return next;
}

}  // namespace parlorwire::service
