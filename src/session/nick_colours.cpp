#include "session/nick_colours.h"

#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <utility>

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

// Whether the nick can be looked up by the text ahead of an entry's first "=".
bool IsPlain(std::string_view nick) {
  return nick.find_first_of(" =") == std::string_view::npos;
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
  return Trim(Text(nick) + "=" + ColourText(colour) + " " + Text(text));
}

}  // namespace

std::size_t NickColours::HashNoCase::operator()(std::string_view nick) const {
  std::size_t hash = 14695981039346656037U;
  for (const char c : nick)
    hash = (hash ^ static_cast<unsigned char>(LowerCase(c))) * 1099511628211U;
  return hash;
}

void NickColours::Assign(std::string_view text) {
  pieces_.clear();
  entries_.clear();
  if (text.empty()) return;
  for (const std::string_view words : Split(text, " ")) {
    Piece& piece = pieces_.emplace_back();
    const std::size_t equals = words.find('=');
    piece.nick = words.substr(0, equals);
    if (equals == std::string_view::npos) continue;
    piece.has_value = true;
    piece.value = words.substr(equals + 1);
    entries_[piece.nick].push_back(std::prev(pieces_.end()));
  }
}

Text NickColours::text() const {
  Text text;
  for (const Piece& piece : pieces_) {
    if (&piece != &pieces_.front()) text += ' ';
    text += piece.nick;
    if (piece.has_value) text.append("=").append(piece.value);
  }
  return text;
}

std::optional<PaneColour> NickColours::Use(std::string_view nick) {
  if (!IsPlain(nick)) {
    const Text old = text();
    const std::optional<Text> value = ValueInText(old, nick);
    if (!value) return std::nullopt;
    const PaneColour colour = ToColour(*value);
    Assign(WithEntryInFront(WithoutEntry(old, nick, *value), nick, colour));
    return colour;
  }

  const auto found = entries_.find(nick);
  if (found == entries_.end()) return std::nullopt;
  const Piece& entry = *found->second.front();
  const PaneColour colour = entry.colour ? *entry.colour : ToColour(entry.value);
  MoveToFront(found->second, nick, colour);
  return colour;
}

std::optional<PaneColour> NickColours::Peek(std::string_view nick) const {
  if (!IsPlain(nick)) {
    const std::optional<Text> value = ValueInText(text(), nick);
    return value ? std::optional(ToColour(*value)) : std::nullopt;
  }
  const auto found = entries_.find(nick);
  if (found == entries_.end()) return std::nullopt;
  const Piece& entry = *found->second.front();
  return entry.colour ? *entry.colour : ToColour(entry.value);
}

void NickColours::Prepend(std::string_view nick, PaneColour colour) {
  if (!IsPlain(nick)) {
    Assign(WithEntryInFront(text(), nick, colour));
    return;
  }
  pieces_.push_front({Text(nick), true, ColourText(colour), colour});
  while (pieces_.back().IsBlank())
    pieces_.pop_back();
  Entries& entries = entries_[Text(nick)];
  entries.insert(entries.begin(), pieces_.begin());
}

void NickColours::Set(std::string_view nick, PaneColour colour) {
  if (!IsPlain(nick)) {
    Text rest = text();
    if (const auto value = ValueInText(rest, nick)) rest = WithoutEntry(rest, nick, *value);
    Assign(WithEntryInFront(rest, nick, colour));
    return;
  }
  const auto found = entries_.find(nick);
  if (found == entries_.end())
    Prepend(nick, colour);
  else
    MoveToFront(found->second, nick, colour);
}

void NickColours::MoveToFront(Entries& entries, std::string_view nick, PaneColour colour) {
  DropEqualsOfFirst(entries);
  const Pieces::iterator entry = entries.front();
  Pieces taken;
  taken.splice(taken.end(), pieces_, entry);
  while (!pieces_.empty() && pieces_.front().IsBlank())
    pieces_.pop_front();
  while (!pieces_.empty() && pieces_.back().IsBlank())
    pieces_.pop_back();

  entry->nick = nick;
  if (entry->colour != colour) entry->value = ColourText(colour);
  entry->colour = colour;
  pieces_.splice(pieces_.begin(), taken);
}

void NickColours::DropEqualsOfFirst(Entries& entries) {
  if (entries.size() == 1) return;
  // An entry shares its blanks with its neighbours, so one that follows a dropped one at once
  // stays.
  Pieces::iterator last_dropped = entries.front();
  Entries dropped;
  Entries kept = {entries.front()};
  for (const Pieces::iterator entry : std::span(entries).subspan(1)) {
    const bool drop =
        EqualsNoCase(entry->value, entries.front()->value) && std::prev(entry) != last_dropped;
    (drop ? dropped : kept).push_back(entry);
    if (drop) last_dropped = entry;
  }
  for (const Pieces::iterator entry : dropped)
    pieces_.erase(entry);
  entries = std::move(kept);
}

}  // namespace parlorwire
