#include "display/pointed_line.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "pane/rich_text_box.h"
#include "pane/search.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kEcho = "###";
constexpr std::string_view kJump = W<"Перейти">;
constexpr std::array<std::string_view, 4> kPersonalNotices = {
    W<"персональное_сообщение!">, W<"Вам пришло персональное_сообщение!">, "personal_message!",
    "You have a personal_message!"};

PaneRange Range(std::size_t start, std::size_t end) {
  return {static_cast<PanePosition>(start), static_cast<PanePosition>(end)};
}

bool LineEndsAt(const RichTextBox& pane, PanePosition position) {
  return position >= 2 && pane.TextBetween(position - 2, position) == kLineEnd;
}

// A line of the pane also ends at a lone LF, where a line of the chat goes on.
PaneRange LineAround(const RichTextBox& pane, PanePosition at) {
  const PaneLine piece = pane.LineByIndex(pane.LineAt(at));
  PaneRange line{piece.start, piece.start + piece.length};
  if (line.start > 0 && !LineEndsAt(pane, line.start)) {
    const auto end_before = FindBackwards(pane, kLineEnd, line.start - 2, LetterCase::kCounts);
    line.start = end_before ? *end_before + 2 : 0;
  }
  if (piece.next > line.end && !LineEndsAt(pane, piece.next))
    line.end =
        FindForwards(pane, kLineEnd, piece.next, LetterCase::kCounts).value_or(pane.Length());
  return line;
}

}  // namespace

std::optional<PointedLine> LineUnder(const RichTextBox& pane, PanePosition at) {
  const PaneRange line = LineAround(pane, at);
  if (at < line.start || at >= line.end) return std::nullopt;
  return PointedLine{line.start, pane.TextBetween(line.start, line.end), at - line.start};
}

PaneRange WordUnder(const PointedLine& line) {
  const std::string_view text = line.text;
  const auto at = static_cast<std::size_t>(line.at);
  const std::size_t blank = text.rfind(' ', at);
  return Range(blank == Text::npos ? 0 : blank + 1, std::min(text.find(' ', at), text.size()));
}

PaneRange NickOf(const PointedLine& line) {
  const std::string_view text = line.text;
  std::size_t ahead = text.find(' ');
  if (ahead == Text::npos || ahead == 0) return {};
  std::size_t behind = text.find(' ', ahead + 1);
  if (behind != Text::npos && text[behind - 1] == ']') {
    ahead = behind;
    behind = text.find(' ', ahead + 1);
  }
  if (behind == Text::npos) return {};
  const std::string_view token = text.substr(ahead + 1, behind - ahead - 1);
  if (token == kEcho) return Range(behind + 1, std::min(text.find(' ', behind + 1), text.size()));
  return token.ends_with(':') ? Range(ahead + 1, behind) : PaneRange{};
}

PaneRange TimeOf(const PointedLine& line) {
  const std::string_view text = line.text;
  const std::size_t open = text.find('[');
  if (open == Text::npos) return {};
  constexpr std::string_view kAhead = "><\r\n";
  const bool begins = open == 0 || kAhead.find(text[open - 1]) != Text::npos;
  const std::size_t close = text.find(']', open);
  return begins && close != Text::npos ? Range(open, close + 1) : PaneRange{};
}

bool IsJump(const PointedLine& line) {
  return line.text == kJump;
}

bool IsPersonalNotice(const PointedLine& line) {
  const std::size_t time_end = line.text.find(']');
  if (time_end == Text::npos) return false;
  const std::string_view rest = TrimView(std::string_view(line.text).substr(time_end + 1));
  return std::ranges::find(kPersonalNotices, rest) != kPersonalNotices.end();
}

}  // namespace parlorwire
