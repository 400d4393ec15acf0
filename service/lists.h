// What is told of channels: who is on one, whom it keeps out, who rules it, what it was about, and
// which there are; as the robots read it, and as pages for browsers. All Windows-1251.
#pragma once

#include "service/chat.h"
#include "service/markup.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// Who is on a channel, for robots. Form A holds a line a user, "nick|[flags][address:]'status'";
// form B is older, "<tr>" and "address:[flags]nick". Both have two lines, a blank one and another
// line end ahead. A script stands among the users while the reader has personal messages unread.
Text UserFrame(const Channel& channel, const Account& reader, const Visitor& visitor, bool form_b);
// The same as a page, for those who don't read in the robots' style; with a link in place of the
// script.
Text UserPage(const Channel& channel, const Account& reader, const Visitor& visitor);

// Whom the channel keeps out, silences or makes write small letters; why, by whom, and until when.
Text BanListPage(const Channel& channel, const Moment& now);
// Its operators, whether they are there or not.
Text OperatorListPage(const Chat& chat, const Channel& channel);
// Its topics, the oldest first.
Text TopicHistoryPage(const Channel& channel, const Moment& now);

// All channels, their topics and users, for robots: plain text, "channel:", "chflags:", "topic:"
// and "user:" lines.
Text ChannelList(const Chat& chat);
// The same as a page with a form, for those who don't read in the robots' style.
Text SelectionPage(const Chat& chat, const Visitor& visitor);

}  // namespace parlorwire::service
