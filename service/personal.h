// Personal messages: kept for both sides until each acknowledges his copy.
#pragma once

#include "service/chat.h"

namespace parlorwire::service {

inline constexpr std::string_view kPersonalPage = "/mframe_pm";
inline constexpr std::string_view kAcknowledgePage = "/pm_ack";

// One line of the personal frame, Windows-1251, with its LF:
// "&gt; [time] link nick text", or "&lt; [time] link nick: text" for one that was sent.
Text PresentPersonal(const Account& account, const PersonalMessage& message, std::string_view host,
                     std::int64_t today, std::uint64_t reqnum);

// The text of a personal message as HTML: addresses as links, known smile codes as pictures.
Text PersonalHtml(std::string_view text);

// Sends a message. The result is the sentence to answer with.
Text SendPersonal(Chat& chat, Account& from, const Text& to, const Text& text, const Moment& now);

// Forgets a message. False if there is no such message.
bool Acknowledge(Account& account, std::int64_t number);

// Whether a received message waits.
bool HasUnread(const Account& account);

}  // namespace parlorwire::service
