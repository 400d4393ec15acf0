#include "service/personal.h"

#include <algorithm>
#include <array>
#include <utility>

#include "service/accounts.h"
#include "service/form.h"
#include "service/markup.h"
#include "service/names.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kMessagesKept = 100;
constexpr std::size_t kLongestPersonal = 4000;

struct Smile {
  std::string_view code;  // without its asterisks
  std::string_view picture;
};

constexpr std::array<Smile, 22> kSmiles = {{
    {"sweet", "157"},     {"eyes", "148"},       {"heart2", "152"},   {"coffe", "142"},
    {"champ", "100"},     {"b2", "127"},         {"b1", "128"},       {"r4", "129"},
    {"r2", "130"},        {"rom", "132"},        {"rom2", "133"},     {"rom3", "134"},
    {"vasilek", "135"},   {"smoke", "141"},      {"dedmoroz", "144"}, {"sneg", "154"},
    {"fingers", "kruto"}, {"hi", "22"},          {"wg", "p12"},       {"kiss", "kiss1"},
    {"rose", "rose_t"},   {"beer", "icon_beer"},
}};

Text WordHtml(std::string_view word) {
  if (IsAddressOfPage(word)) {
    const Text escaped = EscapeHtml(word);
    return "<a href=\"/redirect?msgtext=" + escaped + "\" target=\"_blank\">" + escaped + "</a>";
  }
  if (word.size() > 2 && word.front() == '*' && word.back() == '*') {
    const std::string_view code = word.substr(1, word.size() - 2);
    const auto smile = std::find_if(kSmiles.begin(), kSmiles.end(),
                                    [&](const Smile& each) { return each.code == code; });
    if (smile != kSmiles.end()) return "<img src=\"/" + Text(smile->picture) + ".gif\">";
  }
  return EscapeHtml(word);
}

std::size_t BytesWaiting(const Account& account) {
  std::size_t bytes = 0;
  for (const PersonalMessage& message : account.personal)
    bytes += message.other.size() + message.text.size();
  return bytes;
}

void Deliver(Chat& chat, Account& account, PersonalMessage message, const Moment& now) {
  message.number = account.next_personal++;
  message.local = now.local;
  for (const FrameId id : account.personal_frames) {
    Frame& frame = chat.frames.open.at(id);
    Write(chat.frames, frame,
          PresentPersonal(account, message, frame.host, now.local, chat.random()), now);
  }
  if (!account.personal_frames.empty()) account.told_personal = message.number;
  account.personal.push_back(std::move(message));
  while (account.personal.size() > kMessagesKept ||
         BytesWaiting(account) > chat.options.limits.personal_bytes)
    account.personal.pop_front();
}

// Everybody who doesn't look at his personal messages is told on the channels that he reads.
void Signal(Chat& chat, Account& account, const Moment& now) {
  if (!account.personal_frames.empty()) return;
  for (auto& [key, channel] : chat.channels) {
    const Member* member = FindMember(channel, account.nick);
    if (member == nullptr || member->frame == nullptr) continue;
    // Who came with the ticket of another channel has none of this one.
    auto ticket = account.tickets.find(key);
    if (ticket == account.tickets.end()) ticket = account.tickets.begin();
    if (ticket == account.tickets.end()) continue;
    const Text page = PersonalAddress(account.nick, ticket->second);
    Write(chat.frames, *member->frame, PersonalSignal(page), now);
    account.told_personal = account.personal.back().number;
  }
}

}  // namespace

Frame& EnterPersonal(Chat& chat, Account& account, const Moment& now, std::string_view head,
                     std::string_view host) {
  Frame& frame = OpenFrame(chat.frames, NickKey(account.nick));
  frame.host = host;
  account.personal_frames.insert(frame.id);
  WriteWire(chat.frames, frame, head, now);
  Write(chat.frames, frame, PersonalHead("personal messages"), now);
  for (const PersonalMessage& message : account.personal)
    Write(chat.frames, frame, PresentPersonal(account, message, host, now.local, chat.random()),
          now);
  account.told_personal = account.next_personal - 1;
  return frame;
}

Text PersonalAddress(std::string_view nick, const Text& ticket) {
  return Text(kPersonalPage) + "?username=" + PercentEncode(nick) + "&ticket=" + ticket;
}

Text PersonalHead(std::string_view title) {
  return "<html>\n<head>\n<title>" + Text(title) + "</title>\n</head>\n<body>\n<br>\n";
}

Text PersonalHtml(std::string_view text) {
  Text html;
  bool first = true;
  for (const std::string_view word : Split(text, " ")) {
    if (!first) html += ' ';
    html += WordHtml(word);
    first = false;
  }
  return html;
}

Text PresentPersonal(const Account& account, const PersonalMessage& message, std::string_view host,
                     std::int64_t today, std::uint64_t reqnum) {
  const Text link = "http://" + Text(host) + Text(kAcknowledgePage) +
                    "?reqnum=" + std::to_string(reqnum % 88888889 + 11111111) +
                    "&username=" + PercentEncode(account.nick) +
                    "&pm_msgnum=" + std::to_string(message.number);
  const Text other = EscapeHtml(message.other) + (message.received ? "" : ":");
  return Text(message.received ? "&gt;" : "&lt;") + " [" + TimeText(message.local, today) + "] " +
         link + " " + other + " " + PersonalHtml(message.text) + "\n";
}

Text SendPersonal(Chat& chat, Account& from, const Text& to, const Text& text, const Moment& now) {
  Text line = Trim(text.substr(0, kLongestPersonal));
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  if (line.empty()) return "Пустое сообщение не отправлено"_w;
  Account* found = FindNick(chat, to);
  if (found == nullptr) return "Нет такого ника: "_w + to.substr(0, kLongestNick);
  Account& receiver = *found;
  Deliver(chat, receiver, {0, 0, true, from.nick, line}, now);
  Signal(chat, receiver, now);
  Deliver(chat, from, {0, 0, false, receiver.nick, line}, now);
  return "Сообщение отправлено"_w;
}

bool Acknowledge(Account& account, std::int64_t number) {
  return std::erase_if(account.personal, [&](const PersonalMessage& message) {
           return message.number == number;
         }) != 0;
}

bool HasUnread(const Account& account) {
  return std::any_of(account.personal.begin(), account.personal.end(),
                     [](const PersonalMessage& message) { return message.received; });
}

bool TakeUntold(Account& account) {
  const auto told = std::exchange(account.told_personal, account.next_personal - 1);
  return std::any_of(
      account.personal.begin(), account.personal.end(),
      [told](const PersonalMessage& message) { return message.received && message.number > told; });
}

}  // namespace parlorwire::service
