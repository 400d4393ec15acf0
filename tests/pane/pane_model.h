// The pane once more, as plainly as can be: a string and a look for each character. What the real
// one is compared with.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pane/rich_text_box.h"

namespace parlorwire {

// The start of each line.
inline std::vector<PanePosition> LineStarts(std::string_view text) {
  std::vector<PanePosition> starts{0};
  for (std::size_t i = 0; i < text.size();) {
    const std::string_view rest = text.substr(i);
    const std::size_t length = rest.starts_with("\r\r\n")                         ? 3
                               : rest.starts_with("\r\n")                         ? 2
                               : rest.starts_with("\r") || rest.starts_with("\n") ? 1
                                                                                  : 0;
    i += std::max<std::size_t>(length, 1);
    if (length > 0) starts.push_back(static_cast<PanePosition>(i));
  }
  return starts;
}

struct PaneModel {
  struct Character {
    char c = ' ';
    PaneFormat format;
    std::shared_ptr<const PanePicture> picture;
  };

  PaneFormat own_format;
  std::vector<Character> characters;
  PanePosition start = 0;
  PanePosition end = 0;
  std::optional<PaneFormat> pending;

  PanePosition Length() const { return static_cast<PanePosition>(characters.size()); }

  const Character& At(PanePosition position) const {
    return characters[static_cast<std::size_t>(position)];
  }

  std::string Text() const {
    std::string text;
    for (const Character& character : characters)
      text += character.c;
    return text;
  }

  PanePosition AheadOfBreak(PanePosition position) const {
    const bool parts =
        position > 0 && position < Length() && At(position).c == '\n' && At(position - 1).c == '\r';
    return parts ? position - 1 : position;
  }

  void Select(PanePosition from, PanePosition to) {
    from = AheadOfBreak(std::clamp<PanePosition>(from, 0, Length()));
    to = AheadOfBreak(std::clamp<PanePosition>(to, 0, Length()));
    if (from != start || to != end) pending.reset();
    start = from;
    end = to;
  }

  // Behind an LF, or behind a CR that belongs to no LF.
  bool IsLineStart(PanePosition position) const {
    if (position == 0) return true;
    const auto is = [this](PanePosition at, char c) { return at < Length() && At(at).c == c; };
    if (is(position - 1, '\n')) return true;
    return is(position - 1, '\r') && !is(position, '\n') &&
           !(is(position, '\r') && is(position + 1, '\n'));
  }

  PaneFormat FormatOfNextText() const {
    if (start != end) return At(start).format;
    if (pending) return *pending;
    if (!IsLineStart(start)) return At(start - 1).format;
    if (start < Length()) return At(start).format;
    return own_format;
  }

  template <class Change>
  void Format(Change change) {
    if (start == end) {
      PaneFormat format = FormatOfNextText();
      change(format);
      pending = format;
      return;
    }
    for (PanePosition i = start; i < end; ++i)
      change(characters[static_cast<std::size_t>(i)].format);
  }

  void Write(std::string_view text, const std::shared_ptr<const PanePicture>& picture) {
    if (text.empty() && start == end) return;
    const PaneFormat format = FormatOfNextText();
    std::vector<Character> fresh;
    for (const char c : text)
      fresh.push_back({c, format, picture});
    characters.erase(characters.begin() + start, characters.begin() + end);
    characters.insert(characters.begin() + start, fresh.begin(), fresh.end());
    start = end = AheadOfBreak(start + static_cast<PanePosition>(text.size()));
    pending.reset();
  }

  void SetText(std::string_view text) {
    characters.clear();
    for (const char c : text)
      characters.push_back({c, own_format, nullptr});
    start = end = 0;
    pending.reset();
  }

  std::vector<PaneRun> Runs(PanePosition from, PanePosition to) const {
    std::vector<PaneRun> runs;
    for (PanePosition i = from; i < to; ++i) {
      const Character& character = At(i);
      if (!runs.empty() && runs.back().format == character.format && !runs.back().picture &&
          !character.picture)
        ++runs.back().length;
      else
        runs.push_back({i, 1, character.format, character.picture});
    }
    return runs;
  }
};

// Keeps the lines of a pane from what it is told of changes, and checks what it is told.
struct PaneMirror : PaneView {
  explicit PaneMirror(RichTextBox& observed) : box(observed) { Read(0, box.LineCount()); }

  void TextChanged(const TextChange& change) override {
    ++text_changes;
    length += change.inserted - change.removed;
    sound = sound && change.lines_removed >= 1 && change.lines_inserted >= 1 &&
            change.first_line >= 0 && length == box.Length() &&
            change.first_line + change.lines_removed <= static_cast<std::int64_t>(lines.size());
    if (!sound) return;
    const auto first = lines.begin() + change.first_line;
    lines.erase(first, first + change.lines_removed);
    Read(change.first_line, change.lines_inserted);
    last = change;
  }
  void FormatChanged(PanePosition start, PanePosition end) override {
    ++format_changes;
    const std::int64_t first = box.LineAt(start);
    const std::int64_t count = box.LineAt(end) - first + 1;
    lines.erase(lines.begin() + first, lines.begin() + first + count);
    Read(first, count);
    last_format = {start, end};
  }
  void SelectionChanged() override {
    ++selection_changes;
    selection = {box.SelStart(), box.SelLength()};
    hidden = box.HideSelection();
  }
  void RedrawChanged(bool on) override { redraws.push_back(on); }
  void VisibleChanged(bool visible) override { visibles.push_back(visible); }
  void WidthChanged(int twips) override { widths.push_back(twips); }
  void RightMarginChanged(int twips) override { right_margins.push_back(twips); }
  void PointerChanged(PanePointer pointer) override { pointers.push_back(pointer); }
  void Refresh() override { ++refreshes; }
  void Scroll(PaneScroll command) override { scrolls.push_back(command); }
  PaneScrollInfo GetScrollInfo() const override { return {0, 100, 10, 90}; }
  PanePosition CharFromPos(int x, int y) const override { return x * 1000 + y; }

  struct Line {
    std::string text;           // with its break
    std::vector<PaneRun> runs;  // positions from the line's start
    bool operator==(const Line&) const = default;
  };

  // Reads `count` lines of the box and puts them in at `first`.
  void Read(std::int64_t first, std::int64_t count) {
    std::vector<Line> fresh;
    for (std::int64_t i = first; i < first + count; ++i) {
      const PaneLine line = box.LineByIndex(i);
      fresh.push_back(
          {box.TextBetween(line.start, line.next), box.RunsBetween(line.start, line.next)});
      for (PaneRun& run : fresh.back().runs)
        run.start -= line.start;
    }
    lines.insert(lines.begin() + first, fresh.begin(), fresh.end());
  }

  RichTextBox& box;
  std::vector<Line> lines;
  PanePosition length = box.Length();
  bool sound = true;
  TextChange last;
  std::pair<PanePosition, PanePosition> last_format;
  std::pair<PanePosition, PanePosition> selection;
  bool hidden = false;
  int text_changes = 0;
  int format_changes = 0;
  int selection_changes = 0;
  int refreshes = 0;
  std::vector<bool> redraws;
  std::vector<bool> visibles;
  std::vector<int> widths;
  std::vector<int> right_margins;
  std::vector<PanePointer> pointers;
  std::vector<PaneScroll> scrolls;
};

}  // namespace parlorwire
