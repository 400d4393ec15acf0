#include "platform/qt/rich_text_view_layout.h"

#include <QTextLine>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/qt/text_conversion.h"

namespace parlorwire {
namespace {

constexpr qreal kTabStop = 48;  // half an inch
constexpr char16_t kPictureCharacter = 0x200B;
constexpr int kBarHeight = 4;

// A control character is shown as a dot, so that nothing in a line is out of sight.
QString Shown(std::string_view text) {
  QString shown = ToQString(text);
  for (QChar& unit : shown) {
    const char16_t code = unit.unicode();
    const bool control = (code < 0x20 && code != '\t') || code == 0x7F || code == 0x98;
    if (control) unit = QChar(u'\xB7');
    if (code == 0xAD) unit = QLatin1Char('-');  // the hyphen that may break
  }
  return shown;
}

Qt::Alignment ToQt(PaneAlignment alignment) {
  switch (alignment) {
    case PaneAlignment::kRight:
      return Qt::AlignRight;
    case PaneAlignment::kCentre:
      return Qt::AlignHCenter;
    case PaneAlignment::kLeft:
      break;
  }
  return Qt::AlignLeft;
}

// The format that decides about the line as a whole.
PaneFormat LineFormat(const RichTextBox& box, const Fragment& fragment) {
  const auto runs = box.RunsBetween(fragment.line_start, fragment.line_start + 1);
  return runs.empty() ? box.OwnFormat() : runs.front().format;
}

// A blank of no width, spaced out to the picture's width, so that the picture wraps like a
// character.
QTextCharFormat Reserving(QTextCharFormat format, qreal width) {
  format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
  format.setFontLetterSpacing(width);
  return format;
}

void SetRuns(FragmentLayout& layout, QString& shown, const std::vector<PaneRun>& runs,
             PanePosition start, LayoutTools& tools) {
  QList<QTextLayout::FormatRange> ranges;
  for (const PaneRun& run : runs) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(run.start - start);
    range.length = static_cast<int>(run.length);
    range.format = tools.formats.For(run.format);
    if (run.picture) {
      const QSize size = tools.pictures.SizeOf(run.picture);
      shown[range.start] = QChar(kPictureCharacter);
      range.format = Reserving(range.format, size.width());
      layout.pictures.push_back({range.start, size, run.picture});
    }
    if (run.format.back_colour)
      layout.backs.push_back(
          {range.start, range.start + range.length, ToQColor(*run.format.back_colour)});
    ranges.append(range);
  }
  layout.text.setFormats(ranges);
}

int TallestPicture(const FragmentLayout& layout, int start, int end) {
  int height = 0;
  for (const auto& picture : layout.pictures)
    if (picture.index >= start && picture.index < end)
      height = std::max(height, picture.size.height());
  return height;
}

// Whether the row is blank from its start to its end.
bool OnlyBlanks(const FragmentLayout& layout, int start, int end) {
  const QString& text = layout.text.text();
  return end > start && std::all_of(text.begin() + start, text.begin() + end,
                                    [](QChar unit) { return unit == QLatin1Char(' '); });
}

// A row of nothing but blanks on one back colour is a bar from edge to edge of the view.
bool IsBar(const FragmentLayout& layout, const FragmentLayout::Back& back, int start, int end) {
  return back.start <= start && back.end >= end && OnlyBlanks(layout, start, end);
}

// A picture stands on the row's base line and makes its row higher.
void BreakIntoRows(FragmentLayout& layout) {
  layout.text.beginLayout();
  int top = 0;
  for (QTextLine line = layout.text.createLine(); line.isValid(); line = layout.text.createLine()) {
    line.setLineWidth(layout.width);
    const int start = line.textStart();
    const int end = start + line.textLength();
    const int ascent =
        std::max(static_cast<int>(std::ceil(line.ascent())), TallestPicture(layout, start, end));
    const bool bar = std::any_of(layout.backs.begin(), layout.backs.end(),
                                 [&](const auto& back) { return IsBar(layout, back, start, end); });
    const int height =
        std::max(ascent + static_cast<int>(std::ceil(line.descent())), bar ? kBarHeight : 1);
    line.setPosition({0, top + ascent - line.ascent()});
    layout.widest =
        std::max(layout.widest, static_cast<int>(std::ceil(line.naturalTextRect().right())));
    layout.rows.push_back({start, end, top, height});
    top += height;
  }
  layout.text.endLayout();
  layout.height = top;
}

QTextLine LineOf(const FragmentLayout& layout, int row) {
  return layout.text.lineAt(row);
}

qreal XIn(const QTextLine& line, int index) {
  return line.cursorToX(index);
}

}  // namespace

