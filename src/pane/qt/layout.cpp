#include "pane/qt/layout.h"

#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr int kBarHeight = 4;

// The look that decides about the line as a whole.
std::shared_ptr<const ToolkitLook> LineLook(const RichTextBox& box, const Fragment& fragment,
                                            LayoutTools& tools) {
  const auto looks = box.LooksBetween(fragment.line_start, fragment.line_start + 1);
  return looks.empty() ? tools.looks.Own(box)
                       : tools.looks.For(box, looks.front().look, tools.pictures);
}

// How far a row goes above and below its base line.
struct RowHeight {
  int ascent = 0;
  int descent = 0;

  void Grow(const GlyphTable::Character& character) {
    ascent = std::max<int>(ascent, character.ascent);
    descent = std::max<int>(descent, character.descent);
  }
};

RowHeight HeightOf(const ShownText& text, int start, int end) {
  RowHeight height;
  for (std::size_t s = text.StretchAt(start); start < end; ++s) {
    const ShownText::Stretch& stretch = text.stretches[s];
    if (stretch.look->picture != nullptr) {
      height.Grow(stretch.look->glyphs->Of(' '));
      const int below = PictureBelowBase(*stretch.look);
      height.ascent = std::max(height.ascent, stretch.look->picture_size.height() - below);
      height.descent = std::max(height.descent, below);
      ++start;
      continue;
    }
    for (const int behind = std::min(end, stretch.end); start < behind; ++start)
      height.Grow(stretch.look->glyphs->Of(text.bytes[static_cast<std::size_t>(start)]));
  }
  return height;
}

float LeftOf(PaneAlignment alignment, int width, float natural) {
  const float rest = std::max(static_cast<float>(width) - natural, 0.0F);
  if (alignment == PaneAlignment::kRight) return rest;
  return alignment == PaneAlignment::kCentre ? rest / 2 : 0;
}

void BreakIntoRows(FragmentLayout& layout, PaneAlignment alignment) {
  layout.edges.resize(layout.text.bytes.size());
  int start = 0;
  while (start < layout.length) {
    const WrappedRow wrapped =
        WrapRow(layout.text, start, static_cast<float>(layout.width), layout.edges.data());
    const RowHeight height = HeightOf(layout.text, start, wrapped.end);
    FragmentLayout::Row row{start, wrapped.end, layout.height, 0, height.ascent, 0, 0};
    row.left = LeftOf(alignment, layout.width, wrapped.natural);
    row.right = row.left + wrapped.right;
    const bool bar = BarColour(layout, row).has_value();
    row.height = std::max(height.ascent + height.descent, bar ? kBarHeight : 1);
    layout.height += row.height;
    layout.widest =
        std::max(layout.widest, static_cast<int>(std::ceil(row.left + wrapped.natural)));
    layout.rows.push_back(row);
    start = wrapped.end;
  }
}

}  // namespace

int PictureBelowBase(const ToolkitLook& look) {
  const GlyphTable::Character& blank = look.glyphs->Of(' ');
  return (look.picture_size.height() - (blank.ascent - blank.descent)) / 2;
}

std::optional<QColor> BarColour(const FragmentLayout& layout, const FragmentLayout::Row& row) {
  if (row.start == row.end) return {};
  const auto& stretch = layout.text.stretches[layout.text.StretchAt(row.start)];
  if (!stretch.look->back_colour || stretch.look->picture || stretch.end < row.end) return {};
  const auto begin = layout.text.bytes.begin();
  const bool blank =
      std::all_of(begin + row.start, begin + row.end, [](char c) { return c == ' '; });
  return blank ? stretch.look->back_colour : std::nullopt;
}

std::shared_ptr<const FragmentLayout> LayOut(const RichTextBox& box, const Fragment& fragment,
                                             int width, LayoutTools& tools) {
  auto layout = std::make_shared<FragmentLayout>();
  layout->serial = ++tools.last_serial;
  ++tools.work.laid_out;
  layout->width = width;
  layout->length = static_cast<int>(fragment.length);
  layout->breaks = fragment.next > fragment.start + fragment.length;
  if (fragment.EmptyEndOf(box)) {
    layout->rows.push_back({});
    return layout;
  }
  const auto line_look = LineLook(box, fragment, tools);
  layout->text = ReadShown(box, fragment.start, fragment.start + fragment.length, tools);
  tools.work.wrapped += layout->text.bytes.size();
  BreakIntoRows(*layout, line_look->alignment);
  if (layout->rows.empty()) {
    RowHeight height;
    height.Grow(line_look->glyphs->Of(' '));
    const float left = LeftOf(line_look->alignment, width, 0);
    layout->height = std::max(height.ascent + height.descent, 1);
    layout->rows.push_back({0, 0, 0, layout->height, height.ascent, left, left});
  }
  return layout;
}

int RowOf(const FragmentLayout& layout, int index) {
  const auto row = std::upper_bound(layout.rows.begin(), layout.rows.end(), index,
                                    [](int i, const auto& r) { return i < r.start; });
  return std::max(static_cast<int>(row - layout.rows.begin()) - 1, 0);
}

int RowAt(const FragmentLayout& layout, int y) {
  const auto row = std::upper_bound(layout.rows.begin(), layout.rows.end(), y,
                                    [](int value, const auto& r) { return value < r.top; });
  return std::max(static_cast<int>(row - layout.rows.begin()) - 1, 0);
}

int CharacterIn(const FragmentLayout& layout, const FragmentLayout::Row& row, qreal x) {
  if (x >= row.right) return row.end;
  const auto begin = layout.edges.begin();
  const auto behind =
      std::upper_bound(begin + row.start, begin + row.end, static_cast<float>(x) - row.left);
  return std::max(static_cast<int>(behind - begin) - 1, row.start);
}

int CharacterAt(const FragmentLayout& layout, int x, int y) {
  return CharacterIn(layout, layout.RowNumber(RowAt(layout, y)), x);
}

int BorderAt(const FragmentLayout& layout, int x, int y) {
  const auto& row = layout.RowNumber(RowAt(layout, y));
  const int index = CharacterIn(layout, row, x);
  if (index == row.end) return index;
  const auto at = static_cast<float>(x);
  return at - layout.EdgeOf(row, index) < layout.EdgeOf(row, index + 1) - at ? index : index + 1;
}

qreal XOf(const FragmentLayout& layout, int index) {
  return layout.EdgeOf(layout.RowNumber(RowOf(layout, index)), index);
}

QRectF BoxOf(const FragmentLayout& layout, int start, int end) {
  const auto& row = layout.RowNumber(RowOf(layout, start));
  const qreal left = layout.EdgeOf(row, start);
  return {left, qreal(row.top), layout.EdgeOf(row, end) - left, qreal(row.height)};
}

}  // namespace parlorwire
