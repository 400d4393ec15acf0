#include "display/parse_chat_line.h"

#include <cstdint>

#include "display/text_out.h"
#include "session/client.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr Position kEchoMark = 5;  // a blank and four characters, as in " ### "

// As Mid, without a copy.
std::string_view Cut(std::string_view text, Position start, Position count) {
  if (count < 0) throw Fault(fault::kInvalidCall);
  if (start > Len(text)) return {};
  return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count));
}

std::string_view From(std::string_view text, Position start) {
  return Cut(text, start, Len(text));
}

char CharAt(std::string_view text, Position at) {
  return at <= Len(text) ? text[static_cast<std::size_t>(at - 1)] : '\0';
}

// What a message says, from the text behind the colon: "() hello", or "(quietly) hello" whose
// intonation stays.
Text MessageText(std::string_view behind_colon) {
  if (behind_colon.starts_with("()")) return Trim(behind_colon.substr(2));
  const Position bracket = InStr(behind_colon, ")");
  Text text(Cut(behind_colon, 1, bracket));
  return text.append(" ").append(TrimView(From(behind_colon, bracket + 1)));
}

}  // namespace

ChatLine CutChatLine(std::string_view line) {
  ChatLine cut;
  Position pos = 3;
  if (CharAt(line, 3) == '[') {
    const Position bracket = InStr(line, "]");
    cut.time = Cut(line, 3, bracket - 2);
    pos = bracket + 1;
  }
  if (CharAt(line, pos) == ' ') {
    pos += kEchoMark;
    cut.kind = LineKind::kEcho;
  }

  const Position space_at = InStr(pos, line, " ");
  const Position colon_at = InStr(pos, line, ":");
  if (space_at == MinNonZero3(space_at, colon_at, 0)) {
    cut.text = From(line, pos);
    cut.kind = LineKind::kSystem;
    return cut;
  }

  cut.nick = Cut(line, pos, colon_at - pos + 1);
  if (Cut(line, colon_at + 3, 4) == " ***") {
    cut.text = From(line, colon_at + 8);
    cut.kind = LineKind::kAction;
  } else {
    cut.text = MessageText(From(line, colon_at + 1));
  }
  return cut;
}

void ParseChatLine(Client& client, std::string_view line, int tab) {
  const ChatLine cut = CutChatLine(line);
  const std::uint32_t session_number = client.tab(tab).SessionNumber;
  if (cut.kind == LineKind::kSystem) client.hooks.ClientAction(cut.text, tab);
  if (client.tab(tab).SessionNumber != session_number) return;  // events ran in there
  TextOut(client, cut.time, cut.nick, cut.text, cut.kind, tab);
}

}  // namespace parlorwire
