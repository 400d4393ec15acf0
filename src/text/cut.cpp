#include "text/cut.h"

#include <algorithm>

#include "text/fault.h"
#include "text/letter_case.h"

namespace parlorwire {
namespace {

std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t from) {
  if (what.empty()) return from;
  const auto same = [](char a, char b) { return LowerCase(a) == LowerCase(b); };
  const auto at = std::search(text.begin() + static_cast<Position>(from), text.end(), what.begin(),
                              what.end(), same);
  return at == text.end() ? std::string_view::npos : static_cast<std::size_t>(at - text.begin());
}

Position FoundAt(std::size_t index) {
  return index == std::string_view::npos ? 0 : static_cast<Position>(index) + 1;
}

template <class Find>
Position Search(Position start, std::string_view text, Find find) {
  if (start < 1) throw Fault(fault::kInvalidCall);
  if (start > Len(text)) return 0;
  return FoundAt(find(static_cast<std::size_t>(start - 1)));
}

// `find` gets the last index at which a hit may begin.
template <class Find>
Position SearchBack(std::string_view text, std::string_view what, Position start, Find find) {
  if (start < 1) throw Fault(fault::kInvalidCall);
  if (start > Len(text)) return 0;
  if (what.empty()) return start;
  if (start < Len(what)) return 0;
  return FoundAt(find(static_cast<std::size_t>(start - Len(what))));
}

template <class Find>
Text ReplaceFound(std::string_view text, std::string_view find, std::string_view with, Find next) {
  Text result;
  std::size_t done = 0;
  if (!find.empty()) {
    for (std::size_t at = next(done); at != std::string_view::npos; at = next(done)) {
      result.append(text.substr(done, at - done)).append(with);
      done = at + find.size();
    }
  }
  return result.append(text.substr(done));
}

}  // namespace

Text Left(std::string_view text, Position count) {
  if (count < 0) throw Fault(fault::kInvalidCall);
  return Text(text.substr(0, static_cast<std::size_t>(count)));
}

Text Right(std::string_view text, Position count) {
  if (count < 0) throw Fault(fault::kInvalidCall);
  return Text(text.substr(text.size() - static_cast<std::size_t>(std::min(count, Len(text)))));
}

Text Mid(std::string_view text, Position start, Position count) {
  if (start < 1 || count < 0) throw Fault(fault::kInvalidCall);
  if (start > Len(text)) return {};
  return Text(text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count)));
}

Text Mid(std::string_view text, Position start) {
  return Mid(text, start, Len(text));
}

Position InStr(Position start, std::string_view text, std::string_view what) {
  return Search(start, text, [&](std::size_t from) { return text.find(what, from); });
}

Position InStr(std::string_view text, std::string_view what) {
  return InStr(1, text, what);
}

Position InStrNoCase(Position start, std::string_view text, std::string_view what) {
  return Search(start, text, [&](std::size_t from) { return FindNoCase(text, what, from); });
}

Position InStrNoCase(std::string_view text, std::string_view what) {
  return InStrNoCase(1, text, what);
}

Position InStrRev(std::string_view text, std::string_view what, Position start) {
  return SearchBack(text, what, start, [&](std::size_t last) { return text.rfind(what, last); });
}

Position InStrRev(std::string_view text, std::string_view what) {
  return text.empty() ? 0 : InStrRev(text, what, Len(text));
}

bool Contains(std::string_view text, std::string_view what) {
  return text.find(what) != std::string_view::npos;
}

bool ContainsNoCase(std::string_view text, std::string_view what) {
  return FindNoCase(text, what, 0) != std::string_view::npos;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

Text LCase(std::string_view text) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), LowerCase);
  return result;
}

std::string_view TrimView(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Text Trim(std::string_view text) {
  return Text(TrimView(text));
}

std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  if (delimiter.empty()) return {text};
  std::size_t from = 0;
  for (std::size_t at = text.find(delimiter); at != std::string_view::npos;
       at = text.find(delimiter, from)) {
    pieces.push_back(text.substr(from, at - from));
    from = at + delimiter.size();
  }
  pieces.push_back(text.substr(from));
  return pieces;
}

std::string_view ElementAt(const std::vector<std::string_view>& list, Position index) {
  if (index < 0 || index >= static_cast<Position>(list.size())) throw Fault(fault::kSubscript);
  return list[static_cast<std::size_t>(index)];
}

Text Replace(std::string_view text, std::string_view find, std::string_view with) {
  return ReplaceFound(text, find, with, [&](std::size_t from) { return text.find(find, from); });
}

Text ReplaceNoCase(std::string_view text, std::string_view find, std::string_view with) {
  return ReplaceFound(text, find, with,
                      [&](std::size_t from) { return FindNoCase(text, find, from); });
}

Position MinNonZero3(Position a, Position b, Position c) {
  Position smallest = 0;
  for (const Position p : {a, b, c})
    if (p != 0 && (smallest == 0 || p < smallest)) smallest = p;
  return smallest;
}

}  // namespace parlorwire
