#include "session/nick_colours.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "text/cut.h"
#include "text/letter_case.h"
#include "text/number.h"

namespace parlorwire {
namespace {

Text ColourText(PaneColour colour) {
  return std::to_string(static_cast<std::int32_t>(colour));
}

PaneColour ToColour(std::string_view value) {
  return static_cast<PaneColour>(ToLong(TrimView(value)));
}

Text EntryText(std::string_view nick, PaneColour colour) {
  return Text(nick) + "=" + ColourText(colour);
}

// A nick with a blank in it stands in two pieces: it is looked for in the text.
bool IsInOnePiece(std::string_view nick) {
  return nick.find(' ') == std::string_view::npos;
}

bool IsKept(std::string_view nick) {
  return nick.size() <= kLongestColouredNick;
}

// The text that stands behind the nick and "=" in the nick's first entry.
std::optional<Text> ValueInText(std::string_view text, std::string_view nick) {
  const Position at = InStrNoCase(" " + Text(text), " " + Text(nick) + "=");
  if (at == 0) return std::nullopt;
  Position end = InStr(at, text, " ");
  if (end == 0) end = Len(text) + 1;
  const Position value = at + Len(nick) + 1;
  return Mid(text, value, end - value);
}

Text WithoutEntry(std::string_view text, std::string_view nick, std::string_view value) {
  const Text entry = " " + Text(nick) + "=" + Text(value) + " ";
  return Trim(ReplaceNoCase(" " + Text(text) + " ", entry, " "));
}

Text WithEntryInFront(std::string_view text, std::string_view nick, PaneColour colour) {
  return Trim(EntryText(nick, colour) + " " + Text(text));
}

// Without regard to case, a letter at a time.
class Hash {
 public:
  void Add(char c) {
    value_ = (value_ ^ static_cast<unsigned char>(LowerCase(c))) * 1099511628211U;
  }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

std::uint64_t HashOf(std::string_view text) {
  Hash hash;
  for (const char c : text)
    hash.Add(c);
  return hash.value();
}

// Calls with the hash of each nick that a piece is an entry of: all that stands ahead of a "=".
template <class Call>
void ForEachNick(std::string_view text, const Call& call) {
  Hash hash;
  for (const char c : text.substr(0, kLongestColouredNick + 1)) {
    if (c == '=') call(hash.value());
    hash.Add(c);
  }
}

constexpr std::int64_t kFirstPlace = std::numeric_limits<std::int64_t>::min();

}  // namespace

void NickColours::Index(Pieces::iterator piece) {
  if (!Contains(piece->text, "=")) return;
  ForEachNick(piece->text,
              [&](std::uint64_t hash) { by_nick_.insert({hash, piece->place, piece}); });
  by_text_.insert({HashOf(piece->text), piece->place, piece});
}

void NickColours::Unindex(Pieces::iterator piece) {
  if (!Contains(piece->text, "=")) return;
  ForEachNick(piece->text,
              [&](std::uint64_t hash) { by_nick_.erase({hash, piece->place, piece}); });
  by_text_.erase({HashOf(piece->text), piece->place, piece});
}

void NickColours::Erase(Pieces::iterator piece) {
  Unindex(piece);
  pieces_.erase(piece);
}

void NickColours::Assign(std::string_view text) {
  pieces_.clear();
  by_nick_.clear();
  by_text_.clear();
  front_ = 0;
  std::int64_t place = 0;
  bool more = !text.empty();
  while (more && pieces_.size() < kMostNickColours) {
    const std::size_t blank = text.find(' ');
    const std::string_view words = text.substr(0, blank);
    more = blank != text.npos;
    if (more) text.remove_prefix(blank + 1);
    if (!IsKept(words.substr(0, words.find('=')))) continue;
    Index(pieces_.insert(pieces_.end(), {Text(words), place++, 0, std::nullopt}));
  }
}

Text NickColours::text() const {
  Text text;
  for (const Piece& piece : pieces_) {
    if (&piece != &pieces_.front()) text += ' ';
    text += piece.text;
  }
  return text;
}

std::optional<NickColours::Pieces::iterator> NickColours::Find(std::string_view nick) const {
  if (!IsKept(nick)) return std::nullopt;
  const std::uint64_t hash = HashOf(nick);
  for (auto key = by_nick_.lower_bound({hash, kFirstPlace}); key != by_nick_.end(); ++key) {
    if (key->hash != hash) break;
    ++work_;
    const std::string_view text = key->piece->text;
    if (text.size() > nick.size() && text[nick.size()] == '=' &&
        EqualsNoCase(text.substr(0, nick.size()), nick))
      return key->piece;
  }
  return std::nullopt;
}

PaneColour NickColours::ColourIn(const Piece& entry, std::string_view nick) {
  if (entry.colour && entry.nick_size == nick.size()) return *entry.colour;
  return ToColour(std::string_view(entry.text).substr(nick.size() + 1));
}

std::optional<PaneColour> NickColours::Use(std::string_view nick) {
  if (!IsInOnePiece(nick)) {
    const Text old = text();
    const std::optional<Text> value = ValueInText(old, nick);
    if (!value) return std::nullopt;
    const PaneColour colour = ToColour(*value);
    Assign(WithEntryInFront(WithoutEntry(old, nick, *value), nick, colour));
    return colour;
  }
  const auto entry = Find(nick);
  if (!entry) return std::nullopt;
  const PaneColour colour = ColourIn(**entry, nick);
  MoveToFront(*entry, nick, colour);
  return colour;
}

std::optional<PaneColour> NickColours::Peek(std::string_view nick) const {
  if (!IsInOnePiece(nick)) {
    const std::optional<Text> value = ValueInText(text(), nick);
    return value ? std::optional(ToColour(*value)) : std::nullopt;
  }
  const auto entry = Find(nick);
  return entry ? std::optional(ColourIn(**entry, nick)) : std::nullopt;
}

void NickColours::Prepend(std::string_view nick, PaneColour colour) {
  if (!IsInOnePiece(nick)) {
    Assign(WithEntryInFront(text(), nick, colour));
    return;
  }
  if (!IsKept(nick)) return;
  pieces_.push_front({EntryText(nick, colour), --front_, nick.size(), colour});
  Index(pieces_.begin());
  while (pieces_.size() > kMostNickColours)
    Erase(std::prev(pieces_.end()));
  while (pieces_.back().text.empty())
    pieces_.pop_back();
}

void NickColours::Set(std::string_view nick, PaneColour colour) {
  if (!IsInOnePiece(nick)) {
    Text rest = text();
    if (const auto value = ValueInText(rest, nick)) rest = WithoutEntry(rest, nick, *value);
    Assign(WithEntryInFront(rest, nick, colour));
    return;
  }
  const auto entry = Find(nick);
  if (entry)
    MoveToFront(*entry, nick, colour);
  else
    Prepend(nick, colour);
}

void NickColours::MoveToFront(Pieces::iterator entry, std::string_view nick, PaneColour colour) {
  DropEqualsOf(entry);
  Unindex(entry);
  Pieces taken;
  taken.splice(taken.end(), pieces_, entry);
  while (!pieces_.empty() && pieces_.front().text.empty())
    pieces_.pop_front();
  while (!pieces_.empty() && pieces_.back().text.empty())
    pieces_.pop_back();

  *entry = {EntryText(nick, colour), --front_, nick.size(), colour};
  pieces_.splice(pieces_.begin(), taken);
  Index(entry);
}

void NickColours::DropEqualsOf(Pieces::iterator entry) {
  const Text& text = entry->text;
  const std::uint64_t hash = HashOf(text);
  // An entry shares its blanks with its neighbours, so one that follows a dropped one at once
  // stays.
  auto last_dropped = entry;
  std::vector<Pieces::iterator> dropped;
  for (auto key = by_text_.upper_bound({hash, entry->place}); key != by_text_.end(); ++key) {
    if (key->hash != hash) break;
    ++work_;
    if (!EqualsNoCase(key->piece->text, text) || std::prev(key->piece) == last_dropped) continue;
    last_dropped = key->piece;
    dropped.push_back(last_dropped);
  }
  for (const auto piece : dropped)
    Erase(piece);
}

}  // namespace parlorwire