std::shared_ptr<const FragmentLayout> LayOut(const RichTextBox& box, const Fragment& fragment,
                                             int width, LayoutTools& tools) {
  auto layout = std::make_shared<FragmentLayout>();
  layout->serial = ++tools.laid_out;
  layout->width = width;
  layout->length = static_cast<int>(fragment.length);
  layout->breaks = fragment.next > fragment.start + fragment.length;
  if (fragment.EmptyEndOf(box)) {
    layout->rows.push_back({});
    return layout;
  }
  const PaneFormat line_format = LineFormat(box, fragment);
  const PanePosition end = fragment.start + fragment.length;
  QString shown = Shown(box.TextBetween(fragment.start, end));
  layout->text.setCacheEnabled(true);
  layout->text.setFont(tools.formats.For(line_format).font());
  SetRuns(*layout, shown, box.RunsBetween(fragment.start, end), fragment.start, tools);
  layout->text.setText(shown);
  QTextOption option(ToQt(line_format.alignment));
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTabStopDistance(kTabStop);
  option.setTextDirection(Qt::LeftToRight);
  layout->text.setTextOption(option);
  BreakIntoRows(*layout);
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

// By the same edges that painting goes by. (The toolkit's own search counts all blanks at a row's
// end as one.) The code page has no letters that run to the left, so the edges are in order.
int CharacterAt(const FragmentLayout& layout, int x, int y) {
  if (layout.length == 0) return 0;
  const int number = RowAt(layout, y);
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  const QTextLine line = LineOf(layout, number);
  if (x >= XIn(line, row.end)) return row.end;
  int index = row.start;
  for (int end = row.end; end - index > 1;) {
    const int middle = index + (end - index) / 2;
    (XIn(line, middle) <= x ? index : end) = middle;
  }
  return index;
}

int BorderAt(const FragmentLayout& layout, int x, int y) {
  if (layout.length == 0) return 0;
  const int number = RowAt(layout, y);
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  const int index = CharacterAt(layout, x, y);
  if (index == row.end) return index;
  const QTextLine line = LineOf(layout, number);
  return x - XIn(line, index) < XIn(line, index + 1) - x ? index : index + 1;
}

qreal XOf(const FragmentLayout& layout, int index) {
  if (layout.text.lineCount() == 0) return 0;
  return XIn(LineOf(layout, RowOf(layout, index)), index);
}

QRectF BoxOf(const FragmentLayout& layout, int start, int end) {
  const int number = RowOf(layout, start);
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  if (layout.text.lineCount() == 0) return {0, qreal(row.top), 0, qreal(row.height)};
  const QTextLine line = LineOf(layout, number);
  const qreal left = XIn(line, std::min(start, row.end));
  const qreal right = XIn(line, std::min(end, row.end));
  return {left, qreal(row.top), right - left, qreal(row.height)};
}

namespace {

void FillStretch(QPainter& painter, const FragmentLayout& layout, int number, QPointF at, int start,
                 int end, const QColor& colour) {
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  const QTextLine line = LineOf(layout, number);
  const qreal left = XIn(line, std::max(start, row.start));
  const qreal right = XIn(line, std::min(end, row.end));
  painter.fillRect(QRectF(at.x() + left, at.y() + row.top, right - left, row.height), colour);
}

void PaintBacks(QPainter& painter, const FragmentLayout& layout, int number, QPointF at,
                int ground) {
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  for (const auto& back : layout.backs) {
    if (back.end <= row.start || back.start >= row.end) continue;
    if (IsBar(layout, back, row.start, row.end))
      painter.fillRect(QRectF(0, at.y() + row.top, ground, row.height), back.colour);
    else
      FillStretch(painter, layout, number, at, back.start, back.end, back.colour);
  }
}

void PaintSelected(QPainter& painter, const FragmentLayout& layout, int number, QPointF at,
                   SelectedStretch selected, const QColor& colour) {
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  if (selected.end > row.start && selected.start < row.end)
    FillStretch(painter, layout, number, at, selected.start, selected.end, colour);
  // A selected line break shows behind the line's last row.
  const bool last = number + 1 == static_cast<int>(layout.rows.size());
  if (last && layout.breaks && selected.start <= layout.length && selected.end > layout.length)
    painter.fillRect(QRectF(at.x() + XIn(LineOf(layout, number), row.end), at.y() + row.top,
                            std::max(row.height / 3, 2), row.height),
                     colour);
}

void PaintPictures(QPainter& painter, const FragmentLayout& layout, int number, QPointF at,
                   SelectedStretch selected, const QPalette& palette, ToolkitPictures& pictures) {
  const auto& row = layout.rows[static_cast<std::size_t>(number)];
  const QTextLine line = LineOf(layout, number);
  const qreal base = at.y() + line.y() + line.ascent();
  for (const auto& picture : layout.pictures) {
    if (picture.index < row.start || picture.index >= row.end) continue;
    const QRectF place(at.x() + XIn(line, picture.index), base - picture.size.height(),
                       picture.size.width(), picture.size.height());
    const QPixmap pixmap =
        pictures.PixmapOf(picture.picture, painter.device()->devicePixelRatioF());
    if (pixmap.isNull()) {
      painter.setPen(palette.color(QPalette::Mid));
      painter.drawRect(place.adjusted(1, 1, -2, -2));
    } else {
      painter.drawPixmap(place, pixmap, pixmap.rect());
    }
    if (picture.index < selected.start || picture.index >= selected.end) continue;
    QColor veil = palette.color(QPalette::Highlight);
    veil.setAlpha(128);
    painter.fillRect(place, veil);
  }
}

}  // namespace

void Paint(QPainter& painter, const FragmentLayout& layout, QPointF at, const QRectF& clip,
           int ground, SelectedStretch selected, const QPalette& palette,
           ToolkitPictures& pictures) {
  if (layout.text.lineCount() == 0) return;
  const int first = RowAt(layout, static_cast<int>(clip.top() - at.y()));
  const int last = RowAt(layout, static_cast<int>(clip.bottom() - at.y()));
  const QColor highlight = palette.color(QPalette::Highlight);
  const bool any_selected = selected.end > selected.start;
  for (int row = first; row <= last; ++row) {
    PaintBacks(painter, layout, row, at, ground);
    if (any_selected) PaintSelected(painter, layout, row, at, selected, highlight);
  }
  QList<QTextLayout::FormatRange> ranges;
  const int selected_end = std::min(selected.end, layout.length);
  if (any_selected && selected_end > selected.start) {
    QTextLayout::FormatRange range;
    range.start = selected.start;
    range.length = selected_end - selected.start;
    range.format.setForeground(palette.color(QPalette::HighlightedText));
    ranges.append(range);
  }
  if (layout.length > 0) layout.text.draw(&painter, at, ranges, clip);
  if (layout.pictures.empty()) return;
  for (int row = first; row <= last; ++row)
    PaintPictures(painter, layout, row, at, selected, palette, pictures);
}

}  // namespace parlorwire
