// What the service answers to each address: from a whole request to the bytes of an answer, header
// and body, in the wire's character set.
#pragma once

#include <optional>
#include <string>

#include "service/chat.h"
#include "service/moment.h"
#include "service/request_reader.h"

namespace parlorwire::service {

// Either an answer that ends, or a frame of the chat, whose bytes come in its `out`.
struct Answer {
  std::string bytes;
  std::optional<FrameId> frame;
};

// Where a request comes from: who a trusted proxy says that it asks for, else the peer alone.
Origin OriginOf(const ChatOptions& options, const std::string& peer, const Request& request);

// Whether an address is a proxy's whose word is taken.
bool IsTrusted(const ChatOptions& options, const std::string& address);

// Does what a whole request asks for.
Answer Handle(Chat& chat, const Request& request, const Origin& origin, const Moment& now);

// An answer that tells of a failure: a status from 400 on.
std::string ErrorAnswer(int status);

}  // namespace parlorwire::service
