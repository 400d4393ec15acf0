#include "pane/qt/fonts.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QString>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "pane/rich_text_box.h"
#include "platform/qt/text_conversion.h"
#include "text/windows1251.h"

namespace parlorwire {
namespace {

constexpr std::size_t kLooksKept = 4096;
// Io and short I, whose marks stand above what many fonts call their height; shcha and j.
constexpr std::string_view kTallest = "\xA8\xC9\xD9j";
constexpr char kBlankThatDoesNotBreak = '\xA0';

// What is painted for the byte.
QChar Shown(char byte) {
  const auto code = static_cast<std::uint8_t>(byte);
  if (code < 0x20 || code == 0x7F || code == 0x98) return QChar(u'\xB7');
  if (code == 0xAD) return QLatin1Char('-');  // the hyphen that may break
  return QChar(ToUnicode(byte));
}

struct FamilyKind {
  const char* word;  // in the family's name, in lower case
  QFont::StyleHint hint;
};

constexpr std::array kFamilyKinds = {
    FamilyKind{"courier", QFont::TypeWriter},    FamilyKind{"mono", QFont::Monospace},
    FamilyKind{"console", QFont::Monospace},     FamilyKind{"consolas", QFont::Monospace},
    FamilyKind{"terminal", QFont::Monospace},    FamilyKind{"fixed", QFont::Monospace},
    FamilyKind{"typewriter", QFont::TypeWriter}, FamilyKind{"sans", QFont::SansSerif},
    FamilyKind{"times", QFont::Serif},           FamilyKind{"serif", QFont::Serif},
    FamilyKind{"roman", QFont::Serif},           FamilyKind{"georgia", QFont::Serif},
    FamilyKind{"garamond", QFont::Serif},        FamilyKind{"bookman", QFont::Serif},
    FamilyKind{"book antiqua", QFont::Serif},    FamilyKind{"palatino", QFont::Serif},
    FamilyKind{"cambria", QFont::Serif},         FamilyKind{"schoolbook", QFont::Serif}};

QFont::StyleHint HintOf(const QString& family) {
  const QString name = family.toLower();
  const auto* kind = std::find_if(kFamilyKinds.begin(), kFamilyKinds.end(), [&](const auto& entry) {
    return name.contains(QLatin1String(entry.word));
  });
  return kind == kFamilyKinds.end() ? QFont::SansSerif : kind->hint;
}

}  // namespace

QColor ToQColor(PaneColour colour) {
  return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
                static_cast<int>((colour >> 16U) & 0xFFU));
}

QFont ToQFont(const PaneFormat& format) {
  const QString family = ToQString(format.font_name);
  QFont font(family);
  const QFont::StyleHint hint = HintOf(family);
  font.setStyleHint(hint);
  if (hint == QFont::Monospace || hint == QFont::TypeWriter) font.setFixedPitch(true);
  font.setPointSize(std::clamp(format.font_size, 1, 400));
  font.setBold(format.bold);
  font.setItalic(format.italic);
  font.setKerning(false);  // characters are measured one by one
  return font;
}

QString FamilyShown(const QString& family) {
  PaneFormat format;
  format.font_name = FromQString(family);
  return QFontInfo(ToQFont(format)).family();
}

// ---- the signs of a font ----

GlyphTable::GlyphTable(const QFont& font) : font_(font) {
  const QRawFont face = QRawFont::fromFont(font_);
  underline_top_ = std::max(static_cast<int>(std::lround(face.underlinePosition())), 1);
  underline_height_ = std::max(static_cast<int>(std::lround(face.lineThickness())), 1);
  for (const char tall : kTallest) {
    const Character& character = Shape(tall);
    ascent_ = std::max(ascent_, character.ascent);
    descent_ = std::max(descent_, character.descent);
  }
  characters_.fill({});
  glyphs_.clear();
}

const GlyphTable::Character& GlyphTable::Shape(char byte) const {
  QTextLayout layout(QString(Shown(byte)), font_);
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  option.setTextDirection(Qt::LeftToRight);
  layout.setTextOption(option);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();

  Character& character = characters_[static_cast<std::uint8_t>(byte)];
  character.advance = std::max(static_cast<float>(line.cursorToX(1)), 0.0F);
  qreal ascent = std::max(line.ascent(), qreal(ascent_));
  qreal descent = std::max(line.descent(), qreal(descent_));
  character.first = static_cast<std::uint16_t>(glyphs_.size());
  const bool blank = byte == ' ' || byte == '\t' || byte == kBlankThatDoesNotBreak;
  for (const QGlyphRun& run : layout.glyphRuns()) {
    if (blank) break;
    const auto known = std::find(faces_.begin(), faces_.end(), run.rawFont());
    const auto face = static_cast<std::uint32_t>(known - faces_.begin());
    if (known == faces_.end()) faces_.push_back(run.rawFont());
    const QList<quint32> indices = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    for (qsizetype i = 0; i < indices.size(); ++i) {
      const QPointF offset = positions[i] - QPointF(0, line.ascent());
      const QRectF ink = run.rawFont().boundingRect(indices[i]).translated(offset);
      ascent = std::max(ascent, -ink.top());
      descent = std::max(descent, ink.bottom());
      glyphs_.push_back({indices[i], face, offset});
    }
  }
  character.ascent = static_cast<std::uint16_t>(std::ceil(ascent));
  character.descent = static_cast<std::uint16_t>(std::ceil(descent));
  character.count = static_cast<std::uint16_t>(glyphs_.size() - character.first);
  return character;
}

// ---- the looks ----

std::shared_ptr<const GlyphTable> ToolkitLooks::GlyphsOf(const PaneFormat& format) {
  auto& glyphs = fonts_[{format.font_name, format.font_size, format.bold, format.italic}];
  if (glyphs == nullptr) glyphs = std::make_shared<const GlyphTable>(ToQFont(format));
  return glyphs;
}

ToolkitLook ToolkitLooks::Made(const PaneFormat& format) {
  ToolkitLook made;
  made.glyphs = GlyphsOf(format);
  made.colour = ToQColor(format.colour);
  if (format.back_colour) made.back_colour = ToQColor(*format.back_colour);
  made.underline = format.underline;
  made.alignment = format.alignment;
  return made;
}

std::shared_ptr<const ToolkitLook> ToolkitLooks::For(const RichTextBox& box, PaneLookId look,
                                                     ToolkitPictures& pictures) {
  if (epoch_ != box.LookEpoch() || looks_.size() > kLooksKept) {
    looks_.clear();
    epoch_ = box.LookEpoch();
  }
  auto& kept = looks_[look];
  if (kept != nullptr) return kept;
  const PaneRun run = box.LookOf(look);
  ToolkitLook made = Made(run.format);
  if (run.picture) {
    made.picture = run.picture;
    made.picture_size = pictures.SizeOf(run.picture);
  }
  kept = std::make_shared<const ToolkitLook>(std::move(made));
  return kept;
}

std::shared_ptr<const ToolkitLook> ToolkitLooks::Own(const RichTextBox& box) {
  return std::make_shared<const ToolkitLook>(Made(box.OwnFormat()));
}

void ToolkitLooks::Clear() {
  fonts_.clear();
  looks_.clear();
}

}  // namespace parlorwire
