// The model of a pane: text, the runs of its formats, pictures of one position, and a selection.
// It has no window; a PaneView paints it.
//
// Positions are 0-based and lie between characters. The text is Windows-1251. A line break written
// as CR LF takes two positions, a picture takes one and reads as a blank. Colours are 0x00BBGGRR.
//
// Writing is "select, set the format, replace the selection". A pane grows all day, so the text
// lies in blocks of bounded size: appending, formatting, finding a line and cutting one out cost
// the same in a pane of a thousand lines and of a million.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace parlorwire {

using PanePosition = std::int64_t;
using PaneColour = std::uint32_t;  // 0x00BBGGRR

enum class PaneAlignment : std::uint8_t { kLeft = 0, kRight = 1, kCentre = 2 };

// How a character looks. The alignment is that of the line; the line's first character decides.
struct PaneFormat {
  std::string font_name = "Times New Roman";
  int font_size = 10;  // points
  PaneColour colour = 0;
  std::optional<PaneColour> back_colour;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  PaneAlignment alignment = PaneAlignment::kLeft;

  bool operator==(const PaneFormat&) const = default;
};

// A picture in the text.
struct PanePicture {
  std::string code;   // Windows-1251; what copying the picture gives
  std::string image;  // an image file's bytes: BMP, PNG or SVG
};

// A stretch of uniform format. A picture is a run of its own, of length 1.
struct PaneRun {
  PanePosition start = 0;
  PanePosition length = 0;
  PaneFormat format;
  std::shared_ptr<const PanePicture> picture;  // null for text

  bool operator==(const PaneRun&) const = default;
};

// A look is a format, and the picture if there is one, by a number. Numbers are equal exactly when
// the looks are, until the pane gives them anew.
using PaneLookId = std::uint32_t;

// A stretch of one look. A picture is a stretch of its own, of length 1.
struct PaneStretch {
  PanePosition start = 0;
  PanePosition length = 0;
  PaneLookId look = 0;
};

// The vertical scroll bar, in whatever unit the view scrolls by. The pane stands at its end when
// pos + page >= max. max is 0 when there is nothing to scroll.
struct PaneScrollInfo {
  int min = 0;
  int max = 0;
  int page = 0;
  int pos = 0;
};

enum class PaneScroll { kLineUp = 0, kBottom = 7 };
enum class PanePointer { kArrow = 1, kCustom = 99 };

// What paints a pane. All calls come after the change, and none may change the pane.
class PaneView {
 public:
  virtual ~PaneView() = default;

  // At `start`, `removed` characters went and `inserted` ones came. The same in lines: the lines
  // from `first_line` on (0-based) have new content; `lines_removed` lines were replaced by
  // `lines_inserted` lines, both at least 1. All lines behind them are the same as before.
  struct TextChange {
    PanePosition start = 0;
    PanePosition removed = 0;
    PanePosition inserted = 0;
    std::int64_t first_line = 0;
    std::int64_t lines_removed = 1;
    std::int64_t lines_inserted = 1;
  };
  virtual void TextChanged(const TextChange& change) = 0;

  // The characters in [start, end) look different.
  virtual void FormatChanged(PanePosition start, PanePosition end) = 0;

  // The selection, or whether it is shown (HideSelection), has changed.
  virtual void SelectionChanged() = 0;

  // WM_SETREDRAW: while off, nothing is painted; the changes are told all the same.
  virtual void RedrawChanged(bool on) = 0;

  virtual void VisibleChanged(bool visible) = 0;
  virtual void RightMarginChanged(int twips) = 0;
  virtual void PointerChanged(PanePointer pointer) = 0;
  virtual void Refresh() = 0;  // a repaint is wanted
  virtual void Scroll(PaneScroll command) = 0;

  virtual PaneScrollInfo GetScrollInfo() const = 0;

  // The character under a point of the view, in device-independent pixels: the position ahead of
  // it. Behind a line's end: the end of the line.
  virtual PanePosition CharFromPos(int x, int y) const = 0;
};

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
  bool Locked() const;  // the user cannot type; the model itself takes every write
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

  void ReplaceSel(std::string_view text);                // EM_REPLACESEL
  void ExSetSel(PanePosition min, PanePosition max);     // EM_EXSETSEL; (0, -1) selects all
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
  struct Line {
    PanePosition start = 0;
    PanePosition length = 0;  // without its break
    PanePosition next = 0;    // the start of the next line; the text's end for the last line
  };
  Line LineByIndex(std::int64_t index) const;  // clamped

  // One view at a time; null detaches. The view must outlive its attachment.
  void Attach(PaneView* view);

  // ---- counted work and memory, for tests and benchmarks ----

  struct Counters {
    std::uint64_t blocks_touched = 0;  // blocks read or changed by editing and finding
    std::uint64_t runs_moved = 0;      // runs inserted, removed or shifted
  };
  const Counters& counters() const;
  std::size_t MemoryUsed() const;  // bytes, estimated from capacities

 private:
  struct Storage;
  std::unique_ptr<Storage> storage_;
};

}  // namespace parlorwire
