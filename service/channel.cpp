// Channels: who is on them, what is shown to whom, and how long things last.
#include <algorithm>
#include <array>
#include <optional>

#include "service/chat.h"
#include "service/personal.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kHistoryKept = 200;

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

void WriteWire(Chat& chat, Frame& frame, std::string_view bytes, const Moment& now) {
  if (frame.end != FrameEnd::kNone) return;
  frame.out += bytes;
  frame.wrote_ms = now.ms;
  if (!frame.touched) chat.touched.push_back(frame.id);
  frame.touched = true;
}

bool IsProtected(const Chat& chat, const Member& member) {
  const auto& admins = chat.options.admins;
  return std::any_of(admins.begin(), admins.end(),
                     [&](const Text& nick) { return EqualsNoCase(nick, member.account->nick); });
}

bool IsKeptOut(const Channel& channel, const Account& account, const Origin& origin,
               const Moment& now) {
  return std::any_of(channel.bans.begin(), channel.bans.end(), [&](const Ban& ban) {
    return ban.until_ms > now.ms &&
           (MaskMatches(ban.mask, account.nick) || MaskMatches(ban.mask, origin.address) ||
            MaskMatches(ban.mask, origin.forwarded));
  });
}

// Four groups of up to three digits.
bool IsAddress(std::string_view text) {
  const auto groups = Split(text, ".");
  return groups.size() == 4 && std::all_of(groups.begin(), groups.end(), [](auto group) {
           return !group.empty() && group.size() <= 3 &&
                  std::all_of(group.begin(), group.end(),
                              [](char c) { return c >= '0' && c <= '9'; });
         });
}

void SetOrigin(Member& member, const Origin& origin) {
  if (IsAddress(origin.forwarded)) {
    member.address = origin.forwarded;
    member.shown_address = origin.address + " (" + origin.forwarded + ")";
  } else {
    member.address = member.shown_address = origin.address;
  }
}

// A channel that nobody is on is forgotten; a permanent one forgets who ruled it.
void TidyUp(Chat& chat, Channel& channel) {
  if (HasPeople(channel)) return;
  channel.opers.clear();
  channel.bans.clear();
  channel.muted.clear();
  channel.lowered.clear();
  channel.password.clear();
  if (!channel.permanent) chat.channels.erase(NickKey(channel.name));
}

Text WireHistory(const Channel& channel, const Account& account, const Moment& now) {
  const Look look{account.style, account.reload};
  const auto count = std::min(channel.history.size(), static_cast<std::size_t>(account.history));
  Text lines;
  for (auto line = channel.history.end() - static_cast<std::ptrdiff_t>(count);
       line != channel.history.end(); ++line)
    lines += PresentLine(look, *line, now.local);
  return lines;
}

void EndAll(std::map<Text, std::int64_t>& until, const Moment& now, std::vector<Text>& ended) {
  for (auto entry = until.begin(); entry != until.end();) {
    if (entry->second > now.ms) {
      ++entry;
      continue;
    }
    ended.push_back(entry->first);
    entry = until.erase(entry);
  }
}

void EndPeriods(Chat& chat, Channel& channel, const Moment& now) {
  std::erase_if(channel.bans, [&](const Ban& ban) { return ban.until_ms <= now.ms; });
  std::vector<Text> ended;
  EndAll(channel.muted, now, ended);
  for (const Text& nick : ended)
    if (const Member* member = FindMember(channel, nick))
      BroadcastSystem(chat, channel, member->account->nick + " получает право голоса"_w, now);
  ended.clear();
  EndAll(channel.lowered, now, ended);
  for (const Text& nick : ended)
    if (const Member* member = FindMember(channel, nick))
      BroadcastSystem(chat, channel, member->account->nick + " снова пишет любыми буквами"_w, now);
}

}  // namespace

bool HasPeople(const Channel& channel) {
  return std::any_of(channel.members.begin(), channel.members.end(),
                     [](const Member& member) { return !member.account->robot; });
}

Channel* FindChannel(Chat& chat, std::string_view name) {
  const auto found = chat.channels.find(NickKey(name));
  return found == chat.channels.end() ? nullptr : &found->second;
}

