#include "platform/qt/rich_text_view_fonts.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>

#include "platform/qt/text_conversion.h"

namespace parlorwire {
namespace {

constexpr std::size_t kFormatsKept = 1024;

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
  font.setUnderline(format.underline);
  return font;
}

const QTextCharFormat& ToolkitFormats::For(const PaneFormat& format) {
  const Key key(format.font_name, format.font_size, format.colour, format.bold, format.italic,
                format.underline);
  if (const auto found = formats_.find(key); found != formats_.end()) return found->second;
  if (formats_.size() >= kFormatsKept) formats_.clear();
  QTextCharFormat made;
  made.setFont(ToQFont(format));
  made.setForeground(ToQColor(format.colour));
  return formats_.emplace(key, made).first->second;
}

}  // namespace parlorwire
