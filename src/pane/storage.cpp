#include "pane/storage.h"

namespace parlorwire {

void RichTextBox::Storage::Select(PanePosition start, PanePosition end) {
  const bool empty = start == end;
  start = AheadOfBreak(start);
  end = empty ? start : AheadOfBreak(end);
  if (start == selection_start && end == selection_end) return;
  selection_start = start;
  selection_end = end;
  pending.reset();
  if (view != nullptr) view->SelectionChanged();
}

PaneLook RichTextBox::Storage::LookOfNextText() const {
  const PanePosition at = selection_start;
  PaneLook look = own_look;
  if (SelectionIsEmpty() && !text.IsLineStart(at))
    look = formats.Look(text.LookAt(at - 1));
  else if (at < text.Length())
    look = formats.Look(text.LookAt(at));
  look.picture = 0;
  return look;
}

void RichTextBox::Storage::ChangeLook(const PaneLookChange& change) {
  if (SelectionIsEmpty()) {
    pending = change.AppliedTo(pending ? *pending : LookOfNextText());
    return;
  }
  const bool changed = text.Format(selection_start, selection_end, change, formats);
  if (changed && view != nullptr) view->FormatChanged(selection_start, selection_end);
}

void RichTextBox::Storage::Write(std::string_view written, PaneLookId look) {
  const PanePosition start = selection_start;
  const PanePosition old_end = selection_end;
  const PanePosition new_end = start + static_cast<PanePosition>(written.size());
  const bool at_line_start = view != nullptr && text.IsLineStart(start);
  const std::int64_t old_last_line = view == nullptr ? 0 : text.LineAt(old_end);

  text.Replace(start, old_end, written, look);
  pending.reset();
  selection_start = selection_end = AheadOfBreak(new_end);
  if (view == nullptr) return;

  // An edit inside CR CR LF can make a line of the first CR, so what counts is whether a line
  // started here before. One that did and does no more (an LF came behind a CR) is part of the line
  // before.
  const std::int64_t first_line =
      text.LineAt(at_line_start ? start : std::max<PanePosition>(start - 1, 0));
  view->TextChanged({start, old_end - start, new_end - start, first_line,
                     old_last_line - first_line + 1, text.LineAt(new_end) - first_line + 1});
  if (selection_start != start || old_end != start) view->SelectionChanged();
}

}  // namespace parlorwire
