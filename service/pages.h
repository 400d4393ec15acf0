// The pages that end: forms, lists, answers. Pure functions from what the chat knows to text in
// Windows-1251; the header and the wire's character set come in the site.
#pragma once

#include "service/chat.h"

namespace parlorwire::service {

// What identifies a visitor in the links of a page.
struct Visitor {
  Text nick;
  Text ticket;
  Text channel;
  Text password;  // of the channel
};

// "username=...&channel=...&chpwd=...&ticket=...", ready for an address.
Text VisitorQuery(const Visitor& visitor);

Text LoginPage();
// Holds a link that ends in "&ticket=VALUE'".
Text WelcomePage(const Visitor& visitor);
// Title "error auth page".
Text WrongPasswordPage();
// Title "authorization failed!".
Text RefusedPage();
// The frames of a channel for a browser.
Text RoomPage(const Visitor& visitor);
// The form that posts a message; the sentence stands in "<font size=1>".
Text PostPage(const Visitor& visitor, std::string_view sentence);
Text PersonalPostPage(const Visitor& visitor, std::string_view sentence);
Text GoodbyePage(std::string_view nick);
Text ErrorPage(int status);
Text RulesPage();
Text BanListPage(const Channel& channel, const Moment& now);
Text OperatorListPage(const Chat& chat, const Channel& channel);
Text TopicHistoryPage(const Channel& channel, const Moment& now);
Text NoSuchChannelPage(std::string_view name);

// Who is on a channel. Form A holds a line a user, "nick|[flags][address:]'status'"; form B is
// older,
// "<tr>" and "address:[flags]nick". Both have two lines, a blank one and another line end ahead.
Text UserFrame(const Chat& chat, const Channel& channel, const Account& reader, bool form_b);
// The same as a page, for those who don't read in the robots' style.
Text UserPage(const Chat& chat, const Channel& channel, const Visitor& visitor);

// All channels, their topics and users, in the robots' style: "channel:", "chflags:", "topic:" and
// "user:" lines.
Text ChannelList(const Chat& chat);
// The same as a page with a form, for those who don't read in the robots' style.
Text SelectionPage(const Chat& chat, const Visitor& visitor);

}  // namespace parlorwire::service
