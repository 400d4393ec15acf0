// The lasting colours of nicks: the text of CM.ini, held so that a lookup needs no search.
#pragma once

#include <list>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pane/units.h"
#include "text/cut.h"
#include "text/text.h"

namespace parlorwire {

// Entries of nick, "=" and decimal colour, separated by single blanks, the one used last in front.
// Whatever the text holds beside that stays in it. Nicks compare without case.
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

  // Gives it another text.
  void Assign(std::string_view text);

  // The whole text. Builds it anew at each call.
  Text text() const;

  // The colour of the nick, whose entry moves to the front, spelled as in `nick`; nothing if there
  // is no entry. A value that is no number: Fault 13, too large: Fault 6. A nick with a blank in it
  // that has an entry: Fault 5. A fault leaves the text as it was. Constant cost, unless the nick
  // holds a blank or "=".
  std::optional<PaneColour> Use(std::string_view nick);

  // The same, faults and all, without moving anything.
  std::optional<PaneColour> Peek(std::string_view nick) const;

  // Puts an entry in front, without a look at what is there.
  void Prepend(std::string_view nick, PaneColour colour);

  // Takes out the nick's entry, whatever its value, and puts the new one in front. A nick with a
  // blank in it that has an entry: Fault 5.
  void Set(std::string_view nick, PaneColour colour);

 private:
  // What stands between two blanks; blank itself where two blanks meet.
  struct Piece {
    Text nick;  // what is ahead of the first "=", or the whole piece
    bool has_value = false;
    Text value;                        // behind the first "="
    std::optional<PaneColour> colour;  // if known; `value` is then its plain decimal form

    bool IsBlank() const { return nick.empty() && !has_value; }
  };
  using Pieces = std::list<Piece>;
  using Entries = std::vector<Pieces::iterator>;  // of one nick, in the order of the text
  struct HashNoCase {
    using is_transparent = void;
    std::size_t operator()(std::string_view nick) const;
  };
  struct EqualNoCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return EqualsNoCase(a, b); }
  };

  void MoveToFront(Entries& entries, std::string_view nick, PaneColour colour);
  void DropEqualsOfFirst(Entries& entries);

  Pieces pieces_;
  std::unordered_map<Text, Entries, HashNoCase, EqualNoCase> entries_;  // never an empty list
};

}  // namespace parlorwire