Member* FindMember(Channel& channel, std::string_view nick) {
  const auto found =
      std::find_if(channel.members.begin(), channel.members.end(),
                   [&](const Member& member) { return EqualsNoCase(member.account->nick, nick); });
  return found == channel.members.end() ? nullptr : &*found;
}

bool IsOperator(const Chat& chat, const Member& member) {
  return member.oper || IsProtected(chat, member);
}

Text FlagsOf(const Chat& chat, const Channel& channel, const Member& member) {
  const Account& account = *member.account;
  const Text key = NickKey(account.nick);
  Text flags = "[";
  if (member.oper) flags += account.robot ? "+O" : "+o";
  if (IsProtected(chat, member)) flags += "+A";
  if (!account.timer) flags += "-t";
  if (account.reload) flags += "+R";
  if (channel.muted.contains(key)) flags += "-v";
  if (channel.lowered.contains(key)) flags += "+l";
  return flags + "]";
}

void Write(Chat& chat, Frame& frame, std::string_view text, const Moment& now) {
  WriteWire(chat, frame, ConvertCharset(Text(text), Charset::kWindows1251, Charset::kKoi), now);
}

void End(Chat& chat, Frame& frame, FrameEnd end) {
  if (frame.end != FrameEnd::kNone) return;
  frame.end = end;
  if (!frame.touched) chat.touched.push_back(frame.id);
  frame.touched = true;
}

void Broadcast(Chat& chat, Channel& channel, Line line, const Moment& now) {
  line.local = now.local;
  Presented presented(line, now.local);
  for (Member& member : channel.members) {
    if (member.frame == nullptr) continue;
    const Account& account = *member.account;
    if (line.form == LineForm::kOperators && !IsOperator(chat, member) && account.nick != line.nick)
      continue;
    WriteWire(chat, *member.frame, presented.In({account.style, account.reload}), now);
  }
  if (line.form == LineForm::kOperators) return;
  channel.history.push_back(std::move(line));
  if (channel.history.size() > kHistoryKept) channel.history.pop_front();
}

void BroadcastSystem(Chat& chat, Channel& channel, const Text& text, const Moment& now) {
  Broadcast(chat, channel, {0, LineForm::kSystem, {}, {}, text}, now);
}

Frame* Enter(Chat& chat, Account& account, const Text& name, const Text& password,
             const Origin& origin, const Moment& now, std::string_view head) {
  if (!ChannelIsAllowed(name)) return nullptr;
  const Text key = NickKey(name);
  const auto [found, is_new] = chat.channels.try_emplace(key);
  Channel& channel = found->second;
  if (is_new) {
    channel.name = name;
    channel.password = password;
  }
  Member* present = FindMember(channel, account.nick);
  if (channel.password != password && !channel.password.empty()) return nullptr;
  if (IsKeptOut(channel, account, origin, now)) return nullptr;

  const FrameId id = chat.next_frame++;
  Frame& frame = chat.frames[id];
  frame.id = id;
  frame.account = NickKey(account.nick);
  frame.channel = key;
  WriteWire(chat, frame, head, now);
  Write(chat, frame, FrameHead({account.style, account.reload}), now);
  Write(chat, frame, WireHistory(channel, account, now), now);
  if (present != nullptr) {
    if (present->frame != nullptr) End(chat, *present->frame, FrameEnd::kEject);
    present->frame = &frame;
    present->gone_ms = kForever;
    SetOrigin(*present, origin);
    return &frame;
  }

  if (channel.opers.empty()) channel.opers.insert(frame.account);
  Member& member = channel.members.emplace_back();
  member.account = &account;
  member.frame = &frame;
  member.oper = channel.opers.contains(frame.account);
  SetOrigin(member, origin);
  const bool is_oper = member.oper;
  const Text address = " (" + member.shown_address + ")";
  BroadcastSystem(chat, channel, account.nick + " приходит на канал"_w + address, now);
  if (is_oper) BroadcastSystem(chat, channel, account.nick + " стал оператором канала"_w, now);
  return &frame;
}

