// A line of a channel, as the chat knows it. How it looks on the wire is the presentation's affair.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace parlorwire::service {

enum class LineForm {
  kMessage,    // nick says text in a tone
  kAction,     // text tells what somebody does; it names him itself
  kOperators,  // nick says text to the operators
  kSystem,     // text tells what happened on the channel; its first word is a nick
};

struct Line {
  std::int64_t local = 0;  // when, in seconds of the local wall clock
  LineForm form = LineForm::kSystem;
  Text nick;
  Text tone;  // without brackets; "" is the ordinary one
  Text text;  // not escaped
};

// The tone of a post's "action": 201 to 206; any other number is the ordinary tone.
Text ToneOfAction(std::string_view action);

}  // namespace parlorwire::service
