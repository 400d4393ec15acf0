// Personal messages: kept for both sides until each acknowledges his copy, at most a hundred a
// side. All text is Windows-1251.
#pragma once

#include <cstdint>
#include <string_view>

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

inline constexpr std::string_view kPersonalPage = "/mframe_pm";
inline constexpr std::string_view kPersonalPostPage = "/newmsg_pm";
inline constexpr std::string_view kAcknowledgePage = "/pm_ack";

// Opens a frame of personal messages, with those that wait. `head` goes out ahead of all, in the
// wire's character set; `host` is what the links of the messages name.
Frame& EnterPersonal(Chat& chat, Account& account, const Moment& now, std::string_view head,
                     std::string_view host);

// One line of the personal frame with its LF: "&gt; [time] link nick text", or "&lt; [time] link
// nick: text" for one that was sent. today is the local time at which it is read; of reqnum, any
// number, the link gets eight digits.
Text PresentPersonal(const Account& account, const PersonalMessage& message, std::string_view host,
                     std::int64_t today, std::uint64_t reqnum);

// The text of a personal message as HTML: addresses as links, known smile codes as pictures.
Text PersonalHtml(std::string_view text);

// The address of a nick's personal frame, with its query.
Text PersonalAddress(std::string_view nick, const Text& ticket);

// Sends a message, cut at 4000 characters; control characters become blanks. A receiver who has no
// personal frame is told of it on the channels that he reads. The result is the sentence to answer
// with; it tells why, if nothing was sent.
Text SendPersonal(Chat& chat, Account& from, const Text& to, const Text& text, const Moment& now);

// Forgets the message of that number. False if there is no such message.
bool Acknowledge(Account& account, std::int64_t number);

// Whether a received message waits.
bool HasUnread(const Account& account);

// Whether one waits that the nick has not been told of by a frame. He is, with this.
bool TakeUntold(Account& account);

// What a personal frame begins with, up to the line end behind which the messages stand.
Text PersonalHead(std::string_view title);

}  // namespace parlorwire::service
