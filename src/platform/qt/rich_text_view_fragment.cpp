#include "platform/qt/rich_text_view_fragment.h"

#include <algorithm>

namespace parlorwire {
namespace {

constexpr PanePosition kBlankSought = 256;  // characters ahead of a cut

// The start of the nth fragment of a line.
PanePosition Cut(const RichTextBox& box, const RichTextBox::Line& line, PanePosition n) {
  if (n == 0) return line.start;
  const PanePosition latest = line.start + n * kFragmentLimit;
  const std::string near = box.TextBetween(latest - kBlankSought, latest);
  const auto blank = near.find_last_of(" \t");
  return blank == std::string::npos ? latest
                                    : latest - kBlankSought + static_cast<PanePosition>(blank) + 1;
}

Fragment NthFragment(const RichTextBox& box, std::int64_t index, const RichTextBox::Line& line,
                     PanePosition n) {
  Fragment fragment;
  fragment.line = index;
  fragment.line_start = line.start;
  fragment.line_next = line.next;
  const PanePosition last = line.length == 0 ? 0 : (line.length - 1) / kFragmentLimit;
  fragment.start = Cut(box, line, n);
  const PanePosition end = n == last ? line.start + line.length : Cut(box, line, n + 1);
  fragment.length = end - fragment.start;
  fragment.next = n == last ? line.next : end;
  return fragment;
}

Fragment FragmentInLine(const RichTextBox& box, std::int64_t index, const RichTextBox::Line& line,
                        PanePosition position) {
  if (line.length <= kFragmentLimit)
    return {line.start, line.length, line.next, line.start, line.next, index};
  const PanePosition last = (line.length - 1) / kFragmentLimit;
  PanePosition n = std::clamp((position - line.start) / kFragmentLimit, PanePosition{0}, last);
  if (n < last && Cut(box, line, n + 1) <= position) ++n;
  return NthFragment(box, index, line, n);
}

}  // namespace

Fragment FragmentAt(const RichTextBox& box, PanePosition position) {
  const std::int64_t index = box.LineAt(position);
  return FragmentInLine(box, index, box.LineByIndex(index), position);
}

Fragment FirstFragmentOfLine(const RichTextBox& box, std::int64_t index) {
  const RichTextBox::Line line = box.LineByIndex(index);
  return FragmentInLine(box, index, line, line.start);
}

Fragment FragmentAfter(const RichTextBox& box, const Fragment& fragment) {
  if (fragment.LastOfLine()) return FirstFragmentOfLine(box, fragment.line + 1);
  const RichTextBox::Line line = box.LineByIndex(fragment.line);
  return FragmentInLine(box, fragment.line, line, fragment.next);
}

Fragment FragmentBefore(const RichTextBox& box, const Fragment& fragment) {
  const std::int64_t index =
      fragment.start == fragment.line_start ? fragment.line - 1 : fragment.line;
  const RichTextBox::Line line = box.LineByIndex(index);
  const PanePosition within = fragment.start == fragment.line_start
                                  ? line.start + std::max(line.length, PanePosition{1}) - 1
                                  : fragment.start - 1;
  return FragmentInLine(box, index, line, within);
}

}  // namespace parlorwire
