// The lists in the forms that robots read: users of a channel, channels of the chat.
#include <array>

#include "service/form.h"
#include "service/pages.h"
#include "service/personal.h"
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

Text UserLine(const Chat& chat, const Channel& channel, const Member& member, bool form_b) {
  const Text nick = EscapeHtml(member.account->nick);
  const Text flags = FlagsOf(chat, channel, member);
  if (form_b) return "<tr>\n" + member.address + ":" + flags + nick + "\n";
  const Text address = member.address.empty() ? Text() : member.address + ":";
  const Text status = Replace(EscapeHtml(member.account->status), "'", "");
  return nick + "|" + flags + "[" + address + "]'" + status + "'\n";
}

}  // namespace

Text UserFrame(const Chat& chat, const Channel& channel, const Account& reader, bool form_b) {
  Text frame = "<title>users</title>\n";
  frame += reader.timer ? "<meta http-equiv=\"refresh\" content=\"60\">\n" : "<!-- -->\n";
  frame += "\n\n";
  // The first characters of form B are "<tr>", so its script comes last.
  const Text signal = HasUnread(reader) ? PersonalSignal(kPersonalPage) : Text();
  if (!form_b) frame += signal;
  for (const Member& member : channel.members)
    frame += UserLine(chat, channel, member, form_b);
  if (form_b) frame += signal;
  return frame;
}

Text UserPage(const Chat& chat, const Channel& channel, const Visitor& visitor) {
  Text rows;
  for (const Member& member : channel.members)
    rows += "<li><b>" + EscapeHtml(member.account->nick) + "</b> " +
            FlagsOf(chat, channel, member) + " " + EscapeHtml(member.address) + " " +
            EscapeHtml(member.account->status) + "\n";
  const Text refresh = "<meta http-equiv=\"refresh\" content=\"30\">\n";
  return "<html>\n<head>\n<title>users</title>\n" + refresh + "</head>\n<body>\n<h3>" +
         EscapeHtml(channel.name) + "</h3>\n<ul>\n" + rows + "</ul>\n<a href='/banlist?" +
         VisitorQuery(visitor) + "'>bans</a>\n<a href='/oplist?" + VisitorQuery(visitor) +
         "'>opers</a>\n<a href='/topic_hist?" + VisitorQuery(visitor) +
         "'>topics</a>\n</body>\n</html>\n";
}

Text ChannelList(const Chat& chat) {
  Text list = "этот стиль (номер 9) предназначен для роботов\n"_w;
  for (const auto& [key, channel] : chat.channels) {
    list += "\nchannel: " + channel.name + "\n";
    list += "chflags: " + Text(channel.password.empty() ? "" : "+k") + "\n";
    list += "topic: " + WithoutKeys(Topic(channel)) + "\n";
    for (const Member& member : channel.members)
      list += "user: " + member.account->nick + "\t" + FlagsOf(chat, channel, member) + "\n";
  }
  return list;
}

}  // namespace parlorwire::service
