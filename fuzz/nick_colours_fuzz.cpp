// Calls on the nick colours, on any text: the text, the results and the faults are those of the
// algorithm on the plain text. Input: the table up to the first NUL, then nicks between NULs.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "session/nick_colours.h"
#include "support/fault_of.h"
#include "text/cut.h"
#include "text/number.h"

using namespace parlorwire;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

struct PlainText {
  Text text;

  std::optional<Text> Value(const Text& nick) const {
    const Position at = InStrNoCase(" " + text, " " + nick + "=");
    if (at == 0) return std::nullopt;
    Position end = InStr(at, text, " ");
    if (end == 0) end = Len(text) + 1;
    return Mid(text, at + Len(nick) + 1, end - at - Len(nick) - 1);
  }
  void TakeOut(const Text& nick, const Text& value) {
    text = Trim(ReplaceNoCase(" " + text + " ", " " + nick + "=" + value + " ", " "));
  }
  void Prepend(const Text& nick, PaneColour colour) {
    text = Trim(nick + "=" + std::to_string(static_cast<std::int32_t>(colour)) + " " + text);
  }
  std::optional<PaneColour> Use(const Text& nick) {
    const auto value = Value(nick);
    if (!value) return std::nullopt;
    const auto colour = static_cast<PaneColour>(ToLong(Trim(*value)));
    TakeOut(nick, *value);
    Prepend(nick, colour);
    return colour;
  }
  void Set(const Text& nick, PaneColour colour) {
    if (const auto value = Value(nick)) TakeOut(nick, *value);
    Prepend(nick, colour);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4000) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto parts = Split(input, std::string_view("\0", 1));
  if (parts.empty()) return 0;
  // Longer nicks are left out of the table; what a nick holds may be "=" as well.
  for (const std::string_view words : Split(parts[0], " "))
    if (std::min(words.size(), words.find('=')) > kLongestColouredNick) return 0;
  for (std::size_t i = 1; i < parts.size(); ++i)
    if (parts[i].size() > kLongestColouredNick) return 0;
  PlainText plain{Text(parts[0])};
  NickColours colours(plain.text);
  Check(colours.text() == plain.text);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const Text nick(parts[i]);
    const auto colour = static_cast<PaneColour>(i * 65537);
    if (i % 3 == 0) {
      Check(FaultOf([&] { plain.Set(nick, colour); }) ==
            FaultOf([&] { colours.Set(nick, colour); }));
    } else {
      std::optional<PaneColour> expected;
      std::optional<PaneColour> got;
      const int fault = FaultOf([&] { expected = plain.Use(nick); });
      Check(FaultOf([&] { got = colours.Use(nick); }) == fault);
      Check(got == expected);
      if (fault == 0 && !expected) {
        plain.Prepend(nick, colour);
        colours.Prepend(nick, colour);
      }
    }
    Check(colours.text() == plain.text);
  }
  return 0;
}
