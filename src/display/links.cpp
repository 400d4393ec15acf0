#include "display/links.h"

#include <algorithm>

#include "session/client.h"
#include "session/writer_selection.h"
#include "text/cut.h"
#include "text/letter_case.h"

namespace parlorwire {
namespace {

constexpr std::string_view kStopCharacters = ".,!?<>'\"()[]{}:;";
constexpr PaneColour kLinkColour = 255;
constexpr std::size_t kLongestMask = 15;

// From behind the blank to the next one.
std::string_view WordBehind(std::string_view text, std::size_t blank) {
  const std::string_view rest = text.substr(blank + 1);
  const std::string_view word = rest.substr(0, rest.find(' '));
  return word.substr(0, word.find_last_not_of(kStopCharacters) + 1);
}

constexpr bool IsMaskCharacter(char c) {
  return (c >= '0' && c <= '9') || c == '*' || c == '?';
}

// Whether a link or a mask may begin with the character, so that most words are passed over at
// once.
consteval std::array<bool, 256> MakeBeginnings() {
  std::array<bool, 256> table{};
  for (unsigned c = 0; c < 256; ++c) {
    const char character = static_cast<char>(c);
    table[c] = IsMaskCharacter(character);
    for (const LinkMarker& marker : kLinkMarkers)
      table[c] = table[c] || LowerCase(character) == marker.text.front();
  }
  return table;
}
constexpr std::array<bool, 256> kBeginnings = MakeBeginnings();

bool MayHaveLinks(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i)
    if (text[i - 1] == ' ' && kBeginnings[static_cast<unsigned char>(text[i])]) return true;
  return false;
}

const LinkMarker* MarkerBehind(std::string_view text, std::size_t blank) {
  const std::string_view rest = text.substr(blank + 1);
  if (rest.empty()) return nullptr;
  const char first = LowerCase(rest.front());
  for (const LinkMarker& marker : kLinkMarkers)
    if (marker.text.front() == first && StartsWithNoCase(rest, marker.text)) return &marker;
  return nullptr;
}

bool IsLink(std::string_view word, const LinkMarker& marker) {
  if (marker.is_scheme) return word.size() > marker.text.size();
  return std::ranges::count(word, '.') >= 2;  // a host of at least three parts
}

bool IsAddressMask(std::string_view word) {
  if (word.size() > kLongestMask) return false;
  int groups = 1;
  int length = 0;
  for (const char c : word) {
    if (IsMaskCharacter(c)) {
      if (++length > 3) return false;
    } else {
      if (c != '.' || length == 0) return false;
      ++groups;
      length = 0;
    }
  }
  return groups == 4 && length > 0;
}

void MakeLink(Client& client, const MarkedWord& found, PanePosition base, int tab) {
  const PanePosition start = static_cast<PanePosition>(found.blank) + base;
  SelectPaneEnd(client, start, start + Len(found.word), tab);
  RichTextBox& pane = client.tab(tab).Rich;
  pane.SelUnderline(true);
  pane.SelColor(kLinkColour);
  pane.SelBold(true);
}

}  // namespace

std::optional<MarkedWord> NextMarkedWord(std::string_view text, std::size_t from) {
  for (std::size_t at = text.find(' ', from); at != text.npos; at = text.find(' ', at + 1))
    if (const LinkMarker* marker = MarkerBehind(text, at))
      return MarkedWord{at, WordBehind(text, at), marker};
  return std::nullopt;
}

std::optional<MarkedWord> NextLink(std::string_view text, std::size_t from) {
  auto found = NextMarkedWord(text, from);
  while (found && !IsLink(found->word, *found->marker))
    found = NextMarkedWord(text, found->blank + 1);
  return found;
}

std::optional<MarkedWord> NextAddressMask(std::string_view text, std::size_t from) {
  for (std::size_t at = text.find(' ', from); at != text.npos; at = text.find(' ', at + 1)) {
    if (at + 1 == text.size() || !IsMaskCharacter(text[at + 1])) continue;
    const std::string_view word = WordBehind(text, at);
    if (IsAddressMask(word)) return MarkedWord{at, word, nullptr};
  }
  return std::nullopt;
}

void WriteLinks(Client& client, std::string_view piece, PanePosition base, int tab,
                bool hover_only) {
  RichTextBox& pane = client.tab(tab).Rich;
  if (!MayHaveLinks(piece)) {
    pane.MousePointer(PanePointer::kArrow);
    return;
  }
  for (auto link = NextLink(piece, 0); link; link = NextLink(piece, link->blank + 1)) {
    if (hover_only) {
      pane.MousePointer(PanePointer::kCustom);
      client.app.HoverLink = link->word;
      return;
    }
    MakeLink(client, *link, base, tab);
  }
  for (auto mask = NextAddressMask(piece, 0); mask;
       mask = NextAddressMask(piece, mask->blank + 1)) {
    if (hover_only) {
      pane.MousePointer(PanePointer::kCustom);
      client.app.HoverIP = mask->word;
      return;
    }
    MakeLink(client, *mask, base, tab);
  }
  pane.MousePointer(PanePointer::kArrow);
}

}  // namespace parlorwire
