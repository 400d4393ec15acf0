// Cutting and searching text, by the classic names. Positions are 1-based; a search that finds
// nothing returns 0. The functions ending in NoCase compare without regard to case; all others
// compare bytes. A call with a bad length or position throws Fault 5.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace parlorwire {

using Position = std::ptrdiff_t;  // 1-based; 0 means "not found"

// The length of a text as a Position, for arithmetic that may go below zero.
constexpr Position Len(std::string_view text) {
  return static_cast<Position>(text.size());
}

// The first or last `count` characters, or all if there are fewer. count < 0: Fault 5.
Text Left(std::string_view text, Position count);
Text Right(std::string_view text, Position count);

// The characters from `start` on, at most `count`. start < 1 or count < 0: Fault 5. Behind the end:
// "".
Text Mid(std::string_view text, Position start, Position count);
Text Mid(std::string_view text, Position start);

// The first place of `what` at or behind `start`. start < 1: Fault 5. In an empty text, or from a
// start behind the end: 0. An empty `what` is found at `start`.
Position InStr(Position start, std::string_view text, std::string_view what);
Position InStr(std::string_view text, std::string_view what);
Position InStrNoCase(Position start, std::string_view text, std::string_view what);
Position InStrNoCase(std::string_view text, std::string_view what);

// The last place of `what` that ends at or ahead of `start`; without `start`, in the whole text.
// start < 1: Fault 5. In an empty text, or from a start behind the end: 0. An empty `what` is found
// at `start`.
Position InStrRev(std::string_view text, std::string_view what, Position start);
Position InStrRev(std::string_view text, std::string_view what);

bool Contains(std::string_view text, std::string_view what);
bool ContainsNoCase(std::string_view text, std::string_view what);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);

Text LCase(std::string_view text);

// Takes off blanks (0x20) at both ends, and nothing else.
Text Trim(std::string_view text);
std::string_view TrimView(std::string_view text);

// The pieces between the delimiters. An empty text gives no piece at all; an empty delimiter gives
// the text as one piece. The views are views of `text`.
std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter);

// An element of a list by its 0-based index. No such element: Fault 9.
std::string_view ElementAt(const std::vector<std::string_view>& list, Position index);

// Every `find`, from left to right and never inside a replacement, replaced by `with`. An empty
// `find` changes nothing.
Text Replace(std::string_view text, std::string_view find, std::string_view with);
Text ReplaceNoCase(std::string_view text, std::string_view find, std::string_view with);

// The smallest of three positions that is not zero; 0 if all are.
Position MinNonZero3(Position a, Position b, Position c);

}  // namespace parlorwire
