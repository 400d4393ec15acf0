#include "pane/qt/fragment_painter.h"

#include <QGlyphRun>
#include <algorithm>
#include <vector>

namespace parlorwire {
namespace {

class FragmentPainter {
 public:
  FragmentPainter(QPainter& painter, const FragmentLayout& layout, QPointF at, const QRectF& clip,
                  SelectedStretch selected, const QPalette& palette, ToolkitPictures& pictures)
      : painter_(painter),
        layout_(layout),
        at_(at),
        clip_(clip),
        selected_(selected),
        palette_(palette),
        pictures_(pictures) {}

  void PaintRow(const FragmentLayout::Row& row, int ground, bool last) {
    // Only what is in the clip, and a character more for one that leans out of its box.
    const int first = CharacterIn(layout_, row, clip_.left() - at_.x());
    const int behind = CharacterIn(layout_, row, clip_.right() - at_.x());
    seen_ = {std::max(first - 1, row.start), std::min(behind + 2, row.end)};
    if (const auto bar = BarColour(layout_, row))
      painter_.fillRect(QRectF(0, at_.y() + row.top, ground, row.height), *bar);
    else
      ForEachStretch([&](const ShownText::Stretch& stretch, int start, int end) {
        if (stretch.look->back_colour) Fill(row, start, end, *stretch.look->back_colour);
      });
    PaintSelected(row, last);
    ForEachStretch([&](const ShownText::Stretch& stretch, int start, int end) {
      if (stretch.look->picture != nullptr) return;
      const int selected_start = std::clamp(selected_.start, start, end);
      const int selected_end = std::clamp(selected_.end, selected_start, end);
      PaintText(row, *stretch.look, start, selected_start, stretch.look->colour);
      PaintText(row, *stretch.look, selected_start, selected_end,
                palette_.color(QPalette::HighlightedText));
      PaintText(row, *stretch.look, selected_end, end, stretch.look->colour);
    });
    ForEachStretch([&](const ShownText::Stretch& stretch, int start, int) {
      if (stretch.look->picture != nullptr) PaintPicture(row, *stretch.look, start);
    });
  }

 private:
  template <class Each>
  void ForEachStretch(Each each) {
    const auto& stretches = layout_.text.stretches;
    if (seen_.start >= seen_.end) return;
    for (std::size_t s = layout_.text.StretchAt(seen_.start);
         s < stretches.size() && stretches[s].start < seen_.end; ++s)
      each(stretches[s], std::max(stretches[s].start, seen_.start),
           std::min(stretches[s].end, seen_.end));
  }

  void Fill(const FragmentLayout::Row& row, int start, int end, const QColor& colour) {
    const qreal left = layout_.EdgeOf(row, start);
    const qreal right = layout_.EdgeOf(row, end);
    painter_.fillRect(QRectF(at_.x() + left, at_.y() + row.top, right - left, row.height), colour);
  }

  void PaintSelected(const FragmentLayout::Row& row, bool last) {
    if (selected_.end <= selected_.start) return;
    const QColor colour = palette_.color(QPalette::Highlight);
    const int start = std::max(selected_.start, seen_.start);
    const int end = std::min(selected_.end, seen_.end);
    if (start < end) Fill(row, start, end, colour);
    // A selected line break shows behind the line's last row.
    if (last && layout_.breaks && selected_.start <= layout_.length &&
        selected_.end > layout_.length)
      painter_.fillRect(
          QRectF(at_.x() + row.right, at_.y() + row.top, std::max(row.height / 3, 2), row.height),
          colour);
  }

  void PaintText(const FragmentLayout::Row& row, const ToolkitLook& look, int start, int end,
                 const QColor& colour) {
    if (start >= end) return;
    painter_.setPen(colour);
    const GlyphTable& table = *look.glyphs;
    const qreal base = at_.y() + row.top + row.base;
    for (int i = start; i < end; ++i) {
      const auto& character = table.Of(layout_.text.bytes[static_cast<std::size_t>(i)]);
      if (character.count == 0) continue;
      const QPointF place(at_.x() + layout_.EdgeOf(row, i), base);
      for (const GlyphTable::Glyph& glyph : table.GlyphsOf(character)) {
        if (glyph.face != face_) Flush(table);
        face_ = glyph.face;
        indices_.push_back(glyph.index);
        places_.push_back(place + glyph.offset);
      }
    }
    Flush(table);
    if (!look.underline) return;
    const qreal left = layout_.EdgeOf(row, start);
    const qreal right = layout_.EdgeOf(row, end);
    painter_.fillRect(QRectF(at_.x() + left, base + table.underline_top(), right - left,
                             table.underline_height()),
                      colour);
  }

  void Flush(const GlyphTable& table) {
    if (indices_.empty()) return;
    QGlyphRun run;
    run.setRawFont(table.Face(face_));
    run.setRawData(indices_.data(), places_.data(), static_cast<int>(indices_.size()));
    painter_.drawGlyphRun({}, run);
    indices_.clear();
    places_.clear();
  }

  void PaintPicture(const FragmentLayout::Row& row, const ToolkitLook& look, int index) {
    const QSize size = look.picture_size;
    const int top = row.top + row.base + PictureBelowBase(look) - size.height();
    const QRectF place(at_.x() + layout_.EdgeOf(row, index), at_.y() + top, size.width(),
                       size.height());
    const QPixmap pixmap = pictures_.PixmapOf(look.picture, painter_.device()->devicePixelRatioF());
    if (pixmap.isNull()) {
      painter_.setPen(palette_.color(QPalette::Mid));
      painter_.drawRect(place.adjusted(1, 1, -2, -2));
    } else {
      painter_.drawPixmap(place, pixmap, pixmap.rect());
    }
    if (index < selected_.start || index >= selected_.end) return;
    QColor veil = palette_.color(QPalette::Highlight);
    veil.setAlpha(128);
    painter_.fillRect(place, veil);
  }

  QPainter& painter_;
  const FragmentLayout& layout_;
  QPointF at_;
  QRectF clip_;
  SelectedStretch selected_;
  const QPalette& palette_;
  ToolkitPictures& pictures_;
  struct {
    int start = 0;
    int end = 0;
  } seen_;  // of the row at hand
  // Glyphs of one face, to be painted at once.
  std::uint32_t face_ = 0;
  std::vector<quint32> indices_;
  std::vector<QPointF> places_;
};

}  // namespace

void Paint(QPainter& painter, const FragmentLayout& layout, QPointF at, const QRectF& clip,
           int ground, SelectedStretch selected, const QPalette& palette,
           ToolkitPictures& pictures) {
  if (layout.height == 0) return;
  const int first = RowAt(layout, static_cast<int>(clip.top() - at.y()));
  const int last = RowAt(layout, static_cast<int>(clip.bottom() - at.y()));
  // A sign may lean out of its row by a part of a pixel. The lines beside this one are not painted
  // with it, so it ends here.
  painter.setClipRect(QRectF(0, at.y(), ground, layout.height));
  FragmentPainter fragment(painter, layout, at, clip, selected, palette, pictures);
  for (int row = first; row <= last; ++row)
    fragment.PaintRow(layout.RowNumber(row), ground,
                      row + 1 == static_cast<int>(layout.rows.size()));
}

}  // namespace parlorwire
