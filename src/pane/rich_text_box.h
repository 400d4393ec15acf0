// The model of a pane: text, the runs of its formats, pictures of one position, and the selection
// by which it is written. It has no window; a PaneView paints it, and has the reader's selection.
//
// Positions are 0-based and lie between characters. The text is Windows-1251. A line break written
// as CR LF takes two positions, a picture takes one and reads as a blank. Colours are 0x00BBGGRR.
//
// Writing is "select, set the format, replace the selection". A pane grows all day, so the text
// lies in blocks of bounded size: appending, formatting, finding a line and cutting one out cost
// the same in a pane of a thousand lines and of a million.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pane/runs.h"
#include "pane/units.h"
#include "pane/view.h"
#include "pane/work.h"

namespace parlorwire {

class RichTextBox {
 public:
  // `format` is the control's own format, that of a character that nobody formatted.
  explicit RichTextBox(const PaneFormat& format = {});
  ~RichTextBox();
  RichTextBox(const RichTextBox&) = delete;
  RichTextBox& operator=(const RichTextBox&) = delete;

  // ---- the control's members ----

  // The whole text; setting it drops all formats and pictures and puts the caret to 0.
  std::string Text() const;
  void Text(std::string_view text);

  // The length of Text, without making it.
  PanePosition Length() const;

  // The selection. Whatever lies beyond the end is clamped to it; an end between CR and LF moves
  // ahead of the CR. Setting SelStart puts an empty selection there. Negative arguments: Fault 380.
  PanePosition SelStart() const;
  void SelStart(PanePosition start);
  PanePosition SelLength() const;
  void SelLength(PanePosition length);
  std::string SelText() const;

  // The format of the selected characters; on an empty selection that of the text written next.
  void SelColor(PaneColour colour);
  void SelFontName(std::string_view name);
  void SelFontSize(int points);
  void SelBold(bool on);
  void SelItalic(bool on);
  void SelUnderline(bool on);
  void SelAlignment(PaneAlignment alignment);
  // All fields at once.
  void SelFormat(const PaneFormat& format);

  bool HideSelection() const;
  void HideSelection(bool hide);
  // Kept and given back; the model takes every write, and no view lets the user type.
  bool Locked() const;
  void Locked(bool locked);
  PanePointer MousePointer() const;
  void MousePointer(PanePointer pointer);
  int Width() const;  // twips
  void Width(int twips);
  // Where lines wrap, in twips from the left; 0, the default: at the view's width. Negative: Fault
  // 380.
  int RightMargin() const;
  void RightMargin(int twips);
  bool Visible() const;
  void Visible(bool visible);
  void Refresh();

  // The control's own format and its background; a change of the format shows in later text only.
  const PaneFormat& OwnFormat() const;
  void OwnFormat(const PaneFormat& format);
  PaneColour BackColor() const;
  void BackColor(PaneColour colour);

  // ---- the messages it answers ----

  void ReplaceSel(std::string_view text);  // EM_REPLACESEL
  // EM_EXSETSEL. Selects from the lesser to the greater, both clamped. A negative max: up to the
  // end, so (0, -1) selects all. A negative min: nothing, the caret goes to the selection's end.
  // Both negative: nothing, the caret goes to the text's end.
  void ExSetSel(PanePosition min, PanePosition max);
  PanePosition CharFromPos(int x, int y) const;          // EM_CHARFROMPOS; 0 without a view
  void SetCharFormat(PaneColour back, PaneColour text);  // EM_SETCHARFORMAT, mask 0x44000000
  void SetRedraw(bool on);                               // WM_SETREDRAW
  bool Redraw() const;
  void VScroll(PaneScroll command);  // WM_VSCROLL
  // WM_PASTE of a picture: replaces the selection with it.
  void PastePicture(const std::shared_ptr<const PanePicture>& picture);
  // Without a view there is nothing to scroll: all zero.
  PaneScrollInfo GetScrollInfo() const;

  // ---- reading, for views and for finding the line around a position ----

  // The characters in [start, end), clamped to the text.
  std::string TextBetween(PanePosition start, PanePosition end) const;
  // The runs that cover [start, end), in order, cut at both ends; neighbours of equal format are
  // one.
  std::vector<PaneRun> RunsBetween(PanePosition start, PanePosition end) const;
  std::vector<PaneRun> Runs() const;
  // The same by numbers, for a view that keeps what it has made of a look; what a number stands
  // for, as a run of no place; and how often the numbers have been given anew.
  std::vector<PaneStretch> LooksBetween(PanePosition start, PanePosition end) const;
  PaneRun LookOf(PaneLookId look) const;
  std::uint64_t LookEpoch() const;

  // Lines end behind CR CR LF, CR LF, a lone CR or a lone LF. The last line has no break; there is
  // always one line. Indices are 0-based.
  std::int64_t LineCount() const;
  std::int64_t LineAt(PanePosition position) const;  // clamped
  PaneLine LineByIndex(std::int64_t index) const;    // clamped

  // One view at a time; null detaches. The view must outlive its attachment.
  void Attach(PaneView* view);

  // ---- counted work and memory, for tests and benchmarks ----

  const PaneWork& work() const;
  std::size_t MemoryUsed() const;  // bytes, estimated from capacities

 private:
  struct Storage;
  std::unique_ptr<Storage> storage_;
};

}  // namespace parlorwire
