// A line of a channel, as the chat knows it. How it looks on the wire is the presentation's affair.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

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

// A tone in which a message can be said.
struct Tone {
  std::string_view action;  // the number that stands for it in a post
  std::string_view name;    // as it stands in brackets behind the nick
};

// All but the ordinary one.
inline constexpr std::array<Tone, 6> kTones = {{
    {"201", W<"внутренним голосом">},
    {"202", W<"смеется">},
    {"203", W<"задумчиво">},
    {"204", W<"уныло">},
    {"205", W<"напевает">},
    {"206", W<"ворчливо">},
}};

// The tone of a post's "action"; "", the ordinary one, for any text that is none of the numbers.
Text ToneOfAction(std::string_view action);

}  // namespace parlorwire::service
