// The users of a channel as the last user frame gave them.
#pragma once

#include <string_view>
#include <unordered_map>

#include "text/cut.h"
#include "text/text.h"

namespace parlorwire {

// One text: each user is CR LF, nick, LF, IP, LF, flags, LF, status. It is searched as plain text,
// so a nick is also found inside a longer one. A place once found is remembered until the text
// changes.
class UserRecords {
 public:
  const Text& text() const { return text_; }
  void Clear();
  void Append(std::string_view nick, std::string_view ip, std::string_view flags,
              std::string_view status);

  // The first place of `what`, without regard to case; 1-based, 0 if there is none.
  Position Find(std::string_view what) const;

  // The flags of the record in whose nick the place `at` lies. "" where the text ends early.
  Text FlagsOfRecord(Position at) const;

  // The same for chat lines, which look from the second character behind a nick of `length` for the
  // next line feed and take the field behind it: the flags of a whole nick and of one that a longer
  // nick ends with, but the address for any other part of a nick. See docs/names.md.
  Text FlagsBehind(Position at, Position length) const;

 private:
  Text text_;
  Text lower_;
  mutable std::unordered_map<Text, Position> found_;  // by lower-case text
};

}  // namespace parlorwire