void Settle(Chat& chat, Account& account, const Text& name, const Text& address, bool oper,
            bool announced, const Moment& now) {
  Channel& channel = chat.channels[NickKey(name)];
  if (channel.name.empty()) channel.name = name;
  if (FindMember(channel, account.nick) != nullptr ||
      IsKeptOut(channel, account, {address, {}}, now))
    return;
  Member& member = channel.members.emplace_back();
  member.account = &account;
  member.address = member.shown_address = address;
  member.oper = oper;
  if (announced)
    BroadcastSystem(chat, channel, account.nick + " приходит к нам ("_w + address + ")", now);
}

Frame& EnterPersonal(Chat& chat, Account& account, const Moment& now, std::string_view head,
                     std::string_view host) {
  const FrameId id = chat.next_frame++;
  Frame& frame = chat.frames[id];
  frame.id = id;
  frame.account = NickKey(account.nick);
  frame.host = host;
  account.personal_frames.insert(id);
  WriteWire(chat, frame, head, now);
  Write(chat, frame, "<html>\n<head>\n<title>personal messages</title>\n</head>\n<body>\n<br>\n",
        now);
  for (const PersonalMessage& message : account.personal)
    Write(chat, frame, PresentPersonal(account, message, host, now.local, chat.random()), now);
  return frame;
}

void PartMember(Chat& chat, Channel& channel, std::string_view nick, FrameEnd end,
                const Moment& now) {
  const auto member =
      std::find_if(channel.members.begin(), channel.members.end(),
                   [&](const Member& each) { return EqualsNoCase(each.account->nick, nick); });
  if (member == channel.members.end()) return;
  if (member->frame != nullptr) End(chat, *member->frame, end);
  const Text line = member->account->nick + " покидает нас ("_w + member->shown_address + ")";
  channel.members.erase(member);
  BroadcastSystem(chat, channel, line, now);
  TidyUp(chat, channel);
}

void Leave(Chat& chat, Account& account, const Text& name, const Moment& now) {
  if (Channel* channel = FindChannel(chat, name))
    PartMember(chat, *channel, account.nick, FrameEnd::kClose, now);
}

void FrameIsGone(Chat& chat, FrameId id, const Moment& now) {
  const auto found = chat.frames.find(id);
  if (found == chat.frames.end()) return;
  Frame& frame = found->second;
  chat.accounts.at(frame.account).personal_frames.erase(id);
  if (Channel* channel = FindChannel(chat, frame.channel)) {
    for (Member& member : channel->members) {
      if (member.frame != &frame) continue;
      member.frame = nullptr;
      member.gone_ms = now.ms + chat.options.grace_ms;
    }
  }
  std::erase(chat.touched, id);
  chat.frames.erase(found);
}

void Advance(Chat& chat, const Moment& now) {
  std::vector<std::pair<Text, Text>> gone;
  for (auto& [key, channel] : chat.channels) {
    EndPeriods(chat, channel, now);
    for (const Member& member : channel.members)
      if (member.gone_ms <= now.ms) gone.emplace_back(key, member.account->nick);
  }
  for (const auto& [key, nick] : gone)
    if (Channel* channel = FindChannel(chat, key))
      PartMember(chat, *channel, nick, FrameEnd::kClose, now);
  for (auto& [id, frame] : chat.frames)
    if (now.ms - frame.wrote_ms >= chat.options.keep_alive_ms)
      WriteWire(chat, frame, kKeepAlive, now);
}

std::int64_t NextAdvance(const Chat& chat) {
  std::int64_t next = kForever;
  for (const auto& [id, frame] : chat.frames)
    if (frame.end == FrameEnd::kNone)
      next = std::min(next, frame.wrote_ms + chat.options.keep_alive_ms);
  for (const auto& [key, channel] : chat.channels) {
    for (const Member& member : channel.members)
      next = std::min(next, member.gone_ms);
    for (const auto& [nick, until] : channel.muted)
      next = std::min(next, until);
    for (const auto& [nick, until] : channel.lowered)
      next = std::min(next, until);
  }
  return next;
}

}  // namespace parlorwire::service
