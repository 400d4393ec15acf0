#include "support/frame_witness.h"

#include <algorithm>

#include "support/pane_runs.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kWords = W<" раз < два & три">;
constexpr std::string_view kWordsEscaped = W<" раз &lt; два &amp; три">;
constexpr std::size_t kDigits = 8;

bool AllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "[time] nick: #00000001 ..." for a line of the wire that is just that; else "".
Text ShownLine(std::string_view line) {
  if (line.size() < 3 || line[2] != '[') return {};
  const auto bracket = line.find(']');
  const auto sign = line.find(":() #", bracket);
  if (bracket == std::string_view::npos || sign == std::string_view::npos) return {};
  const std::string_view nick = line.substr(bracket + 1, sign - bracket - 1);
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
  if (nick.empty() || nick.find_first_not_of(kLetters) != std::string_view::npos) return {};
  const std::string_view digits = line.substr(sign + 5, kDigits);
  if (digits.size() != kDigits || !AllDigits(digits)) return {};
  if (line.substr(sign + 5 + kDigits) != kWordsEscaped) return {};
  const std::string_view time = line.substr(2, bracket - 1);
  if (time.find_first_not_of("0123456789:/ ", 1) != time.size() - 1) return {};
  return Text(time) + " " + Text(nick) + ": #" + Text(digits) + Text(kWords);
}

}  // namespace

Text NumberedLine(int number) {
  const Text digits = std::to_string(number);
  return "#" + Text(kDigits - digits.size(), '0') + digits + Text(kWords);
}

LineCounts CountNumbered(std::string_view text) {
  LineCounts counts;
  for (std::size_t at = text.find(": #"); at != std::string_view::npos;
       at = text.find(": #", at + 1)) {
    const std::size_t words = at + 3 + kDigits;
    if (text.size() < words || !AllDigits(text.substr(at + 3, kDigits))) continue;
    if (text.substr(words, kWords.size()) != kWords) continue;
    // The line ends there, or a verdict was put behind it.
    const std::string_view behind = text.substr(words + kWords.size(), 6);
    if (!behind.starts_with("\r") && !behind.starts_with(" Ok.") && !behind.starts_with(W<" Ошиб">))
      continue;
    const std::size_t start = text.rfind('[', at);
    if (start == std::string_view::npos || at - start > 60) continue;
    // A line begins there, or a status was left open ahead of it.
    std::string_view ahead = text.substr(0, start);
    while (ahead.ends_with('<') || ahead.ends_with('>'))
      ahead.remove_suffix(1);
    if (!ahead.empty() && !ahead.ends_with('\n') && !ahead.ends_with("...")) continue;
    ++counts[Text(text.substr(start, words + kWords.size() - start))];
  }
  return counts;
}

void Add(const LineCounts& counts, LineCounts& sum) {
  for (const auto& [line, count] : counts)
    sum[line] += count;
}

Text Difference(const LineCounts& expected, const LineCounts& found) {
  Text difference;
  for (const auto& [line, count] : expected) {
    const auto there = found.find(line);
    const int times = there == found.end() ? 0 : there->second;
    if (times != count)
      difference += std::to_string(times) + " instead of " + std::to_string(count) + ": " +
                    ToUtf8(line) + "\n";
  }
  for (const auto& [line, count] : found)
    if (!expected.contains(line)) difference += "never sent: " + ToUtf8(line) + "\n";
  return difference;
}

void FrameWitness::Begin() {
  *this = FrameWitness();
}

std::vector<Text> FrameWitness::Chunk(std::string_view bytes) {
  Text data = DecodeKoi(Text(bytes));
  if (!reading_ && (data.starts_with("HTTP/1.0 200") || data.starts_with("HTTP/1.1 200"))) {
    const auto head_end = data.find("\r\n\r\n");
    if (head_end != Text::npos) data.erase(0, head_end + 3);
  }
  if (deaf_ || data == "<hr>----- Аварийное катапультирование ----<hr>"_w) return {};
  if (data == "\n" || data.find('\n') == Text::npos) {
    carry_ += data;
    return {};
  }
  data.insert(0, carry_);
  carry_.clear();
  if (!reading_) {
    reading_ = data.starts_with("\n<pre>");
    deaf_ = !reading_;
  }
  return deaf_ ? std::vector<Text>() : ReadLines(data);
}

std::vector<Text> FrameWitness::ReadLines(std::string_view data) {
  std::vector<Text> shown;
  const auto rest = data.rfind('\n') + 1;
  carry_ = data.substr(rest);
  for (std::string_view line : Split(data.substr(0, rest), "\n")) {
    if (LCase(line).starts_with("<b><font color=")) break;
    if (LCase(line).starts_with("<script")) in_script_ = true;
    if (LCase(line) == "<script language=\"javascript\">") break;
    if (line.starts_with("</script>")) {
      in_script_ = false;
      line.remove_prefix(9);
    }
    if (in_script_) continue;
    if (Text said = ShownLine(line); !said.empty()) shown.push_back(std::move(said));
  }
  return shown;
}

}  // namespace parlorwire
