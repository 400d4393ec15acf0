#include "pane/qt/reader_selection.h"

#include <QChar>
#include <algorithm>
#include <string>

#include "pane/rich_text_box.h"
#include "text/windows1251.h"

namespace parlorwire {
namespace {

enum class Sign { kWord, kBlank, kOther };

Sign SignOf(char byte) {
  if (byte == ' ' || byte == '\t' || byte == '\xA0') return Sign::kBlank;
  return byte == '_' || QChar(ToUnicode(byte)).isLetterOrNumber() ? Sign::kWord : Sign::kOther;
}

PaneRange WordAround(const RichTextBox& box, PanePosition position) {
  const PaneLine line = box.LineByIndex(box.LineAt(position));
  if (line.length == 0) return {line.start, line.start};
  const std::string text = box.TextBetween(line.start, line.start + line.length);
  const auto last = text.size() - 1;
  const auto at = std::min(static_cast<std::size_t>(position - line.start), last);
  const Sign sign = SignOf(text[at]);
  std::size_t start = at;
  while (start > 0 && SignOf(text[start - 1]) == sign)
    --start;
  std::size_t end = at + 1;
  while (end < text.size() && SignOf(text[end]) == sign)
    ++end;
  return {line.start + static_cast<PanePosition>(start),
          line.start + static_cast<PanePosition>(end)};
}

// What was removed around the position takes it to the place of the change. Text that comes exactly
// at the position goes ahead of it or behind it.
PanePosition Moved(PanePosition position, const PaneView::TextChange& change, bool behind_it) {
  const PanePosition removed_end = change.start + change.removed;
  if (position < change.start || (position == change.start && behind_it)) return position;
  if (position >= removed_end) return position + change.inserted - change.removed;
  return change.start;
}

}  // namespace

PaneRange ReaderSelection::range() const {
  return {std::min(anchor, caret), std::max(anchor, caret)};
}

void ReaderSelection::TextChanged(const PaneView::TextChange& change) {
  const bool empty = anchor == caret;
  const bool forwards = anchor < caret;
  anchor = Moved(anchor, change, empty || !forwards);
  caret = Moved(caret, change, empty || forwards);
}

PaneRange RangeAround(const RichTextBox& box, PanePosition position, SelectionGrain grain) {
  if (grain == SelectionGrain::kCharacter) return {position, position};
  if (grain == SelectionGrain::kWord) return WordAround(box, position);
  const PaneLine line = box.LineByIndex(box.LineAt(position));
  return {line.start, line.next};
}

PanePosition CharacterBefore(const RichTextBox& box, PanePosition position) {
  if (position <= 0) return 0;
  const std::int64_t index = box.LineAt(position);
  if (position > box.LineByIndex(index).start) return position - 1;
  const PaneLine before = box.LineByIndex(index - 1);
  return before.start + before.length;
}

PanePosition CharacterAfter(const RichTextBox& box, PanePosition position) {
  const PaneLine line = box.LineByIndex(box.LineAt(position));
  return position < line.start + line.length ? position + 1 : line.next;
}

PanePosition WordBefore(const RichTextBox& box, PanePosition position) {
  const PanePosition before = CharacterBefore(box, position);
  const PaneLine line = box.LineByIndex(box.LineAt(before));
  if (before == line.start + line.length) return before;
  PaneRange word = WordAround(box, before);
  const bool blank = SignOf(box.TextBetween(word.start, word.start + 1).front()) == Sign::kBlank;
  if (blank && word.start > line.start) word = WordAround(box, word.start - 1);
  return word.start;
}

PanePosition WordAfter(const RichTextBox& box, PanePosition position) {
  const PaneLine line = box.LineByIndex(box.LineAt(position));
  const PanePosition line_end = line.start + line.length;
  if (position >= line_end) return line.next;
  PaneRange word = WordAround(box, position);
  if (word.end < line_end &&
      SignOf(box.TextBetween(word.end, word.end + 1).front()) == Sign::kBlank)
    word = WordAround(box, word.end);
  return word.end;
}

}  // namespace parlorwire
