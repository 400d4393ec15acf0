// The lasting colours of nicks: the text of CM.ini, held so that a lookup needs no search.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <set>
#include <string_view>

#include "pane/units.h"
#include "text/text.h"

namespace parlorwire {

// The most that the table keeps: pieces of text between two blanks, the front ones; and characters
// of a nick. A longer nick has no entry.
inline constexpr std::size_t kMostNickColours = 20000;
inline constexpr std::size_t kLongestColouredNick = 64;

// Entries of nick, "=" and decimal colour, separated by single blanks, the one used last in front.
// Whatever the text holds beside that stays in it, within those bounds. Nicks compare without case.
//
// An entry of a nick is what stands between a blank (or the text's start) with nick and "=" behind
// it, and the next blank. Only the first entry of a nick is ever found. Taking it out takes every
// equal entry along, but for one that stands directly behind an equal one that went.
class NickColours {
 public:
  NickColours() = default;
  explicit NickColours(std::string_view text) { Assign(text); }
  NickColours(const NickColours&) = delete;
  NickColours& operator=(const NickColours&) = delete;

  // Gives it another text, of which it takes what it keeps.
  void Assign(std::string_view text);

  // The whole text. Builds it anew at each call.
  Text text() const;

  // The colour of the nick, whose entry moves to the front, spelled as in `nick`; nothing if there
  // is no entry. A value that is no number: Fault 13, too large: Fault 6. A nick with a blank in it
  // that has an entry: Fault 5. A fault leaves the text as it was. Does not cost more the more
  // entries there are, unless the nick holds a blank.
  std::optional<PaneColour> Use(std::string_view nick);

  // The same, faults and all, without moving anything.
  std::optional<PaneColour> Peek(std::string_view nick) const;

  // Puts an entry in front, without a look at what is there. What the table has no room for goes
  // from its end.
  void Prepend(std::string_view nick, PaneColour colour);

  // Takes out the nick's entry, whatever its value, and puts the new one in front. A nick with a
  // blank in it that has an entry: Fault 5.
  void Set(std::string_view nick, PaneColour colour);

  // How many pieces were looked at to find and to move entries, for tests of what it costs.
  std::uint64_t work() const { return work_; }

 private:
  // What stands between two blanks; empty where two blanks meet.
  struct Piece {
    Text text;
    std::int64_t place = 0;            // grows from the front to the end
    std::size_t nick_size = 0;         // of the nick whose colour this is, if that is known:
    std::optional<PaneColour> colour;  // the rest of the text is then "=" and its decimal form
  };
  using Pieces = std::list<Piece>;
  // A piece under the hash of a text that it is found by, in the order of the table.
  struct Key {
    std::uint64_t hash = 0;
    std::int64_t place = 0;
    Pieces::iterator piece{};
    bool operator<(const Key& other) const {
      return hash != other.hash ? hash < other.hash : place < other.place;
    }
  };

  std::optional<Pieces::iterator> Find(std::string_view nick) const;  // the first entry
  void MoveToFront(Pieces::iterator entry, std::string_view nick, PaneColour colour);
  void DropEqualsOf(Pieces::iterator entry);
  void Index(Pieces::iterator piece);
  void Unindex(Pieces::iterator piece);
  void Erase(Pieces::iterator piece);

  static PaneColour ColourIn(const Piece& entry, std::string_view nick);

  Pieces pieces_;
  std::set<Key> by_nick_;   // under all that stands ahead of a "="
  std::set<Key> by_text_;   // under the whole text, if it holds a "="
  std::int64_t front_ = 0;  // the place of the first piece
  mutable std::uint64_t work_ = 0;
};

}  // namespace parlorwire
