#include "pane/search.h"

#include <algorithm>
#include <string>

#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr PanePosition kChunk = 32'768;  // characters in which occurrences begin, read at a time

}  // namespace

std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PaneRange beginnings, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher(wanted, letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  const PanePosition end = std::min(beginnings.end, pane.Length() - more);
  for (PanePosition at = std::max(beginnings.start, PanePosition{0}); at < end; at += kChunk) {
    const std::string text = pane.TextBetween(at, std::min(at + kChunk, end) + more);
    const auto found = searcher.Find(text.begin(), text.end());
    if (found != text.end()) return at + (found - text.begin());
  }
  return std::nullopt;
}

std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PaneRange beginnings, LetterCase letter_case) {
  if (wanted.empty()) return std::nullopt;
  const Searcher searcher(std::string(wanted.rbegin(), wanted.rend()), letter_case);
  const auto more = static_cast<PanePosition>(wanted.size()) - 1;
  const PanePosition first = std::max(beginnings.start, PanePosition{0});
  for (PanePosition end = std::min(beginnings.end, pane.Length() - more); end > first;
       end -= kChunk) {
    const PanePosition start = std::max(end - kChunk, first);
    const std::string text = pane.TextBetween(start, end + more);
    const auto found = searcher.Find(text.rbegin(), text.rend());
    if (found != text.rend()) return start + (text.rend() - found) - more - 1;
  }
  return std::nullopt;
}

std::optional<PanePosition> FindForwards(const RichTextBox& pane, std::string_view wanted,
                                         PanePosition from, LetterCase letter_case) {
  return FindForwards(pane, wanted, PaneRange{from, pane.Length()}, letter_case);
}

std::optional<PanePosition> FindBackwards(const RichTextBox& pane, std::string_view wanted,
                                          PanePosition from, LetterCase letter_case) {
  return FindBackwards(pane, wanted, PaneRange{0, from + 1}, letter_case);
}

}  // namespace parlorwire
