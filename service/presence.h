// Who comes to a channel and who goes, and what time brings about by itself.
#pragma once

#include <cstdint>
#include <string_view>

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

// Opens a frame on a channel, which comes into being with its first member; he is its operator. An
// older frame of the nick there is ejected. None if the nick or the address is banned, the name not
// allowed or the password wrong. `head` goes out ahead of all, in the wire's character set.
Frame* Enter(Chat& chat, Account& account, const Text& channel, const Text& password,
             const Origin& origin, const Moment& now, std::string_view head);

// Puts an inhabitant, who has no frame, on a channel, where he operates or not. Nothing happens if
// he is there already, or kept out. Who has no address hides it.
void Settle(Chat& chat, Account& account, const Text& channel, const Origin& origin, bool oper,
            bool announced, const Moment& now);

// Takes a member off a channel: his frame ends in the way told, the others read that he left. A
// channel that nobody is on is forgotten then; a permanent one forgets who ruled it, and whom it
// kept out.
void PartMember(Chat& chat, Channel& channel, std::string_view nick, FrameEnd end,
                const Moment& now);

// The nick leaves a channel. Nothing happens if it isn't there.
void Leave(Chat& chat, Account& account, const Text& channel, const Moment& now);

// The nick leaves all channels; its frames end, and its tickets are void.
void LogOff(Chat& chat, Account& account, const Moment& now);

// The connection of a frame is gone: the frame is forgotten, and its nick stays on the channel for
// ChatOptions::grace_ms.
void FrameIsGone(Chat& chat, FrameId id, const Moment& now);

// Ends what has run its time: presences without a frame, kicks, mutes; and keeps quiet frames
// alive.
void Advance(Chat& chat, const Moment& now);

// When Advance has something to do again, in ms; kForever if never.
std::int64_t NextAdvance(const Chat& chat);

}  // namespace parlorwire::service
