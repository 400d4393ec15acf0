#include "service/presence.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "service/accounts.h"
#include "service/names.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

void SetOrigin(Member& member, const Origin& origin) {
  member.via.clear();
  if (IsAddress(origin.forwarded)) {
    member.address = origin.forwarded;
    member.via = origin.address;
    member.shown_address = origin.address + " (" + origin.forwarded + ")";
  } else {
    member.address = member.shown_address = origin.address;
  }
}

// Where he comes from, as it stands behind what he does.
Text InBrackets(const Member& member) {
  return member.shown_address.empty() ? Text() : " (" + member.shown_address + ")";
}

Member& AddMember(const Chat& chat, Channel& channel, Account& account) {
  const auto& admins = chat.options.admins;
  Member& member = channel.members.emplace_back();
  member.account = &account;
  member.admin = std::any_of(admins.begin(), admins.end(),
                             [&](const Text& nick) { return EqualsNoCase(nick, account.nick); });
  return member;
}

void TidyUp(Chat& chat, Channel& channel) {
  if (HasPeople(channel)) return;
  channel.opers.clear();
  channel.bans.clear();
  channel.muted.clear();
  channel.lowered.clear();
  channel.password.clear();
  if (!channel.permanent) chat.channels.erase(NickKey(channel.name));
}

}  // namespace

Frame* Enter(Chat& chat, Account& account, const Text& name, const Text& password,
             const Origin& origin, const Moment& now, std::string_view head) {
  if (!ChannelIsAllowed(name) || password.size() > kLongestPassword) return nullptr;
  const Text key = NickKey(name);
  const auto [found, is_new] = chat.channels.try_emplace(key);
  Channel& channel = found->second;
  if (is_new) {
    channel.name = name;
    channel.password = password;
    channel.history_bytes = chat.options.limits.history_bytes;
  }
  Member* present = FindMember(channel, account.nick);
  if (channel.password != password && !channel.password.empty()) return nullptr;
  if (IsKeptOut(channel, account, origin, now)) return nullptr;

  Frame& frame = OpenFrame(chat.frames, NickKey(account.nick));
  frame.channel = key;
  frame.place = PlaceOf(origin);
  WriteWire(chat.frames, frame, head, now);
  Write(chat.frames, frame, FrameHead({account.style, account.reload}), now);
  Write(chat.frames, frame, HistoryOf(channel, account, now), now);
  if (present != nullptr) {
    if (present->frame != nullptr) End(chat.frames, *present->frame, FrameEnd::kEject);
    present->frame = &frame;
    present->gone_ms = kForever;
    SetOrigin(*present, origin);
    return &frame;
  }

  if (channel.opers.empty()) channel.opers.insert(frame.account);
  Member& member = AddMember(chat, channel, account);
  member.frame = &frame;
  member.oper = channel.opers.contains(frame.account);
  SetOrigin(member, origin);
  const bool is_oper = member.oper;
  const Text line = account.nick + " приходит на канал"_w + InBrackets(member);
  BroadcastSystem(chat.frames, channel, line, now);
  if (is_oper)
    BroadcastSystem(chat.frames, channel, account.nick + " стал оператором канала"_w, now);
  return &frame;
}

void Settle(Chat& chat, Account& account, const Text& name, const Origin& origin, bool oper,
            bool announced, const Moment& now) {
  Channel& channel = chat.channels[NickKey(name)];
  if (channel.name.empty()) {
    channel.name = name;
    channel.history_bytes = chat.options.limits.history_bytes;
  }
  if (FindMember(channel, account.nick) != nullptr || IsKeptOut(channel, account, origin, now))
    return;
  Member& member = AddMember(chat, channel, account);
  SetOrigin(member, origin);
  member.oper = oper;
  if (announced)
    BroadcastSystem(chat.frames, channel, account.nick + " приходит к нам"_w + InBrackets(member),
                    now);
}

void PartMember(Chat& chat, Channel& channel, std::string_view nick, FrameEnd end,
                const Moment& now) {
  const Member* member = FindMember(channel, nick);
  if (member == nullptr) return;
  if (member->frame != nullptr) End(chat.frames, *member->frame, end);
  const Text line = member->account->nick + " покидает нас"_w + InBrackets(*member);
  channel.members.erase(channel.members.begin() + (member - channel.members.data()));
  BroadcastSystem(chat.frames, channel, line, now);
  TidyUp(chat, channel);
}

void Leave(Chat& chat, Account& account, const Text& name, const Moment& now) {
  if (Channel* channel = FindChannel(chat, name))
    PartMember(chat, *channel, account.nick, FrameEnd::kClose, now);
}

void LogOff(Chat& chat, Account& account, const Moment& now) {
  std::vector<Text> names;
  for (auto& [key, channel] : chat.channels)
    if (FindMember(channel, account.nick) != nullptr) names.push_back(key);
  for (const Text& name : names)
    Leave(chat, account, name, now);
  for (const FrameId id : account.personal_frames)
    if (const auto frame = chat.frames.open.find(id); frame != chat.frames.open.end())
      End(chat.frames, frame->second, FrameEnd::kClose);
  account.personal_frames.clear();
  VoidTickets(chat, account);
}

void FrameIsGone(Chat& chat, FrameId id, const Moment& now) {
  const auto found = chat.frames.open.find(id);
  if (found == chat.frames.open.end()) return;
  Frame& frame = found->second;
  Account& account = chat.accounts.at(frame.account);
  account.personal_frames.erase(id);
  account.used_ms = now.ms;
  if (Channel* channel = FindChannel(chat, frame.channel)) {
    for (Member& member : channel->members) {
      if (member.frame != &frame) continue;
      member.frame = nullptr;
      member.gone_ms = now.ms + chat.options.grace_ms;
    }
  }
  std::erase(chat.frames.touched, id);
  chat.frames.open.erase(found);
}

void Advance(Chat& chat, const Moment& now) {
  std::vector<std::pair<Text, Text>> gone;
  for (auto& [key, channel] : chat.channels) {
    EndPeriods(chat.frames, channel, now);
    for (const Member& member : channel.members)
      if (member.gone_ms <= now.ms) gone.emplace_back(key, member.account->nick);
  }
  for (const auto& [key, nick] : gone)
    if (Channel* channel = FindChannel(chat, key))
      PartMember(chat, *channel, nick, FrameEnd::kClose, now);
  for (auto& [id, frame] : chat.frames.open)
    if (now.ms - frame.wrote_ms >= chat.options.keep_alive_ms)
      WriteWire(chat.frames, frame, kKeepAlive, now);
}

std::int64_t NextAdvance(const Chat& chat) {
  std::int64_t next = kForever;
  for (const auto& [id, frame] : chat.frames.open)
    if (frame.end == FrameEnd::kNone)
      next = std::min(next, frame.wrote_ms + chat.options.keep_alive_ms);
  for (const auto& [key, channel] : chat.channels) {
    next = std::min(next, NextEndOfPeriod(channel));
    for (const Member& member : channel.members)
      next = std::min(next, member.gone_ms);
  }
  return next;
}

}  // namespace parlorwire::service
