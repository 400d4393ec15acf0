#include "service/lists.h"

#include <algorithm>
#include <string>

#include "service/markup.h"
#include "service/personal.h"
#include "service/presentation.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

// Robots find the keys of the channel list wherever they stand: none may come with somebody's
// words.
Text WithoutKeys(Text value) {
  for (const std::string_view key : {"channel:", "chflags:", "topic:", "user:"})
    value = Replace(value, key, Text(key.substr(0, key.size() - 1)) + " :");
  return value;
}

Text Topic(const Channel& channel) {
  return channel.topics.empty() ? Text() : channel.topics.back().topic;
}

Text UserLine(const Channel& channel, const Member& member, bool form_b) {
  const Text nick = EscapeHtml(member.account->nick);
  const Text flags = FlagsOf(channel, member);
  if (form_b) return "<tr>\n" + member.address + ":" + flags + nick + "\n";
  const Text address = member.address.empty() ? Text() : member.address + ":";
  const Text status = Replace(EscapeHtml(member.account->status), "'", "");
  return nick + "|" + flags + "[" + address + "]'" + status + "'\n";
}

// "" if it has run its time.
Text PenaltyRow(const Penalty& penalty, const Text& without, const Moment& now) {
  if (penalty.until_ms <= now.ms) return {};
  Text until = "навсегда"_w;
  if (penalty.until_ms != kForever) {
    const std::int64_t seconds = (penalty.until_ms - now.ms + 999) / 1000;
    until =
        TimeText(now.local + seconds, now.local) + " (еще "_w + std::to_string(seconds) + " с)"_w;
  }
  return Row(
      {TimeText(penalty.local, now.local), penalty.of, without, penalty.reason, penalty.by, until});
}

}  // namespace

Text UserFrame(const Channel& channel, const Account& reader, const Visitor& visitor, bool form_b) {
  Text frame = "<title>users</title>\n";
  frame += reader.timer ? "<meta http-equiv=\"refresh\" content=\"60\">\n" : "<!-- -->\n";
  frame += "\n\n";
  // The first characters of form B are "<tr>", so its script comes last.
  Text signal;
  if (HasUnread(reader)) signal = PersonalSignal(PersonalAddress(visitor.nick, visitor.ticket));
  if (!form_b) frame += signal;
  for (const Member& member : channel.members)
    frame += UserLine(channel, member, form_b);
  if (form_b) frame += signal;
  return frame;
}

Text UserPage(const Channel& channel, const Account& reader, const Visitor& visitor) {
  Text rows;
  for (const Member& member : channel.members)
    rows += "<li><b>" + EscapeHtml(member.account->nick) + "</b> " + FlagsOf(channel, member) +
            " " + EscapeHtml(member.address) + " " + EscapeHtml(member.account->status) + "\n";
  const Text refresh = "<meta http-equiv=\"refresh\" content=\"30\">\n";
  Text waits;
  if (HasUnread(reader))
    waits = "<p><a href='" + PersonalAddress(visitor.nick, visitor.ticket) +
            "' target=\"personal\">" + "Вам пришло персональное сообщение"_w + "</a>\n";
  return "<html>\n<head>\n<title>users</title>\n" + refresh + "</head>\n<body>\n<h3>" +
         EscapeHtml(channel.name) + "</h3>\n" + waits + "<ul>\n" + rows +
         "</ul>\n<a href='/banlist?" + VisitorQuery(visitor) + "'>bans</a>\n<a href='/oplist?" +
         VisitorQuery(visitor) + "'>opers</a>\n<a href='/topic_hist?" + VisitorQuery(visitor) +
         "'>topics</a>\n</body>\n</html>\n";
}

Text BanListPage(const Channel& channel, const Moment& now) {
  Text rows = Row({"когда"_w, "кто"_w, "без чего"_w, "причина"_w, "оператор"_w, "до"_w});
  for (const Penalty& ban : channel.bans)
    rows += PenaltyRow(ban, "входа на канал"_w, now);
  for (const auto& [nick, mute] : channel.muted)
    rows += PenaltyRow(mute, "права голоса"_w, now);
  for (const auto& [nick, lowering] : channel.lowered)
    rows += PenaltyRow(lowering, "заглавных букв"_w, now);
  return Page("Бан-лист"_w, "<h1>Бан-лист канала "_w + EscapeHtml(channel.name) +
                                "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text OperatorListPage(const Chat& chat, const Channel& channel) {
  Text rows;
  for (const Text& key : channel.opers)
    rows += Row({chat.accounts.at(key).nick});
  return Page("Операторы"_w, "<h1>Операторы канала "_w + EscapeHtml(channel.name) +
                                 "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text TopicHistoryPage(const Channel& channel, const Moment& now) {
  Text rows;
  for (const TopicChange& change : channel.topics)
    rows += Row({TimeText(change.local, now.local), change.by, change.topic});
  return Page("История смены тем"_w, "<h1>Темы канала "_w + EscapeHtml(channel.name) +
                                         "</h1>\n<table border=1>\n" + rows + "</table>\n");
}

Text ChannelList(const Chat& chat) {
  Text list = "этот стиль (номер 9) предназначен для роботов\n"_w;
  for (const auto& [key, channel] : chat.channels) {
    list += "\nchannel: " + channel.name + "\n";
    list += "chflags: " + Text(channel.password.empty() ? "" : "+k") + "\n";
    list += "topic: " + WithoutKeys(Topic(channel)) + "\n";
    for (const Member& member : channel.members)
      list += "user: " + member.account->nick + "\t" + FlagsOf(channel, member) + "\n";
  }
  return list;
}

Text SelectionPage(const Chat& chat, const Visitor& visitor) {
  Text rows;
  for (const auto& [key, channel] : chat.channels) {
    Visitor there = visitor;
    there.channel = channel.name;
    rows += "<li>" + Link("/room", there, channel.name) + " (" +
            std::to_string(channel.members.size()) + ")\n";
  }
  return "<HTML>\n<HEAD>\n<TITLE>Select/Create channel</TITLE>\n</HEAD>\n<BODY>\n"
         "<h1>" +
         "Каналы"_w + "</h1>\n<ul>\n" + rows +
         "</ul>\n<form method=\"get\" action=\"/room\" target=\"_top\">\n" +
         Hidden("username", visitor.nick) + Hidden("ticket", visitor.ticket) +
         "<input name=\"channel\">\n<input type=\"submit\">\n</form>\n</BODY>\n</HTML>\n";
}

}  // namespace parlorwire::service
